// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/request.h"

/// Lists the formats, what each can be used for and the extensions that it is written with. Returns
/// the exit status.
int runFormats(const Request &request);
