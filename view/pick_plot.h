// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/finding.h"
#include "field/picks.h"
#include "view/pick_curves.h"

#include <QPalette>
#include <QPoint>
#include <QSize>

#include <cstddef>
#include <optional>
#include <set>
#include <vector>

class QCustomPlot;

/// How a survey is drawn.
struct PickPlotOptions
{
    PickAxes axes = {};
    std::set<std::size_t> chosenShots = {}; ///< those that are brought out; all when there are none
    bool marksFindings = true;              ///< with rings
    std::optional<std::size_t> chosenFinding = {}; ///< is marked in any case, more strongly
    int legendColumns = 0;                         ///< of the list of shots below; 0 for none
    QPalette palette = {};                         ///< its base and text are those of the plot
};

/// The legend has as many shots as this at most.
inline constexpr std::size_t mostInLegend = 24;

/// The columns of a legend below a picture of this size; 0 where it would take more than a quarter
/// of the height.
int legendColumnsIn(const QSize &picture, const PickSurvey &picks);

/// Draws the traveltime curves of a survey onto a plot that shows nothing else, in place of those
/// before: a graph for each side of a shot, named as nameOfShot() says, the shots' places at a time
/// of 0 and, above, the elevations if there are any. What of the axes is in view stays. The caller
/// replots.
void drawPicks(QCustomPlot &plot, const PickSurvey &picks, const std::vector<Finding> &findings,
               const PickPlotOptions &options);

/// Brings all picks into view.
void showAllPicks(QCustomPlot &plot, const PickSurvey &picks, const PickPlotOptions &options);

/// Brings the picks of a finding into view, with those of their shots around them; everything when
/// it names none.
void showFinding(QCustomPlot &plot, const PickSurvey &picks, const Finding &finding,
                 const PickPlotOptions &options);

/// The pick that is drawn nearest to a pixel of the plot, if it is near. Of dimmed shots none is.
std::optional<PickIndex> pickAt(const QCustomPlot &plot, const PickSurvey &picks,
                                const PickPlotOptions &options, const QPoint &pixel);
