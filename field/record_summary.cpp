// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/record_summary.h"

#include <type_traits>

namespace {

void addSamples(RecordSummary &summary, const Samples &samples)
{
    std::visit(
        [&](const auto &values) {
            using Sample = typename std::remove_cvref_t<decltype(values)>::value_type;
            summary.sampleTypes.insert(
                std::to_string(8 * sizeof(Sample))
                + (std::is_floating_point_v<Sample> ? "-bit floats" : "-bit integers"));
            extend(summary.samples, static_cast<double>(values.size()));
            for (const Sample value : values)
                extend(summary.amplitude, static_cast<double>(value));
        },
        samples);
}

void addLocation(LocationSummary &summary, const std::optional<Location> &location)
{
    if (!location)
        return;
    ++summary.traces;
    summary.locations.insert(*location);
    for (std::size_t i = 0; i < location->size(); ++i)
        extend(summary.ranges[i], (*location)[i]);
}

} // namespace

void addTrace(RecordSummary &summary, const RecordFile &file, const RecordTrace &trace)
{
    if (++summary.traces == 1)
        summary.file = file;
    summary.deadTraces += trace.isDead ? 1 : 0;
    summary.hasAngles = summary.hasAngles || trace.hasAngles;
    addSamples(summary, trace.samples);
    extend(summary.sampleInterval, trace.sampleInterval);
    extend(summary.delay, trace.delay);
    extend(summary.stackCount, trace.stackCount);
    if (trace.shotNumber)
        summary.shotNumbers.insert(*trace.shotNumber);
    if (trace.channelNumber)
        summary.channelNumbers.insert(*trace.channelNumber);
    if (!trace.date.empty() || !trace.time.empty())
        summary.times.insert(trace.date + (trace.date.empty() || trace.time.empty() ? "" : " ")
                             + trace.time);
    addLocation(summary.sources, trace.source);
    addLocation(summary.receivers, trace.receiver);
}
