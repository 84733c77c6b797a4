// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/su_conversion.h"

#include "tests/support/odd_files.h"
#include "tests/support/su_conversions.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

/// What is reported about a file "line.su", whatever the name of its folder.
Report reportOn(const std::string &su)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", su);
    Report report;
    CapturedStreams streams;
    const bool isConverted =
        convertSu(path, folder.path("listing"), folder.path("seg2"), nullptr, report);
    streams.finish();
    EXPECT_EQ(streams.output + streams.error, "");
    EXPECT_EQ(isConverted, !report.failure);
    EXPECT_EQ(report.result, 0);
    EXPECT_EQ(report.error, nullptr);
    if (report.failure) {
        EXPECT_EQ(report.failure->place, Place{path});
    }
    for (const Remark &remark : report.remarks)
        EXPECT_EQ(remark.place, Place{path});
    return report;
}

/// Expects this failure and no remark.
void expectFailure(const std::string &su, const std::string &text)
{
    const Report report = reportOn(su);
    ASSERT_NE(report.failure, std::nullopt) << text;
    EXPECT_EQ(report.failure->text, text);
    EXPECT_EQ(report.remarks, std::vector<Remark>()) << text;
}

/// The texts of the remarks on a file that converts.
std::vector<std::string> remarksOn(const std::string &su, RemarkKind kind)
{
    const Report report = reportOn(su);
    EXPECT_EQ(report.failure, std::nullopt);
    std::vector<std::string> texts;
    for (const Remark &remark : report.remarks) {
        EXPECT_EQ(remark.kind, kind) << remark.text;
        texts.push_back(remark.text);
    }
    return texts;
}

using Texts = std::vector<std::string>;

/// A trace of three samples with something about it.
std::string trace(SuFields fields)
{
    fields.sampleCount = 3;
    fields.interval = 250;
    return suTrace(fields, {1.0F, 2.0F, 3.0F});
}

std::string bigEndianTrace(std::uint16_t samples)
{
    return suTrace({0, 5, 10, samples, 250}, std::vector<float>(samples, 1.0F), std::endian::big);
}

} // namespace

TEST(SuReport, CleanFile)
{
    const Report report = reportOn(twoTraces);
    EXPECT_EQ(report.failure, std::nullopt);
    EXPECT_EQ(report.remarks, std::vector<Remark>());
    EXPECT_EQ(report.printed, "");
    // A scalar and positions of both signs, a lone trace.
    EXPECT_EQ(remarksOn(trace({-1, -5, 10}) + trace({1, -5, -20}) + trace({10, 0, 3}),
                        RemarkKind::geometry),
              Texts{"trace 3: the source is at 0, that of trace 1 at -5, which is written for all; "
                    "split the record"});
    EXPECT_EQ(remarksOn(trace({1, 5, 999999}), RemarkKind::geometry), Texts());
}

TEST(SuReport, WhatBecomesOfTheGeometry)
{
    const std::string clean = trace({1, 5, 10});
    const std::pair<std::string, std::string> cases[] = {
        {trace({-2, 10, 10}) + trace({-100, 500, 10}),
         "trace 1 and 1 more: the coordinate scalar -2 makes the positions 0; give them in whole "
         "metres, with the scalar 1"},
        {clean + clean + trace({.scalar = 1, .sourceX = 6, .receiverX = 10})
             + trace({.scalar = 10, .sourceX = 5, .receiverX = 10}),
         "trace 3 and 1 more: the source is at 6, that of trace 1 at 5, which is written for all; "
         "split the record"},
        {clean + trace({.sourceX = 5, .delay = -20}) + clean,
         "trace 2: the delay of -20 ms becomes 0"},
        {clean + trace({.sourceX = 5, .receiverElevation = 100}),
         "trace 2: the elevations become 0"},
        {trace({.sourceX = 5, .sourceElevation = -1}) + trace({.sourceX = 5, .sourceElevation = 1}),
         "trace 1 and 1 more: the elevations become 0"},
        {clean + trace({.sourceX = 5, .receiverY = 1}), "trace 2: the y coordinates become 0"},
        {trace({.sourceX = 5, .sourceY = -7}), "trace 1: the y coordinates become 0"},
    };
    for (const auto &[su, text] : cases)
        EXPECT_EQ(remarksOn(su, RemarkKind::geometry), Texts{text});
}

TEST(SuReport, SourcesThatDifferOnlyInDecimalsOrInY)
{
    // 12.3 and 12.4, both 0 in the output; the scalars make remarks of their own.
    const Texts texts =
        remarksOn(trace({.scalar = -10, .sourceX = 123}) + trace({.scalar = -100, .sourceX = 1230})
                      + trace({.scalar = -10, .sourceX = 124}),
                  RemarkKind::geometry);
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[1], "trace 3: the source is at 12.4, that of trace 1 at 12.3, which is written "
                        "for all; split the record");
    EXPECT_EQ(
        remarksOn(trace({.sourceX = 5}) + trace({.sourceX = 5, .sourceY = 2}), RemarkKind::geometry)
            .size(),
        2U);
}

TEST(SuReport, HeadersThatDifferFromTheFirst)
{
    const std::vector<float> samples = {1.0F, 2.0F, 3.0F};
    const std::string first = suTrace({0, 5, 10, 3, 250}, samples);
    EXPECT_EQ(remarksOn(first + suTrace({0, 5, 10, 4, 250}, samples)
                            + suTrace({0, 5, 10, 0, 250}, samples) + first,
                        RemarkKind::samples),
              Texts{"trace 2 and 1 more: 4 samples, but trace 1 has 3, and all are read like it"});
    EXPECT_EQ(remarksOn(first + first + suTrace({0, 5, 10, 3, 500}, samples), RemarkKind::samples),
              Texts{"trace 3: an interval of 500 microseconds, but trace 1 has 250, which is "
                    "written for all"});
    EXPECT_EQ(remarksOn(suTrace({0, 5, 10, 3, 0}, samples) + suTrace({0, 5, 10, 3, 0}, samples),
                        RemarkKind::samples),
              Texts{"trace 1: the sample interval is 0"});
}

TEST(SuReport, SamplesThatAreNotFinite)
{
    const float infinite = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const SuFields fields = {0, 5, 10, 3, 250};
    EXPECT_EQ(remarksOn(suTrace(fields, {1.0F, 2.0F, 3.0F}) + suTrace(fields, {1.0F, nan, 3.0F})
                            + suTrace(fields, {-infinite, infinite, 3.0F}),
                        RemarkKind::samples),
              Texts{"trace 2 and 1 more: sample 2 is not a finite number"});
    // The largest number is finite, and the last sample of a trace does not count.
    EXPECT_EQ(remarksOn(suTrace(fields, {std::numeric_limits<float>::max(), 2.0F, nan}),
                        RemarkKind::samples),
              Texts());
}

TEST(SuReport, SamplesThatAreNotFiniteAreFoundOnceThoughTheyAreReadTwice)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", suTrace({0, 5, 10, 3, 250}, {nan, nan, 3.0F}));
    std::ostringstream progress;
    Report report;
    EXPECT_TRUE(convertSu(path, folder.path("listing"), folder.path("seg2"), &progress, report));
    EXPECT_EQ(progress.str(), "opening su file " + path + "\nTraceINDEX : 0\nnan\nnan\n0\n");
    EXPECT_EQ(report.remarks,
              (std::vector<Remark>{
                  {RemarkKind::samples, {path}, "trace 1: sample 1 is not a finite number"}}));
}

TEST(SuReport, SamplesThatAreNotFiniteInARecordThatIsHeld)
{
    const TemporaryFolder folder;
    const std::string path = folder.write(
        "seg2", suTrace({0, 5, 10, 3, 250}, {1.0F, std::numeric_limits<float>::infinity(), 3.0F}));
    Report report;
    EXPECT_TRUE(convertSu(path, folder.path("listing"), path, nullptr, report));
    EXPECT_EQ(report.remarks,
              (std::vector<Remark>{
                  {RemarkKind::samples, {path}, "trace 1: sample 2 is not a finite number"}}));
}

TEST(SuReport, PositionsThatSixDigitsDoNotHold)
{
    // 1000005 becomes 1e+06, 1234567 becomes 1.23457e+06: 5 m and 3 m.
    EXPECT_EQ(remarksOn(trace({0, 5, 1234567}) + trace({0, 5, 1000005}) + trace({0, 5, 999999}),
                        RemarkKind::roundedPosition),
              Texts{"trace 2: a position of 1000005 m becomes 1e+06 m, as the output has six "
                    "digits"});
    EXPECT_EQ(remarksOn(trace({0, 7654321, 10}), RemarkKind::roundedPosition),
              Texts{"trace 1: a position of 7654321 m becomes 7.65432e+06 m, as the output has six "
                    "digits"});
    EXPECT_EQ(remarksOn(trace({0, 5, 1234570}), RemarkKind::roundedPosition), Texts());
}

TEST(SuReport, BytesLeftOver)
{
    EXPECT_EQ(remarksOn(twoTraces + "x", RemarkKind::notRead),
              Texts{"1 byte after the last whole trace: not read"});
    EXPECT_EQ(remarksOn(twoTraces + twoTraces.substr(0, 251), RemarkKind::notRead),
              Texts{"251 bytes after the last whole trace: not read"});
}

TEST(SuReport, FilesWithoutTracesOrSamples)
{
    expectFailure("", "the file is empty");
    expectFailure("x", "no whole trace: the file has 1 byte, a trace 240");
    expectFailure(twoTraces.substr(0, 251), "no whole trace: the file has 251 bytes, a trace 252");
    expectFailure(std::string(1000, '\0'), "the header of trace 1 says 0 samples");
}

TEST(SuReport, BigEndianFiles)
{
    const std::string advice =
        ": swap the bytes of every number first, as docs/formats/seismic_unix.md shows";
    // 3 samples read as 768: 3312 bytes. Too short for one such trace, or long enough for some.
    const std::string three = bigEndianTrace(3);
    expectFailure(three, "the file is big-endian (1 trace of 252 bytes)" + advice);
    expectFailure(repeated(three, 10), "the file is big-endian (10 traces of 252 bytes)" + advice);
    expectFailure(repeated(three, 14), "the file is big-endian (14 traces of 252 bytes)" + advice);
    // A damaged end: the second header says enough.
    expectFailure(repeated(three, 14) + "x",
                  "the file is big-endian (14 traces of 252 bytes)" + advice);
    expectFailure((three + three).substr(0, 492),
                  "the file is big-endian (1 trace of 252 bytes)" + advice);
    // 257 samples are 0x0101 in both orders: the trace code decides.
    expectFailure(repeated(bigEndianTrace(257), 2),
                  "the file is big-endian (2 traces of 1268 bytes)" + advice);
    const std::vector<float> samples(257, 1.0F);
    EXPECT_EQ(remarksOn(repeated(suTrace({0, 5, 10, 257, 250}, samples), 2), RemarkKind::samples),
              Texts());
}

TEST(SuReport, LittleEndianFilesWithADamagedEnd)
{
    for (const std::size_t size : {1U, 239U, 240U, 251U})
        EXPECT_EQ(reportOn(twoTraces + twoTraces.substr(0, size)).failure, std::nullopt) << size;
    EXPECT_EQ(reportOn(twoTraces.substr(0, 300)).failure, std::nullopt);
}

TEST(SuReport, FilesOfOtherFormats)
{
    const std::string seg2 = "this is a SEG2 file, no Seismic Unix file: it needs no conversion";
    expectFailure(twoTracesSeg2, seg2);
    std::string bigEndianSeg2 = twoTracesSeg2;
    std::swap(bigEndianSeg2[0], bigEndianSeg2[1]);
    expectFailure(bigEndianSeg2, seg2);

    for (const char first : {'C', '\xC3'}) {
        for (const char format : {'\x01', '\x10'}) {
            std::string segY(3600 + 240 + 400, '\x40');
            segY[0] = first;
            segY[3224] = '\0';
            segY[3225] = format;
            expectFailure(segY, "this is a SEG-Y file: save it as Seismic Unix, little-endian");
            segY[3225] = '\x11';
            EXPECT_EQ(reportOn(segY).failure->text,
                      "no whole trace: the file has 4240 bytes, a trace 66032");
        }
    }
}

TEST(SuReport, SeismicUnixFilesThatBeginAsOtherFormatsDo)
{
    // A file may begin with any trace of a line: number 0x3A55, or number 0x43.
    const std::string number = "\x55\x3A";
    std::string su = twoTraces;
    su.replace(0, 2, number);
    EXPECT_EQ(reportOn(su).failure, std::nullopt);
    EXPECT_EQ(reportOn(su.substr(0, 252)).failure, std::nullopt);
    EXPECT_EQ(reportOn(su + "rest").failure, std::nullopt);
    std::string trace = suTrace({0, 5, 10, 1000, 250}, std::vector<float>(1000, 0.0F));
    trace[0] = 'C';
    trace[3225] = 1;
    EXPECT_EQ(reportOn(trace).failure, std::nullopt);
    EXPECT_EQ(reportOn(trace + trace + "rest").failure, std::nullopt);
}

TEST(SuReport, MoreTracesThanASeg2FileCanPointTo)
{
    const std::string one = suTrace({0, 5, 10, 1, 250}, {1.0F});
    expectFailure(repeated(one, 16384),
                  "16384 traces, and a SEG2 file can point to 16383: split the record");
    EXPECT_EQ(reportOn(repeated(one, 16383)).failure, std::nullopt);
}

TEST(SuReport, InputThatCannotBeOpened)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.su");
    Report report;
    CapturedStreams streams;
    EXPECT_FALSE(convertSu(path, folder.path("listing"), folder.path("seg2"), nullptr, report));
    streams.finish();
    EXPECT_EQ(streams.output + streams.error, "");
    EXPECT_EQ(report.printed, "Error while loading " + path + "\nEXCEPTION!\n");
    ASSERT_NE(report.failure, std::nullopt);
    EXPECT_EQ(report.failure->place, Place{path});
    EXPECT_EQ(report.failure->text, "No such file or directory"); // Qt's, in every locale
    EXPECT_EQ(report.result, 0);
}

TEST(SuReport, OutputsThatCannotBeWritten)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    const std::string listing = folder.path("listing");
    const std::string seg2 = folder.path("seg2");
    const std::string blocked = folder.path("");
    const struct
    {
        std::string listing, seg2, named;
        std::int32_t result;
        int error;
        std::string printed;
    } cases[] = {
        {blocked, seg2, blocked, 1, EISDIR, "Error in opening file " + blocked + '\n'},
        {listing, blocked, blocked, 0, EISDIR, ""},
        {listing, "/dev/full", "/dev/full", 0, ENOSPC, ""},
        {"/dev/full", seg2, "/dev/full", 0, ENOSPC,
         repeated("WARNING: Keyword  is not a standard keyword for the file descriptor block.\n",
                  2)},
    };
    for (const auto &[listingPath, seg2Path, named, result, error, printed] : cases) {
        Report report;
        EXPECT_FALSE(convertSu(path, listingPath, seg2Path, nullptr, report));
        EXPECT_EQ(report.failure, (Failure{{named}, systemText(error)}));
        EXPECT_EQ(report.result, result);
        EXPECT_EQ(report.printed, printed);
    }
}
