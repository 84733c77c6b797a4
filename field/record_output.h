// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <cstdint>
#include <fstream>
#include <string>

/// A file that is written in pieces of a quarter of a megabyte, which a processor's cache holds,
/// and up to a page of the disk's cache: of a page that is only begun the system fills the rest
/// with zeros first.
struct RecordOutput
{
    std::string path = {};
    std::ofstream stream = {};
    std::string bytes = {};  ///< the piece that is made
    std::uint64_t start = 0; ///< where it will begin in the file
};

// Each function returns whether all is well; if not, the report has failed.

bool createOutput(RecordOutput &output, const std::string &path, Report &report);

/// Writes what is there of a piece that is large enough.
bool writeLargePiece(RecordOutput &output, Report &report);

/// Writes all that is left.
bool writeRest(RecordOutput &output, Report &report);
