// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/survey_checks.h"

#include "tests/support/reading.h"
#include "tests/support/special_numbers.h"

#include <gtest/gtest.h>

namespace {

/// One shot at 0 on a receiver at 10 m for every time.
TraveltimeSurvey surveyOf(const Numbers &times)
{
    TraveltimeSurvey survey;
    survey.shots = {{0.0, 0.0, ""}};
    survey.spreads = {Spread(times.size(), {10.0, 0.0})};
    survey.traveltimes = {{0, 0, 0.0, 0.0, times}};
    return survey;
}

/// The remarks on a survey that passes.
Texts remarksOn(const TraveltimeSurvey &survey, const std::string &unit = "seconds")
{
    Report report;
    report.place = {"line.vs", 17};
    EXPECT_TRUE(checkSurvey(survey, unit, report));
    EXPECT_EQ(failureOf(report), "");
    for (const Remark &remark : report.remarks)
        EXPECT_EQ(remark.place.file, "line.vs");
    return remarksOf(report);
}

std::string failureOn(const TraveltimeSurvey &survey)
{
    Report report;
    report.place = {"line.vs", 17};
    EXPECT_FALSE(checkSurvey(survey, "seconds", report));
    EXPECT_EQ(remarksOf(report), Texts{});
    return failureOf(report);
}

std::string tooSlow(const std::string &velocity)
{
    return "units, the times are read as seconds, which makes the median of offset over time "
           + velocity + " m/s: are these milliseconds?";
}

} // namespace

TEST(CheckSurvey, ASurveyOfTheGroundPassesWithoutARemark)
{
    EXPECT_EQ(remarksOn(surveyOf({0.01, 0.02, 0.05})), Texts{}); // 1000, 500 and 200 m/s
    EXPECT_EQ(remarksOn(surveyOf({0.01, 0.02, 0.05}), "milliseconds"), Texts{});
}

TEST(CheckSurvey, NoShots)
{
    EXPECT_EQ(failureOn({}), "there are no shots to convert");
    TraveltimeSurvey survey = surveyOf({0.01});
    survey.shots.clear();
    EXPECT_EQ(failureOn(survey), "there are no shots to convert");
}

TEST(CheckSurvey, NoReceivers)
{
    EXPECT_EQ(failureOn(surveyOf({})), "there are no receivers to convert");
    TraveltimeSurvey survey = surveyOf({});
    survey.spreads.clear();
    EXPECT_EQ(failureOn(survey), "there are no receivers to convert");
    survey.spreads = {{}, {}};
    EXPECT_EQ(failureOn(survey), "there are no receivers to convert");
    survey.spreads = {{}, {{10.0, 0.0}}};
    EXPECT_EQ(remarksOn(survey), Texts{});
}

TEST(CheckSurvey, AFailureFromBeforeStays)
{
    Report report;
    fail(report, {"shot1.txt", 3}, "2 fields, 3 expected");
    EXPECT_FALSE(checkSurvey({}, "seconds", report));
    EXPECT_EQ(failureOf(report), "3: 2 fields, 3 expected");
}

TEST(CheckSurvey, VelocitiesAtTheBounds)
{
    const TraveltimeSurvey slow = surveyOf({10.0 / 30.0});
    EXPECT_EQ(remarksOn(slow), Texts{});
    const TraveltimeSurvey fast = surveyOf({10.0 / 30000.0});
    EXPECT_EQ(remarksOn(fast), Texts{});
    EXPECT_EQ(remarksOn(surveyOf({10.0 / 29.0})), Texts{tooSlow("29")});
    EXPECT_EQ(remarksOn(surveyOf({10.0 / 31000.0})),
              Texts{"units, the times are read as seconds, which makes the median of offset over "
                    "time 31000 m/s: is the length in metres?"});
}

TEST(CheckSurvey, AsksForTheOtherUnit)
{
    // 10 m in 5 s, which are 5 ms; 10 m in 0.005 ms, which are 5 ms in seconds.
    EXPECT_EQ(remarksOn(surveyOf({5.0})), Texts{tooSlow("2")});
    EXPECT_EQ(remarksOn(surveyOf({0.000005}), "milliseconds"),
              Texts{"units, the times are read as milliseconds, which makes the median of offset "
                    "over time 2e+06 m/s: are these seconds?"});
    EXPECT_EQ(remarksOn(surveyOf({5.0}), "milliseconds"),
              Texts{"units, the times are read as milliseconds, which makes the median of offset "
                    "over time 2 m/s: is the length in metres?"});
    EXPECT_EQ(remarksOn(surveyOf({100.0})), Texts{tooSlow("0.1")});
}

TEST(CheckSurvey, TheMedianDecides)
{
    // Two of five, and two of four, do not.
    EXPECT_EQ(remarksOn(surveyOf({5.0, 0.01, 5.0, 0.01, 0.01})), Texts{});
    EXPECT_EQ(remarksOn(surveyOf({0.01, 5.0, 5.0, 0.01})), Texts{});
    EXPECT_EQ(remarksOn(surveyOf({5.0, 0.01, 5.0, 0.01, 5.0})), Texts{tooSlow("2")});
    EXPECT_EQ(remarksOn(surveyOf({5.0, 0.01, 4.0, 0.01, 2.0})), Texts{tooSlow("5")});
}

TEST(CheckSurvey, PicksWithoutOffsetOrTimeDoNotCount)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(remarksOn(surveyOf({0.0, 0.0, -1.0, -1.0, 0.01, nan, nan})), Texts{});
    EXPECT_EQ(remarksOn(surveyOf({0.0, -1.0, 5.0})), Texts{tooSlow("2")});
    EXPECT_EQ(remarksOn(surveyOf({0.0, -1.0, nan, infinity})), Texts{});
    TraveltimeSurvey survey = surveyOf({5.0, 5.0});
    survey.traveltimes[0].shotX = 10.0;
    EXPECT_EQ(remarksOn(survey), Texts{});
}

TEST(CheckSurvey, OffsetsAreThoseOfEveryShotsOwnSpread)
{
    TraveltimeSurvey survey = surveyOf({0.01});
    survey.spreads = {{{10.0, 0.0}}, {{-30.0, 0.0}, {50.0, 0.0}}};
    survey.traveltimes = {{0, 0, 0.0, 0.0, {2.0}}, {1, 1, 10.0, 0.0, {4.0, 4.0}}};
    // 10 m in 2 s, 40 m in 4 s to either side: 5, 10 and 10 m/s.
    EXPECT_EQ(remarksOn(survey), Texts{tooSlow("10")});
}

TEST(CheckSurvey, ASurveyThatContradictsItself)
{
    TraveltimeSurvey survey = surveyOf({5.0, 5.0});
    survey.spreads[0].pop_back();
    EXPECT_EQ(remarksOn(survey), Texts{tooSlow("2")});
    survey.traveltimes[0].spreadIndex = 1;
    EXPECT_EQ(remarksOn(survey), Texts{});
}
