// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// The conversions of plain/ as a command: bench/compare measures ours beside it.
//
//   plain_convert su FILE
//   plain_convert dolang BASE
//   plain_convert geogiga|seisimager|winsism FILE OUTPUT
//   plain_convert generic LIST OUTPUT

#include "plain/dolang.h"
#include "plain/generic_text.h"
#include "plain/geogiga.h"
#include "plain/otte.h"
#include "plain/seisimager.h"
#include "plain/seismic_unix.h"
#include "plain/text.h"
#include "plain/winsism.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace {

/// Reads the surveys of a list: a line for each, with its file's name and the shot's position.
void readGenericList(const std::string &listPath, plain::Survey &survey)
{
    std::ifstream list(listPath);
    std::vector<std::string> paths;
    std::vector<double> xs;
    std::vector<double> elevations;
    std::string line;
    while (std::getline(list, line)) {
        const std::vector<std::string> fields = plain::tokenize(line, ";", 3);
        paths.push_back(std::filesystem::path(listPath).replace_filename(fields[0]).string());
        xs.push_back(plain::number(fields[1]));
        elevations.push_back(plain::number(fields[2]));
    }
    plain::readGenericFiles(paths, xs, elevations, survey);
}

bool readSurvey(const std::string &format, const std::string &path, plain::Survey &survey)
{
    if (format == "geogiga")
        return plain::readGeogiga(path, survey);
    if (format == "winsism")
        return plain::readWinsism(path, survey);
    if (format == "seisimager")
        return plain::readSeisImagerFiles({path}, survey);
    readGenericList(path, survey);
    return true;
}

bool convert(const std::string &format, const std::vector<std::string> &paths)
{
    if (format == "su")
        return plain::convertSeismicUnix(paths.at(0)) == 0;
    if (format == "dolang") {
        plain::convertDolang(paths.at(0));
        return true;
    }
    plain::Survey survey;
    return readSurvey(format, paths.at(0), survey) && plain::writeOtte(paths.at(1), survey);
}

} // namespace

int main(int argc, char *argv[])
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    try {
        if (convert(arguments.at(0), {arguments.begin() + 1, arguments.end()}))
            return 0;
        std::cerr << "not converted" << std::endl;
    } catch (const std::exception &error) {
        std::cerr << error.what() << std::endl;
    }
    return 1;
}
