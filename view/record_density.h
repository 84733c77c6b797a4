// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/record_gain.h"

#include <QImage>
#include <QPalette>

#include <cstddef>
#include <cstdint>
#include <vector>

/// Pixels over a part of a plot. Their edges are at multiples of a column's width and a row's
/// height, so that the pixels of a part that is moved are mostly those that it had before.
struct DensityGrid
{
    double columnWidth = 0.0; ///< in places
    double rowHeight = 0.0;   ///< in time
    double firstColumn = 0.0; ///< a whole number, as firstRow
    double firstRow = 0.0;
    std::size_t columns = 0;
    std::size_t rows = 0;
};

/// The shades of a record's amplitudes, kept from one replot to the next.
struct RecordDensity
{
    DensityGrid grid = {};
    std::vector<std::uint8_t> shades = {}; ///< of each column its rows
};

// A pixel shows the sample with the largest amplitude of those that fall on it, or the next sample
// where there is none on it.
inline constexpr std::uint8_t noShade = 0;
inline constexpr std::uint8_t deadShade = 1;       ///< less than any amplitude's
inline constexpr std::uint8_t leastShade = 2;      ///< of the amplitude -1
inline constexpr std::uint8_t middleShade = 128;   ///< of 0
inline constexpr std::uint8_t greatestShade = 254; ///< of 1

/// The pixels of a plot whose left and top edges are at `place` and `time`. Of sizes that are as
/// good as those of `before` these are taken.
DensityGrid gridOver(double place, double time, double columnWidth, double rowHeight,
                     std::size_t columns, std::size_t rows, const DensityGrid &before);

/// Makes the shades of a grid. Those that `density` has already are kept: it must be of the same
/// drawing.
void showGrid(RecordDensity &density, const RecordDrawing &drawing, const DensityGrid &grid);

/// In the colours of a palette: peaks as its text, troughs as its base.
QImage imageOf(const RecordDensity &density, const QPalette &palette);
