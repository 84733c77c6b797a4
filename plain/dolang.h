// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace plain {

/// Converts the kinds A, C and R. What ends it prints a line to the standard error stream: the
/// kinds before keep their files.
void convertDolang(const std::string &base);

} // namespace plain
