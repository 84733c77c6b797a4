// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/traveltime_command.h"

#include "batch/file_checks.h"
#include "batch/messages.h"
#include "batch/whole_file.h"
#include "readers/geogiga.h"
#include "readers/winsism.h"
#include "traveltime/drivers.h"
#include "traveltime/fields.h"
#include "traveltime/generic_text.h"
#include "traveltime/otte_writer.h"
#include "traveltime/survey_checks.h"
#include "traveltime/text.h"

#include <algorithm>
#include <filesystem>
#include <functional>

namespace {

using Check = bool(const std::string &path, Report &report);
using Read = std::function<bool(TraveltimeSurvey &survey, Report &report)>;

/// Reads `files` with `read`, their times in `unit`, and writes the survey if the report allows it.
int convert(const Request &request, const std::vector<std::string> &files, Check &isUsable,
            const std::string &unit, const Read &read)
{
    Report report;
    for (const std::string &file : files)
        if (!report.failure && isUsable(file, report) && isSameFile(file, request.output))
            fail(report, {file}, "the output would replace this input");
    const auto readAndWrite = [&](const std::vector<std::string> &parts) {
        TraveltimeSurvey survey;
        if (read(survey, report))
            checkSurvey(survey, unit, report);
        return isAccepted(report, request.isStrict) && writeOtte(parts.front(), survey, report);
    };
    if (!report.failure)
        writeWhole({request.output}, readAndWrite, report);
    return conclude(report, request.isStrict, request.output);
}

/// Generic files with the positions of their shots.
struct GenericShots
{
    std::vector<std::string> files;
    std::vector<double> xs;
    std::vector<double> elevations;
};

/// Whether all of `text` is a number, which becomes `value`.
bool isNumber(const std::string &text, double &value)
{
    Report report;
    value = readNumber(text, report);
    return report.remarks.empty();
}

/// Adds a shot whose position is "x<separator>elevation"; false when these are not two numbers.
bool addShot(GenericShots &shots, const std::string &file, const std::string &position,
             char separator)
{
    const std::size_t end = std::min(position.find(separator), position.size());
    shots.files.push_back(file);
    return isNumber(position.substr(0, end), shots.xs.emplace_back()) && end < position.size()
           && isNumber(position.substr(end + 1), shots.elevations.emplace_back());
}

bool readShotList(const Request &request, GenericShots &shots, Report &report)
{
    const std::string &path = request.shotList;
    if (isSameFile(path, request.output))
        return fail(report, {path}, "the output would replace this input");
    if (!isReadableText(path, report))
        return false;
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    TextFile file = loadText(path, report);
    if (markSize(file.text) == 3)
        file.position = 3;
    std::string line;
    while (!report.failure && nextLine(file, line, report)) {
        const std::size_t nameEnd = line.find(';');
        if (nameEnd == 0 || nameEnd == std::string::npos
            || !addShot(shots, (folder / line.substr(0, nameEnd)).string(),
                        line.substr(nameEnd + 1), ';'))
            fail(report, "\"file;x;elevation\" expected");
    }
    if (shots.files.empty())
        fail(report, {path}, "no shot is listed");
    return !report.failure;
}

} // namespace

int runGeogiga(const Request &request)
{
    return convert(request, request.files, isReadableFromItsStart, "seconds",
                   [&](TraveltimeSurvey &survey, Report &report) {
                       return readGeogiga(request.files.front(), survey, report);
                   });
}

int runWinsism(const Request &request)
{
    return convert(request, request.files, isReadableFromItsStart, "milliseconds",
                   [&](TraveltimeSurvey &survey, Report &report) {
                       return readWinsism(request.files.front(), survey, report);
                   });
}

int runSeisImager(const Request &request)
{
    // The first line of a file is passed over.
    return convert(request, request.files, isReadableText, "milliseconds",
                   [&](TraveltimeSurvey &survey, Report &report) {
                       return readSeisImagerFiles(request.files, survey, report);
                   });
}

int runGeneric(const Request &request)
{
    GenericShots shots;
    if (Report report; !request.shotList.empty() && !readShotList(request, shots, report))
        return conclude(report, request.isStrict, request.output);
    if (request.files.size() != request.shotPositions.size())
        return refuseUsage("one --shot is needed for each file");
    for (std::size_t i = 0; i < request.files.size(); ++i)
        if (!addShot(shots, request.files[i], request.shotPositions[i], ','))
            return refuseUsage("--shot takes X,ELEVATION, not \"" + request.shotPositions[i] + '"');
    return convert(request, shots.files, isReadableFromItsStart, "seconds",
                   [&](TraveltimeSurvey &survey, Report &report) {
                       return readGenericFiles(shots.files, shots.xs, shots.elevations, survey,
                                               report);
                   });
}
