// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/inputs.h"

#include "console/file_checks.h"
#include "field/progress_bar.h"
#include "field/shot_list.h"

#include <algorithm>
#include <filesystem>

Input openInput(const std::string &path, const Request &request, Report &report)
{
    if (!isReadable(path, report))
        return {path};
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) {
        fail(report, {path}, "this is no regular file, which can be read more than once");
        return {path};
    }
    const FoundFormat found = findFormat(path, request.from, report);
    return {path, found.format, found.knownBy};
}

bool holdsPicks(const Input &input)
{
    return input.format != nullptr && input.format->readPicks != nullptr;
}

bool readPicks(const Input &input, const PickOptions &options, PickSurvey &survey, Report &report)
{
    const std::vector<std::string> &before = survey.files;
    if (std::find(before.begin(), before.end(), input.path) != before.end()) {
        // What there is to remark on was said when the file was read first.
        Report again;
        return input.format->readPicks(input.path, options, survey, again)
               || fail(report, again.failure->place, again.failure->text);
    }
    if (options.timesIn && !input.format->hasNoTimeUnit)
        remark(report, RemarkKind::format, {input.path},
               input.format->name + " has a unit of times: --times-in does not change it");
    return input.format->readPicks(input.path, options, survey, report);
}

bool readPicksWithBar(const Input &input, PickOptions options, PickSurvey &survey, Report &report)
{
    ProgressBar bar(input.path);
    options.progress = [&](double fraction) { bar.show(fraction); };
    return readPicks(input, options, survey, report);
}

PickOptions pickOptionsOf(const Request &request, Report &report)
{
    PickOptions options;
    options.timesIn = request.timesIn;
    if (!request.shotList.empty() && isReadable(request.shotList, report))
        readShotList(request.shotList, options.shotPositions, report);
    return options;
}
