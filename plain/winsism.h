// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plain/survey.h"

#include <string>

namespace plain {

/// False, after a line on the standard error stream, for a file that is refused.
bool readWinsism(const std::string &path, Survey &survey);

} // namespace plain
