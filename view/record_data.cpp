// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_data.h"

#include "field/reciprocal_picks.h"
#include "field/samples.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// Where a trace's shot and receiver are, as its file says it.
struct TraceLocations
{
    std::optional<Location> source = {};
    std::optional<Location> receiver = {};
};

/// A line through a point, in a direction of length 1.
struct Line
{
    Location start = {};
    double x = 1.0;
    double y = 0.0;
};

void findLargest(DrawnTrace &trace)
{
    for (float &sample : trace.samples) {
        if (!std::isfinite(sample))
            sample = std::numeric_limits<float>::quiet_NaN();
        else
            trace.largest = std::max(trace.largest, std::abs(sample));
    }
}

DrawnTrace drawn(const RecordTrace &trace)
{
    DrawnTrace result;
    toFloats(trace.samples, trace.descalingFactor, result.samples);
    findLargest(result);
    result.sampleInterval = trace.sampleInterval;
    result.delay = trace.delay;
    result.channelNumber = trace.channelNumber;
    result.isDead = trace.isDead || hasEqualSamples(trace.samples) || result.largest == 0.0F;
    return result;
}

/// Appends the trace to the shot of the one before, or to a new one.
void addToShots(RecordData &record, const RecordTrace &trace,
                const std::vector<TraceLocations> &before)
{
    if (record.shots.empty() || record.shots.back().number != trace.shotNumber
        || before.back().source != trace.source)
        record.shots.push_back({record.traces.size(), 0, trace.shotNumber});
    ++record.shots.back().traceCount;
}

std::vector<Location> allLocations(const std::vector<TraceLocations> &traces)
{
    std::vector<Location> locations;
    for (const TraceLocations &trace : traces)
        for (const auto &location : {trace.receiver, trace.source})
            if (location)
                locations.push_back(*location);
    return locations;
}

double distance(const Location &a, const Location &b)
{
    return std::hypot(b[0] - a[0], b[1] - a[1]);
}

Line lineThrough(const std::vector<Location> &locations, const std::vector<TraceLocations> &traces)
{
    const auto hasOtherY = [&](const Location &location) {
        return !isSamePlace({location[1], 0.0}, {locations.front()[1], 0.0});
    };
    if (std::none_of(locations.begin(), locations.end(), hasOtherY))
        return {};
    std::vector<Location> receivers;
    for (const TraceLocations &trace : traces)
        if (trace.receiver)
            receivers.push_back(*trace.receiver);
    if (receivers.empty())
        return {};
    const Location &first = receivers.front();
    const Location &last =
        *std::max_element(receivers.begin(), receivers.end(), [&](const auto &a, const auto &b) {
            return distance(first, a) < distance(first, b);
        });
    const double length = distance(first, last);
    if (length == 0.0)
        return {};
    return {first, (last[0] - first[0]) / length, (last[1] - first[1]) / length};
}

std::optional<ReceiverPosition> along(const Line &line, const std::optional<Location> &location)
{
    if (!location)
        return {};
    const double x = (*location)[0] - line.start[0];
    const double y = (*location)[1] - line.start[1];
    return ReceiverPosition{x * line.x + y * line.y, (*location)[2]};
}

void placeAlongLine(RecordData &record, const std::vector<TraceLocations> &traces)
{
    const std::vector<Location> locations = allLocations(traces);
    const auto isFirst = [&](const Location &location) { return location == locations.front(); };
    if (locations.size() > 1 && std::all_of(locations.begin(), locations.end(), isFirst))
        return;
    const Line line = lineThrough(locations, traces);
    for (std::size_t i = 0; i < record.traces.size(); ++i)
        record.traces[i].receiver = along(line, traces[i].receiver);
    for (RecordShot &shot : record.shots)
        shot.position = along(line, traces[shot.firstTrace].source);
}

} // namespace

bool readRecordData(const std::function<ReadRecord> &read, const std::string &path,
                    RecordData &record, const GoesOn &goesOn, Report &report)
{
    record = {path};
    std::vector<TraceLocations> locations;
    bool isWhole = true;
    attempt(report, [&] {
        read(
            path,
            [&](const RecordFile &file, RecordTrace &trace) {
                if (trace.hasAngles)
                    trace.source = trace.receiver = {};
                addToShots(record, trace, locations);
                record.format = file.format;
                record.traces.push_back(drawn(trace));
                locations.push_back({trace.source, trace.receiver});
                isWhole = !goesOn || goesOn(file.fractionRead);
                return isWhole;
            },
            report);
    });
    placeAlongLine(record, locations);
    return isWhole && !report.failure;
}
