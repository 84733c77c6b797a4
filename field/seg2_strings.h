// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"
#include "field/trace_tally.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

// The strings of a SEG2 file: "KEYWORD value".

using Seg2Strings = std::map<std::string, std::string>;

/// How strings and their lines end; empty for an end of no bytes.
struct Seg2Ends
{
    std::string string = {};
    std::string line = {};
};

/// Reads the strings that `block` begins with, up to its end or the distance of 0. A keyword that
/// comes again adds a line to its value. None when a distance leads out of the block.
std::optional<Seg2Strings> readSeg2Strings(std::string_view block, ByteOrder byteOrder,
                                           const Seg2Ends &ends);

/// What reading has to say of strings.
struct Seg2Readings
{
    TraceTally time = {}; ///< a date or a time that is not understood
};

/// So many metres are so many units.
struct LengthUnit
{
    double metres = 1.0;
    double units = 1.0;
};

/// What a file says for all of its traces.
struct Seg2Common
{
    LengthUnit unit = {};
    std::string date = {};
    std::string time = {};
};

/// Moves what a file's strings say into `common`. What they say otherwise than it is understood
/// stays, with a remark.
void readFileStrings(Seg2Strings &strings, Seg2Common &common, Report &report);

/// Moves what a trace's strings say into the trace, whose `strings` keeps the others. Returns which
/// string is not as it should be; empty when there is none such.
std::string readTraceStrings(RecordTrace &trace, const Seg2Common &common, std::size_t number,
                             Seg2Readings &readings);

/// The strings that say what the trace does; date and time only where they differ from the file's.
Seg2Strings stringsOf(const RecordTrace &trace, const Seg2Common &common);
