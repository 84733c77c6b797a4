// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/viewed_files.h"

#include "console/file_checks.h"
#include "field/inputs.h"
#include "field/pick_checks.h"
#include "field/record_checks.h"
#include "field/topography.h"

#include <filesystem>

namespace {

/// Reads a record and checks its traces as they pass.
void readRecord(const Input &input, ViewedFiles &files, Report &report, const GoesOn &goesOn)
{
    const auto data = std::make_shared<RecordData>();
    RecordChecks checks;
    const auto read = [&](const std::string &path, const TakeTrace &take, Report &told) {
        return input.format->readRecord(
            path,
            [&](const RecordFile &file, RecordTrace &trace) {
                checkTrace(checks, file, trace);
                return take(file, trace);
            },
            told);
    };
    readRecordData(read, input.path, *data, goesOn, report);
    if (data->traces.empty())
        return;
    files.records.push_back({data, finishChecks(checks, input.path)});
}

/// Reads a file; false when it cannot be read whole.
bool readFile(const std::string &path, const Request &request, const PickOptions &options,
              ViewedFiles &files, Report &report, const GoesOn &goesOn)
{
    const Input input = openInput(path, request, report);
    if (input.format == nullptr)
        return false;
    if (!holdsPicks(input)) {
        readRecord(input, files, report, goesOn);
        return !report.failure;
    }
    PickSurvey picks = files.picks;
    if (!readPicks(input, options, picks, report))
        return false;
    files.picks = std::move(picks);
    files.pickPaths.push_back(path);
    return true;
}

/// How far reading is after each file, from 0 to 1.
std::vector<double> fractionsOf(const std::vector<std::string> &paths)
{
    std::vector<double> sizes = {0.0};
    for (const std::string &path : paths) {
        std::error_code error;
        const auto size = std::filesystem::file_size(path, error);
        sizes.push_back(sizes.back() + (error ? 0.0 : static_cast<double>(size)) + 1.0);
    }
    for (double &size : sizes)
        size /= sizes.back();
    return sizes;
}

} // namespace

bool readFiles(const Request &request, ViewedFiles &files, std::vector<Report> &reports,
               const GoesOn &goesOn)
{
    ViewedFiles next = files;
    std::vector<Report> told(1);
    const PickOptions options = pickOptionsOf(request, told.front());
    const std::vector<double> done = fractionsOf(request.files);
    bool isGoing = true;
    for (std::size_t i = 0; i < request.files.size() && !told.front().failure; ++i) {
        Report report;
        attempt(report, [&] {
            readFile(request.files[i], request, options, next, report, [&](double fraction) {
                isGoing = isGoing && goesOn(done[i] + fraction * (done[i + 1] - done[i]));
                return isGoing;
            });
        });
        told.push_back(report);
        isGoing = isGoing && goesOn(done[i + 1]);
        if (!isGoing)
            return false;
    }
    if (!request.topography.empty() && isReadable(request.topography, told.front()))
        applyTopography(request.topography, next.picks, told.front());
    PickCheckSummary summary;
    next.findings = checkPicks(next.picks, request.tolerance, summary);
    files = std::move(next);
    reports.insert(reports.end(), told.begin(), told.end());
    return true;
}
