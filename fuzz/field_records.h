// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"

#include <string>

// What the fuzz targets of the field command's records share.

/// Checks a reader of records on the file at `path`.
///
/// Reports and traces are sound, reading twice gives the same, a record that was read comes back
/// from SEG2 with the same samples and meaning, and from Seismic Unix in both byte orders the same
/// but for what there is a remark on. No check of `check` ends the process.
void checkRecordReader(ReadRecord *read, const std::string &path);
