// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"
#include "fuzz/traveltimes.h"
#include "plain/winsism.h"
#include "readers/winsism.h"
#include "traveltime/drivers.h"

void check(const std::string &input)
{
    const std::string path = folder().write("line.xyz", input);
    checkTraveltimes({
        [&](const std::string &output) { return convertWinsism(path, output); },
        [&](TraveltimeSurvey &survey) {
            return readWinsismTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
        },
        [&](TraveltimeSurvey &survey, Report &report) { return readWinsism(path, survey, report); },
        [&](plain::Survey &survey) { return plain::readWinsism(path, survey); },
    });
}
