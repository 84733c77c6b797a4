// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/range.h"
#include "view/record_plot.h"

#include <cstddef>
#include <vector>

/// Where a trace is on a plot. Times are in milliseconds, or sample numbers from 1 where the record
/// does not say its times.
struct PlacedTrace
{
    std::size_t trace = 0; ///< of the record, from 0
    double place = 0.0;    ///< its number from 1, or its position along the line in metres
    double left = 0.0;     ///< of what a density fills with it
    double right = 0.0;
    double firstTime = 0.0; ///< of its first sample
    double timeStep = 1.0;  ///< from sample to sample, above 0
};

/// Where all traces are that are drawn.
struct RecordLayout
{
    std::vector<PlacedTrace> traces = {}; ///< from left to right
    double spacing = 1.0;                 ///< the usual one, above 0
    bool isByPosition = false;
    bool isInTime = false; ///< or by sample
    Range places = {};
    Range times = {}; ///< of the samples
};

/// Traces without a time step in a record with times have no place, nor have, by position, those
/// without one.
RecordLayout layOut(const RecordData &record, const RecordPlotOptions &options);

/// How many of the record's traces are to be drawn: all, or those of the shot.
std::size_t chosenTraces(const RecordData &record, const RecordPlotOptions &options);
