// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plain/survey.h"

#include <string>

namespace plain {

/// False for a file that cannot be opened or lacks a keyword.
bool readGeogiga(const std::string &path, Survey &survey);

} // namespace plain
