// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/reciprocal_picks.h"

#include "field/exact_number.h"
#include "field/numbers.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr double centimetre = 0.01 + 1e-9; // as positions in centimetres are subtracted

/// Positions in ascending x, to be searched.
struct SortedPlaces
{
    std::vector<ReceiverPosition> positions = {};
    std::vector<std::size_t> indices = {}; ///< of each in the list that was sorted
};

template <typename Positions>
SortedPlaces sorted(const Positions &positions)
{
    SortedPlaces places;
    for (std::size_t i = 0; i < positions.size(); ++i)
        places.indices.push_back(i);
    std::stable_sort(places.indices.begin(), places.indices.end(),
                     [&](std::size_t a, std::size_t b) { return positions[a].x < positions[b].x; });
    for (const std::size_t index : places.indices)
        places.positions.push_back({positions[index].x, positions[index].elevation});
    return places;
}

/// Calls `visit` with the index of each position that is at `place`.
template <typename Visit>
void visitAt(const ReceiverPosition &place, const SortedPlaces &places, Visit visit)
{
    auto found =
        std::lower_bound(places.positions.begin(), places.positions.end(), place.x - centimetre,
                         [](const ReceiverPosition &position, double x) { return position.x < x; });
    for (; found != places.positions.end() && found->x <= place.x + centimetre; ++found)
        if (isSamePlace(*found, place))
            visit(places.indices[static_cast<std::size_t>(found - places.positions.begin())]);
}

std::optional<std::size_t> firstAt(const ReceiverPosition &place, const SortedPlaces &places)
{
    std::optional<std::size_t> first;
    visitAt(place, places,
            [&](std::size_t index) { first = std::min(index, first.value_or(index)); });
    return first;
}

/// A survey with its shots and layouts to be searched.
struct SearchableSurvey
{
    const PickSurvey &picks;
    SortedPlaces shots;
    std::vector<SortedPlaces> layouts;
};

SearchableSurvey searchable(const PickSurvey &picks)
{
    std::vector<SortedPlaces> layouts;
    for (const Spread &layout : picks.survey.spreads)
        layouts.push_back(sorted(layout));
    return {picks, sorted(picks.survey.shots), std::move(layouts)};
}

ReceiverPosition placeOf(const Shot &shot)
{
    return {shot.x, shot.elevation};
}

/// By how much two times that should be the same may differ.
double allowed(double a, double b, double tolerance)
{
    return std::max(tolerance, 0.05 * (a + b) / 2.0) + 1e-9;
}

/// A place in words for a finding in `file`: its line, and its file where that is another.
std::string inWords(const Place &place, const std::string &file)
{
    return (place.file == file ? "line " : place.file + ':') + std::to_string(place.line);
}

std::optional<double> median(std::vector<double> values)
{
    if (values.empty())
        return {};
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2.0;
}

/// Compares the pick of a record with the one the other way round in record `other`, if there is
/// one. Returns their difference.
std::optional<double> compare(std::size_t record, std::size_t pick, std::size_t other,
                              const SearchableSurvey &survey, double tolerance,
                              std::vector<Finding> &findings)
{
    const PickSurvey &picks = survey.picks;
    const ShotTraveltimes &there = picks.survey.traveltimes[other];
    const std::optional<std::size_t> back =
        firstAt(placeOf(picks.survey.shots[record]), survey.layouts[there.spreadIndex]);
    if (!back)
        return {};
    const double time = picks.survey.traveltimes[record].times[pick];
    const double timeBack = there.times[*back];
    const double difference = std::abs(time - timeBack);
    const Place place = placeOf(picks.origins[record][pick], picks);
    if (difference > allowed(time, timeBack, tolerance))
        findings.push_back({"reciprocal",
                            place,
                            0,
                            inMilliseconds(time)
                                + " from x = " + shortest(picks.survey.shots[record].x) + " to "
                                + shortest(picks.survey.shots[other].x) + ", but "
                                + inMilliseconds(timeBack) + " the other way round ("
                                + inWords(placeOf(picks.origins[other][*back], picks), place.file)
                                + "): a wave takes the same time both ways, so that a pick or a "
                                  "position is wrong",
                            {{record, pick}, {other, *back}}});
    return difference;
}

/// Compares the times of a record with those of an earlier one at the same place.
void compareShots(std::size_t record, std::size_t earlier, const SearchableSurvey &survey,
                  double tolerance, std::vector<Finding> &findings)
{
    const PickSurvey &picks = survey.picks;
    const ShotTraveltimes &here = picks.survey.traveltimes[record];
    const ShotTraveltimes &there = picks.survey.traveltimes[earlier];
    const Spread &receivers = picks.survey.spreads[here.spreadIndex];
    std::size_t common = 0;
    std::size_t differing = 0;
    std::size_t worst = 0;
    double worstExcess = 0.0;
    std::size_t worstThere = 0;
    for (std::size_t i = 0; i < receivers.size(); ++i) {
        const std::optional<std::size_t> same =
            firstAt(receivers[i], survey.layouts[there.spreadIndex]);
        if (!same)
            continue;
        ++common;
        const double excess = std::abs(here.times[i] - there.times[*same])
                              - allowed(here.times[i], there.times[*same], tolerance);
        differing += excess > 0.0 ? 1 : 0;
        if (excess <= worstExcess)
            continue;
        worst = i;
        worstExcess = excess;
        worstThere = *same;
    }
    if (differing == 0)
        return;
    const Place place = placeOf(picks.shotOrigins[record], picks);
    findings.push_back({"shotsAtOnePlace",
                        place,
                        0,
                        "another shot at x = " + shortest(here.shotX) + " ("
                            + inWords(placeOf(picks.shotOrigins[earlier], picks), place.file)
                            + ") has other times at " + std::to_string(differing) + " of "
                            + counted(common, "receiver")
                            + ", most at x = " + shortest(receivers[worst].x) + ": "
                            + inMilliseconds(there.times[worstThere]) + " there and "
                            + inMilliseconds(here.times[worst])
                            + " here, so that one of the shots is placed or picked wrong",
                        {{record, worst}, {earlier, worstThere}}});
}

} // namespace

bool isSamePlace(const ReceiverPosition &a, const ReceiverPosition &b)
{
    return std::abs(a.x - b.x) <= centimetre && std::abs(a.elevation - b.elevation) <= centimetre;
}

std::string inMilliseconds(double seconds)
{
    return exactNumber(seconds, 3) + " ms";
}

void findReciprocalDifferences(const PickSurvey &picks, double tolerance, PickCheckSummary &summary,
                               std::vector<Finding> &findings)
{
    const SearchableSurvey survey = searchable(picks);
    std::vector<double> differences;
    for (std::size_t record = 0; record < picks.survey.traveltimes.size(); ++record) {
        const ShotTraveltimes &traveltimes = picks.survey.traveltimes[record];
        const Spread &receivers = picks.survey.spreads[traveltimes.spreadIndex];
        for (std::size_t pick = 0; pick < receivers.size(); ++pick) {
            // At the shot itself there is no other way.
            if (isSamePlace(receivers[pick], placeOf(picks.survey.shots[record])))
                continue;
            visitAt(receivers[pick], survey.shots, [&](std::size_t other) {
                if (other <= record)
                    return;
                const std::optional<double> difference =
                    compare(record, pick, other, survey, tolerance, findings);
                if (difference)
                    differences.push_back(*difference);
            });
        }
    }
    summary.reciprocalPairs = differences.size();
    summary.medianDifference = median(std::move(differences));
}

void findShotsAtOnePlace(const PickSurvey &picks, double tolerance, std::vector<Finding> &findings)
{
    const SearchableSurvey survey = searchable(picks);
    for (std::size_t record = 0; record < picks.survey.shots.size(); ++record) {
        const std::size_t first =
            firstAt(placeOf(picks.survey.shots[record]), survey.shots).value_or(record);
        if (first < record)
            compareShots(record, first, survey, tolerance, findings);
    }
}
