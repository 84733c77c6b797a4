// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/window_losses.h"

#include "field/numbers.h"
#include "seg2/dolang_conversion.h"
#include "seg2/su_conversion.h"
#include "seg2/su_file.h"
#include "traveltime/fields.h"

#include <algorithm>

#include <QFile>
#include <QTemporaryDir>

namespace {

Finding inWindow(const Place &place, const std::string &text)
{
    return {"window", place, 0, "the window: " + text};
}

/// What the exact reading said.
std::vector<Finding> findingsOf(const Report &report)
{
    if (report.failure)
        return {inWindow(report.failure->place, report.failure->text)};
    std::vector<Finding> findings;
    for (const Remark &remark : report.remarks)
        findings.push_back(inWindow(remark.place, remark.text));
    return findings;
}

std::vector<Finding> suLosses(const std::string &path)
{
    Report report;
    QFile file;
    SuFindings findings;
    std::size_t traceCount = 0;
    const auto take = [&](const SuTrace &trace) {
        remarkOnPosition(trace.receiverX, report);
        if (++traceCount == 1) // its source counts for all
            remarkOnPosition(trace.sourceX, report);
    };
    if (openSuFile(path, file, nullptr, report))
        indexSuFile(file, take, findings, report);
    constexpr std::size_t mostInWindow = 16383;
    if (traceCount > mostInWindow)
        fail(report, grouped(traceCount) + " traces, but its SEG2 file can point to 16,383");
    return findingsOf(report);
}

/// The conversion of a small text, outputs and all, as a whole.
std::vector<Finding> dolangLosses(const std::string &path)
{
    const auto kind = std::find_if(dolangKinds.begin(), dolangKinds.end(), [&](const auto &one) {
        return path.ends_with(one.headerExtension);
    });
    if (kind == dolangKinds.end())
        return {inWindow({path}, "a Dolang set's names end in capitals, as LINE.ADT does")};
    const QTemporaryDir folder;
    const auto inFolder = [&](const char *name) { return folder.filePath(name).toStdString(); };
    Report report;
    convertDolang(beforeLastDot(path), *kind, inFolder("listing"), inFolder("seg2"), nullptr,
                  report);
    return findingsOf(report);
}

} // namespace

std::vector<Finding> windowLosses(const std::string &format, const std::string &path)
{
    if (format == "su")
        return suLosses(path);
    return format == "dolang" ? dolangLosses(path) : std::vector<Finding>{};
}
