// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <functional>
#include <string>
#include <vector>

/// Makes one or two outputs that belong together: all become new, or all stay as they were.
///
/// `write` gets the path of a new file beside each of `paths`, in their order, and returns whether
/// it wrote all of them whole. Then the new files take the places of `paths`, with the permissions
/// of the older files. If `write` returns false or throws, or if an output cannot be replaced, the
/// new files are removed and older ones are put back. The same holds when an interrupt (SIGINT), a
/// request to end (SIGTERM), a hang-up or a closed pipe ends the process; while the new files take
/// their places, these signals wait.
///
/// A link is followed. A device or a pipe has no place to take: it is written directly. A regular
/// file behind the process's standard output cannot be replaced, so it is refused.
///
/// Returns whether all outputs are new; if not, the report has a failure.
bool writeWhole(const std::vector<std::string> &paths,
                const std::function<bool(const std::vector<std::string> &)> &write, Report &report);
