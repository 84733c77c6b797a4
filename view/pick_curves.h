// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/finding.h"
#include "field/picks.h"

#include <QPointF>
#include <QString>

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

// Where picks are drawn, and what they are called: metres to the right, milliseconds down.

/// What the axes mean.
struct PickAxes
{
    bool isByOffset = false; ///< from the shot, below 0 to its left; otherwise along the line
    std::optional<double> reductionVelocity = {}; ///< m/s: times are less offset / velocity
};

QPointF pointOf(const PickSurvey &picks, const PickIndex &pick, const PickAxes &axes);

/// A shot's picks in ascending x: those on each side of it, or all of them where the picks of one
/// side, or one at the shot itself, leave nothing to cross.
std::vector<std::vector<QPointF>> curvesOf(const PickSurvey &picks, std::size_t shot,
                                           const PickAxes &axes);

/// Where a finding is drawn: its picks, or the receiver that was not picked, at a time of 0.
std::vector<QPointF> pointsOf(const Finding &finding, const PickSurvey &picks,
                              const PickAxes &axes);

/// The shots that these picks, or the receiver that was not picked, belong to.
std::set<std::size_t> shotsOf(const Finding &finding, const PickSurvey &picks);

/// "Shot 2 at 27.5 m".
QString nameOfShot(const PickSurvey &picks, std::size_t shot);

/// Its picks, file and line.
QString describeShot(const PickSurvey &picks, std::size_t shot);

/// Its shot, receiver, time, file and line, a line for each.
QString describePick(const PickSurvey &picks, const PickIndex &pick);

/// "line.vs and 1 more: 5 shots, 120 picks".
QString titleOf(const PickSurvey &picks);
