// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "batch/request.h"

// Each converts seismic records into SEG2 files, every record on its own: all are tried, what there
// is to say about them is shown, and the exit status says whether any failed.

int runSeismicUnix(const Request &request);

/// A set is named by its base or by any of its three headers.
int runDolang(const Request &request);
