// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

/// Reads a generic text of one shot: a row of x, elevation and time for each receiver, the fields
/// apart by ";", blanks and tabs, or ",". Rows of words before the first receiver are headings.
/// Times are in seconds unless the options say otherwise. The shot's position is that of the
/// options or the file's first row, where that has two fields; without either the file is refused.
bool readGenericPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                      Report &report);
