// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/problem.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

/// A trace of a Seismic Unix file.
struct SuTrace
{
    std::vector<double> samples = {};
    double sourceX = 0.0;
    double sourceZ = 0.0;
    double receiverX = 0.0;
    double receiverZ = 0.0;
    double unused = 0.0;
    double sampleInterval = 0.0; ///< seconds
    double unusedLimit = std::numeric_limits<double>::max();
};

/// Finds the traces of a Seismic Unix file (little-endian; every trace a header of 240 bytes and as
/// many samples of 4 bytes as the first header says): how many there are and where they begin, in
/// bytes. Bytes behind the last whole trace are left out. No traces, after a line on the standard
/// error stream, when the file cannot be opened.
void indexSuFile(std::string path, std::size_t &traceCount, std::vector<std::size_t> &traceOffsets);

/// Reads the traces of a Seismic Unix file; none when it cannot be opened. The last sample of a
/// trace is not read and stays 0. A negative coordinate scalar divides -1 as integers do: -1 leaves
/// the coordinates as they are, any other makes them 0. Whoever reads many traces calls
/// giveMemoryBack() when they are gone.
void readSuFile(std::string path, std::vector<SuTrace> &traces);
void readSuFile(const std::string &path, std::vector<SuTrace> &traces, Problem &problem);

/// `path` up to its last ".", be it in a folder's name; the whole path when it has none.
std::string beforeLastDot(const std::string &path);

/// Converts a Seismic Unix file into a listing (beforeLastDot(path) + "_tmp") and a SEG2 file
/// (beforeLastDot(path) + ".seg2"). Returns 1 when the listing cannot be created and 0 otherwise,
/// whatever happened: what did is told by the second form alone, which takes the names of the
/// files that it writes.
std::int32_t convertSuToSeg2(std::string path);
std::int32_t convertSuToSeg2(const std::string &path, const std::string &listingPath,
                             const std::string &seg2Path, Problem &problem);
