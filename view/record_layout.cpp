// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_layout.h"

#include <algorithm>
#include <cmath>

namespace {

/// Traces of a record.
struct TraceRange
{
    std::size_t first = 0;
    std::size_t end = 0;
};

TraceRange chosenRange(const RecordData &record, const RecordPlotOptions &options)
{
    if (!options.shot || *options.shot >= record.shots.size())
        return {0, record.traces.size()};
    const RecordShot &shot = record.shots[*options.shot];
    return {shot.firstTrace, shot.firstTrace + shot.traceCount};
}

bool hasInterval(const DrawnTrace &trace)
{
    return trace.sampleInterval > 0.0 && std::isfinite(trace.sampleInterval);
}

PlacedTrace placed(std::size_t number, const DrawnTrace &trace, const RecordLayout &layout)
{
    PlacedTrace result;
    result.trace = number;
    result.place = layout.isByPosition ? trace.receiver->x : static_cast<double>(number + 1);
    result.firstTime = layout.isInTime ? 1000.0 * trace.delay : 1.0;
    result.timeStep = layout.isInTime ? 1000.0 * trace.sampleInterval : 1.0;
    return result;
}

/// The median of the distances between neighbours that are not at one place; 1 when there are none.
double usualSpacing(const std::vector<PlacedTrace> &traces)
{
    constexpr double onePlace = 0.001;
    std::vector<double> distances;
    for (std::size_t i = 1; i < traces.size(); ++i)
        if (const double distance = traces[i].place - traces[i - 1].place; distance > onePlace)
            distances.push_back(distance);
    if (distances.empty())
        return 1.0;
    const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::nth_element(distances.begin(), middle, distances.end());
    return *middle;
}

/// A density fills half the way to the next places, but no more than is usual: a gap in the line
/// stays a gap.
void findSides(RecordLayout &layout)
{
    std::vector<PlacedTrace> &traces = layout.traces;
    const double most = layout.spacing / 2.0;
    std::size_t end = 0;
    for (std::size_t first = 0; first < traces.size(); first = end) {
        const double place = traces[first].place;
        while (end < traces.size() && traces[end].place == place)
            ++end;
        const double left =
            first == 0 ? most : std::min(most, (place - traces[first - 1].place) / 2.0);
        const double right =
            end == traces.size() ? most : std::min(most, (traces[end].place - place) / 2.0);
        for (std::size_t i = first; i < end; ++i) {
            traces[i].left = place - left;
            traces[i].right = place + right;
        }
    }
}

void findRanges(RecordLayout &layout, const RecordData &record)
{
    for (const PlacedTrace &trace : layout.traces) {
        extend(layout.places, trace.place);
        const std::size_t count = record.traces[trace.trace].samples.size();
        if (count == 0)
            continue;
        extend(layout.times, trace.firstTime);
        extend(layout.times, trace.firstTime + static_cast<double>(count - 1) * trace.timeStep);
    }
}

} // namespace

RecordLayout layOut(const RecordData &record, const RecordPlotOptions &options)
{
    const TraceRange range = chosenRange(record, options);
    const auto first = record.traces.begin() + static_cast<std::ptrdiff_t>(range.first);
    const auto end = record.traces.begin() + static_cast<std::ptrdiff_t>(range.end);
    const auto hasPosition = [](const DrawnTrace &trace) {
        return trace.receiver && std::isfinite(trace.receiver->x);
    };
    RecordLayout layout;
    layout.isByPosition =
        options.spacing == TraceSpacing::byPosition && std::any_of(first, end, hasPosition);
    layout.isInTime = std::any_of(first, end, hasInterval);
    for (std::size_t i = range.first; i < range.end; ++i) {
        const DrawnTrace &trace = record.traces[i];
        if ((!layout.isByPosition || hasPosition(trace))
            && (!layout.isInTime || (hasInterval(trace) && std::isfinite(trace.delay))))
            layout.traces.push_back(placed(i, trace, layout));
    }
    std::stable_sort(layout.traces.begin(), layout.traces.end(),
                     [](const auto &a, const auto &b) { return a.place < b.place; });
    layout.spacing = usualSpacing(layout.traces);
    findSides(layout);
    findRanges(layout, record);
    return layout;
}

std::size_t chosenTraces(const RecordData &record, const RecordPlotOptions &options)
{
    const TraceRange range = chosenRange(record, options);
    return range.end - range.first;
}
