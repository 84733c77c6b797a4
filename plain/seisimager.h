// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plain/survey.h"

#include <string>
#include <vector>

namespace plain {

/// False at a file that cannot be opened, at which the reading ends.
bool readSeisImagerFiles(const std::vector<std::string> &paths, Survey &survey);

} // namespace plain
