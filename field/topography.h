// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

/// Gives all shots and receivers the elevations of a topography file: rows "x;elevation" in
/// metres, in any order, also apart by blanks, tabs or commas. Elevations between two points are on
/// the line between them; beyond the first and the last they are theirs, with a remark. Returns
/// whether the report has no failure.
bool applyTopography(const std::string &path, PickSurvey &picks, Report &report);
