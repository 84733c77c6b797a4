// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/finding.h"
#include "field/picks.h"

#include <cstddef>
#include <optional>
#include <vector>

/// What checkPicks() counts. A pair is a pick from A to B and one from B to A, of two shots.
struct PickCheckSummary
{
    std::size_t reciprocalPairs = 0;
    std::optional<double> medianDifference = {}; ///< of the pairs' times, in seconds
};

/// Looks at a survey for what its user should know before it is inverted, and returns what it
/// finds, file by file and line by line. Positions are the same where they are to a centimetre.
/// Its kinds:
///
/// - negativeTime: a receiver that was not picked, by a time below 0;
/// - zeroTime: a time of 0 away from the shot;
/// - zeroOffset: a time above 1 ms where the shot is;
/// - repeatedReceiver: a receiver twice in a shot;
/// - shotsAtOnePlace: shots at one place whose times differ by more than reciprocal ones may;
/// - reciprocal: times of a pair that differ by more than the tolerance and by more than 5 % of
///   their mean;
/// - outlier: a time that is off the line through its neighbours' on the same side of the shot by
///   more than 5 ms and by more than 30 % of the larger of both times;
/// - units: a file whose median of offset over time is below 30 or above 30,000 m/s.
std::vector<Finding> checkPicks(const PickSurvey &picks, double toleranceMilliseconds,
                                PickCheckSummary &summary);
