// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ostream>

/// Where the window's conversions write the lines about every trace: the standard output stream, or
/// nullptr when the process has none or it is the null device, so that they are not even made.
std::ostream *standardProgress();
