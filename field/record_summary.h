// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/range.h"
#include "field/record.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

/// Where the sources or the receivers of a record stand, in metres.
struct LocationSummary
{
    std::size_t traces = 0; ///< that have one
    std::set<Location> locations = {};
    std::array<Range, 3> ranges = {}; ///< of x, y and elevation
};

/// What a record holds.
struct RecordSummary
{
    RecordFile file = {};
    std::size_t traces = 0;
    std::size_t deadTraces = 0;
    bool hasAngles = false;                 ///< x and y of some locations are angles, no metres
    std::set<std::string> sampleTypes = {}; ///< "32-bit floats"
    Range samples = {};                     ///< of a trace
    Range sampleInterval = {};              ///< seconds
    Range delay = {};                       ///< seconds
    Range amplitude = {};                   ///< of the samples as the file has them
    Range stackCount = {};
    std::set<std::int32_t> shotNumbers = {};
    std::set<std::int32_t> channelNumbers = {};
    std::set<std::string> times = {}; ///< "2022-03-22 13:58:30"
    LocationSummary sources = {};
    LocationSummary receivers = {};
};

/// Takes a further trace of the record into account.
void addTrace(RecordSummary &summary, const RecordFile &file, const RecordTrace &trace);
