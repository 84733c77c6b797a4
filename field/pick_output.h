// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"
#include "traveltime/report.h"

#include <fstream>
#include <string>

// What the writers of picks share.

/// A file that is being written.
struct TextOutput
{
    std::string path = {};
    std::ofstream stream = {};
    std::string text = {}; ///< not yet in the file
};

/// Returns whether the file could be opened; the report fails otherwise.
bool openOutput(const std::string &path, TextOutput &output, Report &report);

/// To be called now and then: writes the text that has come together when it is much.
void passOn(TextOutput &output);

/// Writes what is left. Returns whether the whole file was written; the report fails otherwise.
bool closeOutput(TextOutput &output, Report &report);

/// Remarks on errors of picks that a format has no room for.
void remarkOnErrorsLeftOut(const PickSurvey &picks, Report &report);

/// Remarks on elevations other than 0 that a format has no room for.
void remarkOnElevationsLeftOut(const PickSurvey &picks, Report &report);

/// Remarks on what makes picks of one shot picks of two, or the other way round, in a format that
/// knows a shot by its position: shots at one place, a receiver twice in a shot, a shot without
/// picks.
void remarkOnShotsAtOnePlace(const PickSurvey &picks, Report &report);
