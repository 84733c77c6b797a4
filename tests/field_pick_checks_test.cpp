// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/pick_checks.h"

#include "tests/support/field_picks.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

/// A shot in line 10 * `number` of the file and its picks in the lines after it; x alone counts.
void addShot(PickSurvey &picks, std::uint32_t number, double x,
             const std::vector<std::pair<double, double>> &receivers,
             const std::string &file = "line.vs")
{
    std::vector<Pick> lines;
    for (const auto &[receiverX, milliseconds] : receivers)
        lines.push_back({{receiverX, 0.0},
                         milliseconds / 1000.0,
                         10 * number + 1 + static_cast<std::uint32_t>(lines.size())});
    addShot(picks, {x, 0.0, ""}, {file, 10 * number}, lines);
}

/// The findings, each as "file:line: kind: text".
Remarks findingsIn(const PickSurvey &picks, double tolerance = 2.0,
                   PickCheckSummary *summary = nullptr)
{
    PickCheckSummary unused;
    Remarks lines;
    for (const Finding &finding :
         checkPicks(picks, tolerance, summary != nullptr ? *summary : unused))
        lines.push_back(finding.place.file + ':' + std::to_string(finding.place.line) + ": "
                        + finding.kind + ": " + finding.text);
    return lines;
}

} // namespace

TEST(PickChecks, ACleanSurveyHasNoFinding)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{0, 1}, {5, 10}, {10, 20}, {15, 30}});
    addShot(picks, 2, 15, {{0, 30}, {5, 20}, {10, 10}, {15, 0}});
    addShot(picks, 3, 7.5, {{0, 15}, {5, 5}, {10, 5}, {15, 15}});
    EXPECT_EQ(findingsIn(picks), Remarks{});
    EXPECT_EQ(findingsIn({}), Remarks{});
}

TEST(PickChecks, NegativeTimes)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{5, 10}, {10, -1}, {15, 30}});
    addShot(picks, 2, 40, {{5, 70}, {10, std::numeric_limits<double>::quiet_NaN()}});
    EXPECT_EQ(findingsIn(picks),
              Remarks{"line.vs:12: negativeTime: a time of -1 ms, below 0: left out here, but "
                      "programs that do not know it as \"not picked\" take it for a time"});
}

TEST(PickChecks, TimesOf0AwayFromTheShot)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{-5, 10}, {-0.01, 0}, {0.02, 0}});
    EXPECT_EQ(findingsIn(picks),
              Remarks{"line.vs:13: zeroTime: a time of 0 at x = 0.02, away from the shot at 0: no "
                      "wave is that fast, so that it is no pick"});
}

TEST(PickChecks, TimesAtZeroOffset)
{
    PickSurvey picks;
    addShot(picks, 1, 5, {{0, 10}, {5, 1}, {5.02, 8}, {10, 10}});
    EXPECT_EQ(findingsIn(picks), Remarks{});
    addShot(picks, 2, 20, {{20.01, 1.1}});
    EXPECT_EQ(findingsIn(picks),
              Remarks{"line.vs:21: zeroOffset: 1.1 ms where the shot is: the shot's moment or a "
                      "position is wrong, and with it the other times"});
    // A receiver above the shot is not where the shot is.
    PickSurvey buried;
    addShot(buried, {5.0, -1.0, ""}, {"line", 1}, {{{5.0, 0.0}, 0.003, 2}});
    EXPECT_EQ(findingsIn(buried), Remarks{});
}

TEST(PickChecks, AReceiverTwiceInAShot)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{5, 10}, {10, 20}, {5.01, 10}, {15, 30}, {5, 10}});
    addShot(picks, 2, 20, {{5, 30}, {5.02, 30}});
    EXPECT_EQ(findingsIn(picks),
              (Remarks{"line.vs:13: repeatedReceiver: the receiver at x = 5.01 has a time in line "
                       "11 already: which of them counts is open",
                       "line.vs:15: repeatedReceiver: the receiver at x = 5 has a time in line 11 "
                       "already: which of them counts is open"}));
}

TEST(PickChecks, ShotsAtOnePlaceThatDiffer)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{5, 10}, {10, 20}, {15, 30}});
    addShot(picks, 2, 0.01, {{10, 22}, {15, 28}, {20, 40}});
    EXPECT_EQ(findingsIn(picks), Remarks{});
    addShot(picks, 3, 0, {{5, 10}, {10, 23}, {15, 24}, {25, 50}}, "more.vs");
    EXPECT_EQ(findingsIn(picks),
              Remarks{"more.vs:30: shotsAtOnePlace: another shot at x = 0 (line.vs:10) has other "
                      "times at 2 of 3 receivers, most at x = 15: 30 ms there and 24 ms here, so "
                      "that one of the shots is placed or picked wrong"});
    EXPECT_EQ(findingsIn(picks, 6.0), Remarks{});
}

TEST(PickChecks, ReciprocalTimesThatDiffer)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{20, 40}, {30, 60}});
    addShot(picks, 2, 20, {{0.01, 42}, {30, 20}});
    addShot(picks, 3, 30, {{0, 63.2}, {20, 22.1}}, "more.vs");
    PickCheckSummary summary;
    EXPECT_EQ(findingsIn(picks, 2.0, &summary),
              (Remarks{"line.vs:12: reciprocal: 60 ms from x = 0 to 30, but 63.2 ms the other way "
                       "round (more.vs:31): a wave takes the same time both ways, so that a pick "
                       "or a position is wrong",
                       "line.vs:22: reciprocal: 20 ms from x = 20 to 30, but 22.1 ms the other way "
                       "round (more.vs:32): a wave takes the same time both ways, so that a pick "
                       "or a position is wrong"}));
    EXPECT_EQ(summary.reciprocalPairs, 3U);
    EXPECT_NEAR(summary.medianDifference.value(), 0.0021, 1e-12);
    EXPECT_EQ(findingsIn(picks, 3.2).size(), 0U);
    EXPECT_EQ(findingsIn(picks, 0.5).size(),
              2U); // 42 and 40 ms are within 5 %, but not 22.1 and 20
}

TEST(PickChecks, FivePercentOfTheMeanMayBeMoreThanTheTolerance)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{100, 195}, {200, 294}});
    addShot(picks, 2, 100, {{0, 205}});
    addShot(picks, 3, 200, {{0, 310}});
    PickCheckSummary summary;
    EXPECT_EQ(findingsIn(picks, 2.0, &summary).size(), 1U);
    EXPECT_EQ(findingsIn(picks)[0].substr(0, 23), "line.vs:12: reciprocal:");
    EXPECT_EQ(summary.reciprocalPairs, 2U);
    EXPECT_NEAR(summary.medianDifference.value(), 0.013, 1e-12);
}

TEST(PickChecks, APairNeedsBothPositionsToACentimetre)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{20, 40}});
    addShot(picks, 2, 20.02, {{0, 90}});
    addShot(picks, {20.0, 1.0, ""}, {"line.vs", 30}, {{{0.0, 0.0}, 0.09, 31}});
    PickCheckSummary summary;
    EXPECT_EQ(findingsIn(picks, 2.0, &summary), Remarks{});
    EXPECT_EQ(summary.reciprocalPairs, 0U);
    EXPECT_EQ(summary.medianDifference, std::nullopt);
}

TEST(PickChecks, TimesOffTheLineThroughTheirNeighbours)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{10, 20}, {20, 40}, {30, 52.9}, {40, 48}, {50, 52}});
    // 44 on the line at 30, of which 8.9 is less than 30 %; 52.45 at 40.
    EXPECT_EQ(findingsIn(picks), Remarks{});
    picks = {};
    addShot(picks, 1, 0, {{10, 20}, {20, 20}, {30, 44}, {40, 44}, {50, 50}});
    EXPECT_EQ(findingsIn(picks),
              Remarks{"line.vs:12: outlier: 20 ms, where its neighbours' times make 32 ms: was "
                      "another wave or another receiver picked?"});
    // The same in any order and on the other side of the shot.
    picks = {};
    addShot(picks, 1, 0, {{-50, 50}, {-30, 44}, {-10, 20}, {-20, 20}, {-40, 44}, {5, 10}});
    EXPECT_EQ(findingsIn(picks),
              Remarks{"line.vs:14: outlier: 20 ms, where its neighbours' times make 32 ms: was "
                      "another wave or another receiver picked?"});
}

TEST(PickChecks, ALineNeedsThreePicksOnOneSideOfTheShot)
{
    PickSurvey picks;
    // The shot, one of the three, or the other side.
    addShot(picks, 1, 20, {{0, 10}, {10, 50}, {20, 0}, {30, 50}, {40, 10}});
    EXPECT_EQ(findingsIn(picks), Remarks{});
    picks = {};
    addShot(picks, 1, 20, {{10, 20}, {10, 20}, {0, 90}});
    EXPECT_EQ(findingsIn(picks).size(), 1U); // the repeated receiver
}

TEST(PickChecks, DeparturesUpToFiveMillisecondsAreNone)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{10, 5}, {20, 12.5}, {30, 10}});
    EXPECT_EQ(findingsIn(picks), Remarks{});
    picks = {};
    addShot(picks, 1, 0, {{10, 5}, {20, 12.6}, {30, 10}});
    EXPECT_EQ(findingsIn(picks),
              Remarks{"line.vs:12: outlier: 12.6 ms, where its neighbours' times make 7.5 ms: was "
                      "another wave or another receiver picked?"});
}

TEST(PickChecks, DeparturesUpTo30PercentOfTheLargerTimeAreNone)
{
    const auto findings = [](double before, double pick, double after) {
        PickSurvey picks;
        addShot(picks, 1, 0, {{10, before}, {20, pick}, {30, after}});
        return findingsIn(picks).size();
    };
    // 70 ms on the line; then 100 ms on it.
    EXPECT_EQ(findings(40, 100, 100), 0U);
    EXPECT_EQ(findings(40, 100.1, 100), 1U);
    EXPECT_EQ(findings(80, 70, 120), 0U);
    EXPECT_EQ(findings(80, 69.9, 120), 1U);
}

TEST(PickChecks, ATrueBreakIsNamedWhereItIsNearTheShot)
{
    // 200 m/s on 2000 m/s, receivers 5 m apart, of which one stands at the break.
    PickSurvey picks;
    addShot(picks, 1, 0, {{1.5, 7.5}, {6.5, 32.5}, {11.5, 35}});
    EXPECT_EQ(findingsIn(picks).size(), 1U); // 21.25 ms on the line: 11.25 is more than 9.75
    picks = {};
    addShot(picks, 1, 0, {{4, 20}, {9, 45}, {14, 47.5}});
    EXPECT_EQ(findingsIn(picks), Remarks{}); // 33.75 ms on the line: 11.25 is less than 13.5
}

TEST(PickChecks, UnitsThatCannotBe)
{
    const auto unitsOf = [](double metres, double milliseconds) {
        PickSurvey picks;
        addShot(picks, 1, 0, {{5, 10}, {10, 20}, {15, 30}});
        addShot(picks, 2, 100, {{100 + metres, milliseconds}}, "more.vs");
        return findingsIn(picks);
    };
    EXPECT_EQ(unitsOf(30, 1000), Remarks{});
    EXPECT_EQ(unitsOf(30, 1), Remarks{});
    EXPECT_EQ(unitsOf(29, 1000),
              Remarks{"more.vs:0: units: the median of offset over time is 29 m/s, which no ground "
                      "has: are the times in milliseconds, or the positions in another unit?"});
    EXPECT_EQ(unitsOf(31, 1),
              Remarks{"more.vs:0: units: the median of offset over time is 31000 m/s, which no "
                      "ground has: are the times in seconds, or the positions in another unit?"});
}

TEST(PickChecks, FindingsComeFileByFileAndLineByLine)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{5, 0}, {10, -1}, {20, 40}}, "b.vs");
    addShot(picks, 2, 20, {{0, 50}, {5, -1}}, "a.vs");
    Remarks places;
    for (const std::string &line : findingsIn(picks))
        places.push_back(line.substr(0, line.find(": ", 9)));
    EXPECT_EQ(places, (Remarks{"b.vs:11: zeroTime", "b.vs:12: negativeTime", "b.vs:13: reciprocal",
                               "a.vs:22: negativeTime"}));
}

TEST(PickChecks, FindingsNameTheirPicks)
{
    PickSurvey picks;
    addShot(picks, 1, 0, {{5, 10}, {10, 20}, {15, 80}, {20, 40}, {25, -1}, {0, 9}});
    addShot(picks, 2, 10, {{0, 30}, {5, 0}, {5, 10}});
    addShot(picks, 3, 0, {{10, 21}, {20, 70}});
    std::vector<std::string> lines;
    PickCheckSummary summary;
    for (const Finding &finding : checkPicks(picks, 2.0, summary)) {
        std::string line = finding.kind;
        for (const PickIndex &pick : finding.picks)
            line += ' ' + std::to_string(pick.record) + ',' + std::to_string(pick.pick);
        lines.push_back(line);
    }
    EXPECT_EQ(lines, (Remarks{"outlier 0,1", "reciprocal 0,1 1,0", "outlier 0,2", "negativeTime",
                              "zeroOffset 0,4", "reciprocal 1,0 2,0", "zeroTime 1,1",
                              "repeatedReceiver 1,2 1,1", "shotsAtOnePlace 2,1 0,3"}));
}
