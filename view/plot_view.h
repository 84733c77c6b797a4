// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

class QCustomPlot;

// What the plots of a window have in common.

/// Has the wheel zoom and the mouse drag; the plot is as sharp as its screen.
void makeMovable(QCustomPlot &plot);

/// Brings into view of `to` what is in view of `from`, which has as many axes.
void copyRanges(const QCustomPlot &from, QCustomPlot &to);
