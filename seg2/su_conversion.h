// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <cstdint>
#include <ostream>
#include <string>

/// `path` up to its last ".", be it in a folder's name; the whole path when it has none.
std::string beforeLastDot(const std::string &path);

/// The names of the listing and of the SEG2 file that a Seismic Unix file is converted into.
std::string suListingPath(const std::string &path);
std::string suSeg2Path(const std::string &path);

/// Converts a little-endian Seismic Unix file into a listing and a SEG2 file, of the names above.
/// Positions are in metres, x alone; intervals in seconds; samples are 32-bit floats,
/// of which each trace gets as many as the first one has, with a 0 for the last. Returns 1 when the
/// listing cannot be created and 0 otherwise, even after an error.
std::int32_t convertSuToSeg2(std::string path);

/// The same into files of any names, a trace at a time: only a file that can be read but once, or
/// that is one of the outputs, is held in memory. The lines about the traces go to `progress`, if
/// there is one.
bool convertSu(const std::string &path, const std::string &listingPath, const std::string &seg2Path,
               std::ostream *progress, Report &report);
