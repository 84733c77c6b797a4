// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/info_command.h"

#include "console/messages.h"
#include "field/info_json.h"
#include "field/info_text.h"
#include "field/inputs.h"
#include "field/json.h"
#include "field/progress_bar.h"

#include <iostream>

namespace {

/// What is said of a file: in lines, and as an object.
struct Info
{
    std::string text = {};
    QJsonObject object = {};
};

void addPicks(const Input &input, const PickOptions &options, Info &info, Report &report)
{
    PickSurvey survey;
    if (!readPicksWithBar(input, options, survey, report))
        return;
    const PickSummary summary = summarise(survey);
    info.text += describe(summary, input.format->units);
    info.object["picks"] = toJson(summary);
}

/// Also says what the traces before a damage hold.
void addRecord(const Input &input, Info &info, Report &report)
{
    ProgressBar bar(input.path);
    RecordSummary summary;
    input.format->readRecord(
        input.path,
        [&](const RecordFile &file, const RecordTrace &trace) {
            addTrace(summary, file, trace);
            bar.show(file.fractionRead);
            return true;
        },
        report);
    if (summary.traces == 0)
        return;
    info.text += describe(summary, input.format->units);
    info.object["record"] = toJson(summary);
}

Info infoOn(const std::string &path, const Request &request, const PickOptions &options,
            Report &report)
{
    Info info{inOneLine(path) + ":\n", {{"file", QString::fromStdString(path)}}};
    const Input input = openInput(path, request, report);
    if (input.format == nullptr)
        return info;
    info.text += infoLine("format", input.format->title + " (" + input.format->name + ')')
                 + infoLine("known by", input.knownBy);
    info.object["format"] = QString::fromStdString(input.format->name);
    info.object["knownBy"] = QString::fromStdString(input.knownBy);
    info.object["units"] = QString::fromStdString(input.format->units);
    if (holdsPicks(input))
        addPicks(input, options, info, report);
    else
        addRecord(input, info, report);
    return info;
}

} // namespace

int runInfo(const Request &request)
{
    Report report;
    const PickOptions options = pickOptionsOf(request, report);
    QJsonArray files;
    int status = converted;
    for (const std::string &path : request.files) {
        if (report.failure)
            break; // without the list that was asked for nothing is sure
        Report fileReport;
        Info info = infoOn(path, request, options, fileReport);
        addReport(info.object, fileReport);
        files.append(info.object);
        if (!request.isJson)
            std::cout << info.text << std::flush;
        status = std::max(status, conclude(fileReport, false, path));
    }
    QJsonObject object{{"files", files}};
    addReport(object, report);
    if (request.isJson)
        std::cout << toText(object);
    flushOutput(report);
    return std::max(status, conclude(report, false, ""));
}
