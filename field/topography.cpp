// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/topography.h"

#include "field/exact_number.h"
#include "field/rows.h"
#include "field/text_input.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <utility>

namespace {

/// Elevations by x.
using Topography = std::map<double, double>;

bool readTopography(const std::string &path, Topography &topography, Report &report)
{
    TextInput input;
    if (!loadInput(path, input, report))
        return false;
    const RowStyle style = findStyle(input);
    while (nextRow(style, topography.empty(), input, report)) {
        if (input.fields.size() != 2)
            return fail(report,
                        counted(input.fields.size(), "field") + ": x and elevation expected");
        double x = 0.0;
        double elevation = 0.0;
        if (!readNumber(input.fields[0], "x", x, input, report)
            || !readNumber(input.fields[1], "the elevation", elevation, input, report))
            return false;
        const auto [point, isNew] = topography.try_emplace(x, elevation);
        if (!isNew && point->second != elevation)
            return fail(report, "the elevation at x = " + exactNumber(x) + " is "
                                    + exactNumber(elevation) + " here, but "
                                    + exactNumber(point->second) + " above");
    }
    if (topography.empty())
        return fail(report, "there are no rows of x and elevation");
    return endNumbers(input, report);
}

double elevationAt(double x, const Topography &topography)
{
    const auto right = topography.lower_bound(x);
    if (right == topography.end())
        return topography.rbegin()->second;
    if (right == topography.begin() || right->first == x)
        return right->second;
    const auto left = std::prev(right);
    const double part = (x - left->first) / (right->first - left->first);
    const double elevation = left->second + part * (right->second - left->second);
    // To a nanometre, which takes the last bits' errors away: 212.3, not 212.29999999999998.
    return std::abs(elevation) < 1e6 ? std::round(elevation * 1e9) / 1e9 : elevation;
}

/// Remarks on positions beyond the ends of the topography; says the farthest.
void remarkOnEnds(const std::string &path, const TraveltimeSurvey &survey,
                  const Topography &topography, Report &report)
{
    const double first = topography.begin()->first;
    const double last = topography.rbegin()->first;
    report.place = {path};
    const auto check = [&](const auto &position) {
        const double beyond = std::max(first - position.x, position.x - last);
        if (beyond <= 0.0)
            return;
        remarkWorst(report, RemarkKind::geometry, beyond, [&] {
            return "x " + exactNumber(position.x) + " is "
                   + (position.x < first ? "before the first" : "after the last") + " point, "
                   + exactNumber(position.x < first ? first : last)
                   + ": it gets that point's elevation";
        });
    };
    std::for_each(survey.shots.begin(), survey.shots.end(), check);
    for (const Spread &receivers : survey.spreads)
        std::for_each(receivers.begin(), receivers.end(), check);
}

} // namespace

bool applyTopography(const std::string &path, PickSurvey &picks, Report &report)
{
    Topography topography;
    if (!readTopography(path, topography, report))
        return false;
    TraveltimeSurvey &survey = picks.survey;
    remarkOnEnds(path, survey, topography, report);
    const auto raise = [&](auto &position) {
        position.elevation = elevationAt(position.x, topography);
    };
    std::for_each(survey.shots.begin(), survey.shots.end(), raise);
    // Layouts that were different may be equal now.
    std::vector<Spread> before = std::exchange(survey.spreads, {});
    picks.index = {};
    std::vector<std::uint32_t> indices;
    for (Spread &receivers : before) {
        std::for_each(receivers.begin(), receivers.end(), raise);
        indices.push_back(findOrAddSpread(survey.spreads, std::move(receivers), picks.index));
    }
    for (std::size_t i = 0; i < survey.traveltimes.size(); ++i) {
        survey.traveltimes[i].spreadIndex = indices[survey.traveltimes[i].spreadIndex];
        survey.traveltimes[i].shotElevation = survey.shots[i].elevation;
    }
    for (NotPicked &receiver : picks.notPicked)
        raise(receiver.receiver);
    return true;
}
