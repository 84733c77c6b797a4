// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/finding.h"

#include <string>
#include <vector>

/// Reads a record as the window does and finds what that would lose. The window reads Seismic Unix
/// ("su") and Dolang ("dolang"); of other formats nothing is found. That the window never reads the
/// last sample of a Seismic Unix trace is no finding.
std::vector<Finding> windowLosses(const std::string &format, const std::string &path);
