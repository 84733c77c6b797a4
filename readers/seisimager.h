// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <string>
#include <vector>

/// Reads a SeisImager first-break file (*.vs): a first line of any text, a line with the number of
/// shots in its second field; then for every shot a line of its x and its number of receivers, and
/// for each receiver a line of its x and its time in milliseconds. Blanks separate fields, tabs do
/// not. The format has no elevations: they are 0. Shots on equal layouts share a spread, also with
/// shots read from an earlier file; `shotIndex` starts at 0 in every file.
///
/// Returns 1 when the file cannot be opened. Throws std::out_of_range "invalid vector subscript"
/// for a line of fewer than two fields, the end of the file included.
std::int32_t readSeisImagerTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                       std::vector<Spread> &spreads, std::vector<Shot> &shots);
/// The same with a report. `index` belongs to survey.spreads.
bool readSeisImager(const std::string &path, TraveltimeSurvey &survey, SpreadIndex &index,
                    Report &report);
