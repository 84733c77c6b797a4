// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plain/survey.h"

#include <string>
#include <vector>

namespace plain {

/// Reads a shot from each file, the i-th at the i-th position; throws when there is none.
void readGenericFiles(const std::vector<std::string> &paths, const std::vector<double> &shotXs,
                      const std::vector<double> &shotElevations, Survey &survey);

} // namespace plain
