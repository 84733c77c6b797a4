// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/reading.h"
#include "tests/support/traveltime_files.h"
#include "traveltime/generic_text.h"

#include <cstdint>
#include <string>

inline Reading readPath(const std::string &path, const TraveltimeSurvey &before = {},
                        const Shot &shot = {}, std::uint32_t shotIndex = 0)
{
    return readBoth(
        path, before,
        [&](TraveltimeSurvey &survey) {
            return readGenericTraveltimes(path, survey.traveltimes, survey.spreads, shot,
                                          shotIndex);
        },
        [&](TraveltimeSurvey &survey, Report &report) {
            SpreadIndex index;
            return readGeneric(path, survey, shot, shotIndex, index, report);
        });
}

inline Reading readText(const std::string &text, const TraveltimeSurvey &before = {},
                        const Shot &shot = {}, std::uint32_t shotIndex = 0)
{
    const TemporaryFolder folder;
    return readPath(folder.write("shot.txt", text), before, shot, shotIndex);
}
