// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

/// Reads an OTTE file as writeOtteFile() lays it out; ";" after the last value of a line may be
/// missing. Shots are those that the records name, in the order of the records; a shot that none
/// names has no receivers.
bool readOttePicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                   Report &report);

/// Writes an OTTE file, each number with the digits that it needs to be read back the same. Where
/// six digits are enough, the file is the same as writeOtteFile()'s. Remarks on errors, which it
/// has no room for.
bool writeOttePicks(const std::string &path, const PickSurvey &picks, Report &report);
