// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/record_checks.h"

#include "field/dolang.h"
#include "field/seg2.h"
#include "field/seismic_unix.h"
#include "tests/support/field_records.h"
#include "tests/support/field_seg2.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Texts = std::vector<std::string>;
using Floats = std::vector<float>;
using Fields = std::map<std::size_t, std::int32_t>;

/// What is found in a file, "kind, trace: text" each.
Texts findingsIn(ReadRecord *read, const std::string &path)
{
    RecordChecks checks;
    Report report;
    read(
        path,
        [&](const RecordFile &file, const RecordTrace &trace) {
            checkTrace(checks, file, trace);
            return true;
        },
        report);
    Texts texts;
    for (const Finding &finding : finishChecks(checks, path)) {
        EXPECT_EQ(finding.place, Place{path});
        texts.push_back(finding.kind + ", " + std::to_string(finding.trace) + ": " + finding.text);
    }
    return texts;
}

Texts findingsInSeg2(const std::vector<Seg2TraceBytes> &traces)
{
    const TemporaryFolder folder;
    return findingsIn(readSeg2, folder.write("line.seg2", seg2File({}, {}, traces)));
}

Texts findingsInSu(const std::string &record)
{
    const TemporaryFolder folder;
    return findingsIn(readSeismicUnix, folder.write("line.su", record));
}

/// A trace of SEG2 whose receiver is at `x` metres.
Seg2TraceBytes trace(int x, const Floats &samples = {1.0F, 2.0F, -1.0F})
{
    return floatTrace({"SAMPLE_INTERVAL 0.001", "SOURCE_LOCATION -5 0 0",
                       "RECEIVER_LOCATION " + std::to_string(x)},
                      samples);
}

/// A trace of Seismic Unix that the window reads as it is; `more` fields come to it.
std::string suTraceWith(const Fields &more, const Floats &samples = {1.0F, 2.0F, -1.0F},
                        ByteOrder byteOrder = ByteOrder::littleEndian)
{
    Fields fields = {{28, 1}, {70, 1}, {72, -5}, {80, 10}, {88, 1}, {116, 250}};
    for (const auto &[offset, value] : more)
        fields[offset] = value;
    return suTrace(byteOrder, fields, samples);
}

} // namespace

TEST(FieldRecordChecks, NothingIsFoundInACleanRecord)
{
    EXPECT_EQ(findingsInSeg2({trace(0), trace(5)}), Texts{});
    EXPECT_EQ(findingsInSu(suTraceWith({}) + suTraceWith({{80, 20}})), Texts{});
}

TEST(FieldRecordChecks, SamplesThatAreNotFinite)
{
    const float infinite = std::numeric_limits<float>::infinity();
    const std::string rest = " is not a finite number: programs stop there or show nothing";
    EXPECT_EQ(findingsInSeg2({trace(0), trace(5, {1.0F, 2.0F, std::nanf("")}),
                              trace(10, {-infinite, -infinite, 0.0F})}),
              (Texts{"notFinite, 2: sample 3" + rest, "notFinite, 3: sample 1" + rest}));
}

TEST(FieldRecordChecks, DeadTraces)
{
    Seg2TraceBytes marked = trace(10);
    marked.strings.emplace_back("TRACE_TYPE DEAD");
    EXPECT_EQ(
        findingsInSeg2({trace(0), trace(5, {3.0F, 3.0F}), marked, trace(15, {0.0F})}),
        (Texts{"dead, 2: dead: all samples are equal", "dead, 3: marked as dead: leave it out",
               "sampleCount, 2: 2 samples, but trace 1 has 3: many programs take all traces "
               "for alike (and 1 more)"}));
}

TEST(FieldRecordChecks, ClippedTraces)
{
    EXPECT_EQ(findingsInSeg2({trace(0, {0.0F, 1.0F, 9.0F, 9.0F, 9.0F, 1.0F}),
                              trace(5, {0.0F, 1.0F, -9.5F, -9.5F, -9.5F, 1.0F})}),
              (Texts{"clipped, 1: clipped at 9: larger amplitudes were cut off",
                     "clipped, 2: clipped at -9.5: larger amplitudes were cut off"}));
}

TEST(FieldRecordChecks, WhereSamplesAreClipped)
{
    using Shorts = std::vector<std::int16_t>;
    const std::pair<Samples, std::optional<double>> cases[] = {
        {Shorts{0, 10, 100, 100, 100, 10}, 100.0},
        {Shorts{10, 11, -100, -100, -100, 11}, -100.0},
        {Floats{0.0F, 1.0F, 1.5F, 1.5F, 1.5F, 1.0F, 0.25F, 0.125F, 0.1F}, 1.5},
        {std::vector<double>{0, 1, 20, 20, 20, 20, 2}, 20.0},
        {std::vector<std::int32_t>{0, 1, 7, 7, 7, 1}, 7.0},
        // A peak may be twice the same, and so may two peaks.
        {Shorts{0, 10, 100, 100, 10, 9}, std::nullopt},
        {Shorts{0, 100, 10, 100, 11, 100, 10}, std::nullopt},
        // One that is flat because samples come in steps falls off by a few of these.
        {Shorts{0, 1, 2, 5, 5, 5, 2, 1}, std::nullopt},
        {Shorts{0, 1, 1, 6, 6, 6, 2, 1}, std::nullopt},
        {Shorts{0, 1, 1, 6, 6, 6, 1, 0}, 6.0},
        // What is cut off has two sides; nothing is cut off at 0.
        {Shorts{100, 100, 100, 10, 9}, std::nullopt},
        {Shorts{0, 1, 100, 100, 100}, std::nullopt},
        {Shorts{-10, -1, 0, 0, 0, -10}, std::nullopt},
        {Shorts{5, 5, 5}, std::nullopt},
        {Shorts{}, std::nullopt},
    };
    for (const auto &[samples, level] : cases)
        EXPECT_EQ(clippingLevel(samples), level) << std::visit(
            [](const auto &values) { return testing::PrintToString(values); }, samples);
}

TEST(FieldRecordChecks, OfAKindInManyTracesTheFirstTen)
{
    std::vector<Seg2TraceBytes> traces;
    for (int i = 0; i < 12; ++i)
        traces.push_back(trace(i, {0.0F, 0.0F}));
    const Texts findings = findingsInSeg2(traces);
    ASSERT_EQ(findings.size(), 11U);
    EXPECT_EQ(findings[9], "dead, 10: dead: all samples are equal");
    EXPECT_EQ(findings[10], "dead, 0: the same in 2 more traces");
}

TEST(FieldRecordChecks, IntervalsThatDifferOrAre0)
{
    Seg2TraceBytes slower = trace(5);
    slower.strings[0] = "SAMPLE_INTERVAL 0.002";
    EXPECT_EQ(findingsInSeg2({trace(0), slower, trace(10)}),
              Texts{"sampleInterval, 2: an interval of 0.002 s, but trace 1 has 0.001 s: many "
                    "programs take all traces for alike"});
    Seg2TraceBytes timeless = trace(0);
    timeless.strings.erase(timeless.strings.begin());
    EXPECT_EQ(
        findingsInSeg2({timeless, timeless}),
        (Texts{"noInterval, 1: the sample interval is 0: no time can be read off (and 1 more)",
               "noGeometry, 0: all 2 traces have the same source and receiver position"}));
}

TEST(FieldRecordChecks, MissingGeometry)
{
    const auto with = [](const Texts &strings) {
        Seg2TraceBytes trace = floatTrace({"SAMPLE_INTERVAL 0.001"}, {1.0F, 2.0F});
        trace.strings.insert(trace.strings.end(), strings.begin(), strings.end());
        return trace;
    };
    const std::string source = "SOURCE_LOCATION -5";
    const std::string receiver = "RECEIVER_LOCATION 10";
    EXPECT_EQ(findingsInSeg2({with({}), with({})}),
              Texts{"noGeometry, 1: no position of the source and receiver is given (and 1 more)"});
    EXPECT_EQ(findingsInSeg2({with({source, receiver}), with({source})}),
              Texts{"noGeometry, 2: no position of the receiver is given"});
    EXPECT_EQ(findingsInSeg2({with({receiver})}),
              Texts{"noGeometry, 1: no position of the source is given"});
    EXPECT_EQ(findingsInSeg2({with({source, receiver}), with({source, receiver})}),
              Texts{"noGeometry, 0: all 2 traces have the same source and receiver position"});
    EXPECT_EQ(findingsInSeg2({with({source, receiver})}), Texts{});
    for (const std::string &record :
         {suTraceWith({{72, 0}, {80, 0}}),
          suTraceWith({{72, 0}, {80, 0}}) + suTraceWith({{72, 0}, {80, 0}})})
        EXPECT_EQ(findingsInSu(record),
                  Texts{"noGeometry, 0: no positions: every source and receiver is at 0"});
    EXPECT_EQ(findingsInSu(suTraceWith({{88, 2}}) + suTraceWith({{80, 7}, {88, 2}})),
              Texts{"angles, 1: positions are angles, not metres (and 1 more)"});
}

TEST(FieldRecordChecks, WhatTheWindowWouldLoseOfSeismicUnix)
{
    const std::string plain = suTraceWith({});
    const std::string window = "window, 0: the window: ";
    EXPECT_EQ(findingsInSu(suTraceWith({}, {1.0F, 2.0F}, ByteOrder::bigEndian)
                           + suTraceWith({{80, 20}}, {1.0F, 2.0F}, ByteOrder::bigEndian)),
              Texts{window
                    + "the file is big-endian (2 traces of 248 bytes): swap the bytes of every "
                      "number first, as docs/formats/seismic_unix.md shows"});
    // What the exact reader remarks on.
    const std::pair<Fields, const char *> cases[] = {
        {{{70, -10}, {72, -50}, {80, 200}},
         "trace 2: the coordinate scalar -10 makes the positions 0; give them in whole metres, "
         "with "
         "the scalar 1"},
        {{{80, 20}, {108, -10}}, "trace 2: the delay of -10 ms becomes 0"},
        {{{72, 5}, {80, 20}},
         "trace 2: the source is at 5, that of trace 1 at -5, which is written for all; split the "
         "record"},
        {{{40, 7}, {80, 20}}, "trace 2: the elevations become 0"},
        {{{80, 20}, {84, 7}}, "trace 2: the y coordinates become 0"},
        {{{80, 1234567}},
         "a position of 1234567 m becomes 1.23457e+06 m, as the output has six digits"},
    };
    for (const auto &[fields, loss] : cases)
        EXPECT_EQ(findingsInSu(plain + suTraceWith(fields)), Texts{window + loss}) << loss;
}

TEST(FieldRecordChecks, WhatTheWindowWouldLoseOfADolangSet)
{
    const TemporaryFolder folder;
    const std::string header = folder.write("LINE.ADT", "1\n\"up\"\n\"\"\n0\n3\n1000\n");
    const std::string channel = folder.write("LINE.A01", "1\n2\n-1\n");
    const std::string noGeometry = "noGeometry, 1: no position of the source and receiver is given";
    EXPECT_EQ(findingsIn(readDolang, header), Texts{noGeometry});
    folder.write("line.adt", readFile(header));
    folder.write("line.a01", readFile(channel));
    EXPECT_EQ(findingsIn(readDolang, folder.path("line.adt")),
              (Texts{noGeometry, "window, 0: the window: a Dolang set's names end in capitals, as "
                                 "LINE.ADT does"}));
}
