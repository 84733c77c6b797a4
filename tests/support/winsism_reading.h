// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "readers/winsism.h"
#include "tests/support/reading.h"
#include "tests/support/traveltime_files.h"

#include <string>

/// Two shots and three receivers, without times.
inline const Lines twoShots = withoutLineFeeds(winsismLines);

inline const Positions twoShotPositions = {{-2.5, 100}, {12.5, 101}};
inline const Positions threeReceiverPositions = {{0, 100}, {5, 100.5}, {10, 101}};

/// The file of two shots with some of its lines, counted from 1, replaced.
inline std::string fileWith(const ChangedLines &changedLines)
{
    return joined(withLines(twoShots, changedLines));
}

/// Reads into a survey that is not empty.
inline Reading readPath(const std::string &path)
{
    TraveltimeSurvey before;
    before.traveltimes.resize(4);
    before.spreads.resize(5);
    before.shots.resize(6);
    return readBoth(
        path, before,
        [&](TraveltimeSurvey &survey) {
            return readWinsismTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
        },
        [&](TraveltimeSurvey &survey, Report &report) {
            return readWinsism(path, survey, report);
        });
}

inline Reading readText(const std::string &text)
{
    const TemporaryFolder folder;
    return readPath(folder.write("line.xyz", text));
}

/// The positions of the one spread.
inline Positions receiversOf(const TraveltimeSurvey &survey)
{
    return survey.spreads.size() == 1 ? positionsOf(survey.spreads[0]) : Positions();
}

inline void expectRead(const Reading &reading, const Positions &shots, const Positions &receivers,
                       const std::string &input)
{
    EXPECT_EQ(reading.outcome, "0") << input;
    EXPECT_EQ(reading.error, "") << input;
    EXPECT_EQ(failureOf(reading.report), "") << input;
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{shots.size(), 1, shots.size()})) << input;
    EXPECT_EQ(positionsOf(reading.survey.shots), shots) << input;
    EXPECT_EQ(receiversOf(reading.survey), receivers) << input;
}

/// What stays: so many shots, so many records, no spread.
inline void expectRefused(const Reading &reading, const std::string &error, std::size_t shots,
                          const std::string &input, std::size_t records = 0)
{
    EXPECT_EQ(reading.outcome, "1") << input;
    EXPECT_EQ(reading.error, error) << input;
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{records, 0, shots})) << input;
}
