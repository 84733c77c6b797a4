// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

#include <string>
#include <vector>

/// Reads a list of shots: a line "file;x;elevation" for each generic file, whose name counts from
/// the folder of the list; lengths are in metres. Appends them to `positions` and returns whether
/// the report has no failure.
bool readShotList(const std::string &path, std::vector<ShotPosition> &positions, Report &report);
