// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <string>
#include <vector>

// Each driver reads a vendor's traveltime file and writes it as one OTTE file. It returns 0, or the
// first result of the reader or of the writer that is not 0; when the reader fails, the output is
// not touched. Errors raised by a reader pass through. Units are those of the reader and the
// writer.

std::int32_t convertGeogiga(std::string inputPath, std::string outputPath);
std::int32_t convertWinsism(std::string inputPath, std::string outputPath);
std::int32_t convertSeisImager(std::string inputPath, std::string outputPath);

/// Merges several files into one survey, in which they share their spreads. After the i-th file is
/// read, the i-th record of the whole survey, if there is one, gets the shotIndex i: files of one
/// shot each are numbered through. No files at all give an empty OTTE file.
std::int32_t convertSeisImagerFiles(std::vector<std::string> files, std::string outputPath);
/// Its reading alone, with a report, which also remarks on shots that are not numbered through.
bool readSeisImagerFiles(const std::vector<std::string> &files, TraveltimeSurvey &survey,
                         Report &report);
