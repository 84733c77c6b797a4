// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPalette>

#include <cstddef>

/// The colours of shots repeat after this many.
inline constexpr std::size_t shotColourCount = 6;

/// The colour of a shot, counted from 0, on the palette's base. Any two that follow each other
/// differ by their lightness, so that they are told apart without colours, too.
QColor colourOfShot(std::size_t shot, const QPalette &palette);

/// The colour of what was found: none of the shots'.
QColor colourOfFindings(const QPalette &palette);

/// `colour` as it looks through thin paper in the palette's base.
QColor dimmed(const QColor &colour, const QPalette &palette);

/// Whether light lines are drawn on dark paper.
bool isDark(const QPalette &palette);

/// Black on white, whatever the theme: for pictures.
QPalette paperPalette();
