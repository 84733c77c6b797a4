// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "readers/seisimager.h"
#include "tests/support/reading.h"
#include "tests/support/traveltime_files.h"

#include <string>

/// Two shots on the same two receivers.
inline const Lines twoShots = withoutLineFeeds(twoSeisImagerShots);

/// The file of two shots with some of its lines, counted from 1, replaced.
inline std::string fileWith(const ChangedLines &changedLines)
{
    return joined(withLines(twoShots, changedLines));
}

inline Reading readPath(const std::string &path, const TraveltimeSurvey &before = {})
{
    return readBoth(
        path, before,
        [&](TraveltimeSurvey &survey) {
            return readSeisImagerTraveltimes(path, survey.traveltimes, survey.spreads,
                                             survey.shots);
        },
        [&](TraveltimeSurvey &survey, Report &report) {
            SpreadIndex index;
            return readSeisImager(path, survey, index, report);
        });
}

inline Reading readText(const std::string &text, const TraveltimeSurvey &before = {})
{
    const TemporaryFolder folder;
    return readPath(folder.write("line.vs", text), before);
}
