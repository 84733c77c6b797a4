// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/pick_summary.h"

#include <cmath>
#include <set>
#include <utility>

PickSummary summarise(const PickSurvey &picks)
{
    PickSummary summary;
    const TraveltimeSurvey &survey = picks.survey;
    summary.shots = survey.shots.size();
    for (const Shot &shot : survey.shots) {
        extend(summary.shotX, shot.x);
        extend(summary.shotElevation, shot.elevation);
    }
    summary.layouts = survey.spreads.size();
    std::set<std::pair<double, double>> positions;
    for (const Spread &spread : survey.spreads) {
        for (const ReceiverPosition &receiver : spread) {
            positions.emplace(receiver.x, receiver.elevation);
            extend(summary.receiverX, receiver.x);
            extend(summary.receiverElevation, receiver.elevation);
        }
    }
    summary.receivers = positions.size();
    for (const ShotTraveltimes &record : survey.traveltimes) {
        summary.picks += record.times.size();
        for (const double time : record.times)
            extend(summary.time, time);
    }
    for (const std::vector<double> &errors : picks.errors) {
        for (const double error : errors) {
            summary.errors += std::isnan(error) ? 0 : 1;
            extend(summary.error, error);
        }
    }
    return summary;
}
