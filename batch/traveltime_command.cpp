// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/traveltime_command.h"

#include "batch/report.h"
#include "batch/whole_file.h"
#include "traveltime/drivers.h"
#include "traveltime/generic_text.h"
#include "traveltime/text.h"

#include <QString>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace {

using Check = bool(const std::string &path, Problem &problem);
using Conversion = std::function<std::int32_t(const std::string &outputPath, Problem &problem)>;

int run(const std::vector<std::string> &files, Check &isUsable, const std::string &outputPath,
        const Conversion &conversion)
{
    Problem problem;
    for (const std::string &file : files) {
        if (isUsable(file, problem) && isSameFile(file, outputPath))
            problem.detail = "the output would replace this input";
        if (!problem.detail.empty()) {
            report(problem);
            return conversionFailed;
        }
    }
    const bool whole = writeWhole(
        outputPath,
        [&](const std::string &path) {
            return attempt([&] { return conversion(path, problem); }, problem);
        },
        problem);
    report(problem);
    return whole ? converted : conversionFailed;
}

bool readList(const std::string &path, std::vector<GenericShot> &shots, Problem &problem)
{
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    TextFile file = loadText(path, problem);
    if (markSize(file.text) == 3)
        file.position = 3;
    std::string line;
    while (problem.detail.empty() && nextLine(file, line, problem)) {
        const std::size_t nameEnd = line.find(';');
        GenericShot shot{(folder / line.substr(0, nameEnd)).string()};
        if (nameEnd == 0 || nameEnd == std::string::npos
            || !parsePosition(line.substr(nameEnd + 1), ';', shot))
            tell(problem, "\"file;x;elevation\" expected");
        shots.push_back(shot);
    }
    if (shots.empty() && problem.detail.empty())
        problem = {path, 0, "no shot is listed"};
    return problem.detail.empty();
}

bool toNumber(const QString &text, double &value)
{
    bool isNumber = false;
    value = text.toDouble(&isNumber);
    return isNumber && std::isfinite(value);
}

} // namespace

int runTraveltimes(const std::string &format, const std::vector<std::string> &files,
                   const std::string &outputPath)
{
    // Of a SeisImager file the first line is passed over.
    Check &isUsable = format == "seisimager" ? isReadableText : isReadableFromItsStart;
    return run(files, isUsable, outputPath, [&](const std::string &path, Problem &problem) {
        if (format == "geogiga")
            return convertGeogiga(files.front(), path, problem);
        if (format == "winsism")
            return convertWinsism(files.front(), path, problem);
        if (files.size() == 1)
            return convertSeisImager(files.front(), path, problem);
        return convertSeisImagerFiles(files, path, problem);
    });
}

int runGeneric(const std::vector<GenericShot> &shots, const std::string &outputPath)
{
    std::vector<std::string> files;
    std::vector<double> shotXs;
    std::vector<double> shotElevations;
    for (const GenericShot &shot : shots) {
        files.push_back(shot.file);
        shotXs.push_back(shot.x);
        shotElevations.push_back(shot.elevation);
    }
    return run(files, isReadableFromItsStart, outputPath,
               [&](const std::string &path, Problem &problem) {
                   return convertGenericText(files, path, shotXs, shotElevations, problem);
               });
}

int runGenericList(const std::string &listPath, const std::string &outputPath)
{
    Problem problem;
    std::vector<GenericShot> shots;
    if (isSameFile(listPath, outputPath))
        problem = {listPath, 0, "the output would replace this input"};
    if (!isReadableText(listPath, problem) || !readList(listPath, shots, problem)) {
        report(problem);
        return conversionFailed;
    }
    return runGeneric(shots, outputPath);
}

bool parsePosition(const std::string &text, char separator, GenericShot &shot)
{
    const QStringList numbers = QString::fromStdString(text).split(QChar(separator));
    return numbers.size() == 2 && toNumber(numbers[0], shot.x)
           && toNumber(numbers[1], shot.elevation);
}
