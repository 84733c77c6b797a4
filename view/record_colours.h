// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPalette>

#include <vector>

// Colours of records: the palette's text on its base, so that they can be read on dark themes.

/// Of dead traces: on white and on black, and not grey as amplitudes are.
QColor deadColour();

/// Of each shade of a density.
std::vector<QRgb> densityColours(const QPalette &palette);
