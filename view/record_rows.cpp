// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_rows.h"

#include <algorithm>
#include <cmath>

namespace {

/// The first sample that is not before `time`; `sampleCount` when all are.
std::size_t firstFrom(double time, const PlacedTrace &place, std::size_t sampleCount)
{
    const double sample = std::ceil((time - place.firstTime) / place.timeStep);
    return static_cast<std::size_t>(std::clamp(sample, 0.0, static_cast<double>(sampleCount)));
}

double topOf(std::size_t row, const PixelRows &rows)
{
    return rows.start + static_cast<double>(row) * rows.step;
}

} // namespace

std::pair<std::size_t, std::size_t> samplesIn(const PixelRows &rows, const PlacedTrace &place,
                                              std::size_t sampleCount)
{
    return {firstFrom(rows.start, place, sampleCount),
            firstFrom(topOf(rows.count, rows), place, sampleCount)};
}

void reduceToRows(const RecordDrawing &drawing, std::size_t index, const PixelRows &rows,
                  std::vector<RowRange> &ranges, std::vector<float> &amplitudes)
{
    const PlacedTrace &place = drawing.layout.traces[index];
    const std::vector<float> &samples = drawing.record->traces[place.trace].samples;
    const auto [first, end] = samplesIn(rows, place, samples.size());
    findAmplitudes(samples, drawing.gains[index], first, end, amplitudes);
    ranges.assign(rows.count, {});
    std::size_t sample = first;
    for (std::size_t row = 0; row < rows.count && sample < end; ++row) {
        const std::size_t next =
            std::min(end, firstFrom(topOf(row + 1, rows), place, samples.size()));
        RowRange range;
        for (; sample < next; ++sample) {
            const float amplitude = amplitudes[sample - first];
            range.least = std::min(range.least, amplitude);
            range.greatest = std::max(range.greatest, amplitude);
        }
        ranges[row] = range;
    }
}
