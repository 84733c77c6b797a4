// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"
#include "field/seismic_unix_header.h"
#include "field/trace_tally.h"

#include <cstddef>
#include <string>

// A Seismic Unix header, and what a trace says. Traces are counted from 1.

/// What reading has to say of headers.
struct SuReadings
{
    TraceTally interval = {}; ///< taken from d1
    TraceTally time = {};     ///< a date or a time that there is none such
};

/// What a trace says by its header, samples aside.
RecordTrace traceOf(const SuHeaderBytes &header, std::size_t number, SuReadings &readings);

/// What headers say less exactly than the traces.
struct SuRoundings
{
    TraceTally position = {};
    TraceTally interval = {};
    TraceTally delay = {};
    TraceTally time = {};
};

/// Makes the header of a trace, all but its number of samples. Returns what Seismic Unix has no
/// room for, with what would fit; empty when there is none such.
std::string makeHeader(const RecordTrace &trace, std::size_t number, SuHeaderBytes &header,
                       SuRoundings &roundings);
