// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_data.h"

#include "field/seismic_unix.h"
#include "tests/support/field_records.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>

namespace {

/// A reader of these traces.
std::function<ReadRecord> readerOf(const std::vector<RecordTrace> &traces)
{
    return [traces](const std::string &, const TakeTrace &take, Report &) {
        RecordFile file;
        file.format = "seg2";
        double count = 0.0;
        for (RecordTrace trace : traces) {
            file.fractionRead = ++count / static_cast<double>(traces.size());
            if (!take(file, trace))
                break;
        }
        return true;
    };
}

RecordData dataOf(const std::vector<RecordTrace> &traces)
{
    RecordData record;
    Report report;
    EXPECT_TRUE(readRecordData(readerOf(traces), "line.dat", record, {}, report));
    EXPECT_FALSE(report.failure);
    return record;
}

RecordTrace traceOf(const Samples &samples)
{
    RecordTrace trace;
    trace.samples = samples;
    return trace;
}

RecordTrace traceBetween(const std::optional<Location> &source,
                         const std::optional<Location> &receiver)
{
    RecordTrace trace = traceOf(std::vector<float>{1.0F, 2.0F});
    trace.source = source;
    trace.receiver = receiver;
    return trace;
}

/// The positions of the receivers; -1000 for none.
std::vector<double> receiversOf(const RecordData &record)
{
    std::vector<double> positions;
    for (const DrawnTrace &trace : record.traces)
        positions.push_back(trace.receiver ? trace.receiver->x : -1000.0);
    return positions;
}

TEST(ViewRecordData, HoldsWhatIsDrawnOfAFile)
{
    const TemporaryFolder folder;
    const std::string path = folder.write(
        "line.su", suTrace(ByteOrder::bigEndian,
                           {{8, 7}, {12, 3}, {40, 215}, {72, -5}, {80, 10}, {108, -20}, {116, 250}},
                           {1.5F, -2.0F, 0.5F}));
    RecordData record;
    Report report;
    ASSERT_TRUE(readRecordData(readSeismicUnix, path, record, {}, report));
    EXPECT_EQ(record.path, path);
    EXPECT_EQ(record.format, "su");
    ASSERT_EQ(record.traces.size(), 1U);
    const DrawnTrace &trace = record.traces[0];
    EXPECT_EQ(trace.samples, (std::vector<float>{1.5F, -2.0F, 0.5F}));
    EXPECT_EQ(trace.largest, 2.0F);
    EXPECT_EQ(trace.sampleInterval, 0.00025);
    EXPECT_EQ(trace.delay, -0.02);
    EXPECT_EQ(trace.channelNumber, 3);
    EXPECT_FALSE(trace.isDead);
    ASSERT_TRUE(trace.receiver);
    EXPECT_EQ(trace.receiver->x, 10.0);
    EXPECT_EQ(trace.receiver->elevation, 215.0);
    ASSERT_EQ(record.shots.size(), 1U);
    EXPECT_EQ(record.shots[0].number, 7);
    ASSERT_TRUE(record.shots[0].position);
    EXPECT_EQ(record.shots[0].position->x, -5.0);
}

TEST(ViewRecordData, SamplesBecomeFloatsInMillivolts)
{
    RecordTrace halved = traceOf(std::vector<std::int16_t>{100, -300});
    halved.descalingFactor = 0.5;
    const RecordData record = dataOf({halved, traceOf(std::vector<double>{1.0, 3.25}),
                                      traceOf(std::vector<std::int32_t>{8388607, -1})});
    EXPECT_EQ(record.traces[0].samples, (std::vector<float>{50.0F, -150.0F}));
    EXPECT_EQ(record.traces[0].largest, 150.0F);
    EXPECT_EQ(record.traces[1].samples, (std::vector<float>{1.0F, 3.25F}));
    EXPECT_EQ(record.traces[2].samples, (std::vector<float>{8388607.0F, -1.0F}));
}

TEST(ViewRecordData, SamplesThatAreNotFiniteAreNoNumbers)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const RecordData record =
        dataOf({traceOf(std::vector<float>{infinity, 2.0F, -infinity, 1.0F}),
                traceOf(std::vector<double>{1e300, 3.0})}); // larger than a float
    EXPECT_TRUE(std::isnan(record.traces[0].samples[0]));
    EXPECT_TRUE(std::isnan(record.traces[0].samples[2]));
    EXPECT_EQ(record.traces[0].largest, 2.0F);
    EXPECT_TRUE(std::isnan(record.traces[1].samples[0]));
    EXPECT_EQ(record.traces[1].largest, 3.0F);
}

TEST(ViewRecordData, TracesWithoutASignalAreDead)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    RecordTrace marked = traceOf(std::vector<float>{1.0F, 2.0F});
    marked.isDead = true;
    const RecordData record = dataOf(
        {marked, traceOf(std::vector<float>{5.0F, 5.0F, 5.0F}),
         traceOf(std::vector<float>{0.0F, -0.0F}), traceOf(std::vector<float>{infinity, -infinity}),
         traceOf(std::vector<float>{}), traceOf(std::vector<float>{5.0F, 5.0F, 5.5F})});
    std::vector<bool> dead;
    for (const DrawnTrace &trace : record.traces)
        dead.push_back(trace.isDead);
    EXPECT_EQ(dead, (std::vector<bool>{true, true, true, true, true, false}));
}

TEST(ViewRecordData, AShotBeginsWithAnotherPlaceOrNumber)
{
    std::vector<RecordTrace> traces = {
        traceBetween(Location{0, 0, 0}, Location{5, 0, 0}),
        traceBetween(Location{0, 0, 0}, Location{10, 0, 0}),
        traceBetween(Location{20, 0, 0}, Location{5, 0, 0}),
        traceBetween(Location{20, 0, 0}, Location{10, 0, 0}),
    };
    traces[3].shotNumber = 9;
    const RecordData record = dataOf(traces);
    ASSERT_EQ(record.shots.size(), 3U);
    EXPECT_EQ(record.shots[0].firstTrace, 0U);
    EXPECT_EQ(record.shots[0].traceCount, 2U);
    EXPECT_EQ(record.shots[1].firstTrace, 2U);
    EXPECT_EQ(record.shots[1].traceCount, 1U);
    EXPECT_EQ(record.shots[1].number, std::nullopt);
    EXPECT_EQ(record.shots[2].firstTrace, 3U);
    EXPECT_EQ(record.shots[2].number, 9);
    EXPECT_EQ(record.shots[2].position->x, 20.0);
}

TEST(ViewRecordData, PositionsAreXWhereYIsTheSame)
{
    const Location source = {-5.0, 100.0, 0.0};
    const RecordData record = dataOf({traceBetween(source, Location{30.0, 100.0, 2.5}),
                                      traceBetween(source, Location{20.0, 100.01, 2.5}),
                                      traceBetween(source, std::nullopt)});
    EXPECT_EQ(receiversOf(record), (std::vector<double>{30.0, 20.0, -1000.0}));
    EXPECT_EQ(record.traces[0].receiver->elevation, 2.5);
}

TEST(ViewRecordData, PositionsAreDistancesWhereYDiffers)
{
    // The line runs from (100, 200) towards (130, 240): 3 to the right and 4 up of 5.
    const Location source = {97.0, 196.0, 0.0};
    const RecordData record = dataOf({traceBetween(source, Location{100.0, 200.0, 0.0}),
                                      traceBetween(source, Location{130.0, 240.0, 0.0}),
                                      traceBetween(source, Location{106.0, 208.0, 0.0})});
    const std::vector<double> positions = receiversOf(record);
    EXPECT_NEAR(positions[0], 0.0, 1e-9);
    EXPECT_NEAR(positions[1], 50.0, 1e-9);
    EXPECT_NEAR(positions[2], 10.0, 1e-9);
    EXPECT_NEAR(record.shots[0].position->x, -5.0, 1e-9);
}

TEST(ViewRecordData, PositionsThatSayNothingAreLeftOut)
{
    const Location origin = {0.0, 0.0, 0.0};
    const RecordData same = dataOf({traceBetween(origin, origin), traceBetween(origin, origin)});
    EXPECT_EQ(receiversOf(same), (std::vector<double>{-1000.0, -1000.0}));
    EXPECT_FALSE(same.shots[0].position);

    RecordTrace angles = traceBetween(Location{1.0, 2.0, 0.0}, Location{3.0, 2.0, 0.0});
    angles.hasAngles = true;
    EXPECT_EQ(receiversOf(dataOf({angles})), (std::vector<double>{-1000.0}));

    // Several shots on one receiver, and a receiver alone, are at their places.
    const RecordData oneReceiver = dataOf({traceBetween(Location{5.0, 0.0, 0.0}, origin),
                                           traceBetween(Location{9.0, 0.0, 0.0}, origin)});
    EXPECT_EQ(receiversOf(oneReceiver), (std::vector<double>{0.0, 0.0}));
    EXPECT_EQ(receiversOf(dataOf({traceBetween(std::nullopt, Location{7.0, 0.0, 0.0})})),
              (std::vector<double>{7.0}));
}

TEST(ViewRecordData, ReadingIsGivenUpWhenItsUserSaysSo)
{
    const RecordTrace trace = traceOf(std::vector<float>{1.0F, 2.0F});
    RecordData record;
    Report report;
    std::vector<double> fractions;
    EXPECT_FALSE(readRecordData(
        readerOf({trace, trace, trace, trace}), "line.dat", record,
        [&](double fraction) {
            fractions.push_back(fraction);
            return fractions.size() < 2;
        },
        report));
    EXPECT_EQ(fractions, (std::vector<double>{0.25, 0.5}));
    EXPECT_EQ(record.traces.size(), 2U);
    EXPECT_EQ(record.shots[0].traceCount, 2U);
    EXPECT_FALSE(report.failure);
}

TEST(ViewRecordData, KeepsTheTracesBeforeADamage)
{
    const std::string trace =
        suTrace(ByteOrder::littleEndian, {{28, 1}, {116, 250}}, {1.0F, 2.0F, 3.0F});
    const TemporaryFolder folder;
    const std::string path =
        folder.write("line.su", trace + trace + trace.substr(0, trace.size() - 1));
    RecordData record;
    Report report;
    EXPECT_FALSE(readRecordData(readSeismicUnix, path, record, {}, report));
    EXPECT_EQ(record.traces.size(), 2U);
    EXPECT_EQ(failureOf(report),
              "the file ends within trace 3: only the 2 whole traces before it can be read");
    EXPECT_EQ(report.failure->place.file, path);
}

TEST(ViewRecordData, LackOfMemoryIsAFailure)
{
    RecordData record;
    Report report;
    const auto read = [](const std::string &, const TakeTrace &, Report &) -> bool {
        throw std::bad_alloc();
    };
    EXPECT_FALSE(readRecordData(read, "line.dat", record, {}, report));
    EXPECT_TRUE(report.failure);
    EXPECT_TRUE(record.traces.empty());
}

TEST(ViewRecordData, IsReadAnew)
{
    RecordData record = dataOf({traceOf(std::vector<float>{1.0F, 2.0F})});
    Report report;
    EXPECT_TRUE(readRecordData(readerOf({}), "empty.dat", record, {}, report));
    EXPECT_EQ(record.path, "empty.dat");
    EXPECT_TRUE(record.traces.empty());
    EXPECT_TRUE(record.shots.empty());
}

} // namespace
