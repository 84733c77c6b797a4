// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

/// Reads the unified data format (*.sgt): a count of positions, a comment that names their columns
/// and the positions; a count of measurements, a comment that names their columns and the
/// measurements; perhaps a count of topography points and these, which are left alone with a
/// remark. "#" begins a comment, also after a count or a row. Columns of positions are x and y, x
/// and z or x, y and z, the last of which is the elevation. Of three, y must be the same
/// everywhere, or x: then y is the position along the line. Columns of measurements are s and g,
/// which count positions from 1, t and err; others are left alone with a remark. A unit may follow
/// a column's name: "x/mm", "t/ms", "err/%".
///
/// A shot has the measurements with its s wherever they stand; one more for a geophone that it has
/// begins another shot at the same place.
bool readSgtPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                  Report &report);

/// Writes the format: positions in ascending x, each once, measurements shot after shot, in metres
/// and seconds, with errors when there are any (nan where one is unknown), each number with the
/// digits that it needs to be read back the same. Remarks on shots that it makes one.
bool writeSgtPicks(const std::string &path, const PickSurvey &picks, Report &report);
