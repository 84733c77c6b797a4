// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPalette>

#include <vector>

// Colours of records: the palette's text on its base, so that they can be read on dark themes.

/// Of dead traces: on white and on black, and not grey as amplitudes are.
QColor deadColour();

/// The colour `part` of the way from `from` to `to`.
QColor mixed(const QColor &from, const QColor &to, double part);

/// Of each shade of a density.
std::vector<QRgb> densityColours(const QPalette &palette);
