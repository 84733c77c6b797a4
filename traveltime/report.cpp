// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/report.h"

#include <cerrno>
#include <iostream>
#include <system_error>
#include <utility>

bool fail(Report &report, const std::string &text, Window window)
{
    return fail(report, report.place, text, window);
}

bool fail(Report &report, Place place, const std::string &text, Window window)
{
    if (!report.failure)
        report.failure = {std::move(place), text};
    if (window == Window::stops)
        report.result = 1;
    return false;
}

bool failInSystem(Report &report, const std::string &path, Window window)
{
    return fail(report, {path}, std::generic_category().message(errno), window);
}

void remark(Report &report, RemarkKind kind, const std::string &text)
{
    remark(report, kind, report.place, text);
}

void remark(Report &report, RemarkKind kind, Place place, const std::string &text)
{
    if (++report.remarkCounts[{place.file, kind}] <= mostRemarks)
        report.remarks.push_back({kind, std::move(place), text});
}

void remarkWorst(Report &report, RemarkKind kind, double size,
                 const std::function<std::string()> &text)
{
    ++report.remarkCounts[{report.place.file, kind}];
    const auto [worst, isFirst] = report.worst.try_emplace({report.place.file, kind}, size);
    if (isFirst) {
        report.remarks.push_back({kind, report.place, text()});
    } else if (size > worst->second) {
        worst->second = size;
        for (Remark &kept : report.remarks)
            if (kept.kind == kind && kept.place.file == report.place.file)
                kept = {kind, report.place, text()};
    }
}

Report windowReport()
{
    Report report;
    report.printsAtOnce = true;
    return report;
}

void print(Report &report, const std::string &line)
{
    if (report.printsAtOnce)
        std::cerr << line + '\n';
    else
        report.printed += line + '\n';
}

std::int32_t finish(const Report &report)
{
    if (report.error)
        std::rethrow_exception(report.error);
    return report.result;
}
