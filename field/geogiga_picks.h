// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

/// Reads Geogiga traveltimes: TX_CURVE; then keywords with their values: VERSION and INFO, any
/// number of them, ELEVATION, which all shots and receivers get, and TOTAL_NUMBER_OF_SHOTS; then
/// for every shot SEISMIC_DATA_FILE_NAME, SHOT_LOCATION, NUMBER_OF_RECEIVERS, a line of column
/// headings, which may be missing, and a row for each receiver: its number, its x, its time and a
/// whole number. Times are in seconds unless the options say otherwise.
bool readGeogigaPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                      Report &report);
