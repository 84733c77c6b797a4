// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/request.h"

#include <functional>

/// Takes what there is to say about an output, and returns its exit status.
using Conclude = std::function<int(const Report &report, const std::string &output)>;

/// Converts files of picks into one survey, or records into one file each, each output whole or not
/// at all. Returns the worst exit status.
int convertFiles(const Request &request, const Format &target, const Conclude &conclude);
