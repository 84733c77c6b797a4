// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_picks.h"

#include "field/reciprocal_picks.h"
#include "view/record_plottable.h"

#include <QPainterPath>

#include <algorithm>

namespace {

/// A trace of a shot and its place along the line.
struct TracePlace
{
    double x = 0.0;
    std::size_t trace = 0;
};

/// Along the line, whatever the elevations: files of picks often have none.
bool isSamePlaceAlongLine(double a, double b)
{
    return isSamePlace({a, 0.0}, {b, 0.0});
}

/// From left to right.
std::vector<TracePlace> placesOf(const RecordData &record, const RecordShot &shot)
{
    std::vector<TracePlace> places;
    for (std::size_t i = shot.firstTrace; i < shot.firstTrace + shot.traceCount; ++i)
        if (const auto &receiver = record.traces[i].receiver)
            places.push_back({receiver->x, i});
    std::stable_sort(places.begin(), places.end(),
                     [](const auto &a, const auto &b) { return a.x < b.x; });
    return places;
}

/// Appends the picks of a record of the survey that lie on traces at these places.
void addPicks(const std::vector<TracePlace> &places, const PickSurvey &picks, std::size_t record,
              std::vector<RecordPick> &found)
{
    constexpr double farther = 0.02; // than places that are the same
    const ShotTraveltimes &traveltimes = picks.survey.traveltimes[record];
    const Spread &receivers = picks.survey.spreads[traveltimes.spreadIndex];
    for (std::size_t pick = 0; pick < receivers.size(); ++pick) {
        const double x = receivers[pick].x;
        auto place =
            std::lower_bound(places.begin(), places.end(), x - farther,
                             [](const TracePlace &other, double left) { return other.x < left; });
        for (; place != places.end() && place->x < x + farther; ++place)
            if (isSamePlaceAlongLine(place->x, x))
                found.push_back({place->trace, record, pick, traveltimes.times[pick]});
    }
}

/// A bar across the trace, which leaves the onset before it to be seen, with an edge in the colour
/// of the paper: on filled peaks it is seen as well.
QCPScatterStyle bar(const QColor &colour, const QColor &edge)
{
    QPainterPath path;
    path.addRect(-7.0, -2.0, 14.0, 4.0);
    return QCPScatterStyle(path, QPen(edge, 1.0), colour, 6.0);
}

} // namespace

std::vector<RecordPick> picksOn(const RecordData &record, const PickSurvey &picks)
{
    std::vector<RecordPick> found;
    for (const RecordShot &shot : record.shots) {
        if (!shot.position)
            continue;
        const std::vector<TracePlace> places = placesOf(record, shot);
        for (std::size_t i = 0; i < picks.survey.traveltimes.size(); ++i)
            if (isSamePlaceAlongLine(picks.survey.shots[i].x, shot.position->x))
                addPicks(places, picks, i, found);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &a, const auto &b) { return a.trace < b.trace; });
    return found;
}

void drawRecordPicks(QCustomPlot &plot, const std::vector<RecordPick> &picks, const QColor &colour)
{
    const RecordPlottable *record = recordOn(plot);
    if (record == nullptr || !record->drawing().layout.isInTime)
        return;
    while (plot.graphCount() > 0)
        plot.removeGraph(0);
    QCPGraph *marks = plot.addGraph();
    marks->setName("Picks");
    marks->setLineStyle(QCPGraph::lsNone);
    marks->setScatterStyle(bar(colour, record->drawing().options.palette.color(QPalette::Base)));
    marks->setAdaptiveSampling(false);
    for (const RecordPick &pick : picks)
        if (const auto place = record->placeOf(pick.trace))
            marks->addData(*place, 1000.0 * pick.time);
}
