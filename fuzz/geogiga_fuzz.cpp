// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"
#include "fuzz/traveltimes.h"
#include "plain/geogiga.h"
#include "readers/geogiga.h"
#include "traveltime/drivers.h"

void check(const std::string &input)
{
    const std::string path = folder().write("line.txt", input);
    checkTraveltimes({
        [&](const std::string &output) { return convertGeogiga(path, output); },
        [&](TraveltimeSurvey &survey) {
            return readGeogigaTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
        },
        [&](TraveltimeSurvey &survey, Report &report) { return readGeogiga(path, survey, report); },
        [&](plain::Survey &survey) { return plain::readGeogiga(path, survey); },
    });
}
