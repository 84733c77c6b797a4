// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/generic_picks.h"
#include "field/geogiga_picks.h"
#include "field/pick_checks.h"
#include "field/seisimager_picks.h"
#include "field/shot_list.h"
#include "tests/support/field_picks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

// The checks on surveys whose ground is known: two layers, level and dipping, picked to half a
// millisecond.

namespace {

struct Ground
{
    double upperVelocity = 500.0; ///< m/s
    double lowerVelocity = 1800.0;
    double depth = 6.0; ///< of the interface below x = 0, at a right angle to it, m
    double dip = 0.0;   ///< downwards to the right, degrees
};

/// The first break from one place to another: the direct wave's or the head wave's.
double firstBreak(const Ground &ground, double from, double to)
{
    const double dip = ground.dip * std::numbers::pi / 180.0;
    const auto depth = [&](double x) { return ground.depth + x * std::sin(dip); };
    const double offset = std::abs(to - from);
    const double criticalAngle = std::asin(ground.upperVelocity / ground.lowerVelocity);
    const double headWave =
        offset * std::cos(dip) / ground.lowerVelocity
        + (depth(from) + depth(to)) * std::cos(criticalAngle) / ground.upperVelocity;
    return std::min(offset / ground.upperVelocity, headWave);
}

/// A line of 24 geophones, 5 m apart, with a shot at every third of them and one in the middle
/// between two, picked with errors of up to half a millisecond. Shot i is in line 100 i.
PickSurvey surveyOf(const Ground &ground, std::mt19937_64 &random)
{
    PickSurvey picks;
    std::vector<double> shots;
    for (int i = 0; i < 24; i += 3)
        shots.push_back(5.0 * i);
    shots.push_back(57.5);
    for (std::uint32_t i = 0; i < shots.size(); ++i) {
        std::vector<Pick> receivers;
        for (std::uint32_t j = 0; j < 24; ++j) {
            const double x = 5.0 * j;
            const double error = (static_cast<double>(random() % 1001) - 500.0) / 1e6;
            receivers.push_back(
                {{x, 0.0}, std::abs(firstBreak(ground, shots[i], x) + error), 100 * i + 1 + j});
        }
        addShot(picks, {shots[i], 0.0, ""}, {"line", 100 * i}, receivers);
    }
    return picks;
}

Remarks findingsIn(const PickSurvey &picks, PickCheckSummary &summary)
{
    Remarks lines;
    for (const Finding &finding : checkPicks(picks, 2.0, summary))
        lines.push_back(std::to_string(finding.place.line) + ": " + finding.kind);
    return lines;
}

} // namespace

TEST(KnownGround, ACleanSurveyHasNoFinding)
{
    std::mt19937_64 random(1);
    for (const double upper : {400.0, 600.0, 800.0})
        for (const double lower : {1800.0, 3000.0, 4500.0})
            for (const double depth : {3.0, 6.0, 10.0})
                for (const double dip : {-1.0, 0.0, 1.0, 5.0}) {
                    const Ground ground{upper, lower, depth, dip};
                    PickCheckSummary summary;
                    EXPECT_EQ(findingsIn(surveyOf(ground, random), summary), Remarks{})
                        << upper << ' ' << lower << ' ' << depth << ' ' << dip;
                    // Each two of the eight shots at geophones.
                    EXPECT_EQ(summary.reciprocalPairs, 28U);
                    EXPECT_GT(summary.medianDifference.value(), 0.0);
                    EXPECT_LT(summary.medianDifference.value(), 0.001);
                }
}

TEST(KnownGround, AWrongPickIsFoundInItsLine)
{
    std::mt19937_64 random(2);
    PickSurvey picks = surveyOf({}, random);
    // The first shot's pick at x = 60, where the fifth shot is: a cycle late.
    picks.survey.traveltimes[0].times[12] += 0.009;
    PickCheckSummary summary;
    EXPECT_EQ(findingsIn(picks, summary), Remarks{"13: reciprocal"});
    picks.survey.traveltimes[0].times[12] += 0.02;
    const Remarks findings = findingsIn(picks, summary);
    EXPECT_NE(std::find(findings.begin(), findings.end(), "13: outlier"), findings.end());
}

TEST(KnownGround, AShotInTheWrongPlaceIsFound)
{
    std::mt19937_64 random(3);
    PickSurvey picks = surveyOf({}, random);
    // Shot 4, at x = 45, is listed at 60, where another one is.
    picks.survey.shots[3].x = picks.survey.traveltimes[3].shotX = 60.0;
    PickCheckSummary summary;
    Remarks kinds;
    for (const std::string &finding : findingsIn(picks, summary))
        kinds.push_back(finding.substr(finding.find(' ') + 1));
    for (const char *kind : {"reciprocal", "shotsAtOnePlace", "zeroOffset"})
        EXPECT_NE(std::find(kinds.begin(), kinds.end(), kind), kinds.end()) << kind;
}

TEST(KnownGround, TheSamplesAreClean)
{
    const std::string folder = SAMPLES_FOLDER "/";
    PickOptions options;
    Report report;
    ASSERT_TRUE(readShotList(folder + "generic/shots.txt", options.shotPositions, report));
    std::vector<PickSurvey> surveys(3);
    for (const ShotPosition &position : options.shotPositions)
        ASSERT_TRUE(readGenericPicks(position.file, options, surveys[0], report));
    ASSERT_TRUE(readGeogigaPicks(folder + "geogiga/line.txt", {}, surveys[1], report));
    ASSERT_TRUE(readSeisImagerPicks(folder + "seisimager/line.vs", {}, surveys[2], report));
    EXPECT_TRUE(report.remarks.empty());
    for (const PickSurvey &picks : surveys) {
        PickCheckSummary summary;
        EXPECT_EQ(picks.survey.shots.size(), 5U);
        EXPECT_EQ(picks.survey.spreads.size(), 1U);
        EXPECT_EQ(findingsIn(picks, summary), Remarks{});
    }
}
