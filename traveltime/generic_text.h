// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <string>
#include <vector>

/// Reads one generic traveltime file, which holds one shot: every line, without a heading, is
/// receiver x; receiver elevation; traveltime in seconds. Leading spaces are dropped, fields after
/// the third are not read, text that is no number reads as 0 and a decimal comma ends a number. The
/// shot's own position is not in the file: `shot` gives it.
///
/// Appends one record, with `shotIndex` as given, and its spread unless `spreads` has an equal one.
/// Returns 0; a file that cannot be opened reads as one without lines. Throws std::out_of_range for
/// a line of fewer than three fields ("invalid vector subscript") or of delimiters alone ("invalid
/// string position").
std::int32_t readGenericTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, const Shot &shot,
                                    std::uint32_t shotIndex);
/// The same with a report; survey.shots stays as it is. `index` belongs to survey.spreads.
bool readGeneric(const std::string &path, TraveltimeSurvey &survey, const Shot &shot,
                 std::uint32_t shotIndex, SpreadIndex &index, Report &report);

/// Reads `files` in order, the i-th with the i-th shot position, and writes them as one OTTE file.
/// Returns what the writer returns. Throws as the reader does, and std::out_of_range "invalid
/// vector subscript" when a file has no shot position; nothing is written then.
std::int32_t convertGenericText(std::vector<std::string> files, std::string outputPath,
                                std::vector<double> shotXs, std::vector<double> shotElevations);
/// Its reading alone, with a report.
bool readGenericFiles(const std::vector<std::string> &files, const std::vector<double> &shotXs,
                      const std::vector<double> &shotElevations, TraveltimeSurvey &survey,
                      Report &report);
