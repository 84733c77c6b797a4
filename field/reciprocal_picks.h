// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/finding.h"
#include "field/pick_checks.h"
#include "field/picks.h"

#include <string>
#include <vector>

// What the checks of picks share, and those that compare shots.

/// Whether both are within a centimetre of each other.
bool isSamePlace(const ReceiverPosition &a, const ReceiverPosition &b);

/// "12.5 ms".
std::string inMilliseconds(double seconds);

/// Finds reciprocal times that differ and counts the pairs.
void findReciprocalDifferences(const PickSurvey &picks, double tolerance, PickCheckSummary &summary,
                               std::vector<Finding> &findings);

/// Finds shots at one place whose times differ.
void findShotsAtOnePlace(const PickSurvey &picks, double tolerance, std::vector<Finding> &findings);
