// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/picks.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// The index of `path` among the files, of which only the last may be it.
std::uint32_t fileIndex(PickSurvey &picks, const std::string &path)
{
    if (picks.files.empty() || picks.files.back() != path)
        picks.files.push_back(path);
    return static_cast<std::uint32_t>(picks.files.size() - 1);
}

} // namespace

void addShot(PickSurvey &picks, const Shot &shot, const Place &place,
             const std::vector<Pick> &receivers)
{
    TraveltimeSurvey &survey = picks.survey;
    const auto record = static_cast<std::uint32_t>(survey.shots.size());
    const std::uint32_t file = fileIndex(picks, place.file);
    Spread spread;
    std::vector<double> times;
    std::vector<Origin> origins;
    std::vector<double> errors;
    spread.reserve(receivers.size());
    times.reserve(receivers.size());
    origins.reserve(receivers.size());
    for (const Pick &pick : receivers) {
        if (!(pick.time >= 0.0)) {
            picks.notPicked.push_back({record, pick.receiver, pick.time, {file, pick.line}});
            continue;
        }
        spread.push_back(pick.receiver);
        times.push_back(pick.time);
        origins.push_back({file, pick.line});
        errors.push_back(pick.error);
    }
    if (std::all_of(errors.begin(), errors.end(), [](double error) { return std::isnan(error); }))
        errors = {};

    survey.shots.push_back(shot);
    const std::uint32_t spreadIndex =
        findOrAddSpread(survey.spreads, std::move(spread), picks.index);
    survey.traveltimes.push_back({spreadIndex, record, shot.x, shot.elevation, std::move(times)});
    picks.shotOrigins.push_back({file, static_cast<std::uint32_t>(place.line)});
    picks.origins.push_back(std::move(origins));
    picks.errors.push_back(std::move(errors));
}

Place placeOf(const Origin &origin, const PickSurvey &picks)
{
    return {picks.files[origin.file], origin.line};
}
