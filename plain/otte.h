// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plain/survey.h"

#include <string>

namespace plain {

/// False when the file cannot be opened.
bool writeOtte(const std::string &path, const Survey &survey);

} // namespace plain
