// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"
#include "field/record.h"

#include <span>
#include <string>
#include <vector>

/// What a format is called, how it is known by its content, and what it can do.
struct Format
{
    std::string name = {};                    ///< on the command line: "seisimager"
    std::string title = {};                   ///< for people: "SeisImager traveltimes"
    std::vector<std::string> extensions = {}; ///< of what is written: "vs"
    /// How a file that begins with these bytes is known to be of the format ("begins with
    /// TX_CURVE"); empty when it is not. `path` is for formats of several files.
    std::string (*recognise)(const std::string &start, const std::string &path) = nullptr;
    ReadPicks *readPicks = nullptr;
    WritePicks *writePicks = nullptr;
    ReadRecord *readRecord = nullptr;
    bool writesRecords = false;
};

/// All formats, in the order in which they are asked whether a file is theirs.
std::span<const Format> formats();
