// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/pick_output.h"

#include "field/positions.h"
#include "traveltime/text.h"

#include <algorithm>

bool openOutput(const std::string &path, TextOutput &output, Report &report)
{
    output.path = path;
    output.stream.open(path, std::ios::binary);
    return output.stream.is_open() || failInSystem(report, path);
}

void passOn(TextOutput &output)
{
    constexpr std::size_t much = 1 << 20;
    if (output.text.size() < much)
        return;
    output.stream << output.text;
    output.text.clear();
}

bool closeOutput(TextOutput &output, Report &report)
{
    output.stream << output.text;
    output.stream.close();
    return output.stream || failInSystem(report, output.path);
}

void remarkOnErrorsLeftOut(const PickSurvey &picks, Report &report)
{
    const auto found = std::find_if(picks.errors.begin(), picks.errors.end(),
                                    [](const auto &errors) { return !errors.empty(); });
    if (found != picks.errors.end())
        remark(report, RemarkKind::leftOut,
               placeOf(picks.shotOrigins[static_cast<std::size_t>(found - picks.errors.begin())],
                       picks),
               "the output has no room for the picks' errors: they are left out");
}

void remarkOnElevationsLeftOut(const PickSurvey &picks, Report &report)
{
    const auto isRaised = [](const auto &position) { return position.elevation != 0.0; };
    const TraveltimeSurvey &survey = picks.survey;
    for (std::size_t i = 0; i < survey.shots.size(); ++i) {
        const Spread &receivers = survey.spreads[survey.traveltimes[i].spreadIndex];
        if (!isRaised(survey.shots[i])
            && std::none_of(receivers.begin(), receivers.end(), isRaised))
            continue;
        remark(report, RemarkKind::leftOut, placeOf(picks.shotOrigins[i], picks),
               "the output has no room for elevations: they are left out");
        return;
    }
}

void remarkOnShotsAtOnePlace(const PickSurvey &picks, Report &report)
{
    const TraveltimeSurvey &survey = picks.survey;
    PositionTable shots;
    std::vector<std::size_t> firstShots;
    for (std::size_t i = 0; i < survey.shots.size(); ++i) {
        const Place place = placeOf(picks.shotOrigins[i], picks);
        const Spread &receivers = survey.spreads[survey.traveltimes[i].spreadIndex];
        PositionTable seen;
        for (const ReceiverPosition &receiver : receivers)
            addPosition(seen, receiver);
        if (receivers.empty())
            remark(report, RemarkKind::leftOut, place,
                   "the output has no room for a shot without picks: it is left out");
        else if (seen.positions.size() < receivers.size())
            remark(report, RemarkKind::numbering, place,
                   "a receiver twice in this shot: in the output these are two shots");
        const std::uint32_t at = addPosition(shots, {survey.shots[i].x, survey.shots[i].elevation});
        if (at == firstShots.size())
            firstShots.push_back(i);
        else
            remark(report, RemarkKind::numbering, place,
                   "this shot stands where shot " + std::to_string(firstShots[at] + 1)
                       + " does: the output has them as one");
    }
}
