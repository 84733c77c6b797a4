// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/seg2_parser.h"
#include "tests/support/small_records.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

/// What the working folder of a run holds, with a set of three kinds in "line 1/": 2, 1 and 1
/// channels of 3 samples, 4000 a second.
struct DolangSet : BatchFolder
{
    DolangSet()
    {
        fs::create_directory(path("line 1"));
        write("line 1/L.ADT", "\"record A\"\n2\n-\n-\n5\n3\n4000\n");
        write("line 1/L.CDT", "1\n-\n-\n0\n3\n4000\n");
        write("line 1/L.RDT", "1\n-\n-\n0\n3\n4000\n");
        write("line 1/L.A01", "1\n-2\n300\n");
        write("line 1/L.A02", "0\n4\n-5\n");
        write("line 1/L.C01", "6\n7\n8\n");
        write("line 1/L.R01", "9\n10\n11\n");
    }

    void writeOlderOutputs() const
    {
        for (const std::string kind : {"ADT", "CDT", "RDT"}) {
            write("tmp_" + kind, "older");
            write("line 1/L_" + kind + "_dolang.seg2", "older");
        }
    }

    std::string listing(const std::string &kind) const
    {
        return readFile(path("tmp_" + kind));
    }

    std::string seg2(const std::string &kind) const
    {
        return readFile(path("line 1/L_" + kind + "_dolang.seg2"));
    }
};

const std::string bothTracesListing = listingHeading
                                  + "1    3      5     0.00025     0      0      0\n"
                                    "2    3      5     0.00025     0      0      0\n";

/// What both traces have in front of their samples.
const std::string dolangTraceHead = "22 44 98 00 0C 00 00 00 03 00 00 00 04 " + blanks19
                                    + "0A 00 'DELAY 5' 00 "
                                      "15 00 'DESCALING_FACTOR 1' 00 "
                                      "1A 00 'RECEIVER_LOCATION 0 0 0' 00 "
                                      "1A 00 'SAMPLE_INTERVAL 0.00025' 00 "
                                      "18 00 'SOURCE_LOCATION 0 0 0' 00 "
                                      "0A 00 'STACK 1' 00 "
                                      "00 00 ' ' ";

const std::string bothTracesSeg2 =
    bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 " + blanks18      // 0
          + "54 00 00 00 F8 00 00 00 "                                 // 32
          + fileStrings + "'  ' "                                      // 40
          + dolangTraceHead                                            // 84
          + "00 00 80 3F  00 00 00 C0  00 00 96 43 " + dolangTraceHead // 248
          + "00 00 00 00  00 00 80 40  00 00 A0 C0");

const char dolangEcho[] = "TraceINDEX : 0\n1\n-2\n300\nTraceINDEX : 1\n0\n4\n-5\n"
                          "TraceINDEX : 0\n6\n7\n8\n"
                          "TraceINDEX : 0\n9\n10\n11\n";

/// The samples of the only trace of a file.
std::vector<double> onlyTrace(const std::string &seg2)
{
    const ParsedSeg2 file = parseSeg2(seg2);
    EXPECT_EQ(file.traces.size(), 1U);
    return file.traces.at(0).samples;
}

} // namespace

TEST(BatchDolang, EveryKind)
{
    const DolangSet set;
    EXPECT_EQ(set.run({"dolang", "line 1/L.ADT"}), BatchRun{});
    EXPECT_EQ(set.listing("ADT"), bothTracesListing);
    EXPECT_EQ(set.seg2("ADT"), bothTracesSeg2);
    const std::string oneChannel =
        listingHeading + "1    3      0     0.00025     0      0      0\n";
    EXPECT_EQ(set.listing("CDT"), oneChannel);
    EXPECT_EQ(onlyTrace(set.seg2("CDT")), (std::vector<double>{6.0, 7.0, 8.0}));
    EXPECT_EQ(set.listing("RDT"), oneChannel);
    EXPECT_EQ(onlyTrace(set.seg2("RDT")), (std::vector<double>{9.0, 10.0, 11.0}));
    EXPECT_EQ(set.names(), (Names{"line 1", "tmp_ADT", "tmp_CDT", "tmp_RDT"}));
}

TEST(BatchDolang, SetIsNamedByItsBaseOrAnyHeaderAndConvertedOnce)
{
    const std::vector<std::vector<std::string>> commands = {
        {"line 1/L"},
        {"line 1/L.ADT"},
        {"line 1/L.CDT"},
        {"line 1/L.RDT"},
        {"line 1/L.ADT", "line 1/L.CDT", "line 1/L.RDT"},
        {"line 1/L.RDT", "line 1/L", "line 1/L.ADT", "line 1/L.ADT"},
    };
    for (std::vector<std::string> arguments : commands) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const DolangSet set;
        arguments.insert(arguments.begin(), {"dolang", "--echo"});
        EXPECT_EQ(set.run(arguments), (BatchRun{0, dolangEcho}));
        EXPECT_EQ(set.seg2("ADT"), bothTracesSeg2);
    }
}

TEST(BatchDolang, ProgressOfTheConversionOnlyWithEcho)
{
    const DolangSet set;
    EXPECT_EQ(set.run({"dolang", "line 1/L.ADT"}), BatchRun{});
    EXPECT_EQ(set.run({"dolang", "line 1/L.ADT", "--echo"}), (BatchRun{0, dolangEcho}));
}

TEST(BatchDolang, ListingThatCannotBeWrittenLeavesTheKindsBefore)
{
    const DolangSet set;
    fs::create_directory(set.path("tmp_CDT"));
    EXPECT_EQ(set.run({"dolang", "line 1/L"}), (BatchRun{1, "", "tmp_CDT: this is a folder\n"}));
    EXPECT_EQ(set.seg2("ADT"), bothTracesSeg2);
    EXPECT_EQ(set.names(), (Names{"line 1", "tmp_ADT", "tmp_CDT"}));
}

TEST(BatchDolang, MissingHeaderLeavesTheKindsBefore)
{
    const DolangSet set;
    set.writeOlderOutputs();
    fs::remove(set.path("line 1/L.RDT"));
    EXPECT_EQ(set.run({"dolang", "line 1/L.ADT"}),
              (BatchRun{1, "", "line 1/L.RDT: no such file\n"}));
    EXPECT_EQ(set.listing("ADT"), bothTracesListing);
    EXPECT_EQ(set.seg2("ADT"), bothTracesSeg2);
    EXPECT_EQ(onlyTrace(set.seg2("CDT")), (std::vector<double>{6.0, 7.0, 8.0}));
    EXPECT_EQ(set.listing("RDT"), "older");
    EXPECT_EQ(set.seg2("RDT"), "older");
}

TEST(BatchDolang, MissingChannelFileIsNamedItself)
{
    const DolangSet set;
    set.writeOlderOutputs();
    const Names before = set.names();
    fs::remove(set.path("line 1/L.C01"));
    EXPECT_EQ(set.run({"dolang", "line 1/L.ADT"}),
              (BatchRun{1, "", "line 1/L.C01: " + systemText(ENOENT) + '\n'}));
    EXPECT_EQ(set.seg2("ADT"), bothTracesSeg2);
    for (const std::string kind : {"CDT", "RDT"}) {
        EXPECT_EQ(set.listing(kind), "older");
        EXPECT_EQ(set.seg2(kind), "older");
    }
    EXPECT_EQ(set.names(), before);
}

TEST(BatchDolang, SamplingRateOfZero)
{
    const DolangSet set;
    set.writeOlderOutputs();
    set.write("line 1/L.ADT", "\"record A\"\n2\n-\n-\n5\n3\n0\n");
    EXPECT_EQ(set.run({"dolang", "line 1/L.ADT"}),
              (BatchRun{1, "", "line 1/L.ADT:7: the sampling rate is 0\n"}));
    EXPECT_EQ(set.listing("ADT"), "older");
    EXPECT_EQ(set.seg2("ADT"), "older");
}

TEST(BatchDolang, HeadersThatAreRefusedLeaveTheKindsBefore)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "line 1/L.CDT: the file is empty"},
        {"0\n-\n-\n0\n3\n4000\n", "line 1/L.CDT:1: the number of channels is 0"},
        {"1\n-\n-\n0\n0\n4000\n", "line 1/L.C01:1: 3 lines after the last sample: not read\n"
                                  "line 1/L.CDT:5: the number of samples is 0"},
        {"1\n-\n-\n0\n3\n", "line 1/L.CDT:5: the header ends before its sampling rate"},
    };
    for (const auto &[header, line] : cases) {
        const DolangSet set;
        set.writeOlderOutputs();
        set.write("line 1/L.CDT", header);
        EXPECT_EQ(set.run({"dolang", "line 1/L.ADT"}), (BatchRun{1, "", line + '\n'}));
        EXPECT_EQ(set.seg2("ADT"), bothTracesSeg2);
        for (const std::string kind : {"CDT", "RDT"}) {
            EXPECT_EQ(set.listing(kind), "older") << line;
            EXPECT_EQ(set.seg2(kind), "older") << line;
        }
    }
}

TEST(BatchDolang, Remarks)
{
    const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
        {"R01", "1\n",
         "line 1/L.R01:1: the file ends after 1 of 3 samples: the missing ones are 0"},
        {"R01", "9\n10.5\n11\n",
         "line 1/L.R01:2: \"10.5\" is read as 10: write a whole number in digits"},
        {"R01", "9\n10\n11\n12\n13\n", "line 1/L.R01:4: 2 lines after the last sample: not read"},
        {"RDT", "1 channel\n-\n-\n0\n3\n4000\n",
         "line 1/L.RDT:1: \"1 channel\" is read as 1: it is no plain number"},
    };
    for (const auto &[file, text, line] : cases) {
        SCOPED_TRACE(line);
        const DolangSet set;
        set.writeOlderOutputs();
        set.write("line 1/L." + file, text);
        EXPECT_EQ(
            set.run({"dolang", "line 1/L", "--strict"}),
            (BatchRun{1, "",
                      line + "\nline 1/L.RDT: nothing is made: --strict takes no remarks\n"}));
        EXPECT_EQ(set.seg2("ADT"), bothTracesSeg2);
        EXPECT_EQ(set.listing("RDT"), "older");
        EXPECT_EQ(set.seg2("RDT"), "older");
        EXPECT_EQ(set.run({"dolang", "line 1/L"}), (BatchRun{0, "", line + '\n'}));
        EXPECT_EQ(parseSeg2(set.seg2("RDT")).traces.size(), 1U);
    }
}

TEST(BatchDolang, RemarksOfEveryKindAreShown)
{
    const DolangSet set;
    for (const std::string channel : {"A02", "C01", "R01"})
        set.write("line 1/L." + channel, "1\n2\n3\n4\n");
    EXPECT_EQ(set.run({"dolang", "line 1/L"}),
              (BatchRun{0, "",
                        "line 1/L.A02:4: 1 line after the last sample: not read\n"
                        "line 1/L.C01:4: 1 line after the last sample: not read\n"
                        "line 1/L.R01:4: 1 line after the last sample: not read\n"}));
}

TEST(BatchDolang, SetThatIsNamedByOneOfItsChannels)
{
    const DolangSet set;
    for (const std::string channel : {"A01", "C01", "R01", "R123"})
        expectRefused(
            set, {"dolang", "line 1/L." + channel},
            "line 1/L." + channel
                + ": this is one channel of a set: name the set by its base, line 1/L, or "
                  "by a header");
    expectRefused(set, {"dolang", "line 1/L.A1"}, "line 1/L.A1.ADT: no such file");
    expectRefused(set, {"dolang", "line 1/L.B01"}, "line 1/L.B01.ADT: no such file");

    // Nobody would, but a set's base may have such a name.
    set.write("x.A01.ADT", "1\n-\n-\n0\n1\n1000\n");
    set.write("x.A01.A01", "7\n");
    EXPECT_EQ(set.run({"dolang", "x.A01"}), (BatchRun{1, "", "x.A01.CDT: no such file\n"}));
    EXPECT_EQ(onlyTrace(readFile(set.path("x.A01_ADT_dolang.seg2"))), std::vector<double>{7.0});
}

TEST(BatchDolang, EverySetIsTriedAfterOneFailed)
{
    const DolangSet set;
    EXPECT_EQ(set.run({"dolang", "missing.RDT", "line 1/L.ADT"}),
              (BatchRun{1, "", "missing.ADT: no such file\n"}));
    EXPECT_EQ(set.seg2("ADT"), bothTracesSeg2);
    EXPECT_EQ(onlyTrace(set.seg2("RDT")), (std::vector<double>{9.0, 10.0, 11.0}));
}

TEST(BatchDolang, BaseThatEndsLikeAHeaderLosesOneExtension)
{
    const DolangSet set;
    EXPECT_EQ(set.run({"dolang", "L.CDT.ADT"}), (BatchRun{1, "", "L.CDT.ADT: no such file\n"}));
}

TEST(BatchDolang, OnATerminalEachSetIsAnnounced)
{
    const DolangSet set;
    const std::string shown = set.runOnTerminal({"dolang", "none", "line 1/L.ADT", "line 1/L.CDT"});
    if (shown == noTerminal)
        GTEST_SKIP() << shown;
    EXPECT_EQ(shown, "1/2 none\r\nnone.ADT: no such file\r\n2/2 line 1/L\r\n");
}
