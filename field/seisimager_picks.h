// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

/// Reads SeisImager traveltimes (*.vs): a first line of any text; a line with the number of shots
/// in its second field; for every shot a line of its x and its number of receivers, and for each
/// receiver a line of its x and its time in milliseconds; lines of zeros at the end. Further fields
/// are left alone; where some receivers have none, a time that could be a flag is refused.
/// Elevations are 0. A first line that is empty or a comment may be followed by more such lines.
bool readSeisImagerPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                         Report &report);

/// Writes the format as pickers do, each number with the digits that it needs to be read back the
/// same, trailer included. Remarks on what it has no room for: elevations and errors.
bool writeSeisImagerPicks(const std::string &path, const PickSurvey &picks, Report &report);
