// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

/// Converts seismic records of `format`, "su" or "dolang", into SEG2 files, each on its own: every
/// one is tried, a failure is told in one line, and the exit status says whether any failed. A
/// Dolang set is named by its base or by any of its three headers. The lines that the conversions
/// write about every sample are written only when `echo` is set.
int runSeismic(const std::string &format, const std::vector<std::string> &files, bool echo);
