// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"
#include "field/record_writer.h"

#include <string>

/// How a file is known to be SEG2: "its first bytes, 55 3A, little-endian"; empty when it is not.
std::string recogniseSeg2(const std::string &start, const std::string &path);

/// Reads a SEG2 record of revision 0 or 1, in either byte order, with samples of any format code. A
/// damaged end is a failure after the whole traces before it.
bool readSeg2(const std::string &path, const TakeTrace &take, Report &report);

/// Writes SEG2 of revision 1. A file that cannot be created is a failure at once.
RecordWriter seg2Writer(const std::string &path, Report &report);
