// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/problem.h"

#include <cstdint>
#include <functional>
#include <string>

// The command's exit status.
inline constexpr int converted = 0;
inline constexpr int conversionFailed = 1;
inline constexpr int wrongUsage = 2;

/// Runs one conversion, silencing what it writes to the standard error stream. True when it went
/// well; otherwise problem.detail says why, behind the text of the error if it raised one.
bool attempt(const std::function<std::int32_t()> &conversion, Problem &problem);

/// Tells a failure or a remark in one line on the standard error stream: "file:line: detail".
void report(const Problem &problem);

/// True when `path` can be read from; otherwise `problem` says why not. A conversion may take a
/// missing file for an empty one, a script must not.
bool isReadable(const std::string &path, Problem &problem);

/// The same for a text. UTF-16 is refused: every number in it would read as 0.
bool isReadableText(const std::string &path, Problem &problem);

/// The same for a text whose first line counts: behind a byte order mark its first word is lost.
bool isReadableFromItsStart(const std::string &path, Problem &problem);

/// True when `path` can be written to, as it stands.
bool isWritable(const std::string &path);

/// True when both are names of one existing file.
bool isSameFile(const std::string &first, const std::string &second);

/// Tells wrong usage on the standard error stream and returns its exit status.
int refuseUsage(const std::string &reason);
