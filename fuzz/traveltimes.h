// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plain/survey.h"
#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <functional>
#include <string>

/// A conversion of traveltimes: the program's and the plain one, of the same input.
struct TraveltimeConversion
{
    std::function<std::int32_t(const std::string &outputPath)> convert;
    std::function<std::int32_t(TraveltimeSurvey &survey)> read; ///< as the window calls the reader
    std::function<bool(TraveltimeSurvey &survey, Report &report)> readInner;
    std::function<bool(plain::Survey &survey)> readPlainly;
};

/// Checks that all make the same survey, to the last bit, and the same OTTE file, and that an older
/// file stays when the reading fails.
void checkTraveltimes(const TraveltimeConversion &conversion);
