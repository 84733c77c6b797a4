// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/dolang_conversion.h"

#include "tests/support/dolang_set.h"
#include "tests/support/odd_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Remarks = std::vector<Remark>;

class DolangReport : public DolangSet
{
protected:
    bool convertInto(const std::string &listingPath, const std::string &seg2Path)
    {
        report = {};
        CapturedStreams streams;
        const bool result =
            convertDolang(base, dolangKinds[0], listingPath, seg2Path, nullptr, report);
        streams.finish();
        EXPECT_EQ(streams.output + streams.error, "");
        EXPECT_EQ(result, !report.failure);
        return result;
    }

    bool convertKind(const std::string &headerText, const std::vector<std::string> &channels)
    {
        writeKind('A', headerText, channels);
        return convertInto(work.path("listing"), set.path("seg2"));
    }

    /// Expects a failure for commands alone.
    void expectFailure(const Failure &failure) const
    {
        EXPECT_EQ(report.failure, failure);
        EXPECT_EQ(report.result, 0);
        EXPECT_EQ(report.error, nullptr);
        EXPECT_EQ(report.printed, "");
    }

    const std::string header = base + ".ADT";
    const std::string channel1 = base + ".A01";
    const std::string channel2 = base + ".A02";
    Report report;
};

Remark noNumber(const Place &place, const std::string &text)
{
    return {RemarkKind::notANumber, place, text};
}

} // namespace

TEST_F(DolangReport, CleanSet)
{
    EXPECT_TRUE(convertKind("\"comment\"\n" + twoChannels + "more\n",
                            {"1\n-2\n1000000\n", "0\r\n5\r\n6\r\n\r\n \n"}));
    EXPECT_EQ(report.failure, std::nullopt);
    EXPECT_EQ(report.remarks, Remarks());
    EXPECT_EQ(report.printed, "");
    EXPECT_EQ(report.result, 0);
    EXPECT_EQ(readFile(work.path("listing")), twoChannelsListing);
    EXPECT_EQ(readFile(set.path("seg2")), twoChannelsSeg2);
}

TEST_F(DolangReport, ProgressGoesToItsStream)
{
    writeKind('A', twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
    std::ostringstream progress;
    EXPECT_TRUE(convertDolang(base, dolangKinds[0], work.path("listing"), set.path("seg2"),
                              &progress, report));
    EXPECT_EQ(progress.str(), "TraceINDEX : 0\n1\n-2\n1e+06\nTraceINDEX : 1\n0\n5\n6\n");
}

TEST_F(DolangReport, MissingHeader)
{
    EXPECT_FALSE(convertInto(work.path("listing"), set.path("seg2")));
    EXPECT_EQ(report.failure, (Failure{{header}, systemText(ENOENT)}));
    EXPECT_EQ(report.printed, "Error in reading file " + header + '\n');
    EXPECT_EQ(report.result, 1);
}

TEST_F(DolangReport, MissingChannelIsNamedItself)
{
    EXPECT_FALSE(convertKind(twoChannels, {"1\n2\n3\n"}));
    EXPECT_EQ(report.failure, (Failure{{channel2}, systemText(ENOENT)}));
    EXPECT_EQ(report.printed, "Error in reading file " + header + '\n');
    EXPECT_EQ(report.result, 1);
}

TEST_F(DolangReport, CountsOfZeroNameTheirLines)
{
    EXPECT_FALSE(convertKind("\"comment\"\n0\n\n\n0\n1\n1000\n", {}));
    expectFailure({{header, 2}, "the number of channels is 0"});
    EXPECT_FALSE(convertKind("1\n\n\n0\n0\n1000\n", {"1\n"}));
    expectFailure({{header, 5}, "the number of samples is 0"});
    EXPECT_FALSE(convertKind("\"comment\"\n1\n\n\n0\n1\n0\n", {"1\n"}));
    expectFailure({{header, 7}, "the sampling rate is 0"});
}

TEST_F(DolangReport, HeaderThatEndsTooEarly)
{
    const std::pair<const char *, Failure> cases[] = {
        {"", {{header}, "the file is empty"}},
        {"\"comment\"\n", {{header, 1}, "the header ends before its number of channels"}},
        {"1\n\n\n", {{header, 3}, "the header ends before its delay"}},
        {"1\n\n\n0", {{header, 4}, "the header ends before its number of samples"}},
        {"1\n\n\n0\n1\n", {{header, 5}, "the header ends before its sampling rate"}},
    };
    for (const auto &[text, failure] : cases) {
        EXPECT_FALSE(convertKind(text, {"1\n"})) << text;
        expectFailure(failure);
    }
}

TEST_F(DolangReport, HeaderFieldsThatAreNotWholeNumbers)
{
    EXPECT_TRUE(convertKind("1 channel\n\n\n0.5\n2,0\n+1000 \n", {"1\n2\n"}));
    EXPECT_EQ(
        report.remarks,
        (Remarks{
            noNumber({header, 1}, "\"1 channel\" is read as 1: it is no plain number"),
            noNumber({header, 4}, "\"0.5\" is read as 0: write a whole number in digits"),
            noNumber({header, 5}, "\"2,0\" is read as 2: write a decimal point, no comma")}));
}

TEST_F(DolangReport, CountsThatWrapAround)
{
    EXPECT_TRUE(convertKind("4294967297\n\n\n-5\n4294967298\n-1\n", {"1\n2\n"}));
    EXPECT_EQ(
        report.remarks,
        (Remarks{noNumber({header, 1}, "\"4294967297\" is read as 1: it is out of range"),
                 noNumber({header, 4}, "\"-5\" is read as 4294967291: it is out of range"),
                 noNumber({header, 5}, "\"4294967298\" is read as 2: it is out of range"),
                 noNumber({header, 6}, "\"-1\" is read as 4294967295: it is out of range")}));
    // 32 bits hold this.
    EXPECT_TRUE(convertKind("1\n\n\n4294967295\n1\n4000000000\n", {"1\n"}));
    EXPECT_EQ(report.remarks, Remarks());
}

TEST_F(DolangReport, SamplesThatAreNotWholeNumbers)
{
    EXPECT_TRUE(convertKind(
        "1\n\n\n0\n12\n1000\n",
        {"1\n 2 \n+3\n-4\r\n2147483647\n-2147483648\n\n1.9\n0x10\n2147483648\n1 2\n1e3\n"}));
    EXPECT_EQ(
        report.remarks,
        (Remarks{
            noNumber({channel1, 7}, "\"\" is read as 0: it is no plain number"),
            noNumber({channel1, 8}, "\"1.9\" is read as 1: write a whole number in digits"),
            noNumber({channel1, 9}, "\"0x10\" is read as 0: it is no plain number"),
            noNumber({channel1, 10}, "\"2147483648\" is read as -2147483648: it is out of range"),
            noNumber({channel1, 11}, "\"1 2\" is read as 1: it is no plain number"),
            noNumber({channel1, 12}, "\"1e3\" is read as 1: write a whole number in digits")}));
}

TEST_F(DolangReport, OfManyRemarksOnAFileTenAreKept)
{
    EXPECT_TRUE(convertKind("2\n\n\n0\n30\n1000\n", {repeated("x\n", 30), repeated("y\n", 30)}));
    EXPECT_EQ(report.remarks.size(), 20U);
    EXPECT_EQ((report.remarkCounts.at({channel1, RemarkKind::notANumber})), 30U);
    EXPECT_EQ((report.remarkCounts.at({channel2, RemarkKind::notANumber})), 30U);
}

TEST_F(DolangReport, MissingSamples)
{
    EXPECT_TRUE(convertKind("3\n\n\n0\n3\n1000\n", {"1\n2\n3\n", "4\n5\n", "6"}));
    EXPECT_EQ(report.remarks,
              (Remarks{{RemarkKind::samples,
                        {channel2, 2},
                        "the file ends after 2 of 3 samples: the missing ones are 0"},
                       {RemarkKind::samples,
                        {base + ".A03", 1},
                        "the file ends after 1 of 3 samples: the missing ones are 0"}}));
}

TEST_F(DolangReport, EmptyChannel)
{
    EXPECT_FALSE(convertKind(twoChannels, {"1\n2\n3\n", ""}));
    expectFailure({{channel2}, "the file is empty"});
}

TEST_F(DolangReport, LinesAfterTheLastSample)
{
    EXPECT_TRUE(convertKind(twoChannels, {"1\n2\n3\n4\n", "1\n2\n3\n\n5\n \n6"}));
    EXPECT_EQ(
        report.remarks,
        (Remarks{{RemarkKind::notRead, {channel1, 4}, "1 line after the last sample: not read"},
                 {RemarkKind::notRead, {channel2, 5}, "2 lines after the last sample: not read"}}));
}

TEST_F(DolangReport, ByteOrderMarks)
{
    const std::string text = "this text begins with a byte order mark: save it without one";
    EXPECT_FALSE(convertKind(byteOrderMark + twoChannels, {"1\n2\n3\n", "4\n5\n6\n"}));
    expectFailure({{header, 1}, text});
    EXPECT_FALSE(convertKind(twoChannels, {"1\n2\n3\n", byteOrderMark + "4\n5\n6\n"}));
    expectFailure({{channel2, 1}, text});
    EXPECT_FALSE(convertKind(twoChannels, {inUtf16("1\n2\n3\n"), "4\n5\n6\n"}));
    expectFailure({{channel1, 1}, "this text is in UTF-16: save it as UTF-8"});
}

TEST_F(DolangReport, SamplesBeyondAllBoundsNameTheirNumber)
{
    EXPECT_FALSE(convertKind("1\n\n\n0\n-1\n1000\n", {"7\n8\n"}));
    EXPECT_EQ(report.failure,
              (Failure{{header, 5}, "4294967295 values asked for, of 4 bytes: vector too long"}));
    EXPECT_NE(report.error, nullptr);
}

TEST_F(DolangReport, MoreChannelsThanASeg2FileCanPointTo)
{
    for (int channel = 1; channel <= 16384; ++channel)
        set.write("LINE.A" + std::string(channel < 10 ? "0" : "") + std::to_string(channel), "1\n");
    set.write("LINE.ADT", "16384\n\n\n0\n1\n1000\n");
    EXPECT_FALSE(convertInto(work.path("listing"), set.path("seg2")));
    expectFailure({{header}, "16384 traces, and a SEG2 file can point to 16383: split the record"});
}

TEST_F(DolangReport, OutputsThatCannotBeWritten)
{
    writeKind('A', twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
    const std::string listing = work.path("listing");
    const std::string seg2 = set.path("seg2");
    const std::string blocked = work.path("");
    const struct
    {
        std::string listing, seg2, named;
        std::int32_t result;
        int error;
    } cases[] = {
        {blocked, seg2, blocked, 1, EISDIR},
        {listing, blocked, blocked, 0, EISDIR},
        {listing, "/dev/full", "/dev/full", 0, ENOSPC},
        {"/dev/full", seg2, "/dev/full", 0, ENOSPC},
    };
    for (const auto &[listingPath, seg2Path, named, result, systemError] : cases) {
        EXPECT_FALSE(convertInto(listingPath, seg2Path));
        EXPECT_EQ(report.failure, (Failure{{named}, systemText(systemError)}));
        EXPECT_EQ(report.result, result);
    }
}
