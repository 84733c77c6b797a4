// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

#include <QString>
#include <QStringList>
#include <qcustomplot.h>

#include <utility>
#include <vector>

// What a plot shows, read back from it.

/// Adds a shot of "line.vs" in line 10 * `number`, its picks in the lines after it: x and
/// milliseconds of each.
void addShot(PickSurvey &picks, std::uint32_t number, double x,
             const std::vector<std::pair<double, double>> &receivers, double elevation = 0.0);

/// The names of a plot's graphs, without those of shots' places and grounds.
QStringList curveNames(const QCustomPlot &plot);

/// The points of each graph of this name, "0,10 5,20".
QStringList pointsOf(const QCustomPlot &plot, const QString &name);

/// The first graph of this name, which must be there.
QCPGraph *graphNamed(const QCustomPlot &plot, const QString &name);

/// The axes of the traveltime curves or records, or those of the elevations.
QCPAxisRect *axesNamed(const QCustomPlot &plot, const char *name);

/// Where a point is in a picture of the plot.
QPoint pixelOf(const QCPAxisRect &axes, double x, double y);

/// The whole title of the plot.
QString shownTitle(const QCustomPlot &plot);

/// "-2,12", of an axis, in up to six digits.
QString rangeOf(const QCPAxis &axis);

/// Whether each of red, green and blue differs by less than so much.
bool isNear(const QColor &a, const QColor &b, int limit);
