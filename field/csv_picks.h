// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

/// Reads picks as comma-separated values (RFC 4180), a row for each: the columns shot_x,
/// shot_elevation, receiver_x, receiver_elevation, in metres, time and, if it is there, err, in
/// seconds. They are found by their names in the first row, in any order; others are left alone.
/// Where the first row has semicolons or tabs and no commas, these separate the fields.
///
/// A shot has the rows with its position wherever they stand; one more for a receiver that it has
/// begins another shot at the same place.
bool readCsvPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                  Report &report);

/// Writes the same columns, err when there are any errors, each number with the digits that it
/// needs to be read back the same. Remarks on shots that it makes one.
bool writeCsvPicks(const std::string &path, const PickSurvey &picks, Report &report);
