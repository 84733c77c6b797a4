// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/convertible_files.h"
#include "tests/support/faults.h"
#include "tests/support/odd_files.h"
#include "tests/support/older_outputs.h"
#include "tests/support/seg2_parser.h"

#include <gtest/gtest.h>

#include <filesystem>

// These take their time, so they run under one locale alone.

namespace {

/// A million shots of a format, converted with no more than a gigabyte of memory.
void expectConverted(const std::string &format, const ManyShots &shots,
                     const std::string &remark = "")
{
    const OlderOutputs folder;
    folder.write("line", shots.input);
    EXPECT_EQ(folder.run(traveltimes(format), limitMemory), (BatchRun{0, "", remark}));
    EXPECT_TRUE(readFile(folder.path("line.otte")) == shots.otte);
}

} // namespace

TEST(BatchLargeFiles, TraveltimesOfOneEndlessLine)
{
    const std::string noHeading =
        "line:1: \"Shot number, Shot elevation\" is expected: Invalid header : ";
    const std::size_t quoted = 1000 - noHeading.size(); // of the 1000 characters of a line
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"geogiga", "line:1: \"TX_CURVE\" expected"},
        {"winsism", noHeading + std::string(quoted, 'x') + "..."},
        {"seisimager",
         "line:1: the file ends before its number of shots: invalid vector subscript"},
        {"generic", "line:1: 1 field, 3 expected: invalid vector subscript"},
    };
    for (const auto &[format, line] : cases) {
        SCOPED_TRACE(format);
        const OlderOutputs folder;
        folder.write("line", endlessLine());
        expectRefused(folder, traveltimes(format), line, limitMemory);
    }
}

TEST(BatchLargeFiles, EndlessLineAfterTheThirdField)
{
    const OlderOutputs folder;
    folder.write("line", "5;7;0.001;" + endlessLine());
    EXPECT_EQ(folder.run(traveltimes("generic"), limitMemory), BatchRun{});
    EXPECT_EQ(readFile(folder.path("line.otte")), "otte\n1.0\n2\n1\n5;\n7;\n-1;\n100;\n0\n0\n1;\n");
}

TEST(BatchLargeFiles, MillionGeogigaShots)
{
    expectConverted("geogiga", manyGeogigaShots());
}

TEST(BatchLargeFiles, MillionWinsismShots)
{
    expectConverted("winsism", manyWinsismShots());
}

TEST(BatchLargeFiles, MillionSeisImagerShots)
{
    // The one at x 1 has no offset; of the 999,999 others the half-millionth stands 499,999 m from
    // its shot, with 2.5 ms.
    expectConverted("seisimager", manySeisImagerShots(),
                    "line: the times are read as milliseconds, which makes the median of offset "
                    "over time 2e+08 m/s: are these seconds?\n");
}

TEST(BatchLargeFiles, ListOfAMillionShotsWithABadOne)
{
    const OlderOutputs folder;
    folder.write("s1.txt", genericFile);
    folder.write("list", repeated("s1.txt;-1;100\n", million - 1) + "s1.txt;-1\n");
    expectRefused(folder, {"generic", "--shots", "list", "-o", "line.otte"},
                  "list:1000000: \"file;x;elevation\" expected", limitMemory);
}

TEST(BatchLargeFiles, SeismicUnixFileOfOneEndlessLine)
{
    const OlderOutputs folder;
    folder.write("line.su", endlessLine());
    // "xx" is 30840: that many samples of 4 bytes after 240. "xxxx" is 2021161080,
    // which a float holds as 2021161088, and 30840 times that as 62332608708608.
    EXPECT_EQ(folder.run({"su", "line.su"}, limitMemory),
              (BatchRun{0, "",
                        "line.su: trace 1 and 808 more: the delay of 30840 ms becomes 0\n"
                        "line.su: trace 1 and 808 more: the elevations become 0\n"
                        "line.su: trace 1 and 808 more: the y coordinates become 0\n"
                        "line.su: 7600 bytes after the last whole trace: not read\n"
                        "line.su: trace 1: a position of 6.23326087086e+13 m becomes 6.23326e+13 "
                        "m, as the output has six digits (the worst of 810)\n"}));
    // 3312 bytes in front of 809 traces, each a descriptor of 172 and 123360 of samples.
    EXPECT_EQ(std::filesystem::file_size(folder.path("line.seg2")),
              3312U + 809U * (172U + 123360U));
}

TEST(BatchLargeFiles, DolangHeaderOfOneEndlessLine)
{
    const OlderOutputs folder;
    writeDolangSet(folder);
    folder.write("L.ADT", endlessLine());
    const BatchRun run = folder.run({"dolang", "L"}, limitMemory);
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.error.ends_with("L.ADT:1: the number of channels is 0\n"))
        << run.error.substr(0, 2000);
    EXPECT_EQ(readFile(folder.path("tmp_ADT")), "older");
    EXPECT_EQ(readFile(folder.path("L_ADT_dolang.seg2")), "older");
}

TEST(BatchLargeFiles, DolangChannelOfOneEndlessLine)
{
    const OlderOutputs folder;
    writeDolangSet(folder);
    folder.write("L.A01", "7" + endlessLine());
    EXPECT_EQ(folder.run({"dolang", "L"}, limitMemory),
              (BatchRun{0, "",
                        "L.A01:1: \"7" + std::string(59, 'x')
                            + "...\" is read as 7: it is no plain number\n"
                              "L.A01:1: the file ends after 1 of 2 samples: the missing ones are "
                              "0\n"}));
    EXPECT_EQ(parseSeg2(readFile(folder.path("L_ADT_dolang.seg2"))).traces.at(0).samples,
              (std::vector<double>{7.0, 0.0}));
}

TEST(BatchLargeFiles, MemoryThatAllOfTheseTook)
{
    EXPECT_LT(megabytesHeld(), 1024);
}
