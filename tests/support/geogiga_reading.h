// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "readers/geogiga.h"
#include "tests/support/reading.h"
#include "tests/support/traveltime_files.h"

#include <cstddef>
#include <string>

/// Two shots on three receivers; the rows end in CR LF, so that the second block is found.
inline const Lines twoShots = withoutLineFeeds(geogigaLines);

/// The file of two shots with some of its lines, counted from 1, replaced.
inline std::string fileWith(const ChangedLines &changedLines)
{
    return joined(withLines(twoShots, changedLines));
}

/// The second shot's receivers stand half a metre further than the first one's.
inline const ChangedLines movedReceivers = {
    {17, "1 0.5 0.0152 1\r"}, {18, "2 5.5 0.0081 1\r"}, {19, "3 10.5 0.0024 1\r"}};

/// A file of one block with the given receiver count and rows.
inline std::string oneShot(const std::string &receiverCount, const std::string &rows)
{
    return "TX_CURVE\nVERSION: 1.0\nELEVATION: 100\nTOTAL_NUMBER_OF_SHOTS: 1\n"
           "SEISMIC_DATA_FILE_NAME: a\nSHOT_LOCATION: 3\nNUMBER_OF_RECEIVERS: "
           + receiverCount + "\nNO X TIME ID\n" + rows;
}

/// A file of many blocks without receivers.
inline std::string emptyShots(const std::string &shotCount, std::size_t blocks)
{
    std::string text =
        "TX_CURVE\nVERSION: 1.0\nELEVATION: 100\nTOTAL_NUMBER_OF_SHOTS:" + shotCount + '\n';
    for (std::size_t i = 0; i < blocks; ++i)
        text += "SEISMIC_DATA_FILE_NAME: a\nSHOT_LOCATION: 3\nNUMBER_OF_RECEIVERS: 0\nNO X\n";
    return text;
}

inline Reading readPath(const std::string &path, const TraveltimeSurvey &before = {})
{
    return readBoth(
        path, before,
        [&](TraveltimeSurvey &survey) {
            return readGeogigaTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
        },
        [&](TraveltimeSurvey &survey, Report &report) {
            return readGeogiga(path, survey, report);
        });
}

inline Reading readText(const std::string &text, const TraveltimeSurvey &before = {})
{
    const TemporaryFolder folder;
    return readPath(folder.write("line.txt", text), before);
}
