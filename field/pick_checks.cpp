// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/pick_checks.h"

#include "field/numbers.h"
#include "field/reciprocal_picks.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

/// A pick, as the checks of a shot see it.
struct CheckedPick
{
    double offset = 0.0; ///< along x from the shot; negative to the left
    double time = 0.0;
    std::size_t index = 0; ///< in its record
};

void findNegativeTimes(const PickSurvey &picks, std::vector<Finding> &findings)
{
    for (const NotPicked &receiver : picks.notPicked)
        if (receiver.time < 0.0)
            findings.push_back({"negativeTime", placeOf(receiver.origin, picks), 0,
                                "a time of " + inMilliseconds(receiver.time)
                                    + ", below 0: left out here, but programs that do not know it "
                                      "as \"not picked\" take it for a time"});
}

/// Finds times that their offset alone contradicts.
void findWrongTimes(std::size_t record, const PickSurvey &picks, std::vector<Finding> &findings)
{
    const ShotTraveltimes &traveltimes = picks.survey.traveltimes[record];
    const Spread &receivers = picks.survey.spreads[traveltimes.spreadIndex];
    const ReceiverPosition shot{traveltimes.shotX, traveltimes.shotElevation};
    for (std::size_t i = 0; i < receivers.size(); ++i) {
        const double time = traveltimes.times[i];
        const Place place = placeOf(picks.origins[record][i], picks);
        const bool isAtShot = isSamePlace(receivers[i], shot);
        if (isAtShot && time > 0.001 + 1e-9)
            findings.push_back({"zeroOffset",
                                place,
                                0,
                                inMilliseconds(time)
                                    + " where the shot is: the shot's moment or a position is "
                                      "wrong, and with it the other times",
                                {{record, i}}});
        if (!isAtShot && time == 0.0)
            findings.push_back({"zeroTime",
                                place,
                                0,
                                "a time of 0 at x = " + shortest(receivers[i].x)
                                    + ", away from the shot at " + shortest(shot.x)
                                    + ": no wave is that fast, so that it is no pick",
                                {{record, i}}});
    }
}

void findRepeatedReceivers(std::size_t record, const PickSurvey &picks,
                           std::vector<Finding> &findings)
{
    const Spread &receivers = picks.survey.spreads[picks.survey.traveltimes[record].spreadIndex];
    std::multimap<double, std::size_t> seen; // by x
    for (std::size_t i = 0; i < receivers.size(); ++i) {
        const auto last = seen.upper_bound(receivers[i].x + 0.02);
        for (auto found = seen.lower_bound(receivers[i].x - 0.02); found != last; ++found) {
            if (!isSamePlace(receivers[found->second], receivers[i]))
                continue;
            const Place before = placeOf(picks.origins[record][found->second], picks);
            findings.push_back({"repeatedReceiver",
                                placeOf(picks.origins[record][i], picks),
                                0,
                                "the receiver at x = " + shortest(receivers[i].x)
                                    + " has a time in line " + std::to_string(before.line)
                                    + " already: which of them counts is open",
                                {{record, i}, {record, found->second}}});
            break;
        }
        seen.emplace(receivers[i].x, i);
    }
}

/// Finds times off the line through their neighbours', in ascending distance from the shot.
void findOutliers(const std::vector<CheckedPick> &side, std::size_t record, const PickSurvey &picks,
                  std::vector<Finding> &findings)
{
    for (std::size_t i = 1; i + 1 < side.size(); ++i) {
        const CheckedPick &before = side[i - 1];
        const CheckedPick &pick = side[i];
        const CheckedPick &after = side[i + 1];
        const double part = (pick.offset - before.offset) / (after.offset - before.offset);
        const double onLine = before.time + part * (after.time - before.time);
        const double limit = std::max(0.005, 0.3 * std::max(pick.time, onLine));
        if (std::abs(pick.time - onLine) <= limit + 1e-9)
            continue;
        const double rounded = std::round(onLine * 1e5) / 1e5;
        findings.push_back({"outlier",
                            placeOf(picks.origins[record][pick.index], picks),
                            0,
                            inMilliseconds(pick.time) + ", where its neighbours' times make "
                                + inMilliseconds(rounded)
                                + ": was another wave or another receiver picked?",
                            {{record, pick.index}}});
    }
}

/// The picks of a record on one side of its shot, in ascending distance, each position once.
std::vector<CheckedPick> sideOf(std::size_t record, double sign, const PickSurvey &picks)
{
    constexpr double centimetre = 0.01 + 1e-9;
    const ShotTraveltimes &traveltimes = picks.survey.traveltimes[record];
    const Spread &receivers = picks.survey.spreads[traveltimes.spreadIndex];
    std::vector<CheckedPick> side;
    for (std::size_t i = 0; i < receivers.size(); ++i)
        if (const double offset = sign * (receivers[i].x - traveltimes.shotX); offset > centimetre)
            side.push_back({offset, traveltimes.times[i], i});
    std::stable_sort(side.begin(), side.end(), [](const CheckedPick &a, const CheckedPick &b) {
        return a.offset < b.offset;
    });
    const auto isRepeated = [](const CheckedPick &a, const CheckedPick &b) {
        return b.offset - a.offset <= centimetre;
    };
    side.erase(std::unique(side.begin(), side.end(), isRepeated), side.end());
    return side;
}

/// Finds files whose times are in another unit, or their positions.
void findUnits(const PickSurvey &picks, std::vector<Finding> &findings)
{
    std::vector<std::vector<double>> velocities(picks.files.size());
    for (std::size_t record = 0; record < picks.survey.traveltimes.size(); ++record) {
        const ShotTraveltimes &traveltimes = picks.survey.traveltimes[record];
        const Spread &receivers = picks.survey.spreads[traveltimes.spreadIndex];
        for (std::size_t i = 0; i < receivers.size(); ++i) {
            const double offset = std::abs(receivers[i].x - traveltimes.shotX);
            if (offset > 0.0 && traveltimes.times[i] > 0.0)
                velocities[picks.shotOrigins[record].file].push_back(offset / traveltimes.times[i]);
        }
    }
    for (std::size_t file = 0; file < velocities.size(); ++file) {
        std::vector<double> &all = velocities[file];
        const auto middle = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2);
        std::nth_element(all.begin(), middle, all.end());
        if (all.empty() || (*middle >= 30.0 && *middle <= 30000.0))
            continue;
        std::string text = "the median of offset over time is ";
        text +=
            std::to_string(std::llround(*middle)) + " m/s, which no ground has: are the times in ";
        text += *middle < 30.0 ? "milliseconds" : "seconds";
        text += ", or the positions in another unit?";
        findings.push_back({"units", {picks.files[file]}, 0, std::move(text)});
    }
}

} // namespace

std::vector<Finding> checkPicks(const PickSurvey &picks, double toleranceMilliseconds,
                                PickCheckSummary &summary)
{
    const double tolerance = toleranceMilliseconds / 1000.0;
    std::vector<Finding> findings;
    findNegativeTimes(picks, findings);
    for (std::size_t record = 0; record < picks.survey.traveltimes.size(); ++record) {
        findWrongTimes(record, picks, findings);
        findRepeatedReceivers(record, picks, findings);
        for (const double sign : {-1.0, 1.0})
            findOutliers(sideOf(record, sign, picks), record, picks, findings);
    }
    findShotsAtOnePlace(picks, tolerance, findings);
    findReciprocalDifferences(picks, tolerance, summary, findings);
    findUnits(picks, findings);

    std::map<std::string, std::size_t> order;
    for (const std::string &file : picks.files)
        order.try_emplace(file, order.size());
    std::stable_sort(findings.begin(), findings.end(), [&](const Finding &a, const Finding &b) {
        return std::pair(order[a.place.file], a.place.line)
               < std::pair(order[b.place.file], b.place.line);
    });
    return findings;
}
