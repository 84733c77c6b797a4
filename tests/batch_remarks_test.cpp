// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/odd_files.h"
#include "tests/support/small_surveys.h"

#include <gtest/gtest.h>

namespace {

const std::string strictLine = "line.otte: nothing is made: --strict takes no remarks";

/// Expects that the command converts with these lines on the standard error stream, and that it
/// refuses with --strict, after the same lines.
void expectRemarks(const BatchFolder &folder, Arguments arguments, const std::string &lines)
{
    folder.write("line.otte", "older");
    arguments.insert(arguments.end(), {"-o", "line.otte"});
    Arguments strict = arguments;
    strict.push_back("--strict");
    expectRefused(folder, strict, lines + strictLine);
    EXPECT_EQ(folder.run(arguments), (BatchRun{0, "", lines}));
    EXPECT_TRUE(readFile(folder.path("line.otte")).starts_with("otte\n")) << lines;
}

/// The same for a format of one file, which is "line".
void expectRemarks(const std::string &format, const std::string &text, const std::string &lines)
{
    const BatchFolder folder;
    folder.write("line", text);
    Arguments arguments = {format, "line"};
    if (format == "generic")
        arguments.insert(arguments.end(), {"--shot", "-1,100"});
    expectRemarks(folder, arguments, lines);
}

/// A generic file whose second line is `line`.
std::string generic(const std::string &line)
{
    return "0;100;0.001\n" + line + '\n';
}

} // namespace

TEST(BatchRemarks, FieldsThatAreNotWhollyNumbers)
{
    const std::string noNumber = ": it is no plain number\n";
    const std::string comma = ": write a decimal point, no comma\n";
    expectRemarks("generic", generic("x;100;0.004"), "line:2: \"x\" is read as 0" + noNumber);
    expectRemarks("generic", generic("5;100;0,004"), "line:2: \"0,004\" is read as 0" + comma);
    expectRemarks("generic", generic("5m;100;0.004"), "line:2: \"5m\" is read as 5" + noNumber);
    expectRemarks("generic", generic("0x10;100;0.004"),
                  "line:2: \"0x10\" is read as 16" + noNumber);
    expectRemarks("generic", generic("inf;100;0.004"), "line:2: \"inf\" is read as inf" + noNumber);
    expectRemarks("generic", generic("5;nan;0.004"), "line:2: \"nan\" is read as nan" + noNumber);
    expectRemarks("seisimager", fileOf(seisImagerLines, {{2, "0 4294967297\n"}}),
                  "line:2: \"4294967297\" is read as 1: it is out of range\n");
    expectRemarks("geogiga", fileOf(geogigaLines, {{7, "SHOT_LOCATION:-2,5\n"}}),
                  "line:7: \"-2,5\" is read as -2" + comma);
    expectRemarks("winsism", fileOf(winsismLines, {{6, "-2.5 x\n"}}),
                  "line:6: \"x\" is read as 0" + noNumber);
}

TEST(BatchRemarks, LineThatBeginsWithADelimiter)
{
    expectRemarks(
        "generic", generic(";5;100;0.004"),
        "line:2: the line begins with a delimiter: its first field, \"5\", is read twice, "
        "so that all others shift\n");
}

TEST(BatchRemarks, WhatFollowsTheLastShot)
{
    expectRemarks("seisimager", fileOf(seisImagerLines) + "7 7\n8 8\n",
                  "line:7: 2 lines after the last shot: not read\n");
    const std::string survey = "1996 0 3.0\n0 1\n2.5 2\n0 10\n5 12.5\n";
    expectRemarks("seisimager", survey + survey,
                  "line:6: another survey begins here: only the first is read\n");
}

TEST(BatchRemarks, ShotWithoutReceivers)
{
    expectRemarks("seisimager", "-\n0 2\n-2.5 1\n0 2.5\n5 0\n",
                  "line:5: shot 2 has no receivers\n");
}

TEST(BatchRemarks, OneOfSeveralFilesWithoutShotsOrWithSeveral)
{
    const BatchFolder folder;
    folder.write("none.vs", "-\n0 0\n");
    folder.write("one.vs", fileOf(seisImagerLines));
    folder.write("two.vs", "-\n0 2\n0 1\n5 2.5\n10 1\n5 2.5\n");
    expectRemarks(folder, {"seisimager", "none.vs", "one.vs"},
                  "none.vs:2: there are no shots in this file\n");
    expectRemarks(folder, {"seisimager", "two.vs", "one.vs"},
                  "two.vs:2: 2 shots in one of several files: the shots are not numbered through, "
                  "so that picks go to another shot\n");
}

TEST(BatchRemarks, GeogigaReceiversThatMove)
{
    expectRemarks(
        "geogiga", fileOf(geogigaLines, {{17, "1 1 0.0152 1\r\n"}}),
        "line:7: the receivers of shot 1 stand elsewhere than the last shot's: only those "
        "are written\n");
}

TEST(BatchRemarks, TimesBelowZero)
{
    expectRemarks(
        "generic", generic("5;100;-0.001"),
        "line:2: a time of -1 ms goes into the output like any other, also where it means "
        "\"not picked\"\n");
}

TEST(BatchRemarks, UnitsThatCannotBe)
{
    // The offsets are 1 and 6 m, and 2.5 and 7.5 m: 2 and a million m/s are medians of two.
    expectRemarks("generic", "0;100;1\n5;100;3\n",
                  "line: the times are read as seconds, which makes the median of offset over time "
                  "2 m/s: are these milliseconds?\n");
    expectRemarks("seisimager", "-\n0 1\n-2.5 2\n0 0.0025\n5 0.0075\n",
                  "line: the times are read as milliseconds, which makes the median of offset over "
                  "time 1e+06 m/s: are these seconds?\n");
}

TEST(BatchRemarks, WorstOfWhatSixDigitsDoNotHold)
{
    // Far receivers with late times, so that the velocities are those of a ground.
    expectRemarks("generic", generic("12345.678;100;5"),
                  "line:2: a position of 12345.678 m becomes 12345.7 m, as the output has six "
                  "digits\n");
    expectRemarks("generic", generic("12345.678;100;5\n23456.74;100;5\n12345.68;100;5"),
                  "line:3: a position of 23456.74 m becomes 23456.7 m, as the output has six "
                  "digits (the worst of 3)\n");
    expectRemarks("generic", generic("5;100;1.234375"),
                  "line:2: a time of 1234.375 ms becomes 1234.38 ms, as the output has six "
                  "digits\n");
}

TEST(BatchRemarks, TenOfAKindAreShownAndTheOthersCounted)
{
    std::string ten;
    for (int line = 1; line <= 10; ++line)
        ten += "line:" + std::to_string(line) + ": \"x\" is read as 0: it is no plain number\n";
    expectRemarks("generic", repeated("x;100;0.004\n", 10), ten);
    expectRemarks("generic", repeated("x;100;0.004\n", 13), ten + "line: 3 more of this kind\n");
    expectRemarks("generic", repeated("x;100;0.004\n", 13) + "0;100;-0.001\n",
                  ten
                      + "line: 3 more of this kind\n"
                        "line:14: a time of -1 ms goes into the output like any other, also where "
                        "it means \"not picked\"\n");
}

TEST(BatchRemarks, EachFileHasItsOwnTen)
{
    const BatchFolder folder;
    folder.write("a.txt", repeated("x;100;0.004\n", 11));
    folder.write("b.txt", repeated("x;100;0.004\n", 2));
    std::string lines;
    for (int line = 1; line <= 10; ++line)
        lines += "a.txt:" + std::to_string(line) + ": \"x\" is read as 0: it is no plain number\n";
    lines += "a.txt: 1 more of this kind\n"
             "b.txt:1: \"x\" is read as 0: it is no plain number\n"
             "b.txt:2: \"x\" is read as 0: it is no plain number\n";
    expectRemarks(folder, {"generic", "a.txt", "b.txt", "--shot", "-1,100", "--shot", "2,100"},
                  lines);
}

TEST(BatchRemarks, RemarkOnAFieldOfABinaryFileIsOneShortLine)
{
    expectRemarks("generic", generic('\b' + std::string(5000, 'x') + ";100;0.004"),
                  "line:2: \"?" + std::string(59, 'x')
                      + "...\" is read as 0: it is no plain number\n");
}

TEST(BatchRemarks, CleanSurveysConvertWithStrict)
{
    const std::vector<std::pair<std::string, std::string>> surveys = {
        {"geogiga", fileOf(geogigaLines)},
        {"winsism", fileOf(winsismLines)},
        {"seisimager", fileOf(seisImagerLines)},
        // With the trailer that pickers write.
        {"seisimager", "1996 0 3.0\n0 1 5.0\n2.5 2 0\n0 10 1 \n5 12.5 1 \n0 0\n 0\n 0 0\n"},
    };
    for (const auto &[format, text] : surveys) {
        SCOPED_TRACE(text);
        const BatchFolder folder;
        folder.write("line", text);
        EXPECT_EQ(folder.run({format, "line", "-o", "line.otte", "--strict"}), BatchRun{});
        EXPECT_TRUE(exists(folder.path("line.otte")));
    }
    const GenericSurvey survey;
    EXPECT_EQ(survey.run({"generic", "s1.txt", "--shot", "-1,100", "--strict", "-o", "line.otte"}),
              BatchRun{});
    EXPECT_EQ(readFile(survey.path("line.otte")), genericOtte);
}
