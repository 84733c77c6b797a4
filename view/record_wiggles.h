// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/record_gain.h"
#include "view/record_rows.h"

#include <QPolygonF>

#include <cstddef>
#include <vector>

/// A trace as lines, and its peaks as areas from their time axis to the right. x is the amplitude,
/// y the time.
struct Wiggle
{
    std::vector<QPolygonF> lines = {}; ///< more than one where samples are no numbers
    std::vector<QPolygonF> peaks = {};
};

/// Samples that are close together are drawn row by row, from the least to the greatest of a row.
Wiggle wiggleOf(const RecordDrawing &drawing, std::size_t index, const PixelRows &rows);

/// The areas in which a line has amplitudes above 0.
void addPeaks(const QPolygonF &line, std::vector<QPolygonF> &peaks);
