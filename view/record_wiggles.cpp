// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_wiggles.h"

#include <algorithm>
#include <cmath>

namespace {

/// Collects points; a gap ends a line.
void addPoint(std::vector<QPolygonF> &lines, bool &isInLine, double amplitude, double time)
{
    if (!isInLine)
        lines.emplace_back();
    isInLine = true;
    lines.back().append({amplitude, time});
}

/// Also the samples next to the rows, to which lines lead.
std::vector<QPolygonF> linesOfSamples(const RecordDrawing &drawing, std::size_t index,
                                      const PixelRows &rows)
{
    const PlacedTrace &place = drawing.layout.traces[index];
    const std::vector<float> &samples = drawing.record->traces[place.trace].samples;
    auto [first, end] = samplesIn(rows, place, samples.size());
    first -= std::min<std::size_t>(first, 1);
    end = std::min(end + 1, samples.size());
    std::vector<float> amplitudes;
    findAmplitudes(samples, drawing.gains[index], first, end, amplitudes);
    std::vector<QPolygonF> lines;
    bool isInLine = false;
    for (std::size_t i = 0; i < amplitudes.size(); ++i) {
        const double time = place.firstTime + static_cast<double>(first + i) * place.timeStep;
        if (std::isnan(amplitudes[i]))
            isInLine = false;
        else
            addPoint(lines, isInLine, double{amplitudes[i]}, time);
    }
    return lines;
}

std::vector<QPolygonF> linesOfRows(const RecordDrawing &drawing, std::size_t index,
                                   const PixelRows &rows)
{
    std::vector<RowRange> ranges;
    std::vector<float> amplitudes;
    reduceToRows(drawing, index, rows, ranges, amplitudes);
    std::vector<QPolygonF> lines;
    bool isInLine = false;
    for (std::size_t row = 0; row < rows.count; ++row) {
        const double time = rows.start + (static_cast<double>(row) + 0.5) * rows.step;
        if (isEmpty(ranges[row])) {
            isInLine = false;
            continue;
        }
        addPoint(lines, isInLine, double{ranges[row].least}, time);
        if (ranges[row].greatest > ranges[row].least)
            addPoint(lines, isInLine, double{ranges[row].greatest}, time);
    }
    return lines;
}

} // namespace

void addPeaks(const QPolygonF &line, std::vector<QPolygonF> &peaks)
{
    QPolygonF peak;
    const auto endPeak = [&](double time) {
        if (peak.size() < 2)
            return;
        peak.append({0.0, time});
        peaks.push_back(std::move(peak));
        peak = {};
    };
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QPointF &point = line[i];
        const QPointF &before = line[std::max<qsizetype>(i - 1, 0)];
        const bool isAbove = point.x() > 0.0;
        double crossing = point.y();
        if ((before.x() > 0.0) != isAbove)
            crossing =
                before.y() + (point.y() - before.y()) * before.x() / (before.x() - point.x());
        if (!isAbove) {
            endPeak(crossing);
            continue;
        }
        if (peak.isEmpty())
            peak.append({0.0, crossing});
        peak.append(point);
    }
    if (!line.isEmpty())
        endPeak(line.back().y());
}

Wiggle wiggleOf(const RecordDrawing &drawing, std::size_t index, const PixelRows &rows)
{
    const bool isClose = drawing.layout.traces[index].timeStep * 2.0 < rows.step;
    Wiggle wiggle;
    wiggle.lines =
        isClose ? linesOfRows(drawing, index, rows) : linesOfSamples(drawing, index, rows);
    for (const QPolygonF &line : wiggle.lines)
        addPeaks(line, wiggle.peaks);
    return wiggle;
}
