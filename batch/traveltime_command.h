// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "batch/request.h"

// Each converts traveltime files of one format into one OTTE file, shows what there is to say about
// them and returns the exit status.

int runGeogiga(const Request &request);
int runWinsism(const Request &request);

/// Merges all files into one survey.
int runSeisImager(const Request &request);

/// The files with the shot positions, or the files of the shot list, which has a line
/// "file;x;elevation" for each; a name that is not absolute counts from the list's folder.
int runGeneric(const Request &request);
