// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <string>
#include <vector>

/// Reads a Geogiga first-break file of the "TX_CURVE" kind: "TX_CURVE", "VERSION:", any number of
/// "INFO" lines, "ELEVATION" (one for all shots and receivers) and "TOTAL_NUMBER_OF_SHOTS"; then
/// for every shot "SEISMIC_DATA_FILE_NAME", "SHOT_LOCATION", "NUMBER_OF_RECEIVERS", a column
/// heading and the receiver rows (number, x, time, number). A colon separates keyword and
/// value, a second colon ends the value. Times are taken as they stand, as seconds. All shots refer
/// to spread 0, which holds for each receiver the position that the last shot gave it.
///
/// Between a block's last row and the next block at most lone carriage returns may stand: rows that
/// end in CR LF pass, rows that end in a bare LF do not.
///
/// Returns 1 when the file cannot be opened or a line lacks its keyword; what was read before
/// stays in `traveltimes` and `shots`. Throws std::out_of_range "invalid vector subscript" for a
/// keyword without a value and for a block with more receivers than the first; "invalid stod
/// argument" and "stod argument out of range" for the number of shots; std::length_error "vector
/// too long" for a first block with a negative number of receivers, or with more than the file's
/// bytes and ten million.
std::int32_t readGeogigaTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, std::vector<Shot> &shots);
/// The same with a report.
bool readGeogiga(const std::string &path, TraveltimeSurvey &survey, Report &report);
