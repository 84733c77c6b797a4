// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_records.h"
#include "view/record_layout.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

const std::vector<float> anything = {1.0F, 2.0F, 3.0F};

RecordPlotOptions byPosition()
{
    RecordPlotOptions options;
    options.spacing = TraceSpacing::byPosition;
    return options;
}

RecordData recordAt(const std::vector<double> &positions)
{
    std::vector<DrawnTrace> traces;
    for (const double x : positions)
        traces.push_back(drawnTraceAt(x, anything));
    return recordOf(traces);
}

/// Trace, place, and sides: "0 at 1 (0.5 to 1.5)", as output streams print numbers.
std::vector<std::string> placesOf(const RecordLayout &layout)
{
    std::vector<std::string> places;
    for (const PlacedTrace &trace : layout.traces) {
        std::ostringstream text;
        text << trace.trace << " at " << trace.place << " (" << trace.left << " to " << trace.right
             << ')';
        places.push_back(text.str());
    }
    return places;
}

using Places = std::vector<std::string>;

TEST(ViewRecordLayout, TracesAreCountedFromOne)
{
    const RecordLayout layout = layOut(recordAt({30.0, 20.0}), {});
    EXPECT_FALSE(layout.isByPosition);
    EXPECT_EQ(placesOf(layout), (Places{"0 at 1 (0.5 to 1.5)", "1 at 2 (1.5 to 2.5)"}));
    EXPECT_EQ(layout.spacing, 1.0);
    EXPECT_EQ(layout.places.least, 1.0);
    EXPECT_EQ(layout.places.greatest, 2.0);
}

TEST(ViewRecordLayout, PositionsAreSortedAndGapsStayGaps)
{
    const RecordLayout layout = layOut(recordAt({10.0, 0.0, 4.0, 40.0, 15.0}), byPosition());
    EXPECT_TRUE(layout.isByPosition);
    EXPECT_EQ(layout.spacing, 6.0); // of 4, 6, 5 and 25 the third
    EXPECT_EQ(placesOf(layout),
              (Places{"1 at 0 (-3 to 2)", "2 at 4 (2 to 7)", "0 at 10 (7 to 12.5)",
                      "4 at 15 (12.5 to 18)", "3 at 40 (37 to 43)"}));
}

TEST(ViewRecordLayout, EqualPositionsShareTheirPlace)
{
    EXPECT_EQ(placesOf(layOut(recordAt({0.0, 5.0, 5.0, 10.0}), byPosition())),
              (Places{"0 at 0 (-2.5 to 2.5)", "1 at 5 (2.5 to 7.5)", "2 at 5 (2.5 to 7.5)",
                      "3 at 10 (7.5 to 12.5)"}));
    const RecordLayout one = layOut(recordAt({4.0, 4.0}), byPosition());
    EXPECT_EQ(one.spacing, 1.0);
    EXPECT_EQ(placesOf(one), (Places{"0 at 4 (3.5 to 4.5)", "1 at 4 (3.5 to 4.5)"}));
}

TEST(ViewRecordLayout, TracesWithoutAPositionHaveNoPlaceByPosition)
{
    RecordData record = recordAt({0.0, 5.0, 10.0});
    record.traces[1].receiver = {};
    EXPECT_EQ(placesOf(layOut(record, byPosition())),
              (Places{"0 at 0 (-5 to 5)", "2 at 10 (5 to 15)"}));
    EXPECT_EQ(layOut(record, {}).traces.size(), 3U);
    for (DrawnTrace &trace : record.traces)
        trace.receiver = {};
    const RecordLayout layout = layOut(record, byPosition());
    EXPECT_FALSE(layout.isByPosition);
    EXPECT_EQ(layout.traces.size(), 3U);
}

TEST(ViewRecordLayout, TimesBeginAtTheDelays)
{
    RecordData record = recordAt({0.0, 5.0});
    record.traces[0].delay = -0.01;
    record.traces[1].delay = 0.25;
    record.traces[1].sampleInterval = 0.0005;
    const RecordLayout layout = layOut(record, {});
    EXPECT_TRUE(layout.isInTime);
    EXPECT_EQ(layout.traces[0].firstTime, -10.0);
    EXPECT_EQ(layout.traces[0].timeStep, 1.0);
    EXPECT_EQ(layout.traces[1].firstTime, 250.0);
    EXPECT_EQ(layout.traces[1].timeStep, 0.5);
    EXPECT_EQ(layout.times.least, -10.0);
    EXPECT_EQ(layout.times.greatest, 251.0);
}

TEST(ViewRecordLayout, WithoutIntervalsSamplesAreCounted)
{
    RecordData record = recordAt({0.0, 5.0});
    record.traces[0].delay = 0.5;
    record.traces[0].sampleInterval = 0.0;
    EXPECT_EQ(layOut(record, {}).traces.size(), 1U); // the other has its times
    record.traces[1].sampleInterval = std::numeric_limits<double>::infinity();
    const RecordLayout layout = layOut(record, {});
    EXPECT_FALSE(layout.isInTime);
    EXPECT_EQ(layout.traces.size(), 2U);
    EXPECT_EQ(layout.traces[0].firstTime, 1.0);
    EXPECT_EQ(layout.times.least, 1.0);
    EXPECT_EQ(layout.times.greatest, 3.0);
}

TEST(ViewRecordLayout, OneShotKeepsTheNumbersOfItsTraces)
{
    RecordData record = recordAt({0.0, 5.0, 0.0, 5.0});
    record.shots = {{0, 2}, {2, 2}};
    RecordPlotOptions options;
    options.shot = 1;
    EXPECT_EQ(placesOf(layOut(record, options)),
              (Places{"2 at 3 (2.5 to 3.5)", "3 at 4 (3.5 to 4.5)"}));
    EXPECT_EQ(chosenTraces(record, options), 2U);
    options.shot = 2; // there is none
    EXPECT_EQ(chosenTraces(record, options), 4U);
}

TEST(ViewRecordLayout, NoTracesHaveNoPlaces)
{
    const RecordLayout layout = layOut({}, byPosition());
    EXPECT_TRUE(layout.traces.empty());
    EXPECT_TRUE(isEmpty(layout.places));
    EXPECT_TRUE(isEmpty(layout.times));
    const RecordLayout noSamples = layOut(recordOf({drawnTrace({})}), {});
    EXPECT_EQ(noSamples.traces.size(), 1U);
    EXPECT_TRUE(isEmpty(noSamples.times));
}

} // namespace
