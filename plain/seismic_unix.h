// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace plain {

/// Writes the listing and the SEG2 file beside the record. 1 when the listing cannot be created.
int convertSeismicUnix(const std::string &path);

} // namespace plain
