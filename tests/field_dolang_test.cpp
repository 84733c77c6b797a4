// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/dolang.h"

#include "tests/support/field_records.h"
#include "tests/support/seg2_parser.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;
using Floats = std::vector<float>;

const std::string header =
    "\"Shot at -5 m\"\n\"\"\n2\n\"vertical\"\n\"gain 24 dB\"\n-0.5\n3\n4000\n";

/// A folder with a set of two channels.
struct Set : TemporaryFolder
{
    Set()
    {
        write("LINE.ADT", header);
        write("LINE.A01", "1\n-2\n3\n");
        write("LINE.A02", "4\n5\n6\n");
    }

    RecordReading read(const std::string &name = "LINE.ADT") const
    {
        RecordReading reading;
        const auto take = [&](const RecordFile &file, const RecordTrace &trace) {
            reading.file = file;
            reading.traces.push_back(trace);
            return true;
        };
        reading.isRead = readDolang(path(name), take, reading.report);
        return reading;
    }

    /// The failure, "LINE.A01:3: text".
    std::string refusal(const std::string &name = "LINE.ADT") const
    {
        const RecordReading reading = read(name);
        EXPECT_FALSE(reading.isRead);
        if (!reading.report.failure)
            return "";
        const Failure &failure = *reading.report.failure;
        const std::string file = failure.place.file.substr(path("").size());
        return file + ':' + std::to_string(failure.place.line) + ": " + failure.text;
    }
};

} // namespace

TEST(FieldDolang, ASetIsReadWithItsNotes)
{
    const Set set;
    const RecordReading reading = set.read();
    EXPECT_TRUE(reading.isRead) << failureOf(reading.report);
    EXPECT_EQ(reading.report.remarks, std::vector<Remark>{});
    EXPECT_EQ(reading.file.format, "dolang");
    EXPECT_EQ(reading.file.byteOrder, std::nullopt);
    EXPECT_EQ(reading.file.traceCount, 2U);
    EXPECT_EQ(reading.file.fractionRead, 1.0);
    EXPECT_EQ(reading.file.strings,
              (std::map<std::string, std::string>{{"NOTE", "Shot at -5 m\nvertical\ngain 24 dB"}}));
    ASSERT_EQ(reading.traces.size(), 2U);
    EXPECT_EQ(reading.traces[0].samples, Samples(Floats{1.0F, -2.0F, 3.0F}));
    EXPECT_EQ(reading.traces[1].samples, Samples(Floats{4.0F, 5.0F, 6.0F}));
    for (const RecordTrace &trace : reading.traces) {
        EXPECT_EQ(trace.sampleInterval, 0.00025);
        EXPECT_EQ(trace.delay, -0.5);
        EXPECT_EQ(trace.source, std::nullopt);
        EXPECT_EQ(trace.receiver, std::nullopt);
    }
    EXPECT_EQ(reading.traces[1].channelNumber, 2);
}

TEST(FieldDolang, InAnyShape)
{
    const Set set;
    std::string withReturns = "\xEF\xBB\xBF";
    for (const char character : header)
        withReturns += character == '\n' ? "\r\n" : std::string(1, character);
    set.write("other.rdt", withReturns + "a line after it\r\n");
    set.write("other.r01", "1.5\r\n +2 \r\n-3e2\r\n\r\n");
    set.write("other.r02", "1\r2\r3");
    const RecordReading reading = set.read("other.rdt");
    ASSERT_EQ(reading.traces.size(), 2U) << failureOf(reading.report);
    EXPECT_EQ(reading.traces[0].samples, Samples(Floats{1.5F, 2.0F, -300.0F}));
    EXPECT_EQ(reading.traces[1].samples, Samples(Floats{1.0F, 2.0F, 3.0F}));
    EXPECT_EQ(reading.file.strings.at("NOTE"),
              "Shot at -5 m\nvertical\ngain 24 dB\na line after it");
}

TEST(FieldDolang, ChannelsOfThreeDigits)
{
    const TemporaryFolder folder;
    folder.write("X.CDT", "100\n\n\n0\n1\n1000\n");
    for (int i = 1; i <= 100; ++i)
        folder.write("X.C" + std::string(i < 10 ? "0" : "") + std::to_string(i),
                     std::to_string(i) + "\n");
    Report report;
    std::size_t traces = 0;
    EXPECT_TRUE(readDolang(
        folder.path("X.CDT"),
        [&](const RecordFile &, const RecordTrace &trace) {
            ++traces;
            EXPECT_EQ(trace.samples, Samples(Floats{static_cast<float>(traces)}));
            return true;
        },
        report));
    EXPECT_EQ(traces, 100U);
}

TEST(FieldDolang, IsKnownByItsNameAndItsFiles)
{
    const Set set;
    const auto recognise = [&](const std::string &name) {
        return recogniseDolang("", set.path(name));
    };
    EXPECT_EQ(recognise("LINE.ADT"), "its name and its header");
    EXPECT_EQ(recognise("LINE.A02"), "its name, that of a channel of " + set.path("LINE.ADT"));
    EXPECT_EQ(recognise("LINE.C01"), "");
    EXPECT_EQ(recognise("LINE.XDT"), "");
    EXPECT_EQ(recognise("LINE"), "");
    set.write("MORE.ADT", "no number\n");
    EXPECT_EQ(recognise("MORE.ADT"), "");
    set.write("MORE.A01", "1\n");
    EXPECT_EQ(recognise("MORE.ADT"), "its name and its header");
}

TEST(FieldDolang, NamesThatAreRefused)
{
    const Set set;
    EXPECT_EQ(set.refusal("LINE.A01"),
              "LINE.A01:0: this is one channel of a set: name its header, " + set.path("LINE.ADT"));
    set.write("LINE.txt", header);
    EXPECT_EQ(
        set.refusal("LINE.txt"),
        "LINE.txt:0: the name of a Dolang header ends in .ADT, .CDT or .RDT: the channels are "
        "found by it");
}

TEST(FieldDolang, HeadersThatAreRefused)
{
    const std::pair<const char *, const char *> cases[] = {
        {"\"a\"\n", "LINE.ADT:1: the file ends before the number of channels"},
        {"0\n", "LINE.ADT:1: the number of channels is 0"},
        {"\"a\"\nb\n", "LINE.ADT:2: \"b\" is no number: the number of channels expected"},
        {"1\na\n", "LINE.ADT:2: the file ends before the two lines after the number of channels"},
        {"1\na\nb\n", "LINE.ADT:3: the file ends before the delay in seconds"},
        {"1\na\nb\nc\n", "LINE.ADT:4: \"c\" is no number: the delay in seconds expected"},
        {"1\na\nb\n0\n", "LINE.ADT:4: the file ends before the number of samples of a channel"},
        {"1\na\nb\n0\n0\n", "LINE.ADT:5: the number of samples of a channel is 0"},
        {"1\na\nb\n0\n3\n", "LINE.ADT:5: the file ends before the number of samples per second"},
        {"1\na\nb\n0\n3\n0\n", "LINE.ADT:6: the number of samples per second is not above 0"},
        {"1\na\nb\n0\n3\n-4\n", "LINE.ADT:6: the number of samples per second is not above 0"},
    };
    for (const auto &[bytes, refusal] : cases) {
        const Set set;
        set.write("LINE.ADT", bytes);
        EXPECT_EQ(set.refusal(), refusal) << bytes;
    }
}

TEST(FieldDolang, ChannelsThatAreRefused)
{
    const std::pair<const char *, const char *> cases[] = {
        {"4\n5\n", "LINE.A02:2: the file ends after 2 of 3 samples"},
        {"4\n5\n6\n\n7\n", "LINE.A02:5: a line after the 3 samples of a channel"},
        {"4\nx\n6\n", "LINE.A02:2: \"x\" is no number: a sample expected"},
        {"4\n\n6\n", "LINE.A02:2: a sample is missing"},
        {"4\n5 6\n7\n", "LINE.A02:2: \"5 6\" is no number: a sample expected"},
        {"4\n5\n1e39\n",
         "LINE.A02:3: a sample of 1e+39: 3.4028235e+38 is the largest that is read"},
    };
    for (const auto &[bytes, refusal] : cases) {
        const Set set;
        set.write("LINE.A02", bytes);
        EXPECT_EQ(set.refusal(), refusal) << bytes;
        EXPECT_EQ(set.read().traces.size(), 1U);
    }
    const Set set;
    std::filesystem::remove(set.path("LINE.A02"));
    EXPECT_EQ(set.refusal(), "LINE.A02:0: " + systemText(ENOENT));
}

TEST(FieldDolang, SamplesThatNoFloatHolds)
{
    const Set set;
    set.write("LINE.A02", "16777217\n0.1\n3.4028235e+38\n");
    const RecordReading reading = set.read();
    EXPECT_TRUE(reading.isRead) << failureOf(reading.report);
    EXPECT_EQ(remarksOf(reading.report),
              Texts{"trace 2: samples become 32-bit floats: 16777217 becomes 16777216"});
    EXPECT_EQ(reading.report.remarks.at(0).place, Place{set.path("LINE.ADT")});
}

TEST(FieldDolang, BecomesSeg2)
{
    const Set set;
    Report report;
    ASSERT_TRUE(
        convertRecord(readDolang, set.path("LINE.ADT"), toSeg2, set.path("seg2"), {}, report))
        << failureOf(report);
    const ParsedSeg2 seg2 = parseSeg2(readFile(set.path("seg2")), 1);
    EXPECT_EQ(seg2.strings, (Texts{"TRACE_SORT AS_ACQUIRED", "UNITS METERS",
                                   "NOTE Shot at -5 m\nvertical\ngain 24 dB"}));
    ASSERT_EQ(seg2.traces.size(), 2U);
    EXPECT_EQ(seg2.traces[1].strings, (Texts{"CHANNEL_NUMBER 2", "DELAY -0.5", "DESCALING_FACTOR 1",
                                             "SAMPLE_INTERVAL 0.00025", "STACK 1"}));
    EXPECT_EQ(seg2.traces[1].samples, (std::vector<double>{4.0, 5.0, 6.0}));
}
