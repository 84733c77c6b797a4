// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

/// Reads Geo2X Winsism traveltimes (*.xyz): the sections "Shot number, Shot elevation", "Shot
/// number, Shot distance", "Receiver number, receiver distance" and "Receiver number, receiver
/// elevation", each with a line of numbers and a line of values; then "FBP times" with a line of
/// times in milliseconds for every shot. Lines and times come in ascending number of the shots and
/// receivers, whatever the order of the sections before.
bool readWinsismPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                      Report &report);
