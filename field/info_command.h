// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/request.h"

/// Says what each file is and what it holds. Returns the exit status: 1 when a file could not be
/// read.
int runInfo(const Request &request);
