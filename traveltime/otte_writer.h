// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/problem.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <string>
#include <vector>

/// Writes a survey as an OTTE file ("Opent traveltime exchange format"): "otte", "1.0", "2" and the
/// number of spreads on a line each; for every spread the line of its receivers' x and the line of
/// their elevations; the line of all shots' x and the line of their elevations; for every record
/// its spreadIndex, its shotIndex and the line of its times in milliseconds. In a line of values
/// ";" follows each one.
///
/// Returns 1 when the file cannot be opened, and 0 otherwise: what happens to the writing itself is
/// told by the second form alone. A survey that contradicts itself is written as it stands.
std::int32_t writeOtteFile(std::string path, const std::vector<ShotTraveltimes> &traveltimes,
                           const std::vector<Spread> &spreads, const std::vector<Shot> &shots);
std::int32_t writeOtteFile(const std::string &path, const std::vector<ShotTraveltimes> &traveltimes,
                           const std::vector<Spread> &spreads, const std::vector<Shot> &shots,
                           Problem &problem);
