// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/survey_checks.h"

#include "traveltime/text.h"

#include <algorithm>
#include <cmath>

namespace {

/// Offset over time of every pick that has both, in metres per second.
std::vector<double> velocities(const TraveltimeSurvey &survey)
{
    std::vector<double> velocities;
    for (const ShotTraveltimes &record : survey.traveltimes) {
        if (record.spreadIndex >= survey.spreads.size())
            continue;
        const Spread &receivers = survey.spreads[record.spreadIndex];
        for (std::size_t i = 0; i < std::min(record.times.size(), receivers.size()); ++i) {
            const double velocity = std::abs(receivers[i].x - record.shotX) / record.times[i];
            if (velocity > 0.0 && std::isfinite(velocity))
                velocities.push_back(velocity);
        }
    }
    return velocities;
}

void checkUnits(const TraveltimeSurvey &survey, const std::string &unit, Report &report)
{
    std::vector<double> all = velocities(survey);
    if (all.empty())
        return;
    const auto middle = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2);
    std::nth_element(all.begin(), middle, all.end());
    if (*middle >= 30.0 && *middle <= 30000.0)
        return;
    const bool isSlow = *middle < 30.0;
    const std::string other = unit == "seconds" ? "milliseconds" : "seconds";
    std::string text =
        "the times are read as " + unit + ", which makes the median of offset over time ";
    appendNumber(text, *middle);
    remark(report, RemarkKind::units,
           text + " m/s: "
               + (isSlow == (unit == "seconds") ? "are these " + other + "?"
                                                : "is the length in metres?"));
}

} // namespace

bool checkSurvey(const TraveltimeSurvey &survey, const std::string &unit, Report &report)
{
    report.place.line = 0;
    const auto isEmpty = [](const Spread &spread) { return spread.empty(); };
    if (survey.shots.empty())
        fail(report, "there are no shots to convert");
    else if (std::all_of(survey.spreads.begin(), survey.spreads.end(), isEmpty))
        fail(report, "there are no receivers to convert");
    else
        checkUnits(survey, unit, report);
    return !report.failure;
}
