// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/finding.h"
#include "field/record.h"
#include "field/trace_tally.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

/// What is found in a record as its traces pass.
struct RecordChecks
{
    std::string format = {}; ///< see RecordFile
    std::size_t traceCount = 0;
    std::size_t firstSampleCount = 0;
    double firstInterval = 0.0;      ///< seconds
    std::set<Location> sources = {}; ///< two of them at most
    std::set<Location> receivers = {};
    std::size_t oddTraces = 0; ///< with samples that are not finite
    std::size_t deadTraces = 0;
    std::size_t clippedTraces = 0;
    TraceTally sampleCounts = {};
    TraceTally intervals = {};
    TraceTally noInterval = {};
    TraceTally noLocation = {};
    TraceTally angles = {};
    std::vector<Finding> findings = {}; ///< in single traces
};

/// Takes the next trace of a record.
void checkTrace(RecordChecks &checks, const RecordFile &file, const RecordTrace &trace);

/// All findings of a record, once its last trace has passed. Their kinds:
///
/// - notFinite, dead, clipped: samples that are no numbers, no signal, samples cut off at a largest
///   value;
/// - sampleCount, sampleInterval: traces that differ from the first;
/// - noInterval, noGeometry, angles: intervals of 0, positions that are missing, or no metres;
/// - window: what the window would lose.
std::vector<Finding> finishChecks(const RecordChecks &checks, const std::string &path);

/// The largest or least value of samples that are cut off there: three or more of them in a row
/// have it, and on both sides of these the samples fall off by more than beside a peak. None
/// otherwise.
std::optional<double> clippingLevel(const Samples &samples);
