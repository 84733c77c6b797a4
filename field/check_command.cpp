// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/check_command.h"

#include "console/messages.h"
#include "field/info_json.h"
#include "field/inputs.h"
#include "field/json.h"
#include "field/pick_checks.h"
#include "field/progress_bar.h"
#include "field/record_checks.h"
#include "field/window_verdict.h"
#include "traveltime/text.h"

#include <QString>

#include <iostream>

namespace {

/// What a check comes to.
struct Outcome
{
    std::vector<Finding> findings = {};
    std::vector<std::string> lines = {}; ///< that sum up, for people
    QJsonObject object = {};             ///< the same, for programs
};

QJsonObject toJson(const Finding &finding)
{
    QJsonObject object{{"kind", QString::fromStdString(finding.kind)},
                       {"text", QString::fromStdString(finding.text)}};
    addPlace(object, finding.place, finding.trace);
    return object;
}

void append(QJsonObject &object, const QString &name, const QJsonObject &value)
{
    QJsonArray array = object[name].toArray();
    array.append(value);
    object[name] = array;
}

void addFindings(Outcome &outcome, std::vector<Finding> findings)
{
    for (Finding &finding : findings)
        outcome.findings.push_back(std::move(finding));
}

/// Says whether the window reads the same survey from the file.
void addVerdict(Outcome &outcome, const Input &input, const PickOptions &options)
{
    const std::optional<WindowVerdict> verdict =
        windowVerdict(input.format->name, input.path, options);
    if (!verdict)
        return;
    QJsonObject object{{"isSame", verdict->isSame}};
    addPlace(object, verdict->isSame ? Place{input.path} : verdict->place);
    if (!verdict->isSame)
        object["text"] = QString::fromStdString(verdict->text);
    append(outcome.object, "window", object);
    if (verdict->isSame)
        outcome.lines.push_back(input.path + ": the window reads the same survey");
    else
        outcome.findings.push_back({"window", verdict->place, 0, verdict->text});
}

void checkSurveyOfPicks(Outcome &outcome, const PickSurvey &survey, double tolerance)
{
    PickCheckSummary checks;
    addFindings(outcome, checkPicks(survey, tolerance, checks));
    const PickSummary summary = summarise(survey);
    QJsonObject object = toJson(summary);
    object["reciprocalPairs"] = static_cast<qint64>(checks.reciprocalPairs);
    object["medianReciprocalDifference"] =
        checks.medianDifference ? QJsonValue(*checks.medianDifference) : QJsonValue::Null;
    outcome.object["picks"] = object;
    outcome.lines.push_back(
        counted(summary.shots, "shot") + ", " + counted(summary.picks, "pick") + ", "
        + counted(checks.reciprocalPairs, "reciprocal pair")
        + (checks.medianDifference
               ? ", median difference "
                     + QString::number(*checks.medianDifference * 1000.0, 'g', 4).toStdString()
                     + " ms"
               : ""));
}

void checkRecord(Outcome &outcome, const Input &input, Report &report)
{
    ProgressBar bar(input.path);
    RecordChecks checks;
    std::size_t traces = 0;
    input.format->readRecord(
        input.path,
        [&](const RecordFile &file, const RecordTrace &trace) {
            ++traces;
            checkTrace(checks, file, trace);
            bar.show(file.fractionRead);
            return true;
        },
        report);
    addFindings(outcome, finishChecks(checks, input.path));
    append(outcome.object, "records",
           {{"file", QString::fromStdString(input.path)}, {"traces", static_cast<qint64>(traces)}});
    outcome.lines.push_back(input.path + ": " + counted(traces, "trace"));
}

/// Checks a file, or reads its picks into the survey.
void checkFile(Outcome &outcome, const Input &input, const PickOptions &options, PickSurvey &survey,
               Report &report)
{
    if (!holdsPicks(input)) {
        if (input.format != nullptr)
            checkRecord(outcome, input, report);
    } else if (readPicksWithBar(input, options, survey, report)) {
        addVerdict(outcome, input, options);
    }
}

/// Checks all files and shows what there is to say about their reading; false when one failed.
bool checkFiles(const Request &request, Outcome &outcome)
{
    Report listReport;
    const PickOptions options = pickOptionsOf(request, listReport);
    addReport(outcome.object, listReport);
    bool isRead = conclude(listReport, false, "") == converted;
    PickSurvey survey;
    bool areAllPicksRead = isRead;
    for (const std::string &path : request.files) {
        if (listReport.failure)
            break; // without the list that was asked for nothing is sure
        Report report;
        const Input input = openInput(path, request, report);
        checkFile(outcome, input, options, survey, report);
        addReport(outcome.object, report);
        if (conclude(report, false, "") == converted)
            continue;
        isRead = false;
        areAllPicksRead = areAllPicksRead && input.format != nullptr && !holdsPicks(input);
    }
    if (survey.survey.shots.empty())
        return isRead;
    if (areAllPicksRead)
        checkSurveyOfPicks(outcome, survey, request.tolerance);
    else
        outcome.lines.emplace_back("the picks are not checked, as a file was refused");
    return isRead;
}

} // namespace

int runCheck(const Request &request)
{
    Outcome outcome;
    const bool isRead = checkFiles(request, outcome);
    QJsonArray findings;
    for (const Finding &finding : outcome.findings)
        findings.append(toJson(finding));
    outcome.object["findings"] = findings;
    if (request.isJson) {
        std::cout << toText(outcome.object);
    } else {
        for (const Finding &finding : outcome.findings)
            std::cout << inOneLine(lineOf(finding)) + '\n';
        for (const std::string &line : outcome.lines)
            std::cout << inOneLine(line) + '\n';
        if (!outcome.findings.empty())
            std::cout << counted(outcome.findings.size(), "finding") + '\n';
        else
            std::cout << (isRead ? "nothing found\n" : "nothing found in what could be read\n");
    }
    Report report;
    flushOutput(report);
    const int status = conclude(report, false, "");
    const bool isRefused = request.isStrict && !outcome.findings.empty();
    return isRead && !isRefused ? status : conversionFailed;
}
