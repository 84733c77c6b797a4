// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/shot_list.h"
#include "field/text_input.h"
#include "field/topography.h"
#include "fuzz/field_picks.h"
#include "fuzz/support.h"

#include <cmath>

namespace {

/// Some shots, over which a topography is laid.
PickSurvey shots()
{
    PickSurvey picks;
    for (const double x : {-100.0, 0.0, 0.5, 5.0, 1e6})
        addShot(picks, {x, 7.0, ""}, {"shots", 1},
                {{{x + 1.0, 7.0}, 0.01, 2}, {{0.0, 7.0}, 0.0, 3}});
    return picks;
}

std::string raise(const std::string &bytes)
{
    const std::string path = folder().write("file", bytes);
    PickSurvey picks = shots();
    Report report;
    const bool isGood = applyTopography(path, picks, report);
    checkReport(report, path, decodeText(bytes), isGood);
    if (!isGood)
        require(bitsOf(picks) == bitsOf(shots()), "a topography that is refused changes nothing");
    return bitsOf(picks) + (isGood ? "" : report.failure->text);
}

std::string list(const std::string &bytes)
{
    const std::string path = folder().write("file", bytes);
    std::vector<ShotPosition> positions;
    Report report;
    const bool isGood = readShotList(path, positions, report);
    checkReport(report, path, decodeText(bytes), isGood);
    std::string words = isGood ? "" : report.failure->text;
    for (const ShotPosition &position : positions) {
        require(std::isfinite(position.x) && std::isfinite(position.elevation),
                "positions are numbers");
        words += position.file + ' ' + std::to_string(position.x) + '\n';
    }
    return words;
}

} // namespace

// The input is a topography and a list of shots.
void check(const std::string &input)
{
    checkShapes(raise, input);
    checkShapes(list, input);
}
