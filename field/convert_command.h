// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/request.h"

/// Converts files of picks into one survey, or records into one file each, shows what there is to
/// say about them and returns the exit status.
int runConvert(const Request &request);
