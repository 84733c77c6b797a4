// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_density.h"

#include "view/record_colours.h"
#include "view/record_rows.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

/// Columns or rows of a grid, from `first` to before `end`.
struct GridRange
{
    std::size_t first = 0;
    std::size_t end = 0;
};

std::uint8_t shadeOf(float amplitude)
{
    return static_cast<std::uint8_t>(
        std::lround(middleShade + double{amplitude} * (greatestShade - middleShade)));
}

std::uint8_t shadeOf(const RowRange &range)
{
    if (isEmpty(range))
        return noShade;
    return shadeOf(range.greatest >= -range.least ? range.greatest : range.least);
}

/// Of two traces on one pixel.
std::uint8_t stronger(std::uint8_t a, std::uint8_t b)
{
    if (a <= deadShade || b <= deadShade)
        return std::max(a, b);
    return std::abs(a - middleShade) >= std::abs(b - middleShade) ? a : b;
}

/// Memory for the shades of a trace.
struct TraceShades
{
    std::vector<std::uint8_t> shades = {};
    std::vector<RowRange> ranges = {};
    std::vector<float> amplitudes = {};
};

PixelRows pixelRows(const DensityGrid &grid, const GridRange &rows)
{
    return {(grid.firstRow + static_cast<double>(rows.first)) * grid.rowHeight, grid.rowHeight,
            rows.end - rows.first};
}

/// Rows that are lower than a sample show the next one.
void findNextShades(const RecordDrawing &drawing, std::size_t index, const PixelRows &rows,
                    TraceShades &memory)
{
    const PlacedTrace &place = drawing.layout.traces[index];
    const std::vector<float> &samples = drawing.record->traces[place.trace].samples;
    const auto next = [&](std::size_t row) {
        const double time = rows.start + (static_cast<double>(row) + 0.5) * rows.step;
        return std::round((time - place.firstTime) / place.timeStep);
    };
    const auto count = static_cast<double>(samples.size());
    const auto first = static_cast<std::size_t>(std::clamp(next(0), 0.0, count));
    const auto end = static_cast<std::size_t>(std::clamp(next(rows.count) + 1.0, 0.0, count));
    memory.shades.assign(rows.count, noShade);
    if (first >= end)
        return;
    findAmplitudes(samples, drawing.gains[index], first, end, memory.amplitudes);
    for (std::size_t row = 0; row < rows.count; ++row) {
        const double sample = next(row);
        if (sample < static_cast<double>(first) || sample >= static_cast<double>(end))
            continue;
        const float amplitude = memory.amplitudes[static_cast<std::size_t>(sample) - first];
        if (!std::isnan(amplitude))
            memory.shades[row] = shadeOf(amplitude);
    }
}

void findShades(const RecordDrawing &drawing, std::size_t index, const PixelRows &rows,
                TraceShades &memory)
{
    if (rows.step < drawing.layout.traces[index].timeStep) {
        findNextShades(drawing, index, rows, memory);
    } else {
        reduceToRows(drawing, index, rows, memory.ranges, memory.amplitudes);
        memory.shades.resize(rows.count);
        std::transform(memory.ranges.begin(), memory.ranges.end(), memory.shades.begin(),
                       [](const RowRange &range) { return shadeOf(range); });
    }
    if (drawing.record->traces[drawing.layout.traces[index].trace].isDead)
        for (std::uint8_t &shade : memory.shades)
            shade = std::min(shade, deadShade);
}

/// The columns whose middles the trace fills; the one that it is on if there are none.
GridRange columnsOf(const PlacedTrace &place, const DensityGrid &grid, const GridRange &within)
{
    const auto column = [&](double position) {
        return std::ceil(position / grid.columnWidth - 0.5) - grid.firstColumn;
    };
    double first = column(place.left);
    double end = column(place.right);
    if (first >= end) {
        first = std::floor(place.place / grid.columnWidth) - grid.firstColumn;
        end = first + 1.0;
    }
    const auto held = [&](double number) {
        return static_cast<std::size_t>(
            std::clamp(number, static_cast<double>(within.first), static_cast<double>(within.end)));
    };
    return {held(first), held(end)};
}

/// Makes the shades of a part of the grid.
void showPart(RecordDensity &density, const RecordDrawing &drawing, const GridRange &columns,
              const GridRange &rows)
{
    if (columns.first >= columns.end || rows.first >= rows.end)
        return;
    const DensityGrid &grid = density.grid;
    const std::vector<PlacedTrace> &traces = drawing.layout.traces;
    const auto edge = [&](std::size_t column) {
        return (grid.firstColumn + static_cast<double>(column)) * grid.columnWidth;
    };
    // No trace fills more than its spacing, or the column that it is on.
    const double reach = std::max(drawing.layout.spacing, grid.columnWidth);
    auto place = std::lower_bound(
        traces.begin(), traces.end(), edge(columns.first) - reach,
        [](const PlacedTrace &trace, double position) { return trace.place < position; });
    const PixelRows pixels = pixelRows(grid, rows);
    TraceShades memory;
    for (; place != traces.end() && place->place <= edge(columns.end) + reach; ++place) {
        const GridRange filled = columnsOf(*place, grid, columns);
        if (filled.first == filled.end)
            continue;
        findShades(drawing, static_cast<std::size_t>(place - traces.begin()), pixels, memory);
        for (std::size_t column = filled.first; column < filled.end; ++column) {
            std::uint8_t *const shades = density.shades.data() + column * grid.rows + rows.first;
            std::transform(memory.shades.begin(), memory.shades.end(), shades, shades, stronger);
        }
    }
}

/// What a range of `count` from `first` on has in common with one of `oldCount` from `oldFirst` on,
/// by the numbers of the former.
GridRange common(double first, std::size_t count, double oldFirst, std::size_t oldCount)
{
    const auto held = [&](double number) {
        return static_cast<std::size_t>(
            std::clamp(number - first, 0.0, static_cast<double>(count)));
    };
    return {held(oldFirst), held(oldFirst + static_cast<double>(oldCount))};
}

void copyColumns(const RecordDensity &before, const GridRange &columns, const GridRange &rows,
                 RecordDensity &density)
{
    const auto shift = [](double first, double oldFirst, std::size_t number) {
        return static_cast<std::size_t>(first - oldFirst + static_cast<double>(number));
    };
    const DensityGrid &grid = density.grid;
    const DensityGrid &old = before.grid;
    for (std::size_t column = columns.first; column < columns.end; ++column) {
        const std::size_t oldColumn = shift(grid.firstColumn, old.firstColumn, column);
        const std::uint8_t *const from = before.shades.data() + oldColumn * old.rows
                                         + shift(grid.firstRow, old.firstRow, rows.first);
        std::copy_n(from, rows.end - rows.first,
                    density.shades.begin()
                        + static_cast<std::ptrdiff_t>(column * grid.rows + rows.first));
    }
}

bool isAlike(double size, double before)
{
    return std::abs(size - before) <= 1e-9 * before;
}

} // namespace

DensityGrid gridOver(double place, double time, double columnWidth, double rowHeight,
                     std::size_t columns, std::size_t rows, const DensityGrid &before)
{
    if (isAlike(columnWidth, before.columnWidth) && isAlike(rowHeight, before.rowHeight)) {
        columnWidth = before.columnWidth;
        rowHeight = before.rowHeight;
    }
    return {columnWidth, rowHeight, std::floor(place / columnWidth), std::floor(time / rowHeight),
            columns,     rows};
}

void showGrid(RecordDensity &density, const RecordDrawing &drawing, const DensityGrid &grid)
{
    const RecordDensity before = std::exchange(density, {grid});
    density.shades.assign(grid.columns * grid.rows, noShade);
    const DensityGrid &old = before.grid;
    GridRange columns;
    GridRange rows;
    if (grid.columnWidth == old.columnWidth && grid.rowHeight == old.rowHeight) {
        columns = common(grid.firstColumn, grid.columns, old.firstColumn, old.columns);
        rows = common(grid.firstRow, grid.rows, old.firstRow, old.rows);
    }
    if (columns.first >= columns.end || rows.first >= rows.end) {
        showPart(density, drawing, {0, grid.columns}, {0, grid.rows});
        return;
    }
    copyColumns(before, columns, rows, density);
    showPart(density, drawing, {0, columns.first}, {0, grid.rows});
    showPart(density, drawing, {columns.end, grid.columns}, {0, grid.rows});
    showPart(density, drawing, columns, {0, rows.first});
    showPart(density, drawing, columns, {rows.end, grid.rows});
}

QImage imageOf(const RecordDensity &density, const QPalette &palette)
{
    const std::vector<QRgb> colours = densityColours(palette);
    const std::size_t columns = density.grid.columns;
    const std::size_t rows = density.grid.rows;
    QImage image(static_cast<int>(columns), static_cast<int>(rows), QImage::Format_RGB32);
    for (std::size_t row = 0; row < rows; ++row) {
        auto *const pixels = reinterpret_cast<QRgb *>(image.scanLine(static_cast<int>(row)));
        for (std::size_t column = 0; column < columns; ++column)
            pixels[column] = colours[density.shades[column * rows + row]];
    }
    return image;
}
