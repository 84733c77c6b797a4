// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/pick_curves.h"

#include "field/exact_number.h"
#include "field/pick_summary.h"
#include "field/reciprocal_picks.h"
#include "traveltime/text.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace {

const ReceiverPosition &receiverOf(const PickSurvey &picks, const PickIndex &pick)
{
    const ShotTraveltimes &record = picks.survey.traveltimes[pick.record];
    return picks.survey.spreads[record.spreadIndex][pick.pick];
}

QPointF pointAt(double x, double seconds, double shotX, const PickAxes &axes)
{
    const double offset = x - shotX;
    const double reduction =
        axes.reductionVelocity ? std::abs(offset) / *axes.reductionVelocity : 0.0;
    return {axes.isByOffset ? offset : x, (seconds - reduction) * 1000.0};
}

/// The receivers that a finding of one that was not picked is about.
std::vector<NotPicked> notPickedOf(const Finding &finding, const PickSurvey &picks)
{
    std::vector<NotPicked> receivers;
    if (finding.kind == "negativeTime")
        for (const NotPicked &receiver : picks.notPicked)
            if (placeOf(receiver.origin, picks) == finding.place)
                receivers.push_back(receiver);
    return receivers;
}

QString inMetres(double metres)
{
    return QString::fromStdString(exactNumber(metres)) + " m";
}

QString fileName(const std::string &path)
{
    return QString::fromStdString(std::filesystem::path(path).filename().string());
}

QString inFile(const Place &place)
{
    return fileName(place.file) + ", line " + QString::number(place.line);
}

} // namespace

QPointF pointOf(const PickSurvey &picks, const PickIndex &pick, const PickAxes &axes)
{
    const ShotTraveltimes &record = picks.survey.traveltimes[pick.record];
    return pointAt(receiverOf(picks, pick).x, record.times[pick.pick], record.shotX, axes);
}

std::vector<std::vector<QPointF>> curvesOf(const PickSurvey &picks, std::size_t shot,
                                           const PickAxes &axes)
{
    const ShotTraveltimes &record = picks.survey.traveltimes[shot];
    std::vector<QPointF> curve;
    for (std::size_t i = 0; i < record.times.size(); ++i)
        curve.push_back(pointOf(picks, {shot, i}, axes));
    std::stable_sort(curve.begin(), curve.end(),
                     [](const QPointF &a, const QPointF &b) { return a.x() < b.x(); });
    constexpr double centimetre = 0.01 + 1e-9;
    const double shotX = axes.isByOffset ? 0.0 : record.shotX;
    const auto right = std::find_if(curve.begin(), curve.end(), [&](const QPointF &point) {
        return point.x() >= shotX - centimetre;
    });
    if (right == curve.begin() || right == curve.end() || right->x() <= shotX + centimetre)
        return {curve};
    return {{curve.begin(), right}, {right, curve.end()}};
}

std::vector<QPointF> pointsOf(const Finding &finding, const PickSurvey &picks, const PickAxes &axes)
{
    std::vector<QPointF> points;
    for (const PickIndex &pick : finding.picks)
        points.push_back(pointOf(picks, pick, axes));
    for (const NotPicked &receiver : notPickedOf(finding, picks))
        points.push_back(pointAt(receiver.receiver.x, 0.0,
                                 picks.survey.traveltimes[receiver.record].shotX,
                                 {axes.isByOffset}));
    return points;
}

std::set<std::size_t> shotsOf(const Finding &finding, const PickSurvey &picks)
{
    std::set<std::size_t> shots;
    for (const PickIndex &pick : finding.picks)
        shots.insert(pick.record);
    for (const NotPicked &receiver : notPickedOf(finding, picks))
        shots.insert(receiver.record);
    return shots;
}

QString nameOfShot(const PickSurvey &picks, std::size_t shot)
{
    return QString("Shot %1 at %2").arg(shot + 1).arg(inMetres(picks.survey.shots[shot].x));
}

QString describeShot(const PickSurvey &picks, std::size_t shot)
{
    return QString::fromStdString(counted(picks.survey.traveltimes[shot].times.size(), "pick"))
           + '\n' + inFile(placeOf(picks.shotOrigins[shot], picks));
}

QString describePick(const PickSurvey &picks, const PickIndex &pick)
{
    const double seconds = picks.survey.traveltimes[pick.record].times[pick.pick];
    return QStringList{nameOfShot(picks, pick.record),
                       "Receiver at " + inMetres(receiverOf(picks, pick).x),
                       QString::fromStdString(inMilliseconds(seconds)),
                       inFile(placeOf(picks.origins[pick.record][pick.pick], picks))}
        .join('\n');
}

QString titleOf(const PickSurvey &picks)
{
    if (picks.files.empty())
        return "";
    const std::set<std::string> files(picks.files.begin(), picks.files.end());
    const PickSummary summary = summarise(picks);
    const QString others =
        files.size() > 1 ? QString(" and %1 more").arg(files.size() - 1) : QString();
    return fileName(picks.files.front()) + others + ": "
           + QString::fromStdString(counted(summary.shots, "shot") + ", "
                                    + counted(summary.picks, "pick"));
}
