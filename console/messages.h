// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <string>
#include <vector>

// The command's exit status.
inline constexpr int converted = 0;
inline constexpr int conversionFailed = 1;
inline constexpr int wrongUsage = 2;

/// Whether the outputs may be made: nothing failed, and with `isStrict` there is no remark either.
bool isAccepted(const Report &report, bool isStrict);

/// The remarks and the failure, each in one line "file:line: text".
std::vector<std::string> messagesOf(const Report &report);

/// Shows the remarks and the failure on the standard error stream and returns the exit status.
/// `name` is what was to be made or converted, for the line that says that `isStrict` prevented it.
int conclude(const Report &report, bool isStrict, const std::string &name);

/// `text` as one line of a terminal: a control character becomes "?", and a long text is cut.
std::string inOneLine(std::string text);

/// Shows wrong usage on the standard error stream and returns its exit status.
int refuseUsage(const std::string &reason);
