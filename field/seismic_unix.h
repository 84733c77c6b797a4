// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"
#include "field/record_writer.h"

#include <string>

/// How a file is known to be Seismic Unix: "the header that repeats at byte 2,240, big-endian";
/// empty when it is not. `start` is its first 4 KiB, or more.
std::string recogniseSeismicUnix(const std::string &start, const std::string &path);

/// Reads a Seismic Unix record in either byte order. Each trace has its own number of samples and
/// interval. A damaged end is a failure after the whole traces before it.
bool readSeismicUnix(const std::string &path, const TakeTrace &take, Report &report);

/// Writes Seismic Unix, with samples as 32-bit floats. A file that cannot be created is a failure
/// at once.
RecordWriter seismicUnixWriter(const std::string &path, ByteOrder byteOrder, Report &report);
