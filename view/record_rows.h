// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/record_gain.h"

#include <cstddef>
#include <utility>
#include <vector>

/// Rows of pixels, from the top down.
struct PixelRows
{
    double start = 0.0; ///< the time at the top edge of the first
    double step = 1.0;  ///< from row to row
    std::size_t count = 0;
};

/// The least and the greatest amplitude of the samples in a row; the least is greater when there
/// are none.
struct RowRange
{
    float least = 1.0F;
    float greatest = -1.0F;
};

inline bool isEmpty(const RowRange &range)
{
    return range.least > range.greatest;
}

/// Samples from the first one in these rows to before the first one after them.
std::pair<std::size_t, std::size_t> samplesIn(const PixelRows &rows, const PlacedTrace &place,
                                              std::size_t sampleCount);

/// Looks once at all samples in these rows of the trace `index` of the layout. `amplitudes` is
/// memory for it.
void reduceToRows(const RecordDrawing &drawing, std::size_t index, const PixelRows &rows,
                  std::vector<RowRange> &ranges, std::vector<float> &amplitudes);
