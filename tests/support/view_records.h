// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/record_data.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

// Records to be drawn, without files.

inline constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

/// A trace of a sample per millisecond from time 0 on.
inline DrawnTrace drawnTrace(const std::vector<float> &samples)
{
    DrawnTrace trace;
    trace.samples = samples;
    trace.sampleInterval = 0.001;
    for (const float sample : samples)
        if (!std::isnan(sample))
            trace.largest = std::max(trace.largest, std::abs(sample));
    return trace;
}

/// The same, where a receiver is.
inline DrawnTrace drawnTraceAt(double x, const std::vector<float> &samples)
{
    DrawnTrace trace = drawnTrace(samples);
    trace.receiver = {x, 0.0};
    return trace;
}

/// Of one shot, which has neither a number nor a place.
inline RecordData recordOf(const std::vector<DrawnTrace> &traces)
{
    RecordData record;
    record.path = "survey/line.su";
    record.traces = traces;
    if (!traces.empty())
        record.shots.push_back({0, traces.size()});
    return record;
}

inline std::shared_ptr<const RecordData> shared(const RecordData &record)
{
    return std::make_shared<const RecordData>(record);
}

/// 101 samples of 0, but for a peak of `peak` from 40 to 60 ms and a trough of half of it from 70
/// to 80 ms.
inline std::vector<float> peakAndTrough(float peak = 1.0F)
{
    std::vector<float> samples(101, 0.0F);
    std::fill_n(samples.begin() + 40, 21, peak);
    std::fill_n(samples.begin() + 70, 11, -peak / 2.0F);
    return samples;
}
