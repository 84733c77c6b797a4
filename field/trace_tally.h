// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <cstddef>
#include <string>

/// Something that the traces of a record may have in common.
struct TraceTally
{
    std::size_t traceCount = 0; ///< how many have it
    std::size_t firstTrace = 0; ///< of these, counted from 1
    std::string text = {};      ///< what it is in the first
};

/// Counts a trace; `text` is called for the first one alone.
template <typename Text>
void countTrace(TraceTally &tally, std::size_t trace, Text text)
{
    if (++tally.traceCount > 1)
        return;
    tally.firstTrace = trace;
    tally.text = text();
}

/// "trace 5 and 3 more: ".
inline std::string tracesOf(const TraceTally &tally)
{
    const std::string others =
        tally.traceCount == 1 ? "" : " and " + std::to_string(tally.traceCount - 1) + " more";
    return "trace " + std::to_string(tally.firstTrace) + others + ": ";
}

/// Remarks on what was counted, if anything was.
inline void remarkOn(const TraceTally &tally, RemarkKind kind, Report &report)
{
    if (tally.traceCount > 0)
        remark(report, kind, tracesOf(tally) + tally.text);
}
