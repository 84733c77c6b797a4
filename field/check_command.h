// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/request.h"

/// Checks the files of picks as one survey, and each record, and shows what was found. Returns the
/// exit status: 1 when a file could not be read, or when the request is strict and something was
/// found.
int runCheck(const Request &request);
