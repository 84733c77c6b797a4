// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// Writes a survey as an OTTE file ("Opent traveltime exchange format"): "otte", "1.0", "2" and the
/// number of spreads on a line each; for every spread the line of its receivers' x and the line of
/// their elevations; the line of all shots' x and the line of their elevations; for every record
/// its spreadIndex, its shotIndex and the line of its times in milliseconds. In a line of values
/// ";" follows each one.
///
/// Returns 1 when the file cannot be opened, and 0 otherwise: only the inner form, which takes the
/// survey as one, reports a file that is not written whole. A survey that contradicts itself is
/// written as it stands.
std::int32_t writeOtteFile(std::string path, const std::vector<ShotTraveltimes> &traveltimes,
                           const std::vector<Spread> &spreads, const std::vector<Shot> &shots);
bool writeOtte(const std::string &path, const TraveltimeSurvey &survey, Report &report);

/// Reads a survey with `read` and, unless the window stops there, writes it as an OTTE file: every
/// traveltime conversion of the window. Returns and raises what the window is given.
std::int32_t convertToOtte(const std::function<void(TraveltimeSurvey &, Report &)> &read,
                           const std::string &outputPath);
