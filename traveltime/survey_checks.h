// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <string>

/// Looks at a survey as a whole, for commands: fails when it has no shots or no receivers at all,
/// and remarks when the median of offset over time, of all picks with both above 0, is below 30 or
/// above 30,000 m/s, which no ground is. `unit` is what the times of the file are read as,
/// "seconds" or "milliseconds". Returns whether the report has no failure.
bool checkSurvey(const TraveltimeSurvey &survey, const std::string &unit, Report &report);
