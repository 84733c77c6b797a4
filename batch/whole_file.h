// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/problem.h"

#include <functional>
#include <string>

/// Makes an output that appears under its name only when it is whole. `write` gets the path of a
/// new file beside `path` and says whether it wrote all of it; then the new file takes the place of
/// `path`, keeping its permissions. Otherwise, and when a signal that can be caught (an interrupt,
/// a hang-up, a closed pipe, a request to end, a time limit) ends the process, the new file is
/// removed and what stood under `path` stays as it was. A device or a pipe has no place to take and
/// is written directly; a file that can only be reached as the process's standard output is
/// refused.
///
/// Returns whether the output is whole; if not, `problem` says why.
bool writeWhole(const std::string &path, const std::function<bool(const std::string &)> &write,
                Problem &problem);
