// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/survey.h"

#include "readers/seisimager.h"
#include "tests/support/special_numbers.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {


const Spread threeReceivers = {{0.0, 100.0}, {5.0, 100.5}, {10.0, 101.0}};

} // namespace

TEST(SurveyModel, ValuesOfARecordStandInTheirOrder)
{
    const ShotTraveltimes record{1, 2, -2.5, 100.0, {0.0021}};
    EXPECT_EQ(record.spreadIndex, 1u);
    EXPECT_EQ(record.shotIndex, 2u);
    EXPECT_EQ(record.shotX, -2.5);
    EXPECT_EQ(record.shotElevation, 100.0);
    EXPECT_EQ(record.times, std::vector<double>{0.0021});
    static_assert(std::is_same_v<decltype(record.spreadIndex), std::uint32_t>);
    static_assert(std::is_same_v<decltype(record.shotIndex), std::uint32_t>);

    const ReceiverPosition receiver{5.0, 100.5};
    EXPECT_EQ(receiver.x, 5.0);
    EXPECT_EQ(receiver.elevation, 100.5);

    const Shot shot{-2.5, 100.0, "shot1.txt"};
    EXPECT_EQ(shot.x, -2.5);
    EXPECT_EQ(shot.elevation, 100.0);
    EXPECT_EQ(shot.name, "shot1.txt");
}

TEST(SurveyModel, ValuesAreZeroUntilGiven)
{
    const ReceiverPosition receiver;
    EXPECT_EQ(receiver.x, 0.0);
    EXPECT_EQ(receiver.elevation, 0.0);
    const Shot shot;
    EXPECT_EQ(shot.x, 0.0);
    EXPECT_EQ(shot.elevation, 0.0);
    const ShotTraveltimes record;
    EXPECT_EQ(record.spreadIndex, 0u);
    EXPECT_EQ(record.shotIndex, 0u);
    EXPECT_EQ(record.shotX, 0.0);
    EXPECT_EQ(record.shotElevation, 0.0);
}

TEST(SameSpread, EqualPositionsInTheSameOrder)
{
    EXPECT_TRUE(sameSpread(threeReceivers, Spread(threeReceivers)));
    EXPECT_TRUE(sameSpread({{0.0, 100.0}}, {{0.0, 100.0}}));
}

TEST(SameSpread, OneDifferingCoordinateMakesAnother)
{
    for (std::size_t receiver = 0; receiver < threeReceivers.size(); ++receiver) {
        Spread moved = threeReceivers;
        moved[receiver].x = std::nextafter(moved[receiver].x, 1000.0);
        EXPECT_FALSE(sameSpread(threeReceivers, moved)) << "x of receiver " << receiver;
        Spread raised = threeReceivers;
        raised[receiver].elevation = std::nextafter(raised[receiver].elevation, 1000.0);
        EXPECT_FALSE(sameSpread(threeReceivers, raised)) << "elevation of receiver " << receiver;
    }
}

TEST(SameSpread, OtherOrderMakesAnother)
{
    EXPECT_FALSE(sameSpread({{0.0, 100.0}, {5.0, 100.0}}, {{5.0, 100.0}, {0.0, 100.0}}));
}

TEST(SameSpread, XAndElevationAreNotExchanged)
{
    EXPECT_FALSE(sameSpread({{1.0, 2.0}}, {{2.0, 1.0}}));
}

TEST(SameSpread, OtherNumberOfReceiversMakesAnother)
{
    const Spread twoReceivers(threeReceivers.begin(), threeReceivers.end() - 1);
    EXPECT_FALSE(sameSpread(threeReceivers, twoReceivers));
    EXPECT_FALSE(sameSpread(twoReceivers, threeReceivers));
}

TEST(SameSpread, EmptySpreadIsTheSameAsNothing)
{
    EXPECT_FALSE(sameSpread({}, {}));
    EXPECT_FALSE(sameSpread({}, threeReceivers));
    EXPECT_FALSE(sameSpread(threeReceivers, {}));
}

TEST(SameSpread, NanIsUnequalToItself)
{
    const Spread nanX = {{notANumber, 100.0}};
    const Spread nanElevation = {{0.0, notANumber}};
    EXPECT_FALSE(sameSpread(nanX, nanX));
    EXPECT_FALSE(sameSpread(nanElevation, nanElevation));
}

TEST(SameSpread, ComparesAsNumbers)
{
    EXPECT_TRUE(sameSpread({{0.0, -0.0}}, {{-0.0, 0.0}}));
    EXPECT_TRUE(sameSpread({{infinity, -infinity}}, {{infinity, -infinity}}));
    EXPECT_FALSE(sameSpread({{infinity, 0.0}}, {{-infinity, 0.0}}));
}

TEST(FindOrAddSpread, ShotsOnTheSameReceiversShareASpread)
{
    std::vector<Spread> spreads;
    SpreadIndex index;
    EXPECT_EQ(findOrAddSpread(spreads, threeReceivers, index), 0u);
    EXPECT_EQ(findOrAddSpread(spreads, threeReceivers, index), 0u);
    ASSERT_EQ(spreads.size(), 1u);
    EXPECT_TRUE(sameSpread(spreads[0], threeReceivers));
}

TEST(FindOrAddSpread, DifferingElevationOfTheLastReceiverMakesASecondSpread)
{
    std::vector<Spread> spreads = {threeReceivers};
    SpreadIndex index;
    Spread raised = threeReceivers;
    raised.back().elevation += 0.5;
    EXPECT_EQ(findOrAddSpread(spreads, raised, index), 1u);
    ASSERT_EQ(spreads.size(), 2u);
    EXPECT_TRUE(sameSpread(spreads[0], threeReceivers));
    EXPECT_TRUE(sameSpread(spreads[1], raised));
}

TEST(FindOrAddSpread, ReceiversInAnotherOrderMakeASecondSpread)
{
    std::vector<Spread> spreads = {threeReceivers};
    SpreadIndex index;
    EXPECT_EQ(findOrAddSpread(spreads, {threeReceivers.rbegin(), threeReceivers.rend()}, index),
              1u);
    EXPECT_EQ(spreads.size(), 2u);
}

TEST(FindOrAddSpread, SpreadsOfTheSameHashStayApart)
{
    std::vector<Spread> spreads;
    SpreadIndex index;
    EXPECT_EQ(findOrAddSpread(spreads, {{36.5, 0.75}}, index), 0u);
    EXPECT_EQ(findOrAddSpread(spreads, {{96.0, -0x1.1c000ffc9cp+3}}, index), 1u); // -8.875007...
    EXPECT_EQ(findOrAddSpread(spreads, {{36.5, 0.75}}, index), 0u);
    EXPECT_EQ(spreads.size(), 2u);
}

TEST(FindOrAddSpread, ReceiverAtNanAlwaysMakesANewSpread)
{
    std::vector<Spread> spreads;
    SpreadIndex index;
    const Spread lost = {{0.0, 100.0}, {notANumber, 100.0}};
    EXPECT_EQ(findOrAddSpread(spreads, lost, index), 0u);
    EXPECT_EQ(findOrAddSpread(spreads, lost, index), 1u);
    EXPECT_EQ(spreads.size(), 2u);
}

TEST(FindOrAddSpread, ShotWithoutReceiversAlwaysMakesANewSpread)
{
    std::vector<Spread> spreads = {threeReceivers};
    SpreadIndex index;
    EXPECT_EQ(findOrAddSpread(spreads, {}, index), 1u);
    EXPECT_EQ(findOrAddSpread(spreads, {}, index), 2u);
    ASSERT_EQ(spreads.size(), 3u);
    EXPECT_TRUE(spreads[1].empty());
    EXPECT_TRUE(spreads[2].empty());
}

TEST(FindOrAddSpread, TheLowestIndexWins)
{
    std::vector<Spread> spreads = {{}, {{1.0, 1.0}}, threeReceivers, threeReceivers};
    SpreadIndex index;
    EXPECT_EQ(findOrAddSpread(spreads, threeReceivers, index), 2u);
    EXPECT_EQ(spreads.size(), 4u);
}

TEST(SurveyModel, TimesAreHeldInSeconds)
{
    const TemporaryFolder folder;
    TraveltimeSurvey survey;
    ASSERT_EQ(readSeisImagerTraveltimes(folder.write("line.vs", "picks\n0 1\n-2.5 1\n5 12.5\n"),
                                        survey.traveltimes, survey.spreads, survey.shots),
              0);
    ASSERT_EQ(survey.traveltimes.size(), 1u);
    EXPECT_EQ(survey.traveltimes[0].times, std::vector<double>{0.0125});
}

TEST(FindOrAddSpread, PositionsOfZeroAndMinusZeroAreTheSame)
{
    std::vector<Spread> spreads = {{{0.0, -0.0}}};
    SpreadIndex index;
    EXPECT_EQ(findOrAddSpread(spreads, {{-0.0, 0.0}}, index), 0u);
    EXPECT_EQ(spreads.size(), 1u);
}

TEST(FindOrAddSpread, SpreadsThatOthersAddedAreFound)
{
    std::vector<Spread> spreads;
    SpreadIndex index;
    EXPECT_EQ(findOrAddSpread(spreads, {{1.0, 2.0}}, index), 0u);
    spreads.push_back(threeReceivers);
    EXPECT_EQ(findOrAddSpread(spreads, threeReceivers, index), 1u);
    EXPECT_EQ(findOrAddSpread(spreads, {{3.0, 4.0}}, index), 2u);
    EXPECT_EQ(findOrAddSpread(spreads, {{1.0, 2.0}}, index), 0u);
}
