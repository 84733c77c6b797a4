// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPalette>
#include <QString>

class QCPAxisRect;
class QCustomPlot;

// What all plots have in common.

/// Puts a title into the first cell of the plot's layout. It is cut in its middle where the plot is
/// narrower; see fitTitle().
void addTitle(QCustomPlot &plot, const QString &text, const QPalette &palette);

/// Fits the title into a plot of this width in pixels, which replot() does by itself.
void fitTitle(QCustomPlot &plot, int width);

/// The title as it was given; empty where there is none.
QString titleOf(const QCustomPlot &plot);

/// Draws the axes in the palette's text and the grid fainter.
void colourAxes(QCPAxisRect &rect, const QPalette &palette);
