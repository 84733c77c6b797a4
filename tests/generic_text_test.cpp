// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/generic_text.h"

#include "tests/support/reading.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>
#include <system_error>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

const char subscript[] = "out of range: invalid vector subscript";
const char position[] = "out of range: invalid string position";

/// Reads one file of this text as the first shot; `survey` gets what it holds.
std::string readText(const std::string &text, TraveltimeSurvey &survey, Problem &problem)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("shot.txt", text);
    return outcomeOf([&] {
        SpreadIndex index;
        return readGenericTraveltimes(path, survey.traveltimes, survey.spreads, {}, 0, index,
                                      problem);
    });
}

/// "x elevation time" of each receiver of a file of this text, a line each.
std::string receiversOf(const std::string &text)
{
    TraveltimeSurvey survey;
    Problem problem;
    const std::string outcome = readText(text, survey, problem);
    if (outcome != "0" || problem.detail != "" || survey.spreads.size() != 1
        || survey.traveltimes.size() != 1
        || survey.spreads[0].size() != survey.traveltimes[0].times.size())
        return "not one shot: " + outcome;
    std::ostringstream lines;
    for (std::size_t i = 0; i < survey.spreads[0].size(); ++i)
        lines << survey.spreads[0][i].x << ' ' << survey.spreads[0][i].elevation << ' '
              << survey.traveltimes[0].times[i] << '\n';
    return lines.str();
}

/// Expects that a file of this text is refused in this way and leaves the survey alone.
void expectRefused(const std::string &text, const std::string &outcome, std::size_t line,
                   const std::string &detail)
{
    SCOPED_TRACE(testing::PrintToString(text));
    TraveltimeSurvey survey{{{7, 8, 9.0, 10.0, {0.5}}}, {{{1.0, 2.0}}}, {}};
    Problem problem{"shot.txt"};
    EXPECT_EQ(readText(text, survey, problem), outcome);
    EXPECT_EQ(problem.file, "shot.txt");
    EXPECT_EQ(problem.line, line);
    EXPECT_EQ(problem.detail, detail);
    EXPECT_EQ(survey.traveltimes.size(), 1u);
    EXPECT_EQ(survey.spreads.size(), 1u);
}

/// The output for files of these texts, with the i-th shot at x i and elevation 50.
std::string converted(const std::vector<std::string> &texts)
{
    const TemporaryFolder folder;
    std::vector<std::string> files;
    std::vector<double> xs;
    for (const std::string &text : texts) {
        xs.push_back(static_cast<double>(files.size()));
        files.push_back(folder.write("shot" + std::to_string(files.size()) + ".txt", text));
    }
    const std::vector<double> elevations(texts.size(), 50.0);
    const std::string path = folder.path("line.otte");
    const std::string outcome =
        outcomeOf([&] { return convertGenericText(files, path, xs, elevations); });
    return outcome == "0" ? readFile(path) : outcome;
}

/// Expects that both forms of the driver fail in this way and leave the output alone.
void expectFailure(const std::vector<std::string> &files, const std::vector<double> &xs,
                   const std::vector<double> &elevations, const std::string &outcome,
                   const Problem &expected)
{
    expectConversionFails(
        [&](const std::string &path) { return convertGenericText(files, path, xs, elevations); },
        [&](const std::string &path, Problem &problem) {
            return convertGenericText(files, path, xs, elevations, problem);
        },
        outcome, expected);
}

const char twoReceivers[] = "0;100;0.001\n5;100;0.004\n";

} // namespace

TEST(GenericLine, FieldsAfterTheThirdAreIgnored)
{
    EXPECT_EQ(receiversOf("  3;101.5;0.0123;extra\n"), "3 101.5 0.0123\n");
}

TEST(GenericLine, DecimalCommaEndsANumber)
{
    EXPECT_EQ(receiversOf("3,5;100;0,012\n"), "3 100 0\n");
}

TEST(GenericLine, BeginningWithASemicolonHasTheRemainderInFront)
{
    EXPECT_EQ(receiversOf(";3;101;0.02\n"), "3 3 101\n");
}

TEST(GenericLine, SemicolonsInARowAreOne)
{
    EXPECT_EQ(receiversOf("1;;2;3\n"), "1 2 3\n");
}

TEST(GenericLine, TwoFieldsAreRefused)
{
    expectRefused("4;100\n", subscript, 1, "2 fields, 3 expected");
}

TEST(GenericLine, EmptyLineIsRefused)
{
    expectRefused("\n", subscript, 1, "0 fields, 3 expected");
}

TEST(GenericLine, LineOfSpacesIsRefused)
{
    expectRefused("   \n", subscript, 1, "0 fields, 3 expected");
}

TEST(GenericLine, LineOfSemicolonsIsRefused)
{
    expectRefused(";;\n", position, 1, "nothing but delimiters");
    expectRefused(";\n", position, 1, "nothing but delimiters");
    expectRefused("  ;;\n", position, 1, "nothing but delimiters");
}

TEST(GenericLine, OtherLinesThatAreRead)
{
    const struct
    {
        std::string line;
        std::string receivers;
    } cases[] = {
        {"1;2;3;", "1 2 3\n"},
        {"1; 2 ; 3 ", "1 2 3\n"},
        {"  ;3;101;0.02", "3 3 101\n"},    // begins with a semicolon once the spaces are gone
        {"\t;3;101;0.02", "0 3 101\n"},    // a tab is a field
        {"\t 3;101;0.02", "3 101 0.02\n"}, // and white space before a number
        {";;3;101", "3 3 101\n"},          // two fields and the remainder are three
        {"3;101;0.02 s # first break", "3 101 0.02\n"},
        {"x;elevation;time", "0 0 0\n"},
        {"3 101 0.02;1;2", "3 1 2\n"},
        {" ; ; ; ", "0 0 0\n"},
        {"-5;-0.5;-1", "-5 -0.5 -1\n"},
    };
    for (const auto &[line, receivers] : cases)
        EXPECT_EQ(receiversOf(line), receivers) << testing::PrintToString(line);
}

TEST(GenericLine, NumbersAsTheyAreTyped)
{
    const struct
    {
        std::string text;
        double value;
    } cases[] = {
        {"1e5", 100000.0}, {"+1.5", 1.5},     {".5", 0.5},        {"5.", 5.0},
        {"0x1p3", 8.0},    {"inf", infinity}, {"1,5", 1.0},       {" 7", 7.0},
        {"12abc", 12.0},   {"abc", 0.0},      {" ", 0.0},         {"1e999", infinity},
        {"1e-400", 0.0},   {"-1.5", -1.5},    {"1.5e-3", 0.0015},
    };
    for (const auto &[text, value] : cases) {
        TraveltimeSurvey survey;
        Problem problem;
        // A leading 1 keeps the first number from losing its leading spaces.
        EXPECT_EQ(readText("1;1;1\n" + text + ';' + text + ';' + text, survey, problem), "0");
        ASSERT_EQ(survey.spreads.at(0).size(), 2u) << text;
        EXPECT_EQ(survey.spreads[0][1].x, value) << text;
        EXPECT_EQ(survey.spreads[0][1].elevation, value) << text;
        EXPECT_EQ(survey.traveltimes.at(0).times.at(1), value) << text;
    }
}

TEST(GenericLine, NanMakesASpreadOfItsOwn)
{
    EXPECT_EQ(converted({"nan;100;nan\n", "nan;100;0.001\n"}),
              "otte\n1.0\n2\n2\nnan;\n100;\nnan;\n100;\n0;1;\n50;50;\n0\n0\nnan;\n1\n1\n1;\n");
}

TEST(GenericReader, TwoReceiversAndTheirShot)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("shot.txt", twoReceivers);
    TraveltimeSurvey survey;
    const Shot shot{-1.0, 100.5, "elsewhere"};
    EXPECT_EQ(readGenericTraveltimes(path, survey.traveltimes, survey.spreads, shot, 42), 0);
    ASSERT_EQ(survey.spreads.size(), 1u);
    ASSERT_EQ(survey.spreads[0].size(), 2u);
    EXPECT_EQ(survey.spreads[0][0].x, 0.0);
    EXPECT_EQ(survey.spreads[0][0].elevation, 100.0);
    EXPECT_EQ(survey.spreads[0][1].x, 5.0);
    EXPECT_EQ(survey.spreads[0][1].elevation, 100.0);
    ASSERT_EQ(survey.traveltimes.size(), 1u);
    EXPECT_EQ(survey.traveltimes[0].spreadIndex, 0u);
    EXPECT_EQ(survey.traveltimes[0].shotIndex, 42u);
    EXPECT_EQ(survey.traveltimes[0].shotX, -1.0);
    EXPECT_EQ(survey.traveltimes[0].shotElevation, 100.5);
    EXPECT_EQ(survey.traveltimes[0].times, (std::vector<double>{0.001, 0.004}));
}

TEST(GenericReader, AppendsToTheSurvey)
{
    TraveltimeSurvey survey{{{7, 8, 9.0, 10.0, {0.5}}}, {{}, {{0.0, 100.0}, {5.0, 100.0}}}, {}};
    Problem problem;
    EXPECT_EQ(readText(twoReceivers, survey, problem), "0");
    EXPECT_EQ(survey.spreads.size(), 2u);
    ASSERT_EQ(survey.traveltimes.size(), 2u);
    EXPECT_EQ(survey.traveltimes[0].spreadIndex, 7u);
    EXPECT_EQ(survey.traveltimes[1].spreadIndex, 1u);
}

TEST(GenericReader, ReceiversAreNotSortedOrMerged)
{
    EXPECT_EQ(receiversOf("5;100;0.004\n0;100;0.001\n5;100;0.004\n"),
              "5 100 0.004\n0 100 0.001\n5 100 0.004\n");
}

TEST(GenericReader, FirstLineIsAReceiverToo)
{
    EXPECT_EQ(receiversOf("-1;100;0\n0;100;0.001\n"), "-1 100 0\n0 100 0.001\n");
    expectRefused("-1;100\n0;100;0.001\n", subscript, 1, "2 fields, 3 expected");
}

TEST(GenericReader, EmptyLineAnywhereIsRefused)
{
    expectRefused("\n0;100;0.001\n", subscript, 1, "0 fields, 3 expected");
    expectRefused("0;100;0.001\n\n5;100;0.004\n", subscript, 2, "0 fields, 3 expected");
    expectRefused("0;100;0.001\n5;100;0.004\n\n", subscript, 3, "0 fields, 3 expected");
    expectRefused("0;100;0.001\n  ", subscript, 2, "0 fields, 3 expected");
}

TEST(GenericReader, FinalLineEndIsOptional)
{
    EXPECT_EQ(receiversOf("0;100;0.001\n5;100;0.004\n"), "0 100 0.001\n5 100 0.004\n");
    EXPECT_EQ(receiversOf("0;100;0.001\n5;100;0.004"), "0 100 0.001\n5 100 0.004\n");
}

TEST(GenericReader, EmptyFileIsAnEmptyShot)
{
    EXPECT_EQ(converted({""}), "otte\n1.0\n2\n1\n\n\n0;\n50;\n0\n0\n\n");
}

TEST(GenericReader, EveryLineEndGivesTheSameNumbers)
{
    for (const std::string end : {"\n", "\r\n", "\r\r\n"})
        EXPECT_EQ(receiversOf("0;100;0.001" + end + "5;100;0.004" + end),
                  "0 100 0.001\n5 100 0.004\n")
            << testing::PrintToString(end);
}

TEST(GenericReader, CarriageReturnStaysInTheLine)
{
    expectRefused("0;100;0.001\r\n\r\n", subscript, 2, "1 field, 3 expected");
    expectRefused("4;100\r\n", subscript, 1, "2 fields, 3 expected");
    expectRefused(";;\r\n", subscript, 1, "2 fields, 3 expected");
    EXPECT_EQ(receiversOf("4;100;\r\n"), "4 100 0\n");
    EXPECT_EQ(receiversOf("4;100;\r\r\n"), "4 100 0\n");
    EXPECT_EQ(receiversOf("0;100;0.001\r5;100;0.004\r"), "0 100 0.001\n");
}

TEST(GenericReader, NamesTheLineThatItRefuses)
{
    std::string text;
    for (int receiver = 0; receiver < 16; ++receiver)
        text += "0;100;0.001\n";
    expectRefused(text + "80;100\n", subscript, 17, "2 fields, 3 expected");
    expectRefused(text + ";\n80;100\n", position, 17, "nothing but delimiters");
}

TEST(GenericReader, MissingFileIsAnEmptyShot)
{
    const TemporaryFolder folder;
    TraveltimeSurvey survey{{}, {{}}, {}};
    EXPECT_EQ(readGenericTraveltimes(folder.path("missing.txt"), survey.traveltimes, survey.spreads,
                                     {-1.0, 100.0, ""}, 3),
              0);
    ASSERT_EQ(survey.spreads.size(), 2u);
    EXPECT_TRUE(survey.spreads[1].empty());
    ASSERT_EQ(survey.traveltimes.size(), 1u);
    EXPECT_EQ(survey.traveltimes[0].spreadIndex, 1u);
    EXPECT_EQ(survey.traveltimes[0].shotIndex, 3u);
    EXPECT_EQ(survey.traveltimes[0].shotX, -1.0);
    EXPECT_EQ(survey.traveltimes[0].shotElevation, 100.0);
    EXPECT_TRUE(survey.traveltimes[0].times.empty());
}

TEST(GenericReader, MissingFileIsTold)
{
    const TemporaryFolder folder;
    TraveltimeSurvey survey;
    SpreadIndex index;
    Problem problem;
    readGenericTraveltimes(folder.path("missing.txt"), survey.traveltimes, survey.spreads, {}, 0,
                           index, problem);
    EXPECT_EQ(problem.detail, "the file cannot be opened");
}

TEST(GenericReader, FileWithoutReceiversIsRemarked)
{
    TraveltimeSurvey survey;
    Problem problem;
    EXPECT_EQ(readText("", survey, problem), "0");
    EXPECT_EQ(problem.detail, "");
    EXPECT_EQ(problem.remark, "there are no receivers in this file");
}

TEST(GenericReader, FolderIsAnEmptyShot)
{
    const TemporaryFolder folder;
    TraveltimeSurvey survey;
    EXPECT_EQ(readGenericTraveltimes(folder.path(""), survey.traveltimes, survey.spreads, {}, 0),
              0);
    ASSERT_EQ(survey.spreads.size(), 1u);
    EXPECT_TRUE(survey.spreads[0].empty());
    ASSERT_EQ(survey.traveltimes.size(), 1u);
    EXPECT_TRUE(survey.traveltimes[0].times.empty());
}

TEST(GenericReader, FileThatCannotBeReadIsAnEmptyShot)
{
    // It opens, but its first byte cannot be read.
    TraveltimeSurvey survey;
    EXPECT_EQ(outcomeOf([&] {
                  return readGenericTraveltimes("/proc/self/mem", survey.traveltimes,
                                                survey.spreads, {}, 0);
              }),
              "0");
    ASSERT_EQ(survey.spreads.size(), 1u);
    EXPECT_TRUE(survey.spreads[0].empty());
    ASSERT_EQ(survey.traveltimes.size(), 1u);
    EXPECT_TRUE(survey.traveltimes[0].times.empty());
}

TEST(GenericReader, TellsThatAFileCannotBeRead)
{
    TraveltimeSurvey survey;
    SpreadIndex index;
    Problem problem{"/proc/self/mem"};
    EXPECT_EQ(readGenericTraveltimes("/proc/self/mem", survey.traveltimes, survey.spreads, {}, 0,
                                     index, problem),
              0);
    EXPECT_EQ(problem.detail, "the file cannot be read to its end");
}

TEST(GenericDriver, TwoReceiversAndTheirShot)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    EXPECT_EQ(convertGenericText({folder.write("shot.txt", twoReceivers)}, path, {-1.0}, {100.0}),
              0);
    EXPECT_EQ(readFile(path), "otte\n"
                              "1.0\n"
                              "2\n"
                              "1\n"
                              "0;5;\n"
                              "100;100;\n"
                              "-1;\n"
                              "100;\n"
                              "0\n"
                              "0\n"
                              "1;4;\n");
}

TEST(GenericDriver, FilesOnTheSameReceiversShareASpread)
{
    EXPECT_EQ(converted({"0;100;0.001\n5;100;0.004\n", "0;100;0.005\n5;100;0.002\n",
                         "0;100;0.003\n5.5;100;0.006\n"}),
              "otte\n"
              "1.0\n"
              "2\n"
              "2\n"
              "0;5;\n"
              "100;100;\n"
              "0;5.5;\n"
              "100;100;\n"
              "0;1;2;\n"
              "50;50;50;\n"
              "0\n"
              "0\n"
              "1;4;\n"
              "0\n"
              "1\n"
              "5;2;\n"
              "1\n"
              "2\n"
              "3;6;\n");
}

TEST(GenericDriver, EmptyShotsNeverShareASpread)
{
    EXPECT_EQ(converted({"", "0;100;0.001\n", ""}),
              "otte\n1.0\n2\n3\n\n\n0;\n100;\n\n\n0;1;2;\n50;50;50;\n"
              "0\n0\n\n"
              "1\n1\n1;\n"
              "2\n2\n\n");
}

TEST(GenericDriver, MissingFileConvertsAsAnEmptyShot)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    const std::vector<std::string> files = {
        folder.path("missing.txt"), folder.write("shot.txt", "0;100;0.001\n"), folder.path("")};
    EXPECT_EQ(convertGenericText(files, path, {1.0, 2.0, 3.0}, {50.0, 51.0, 52.0}), 0);
    EXPECT_EQ(readFile(path), "otte\n1.0\n2\n3\n\n\n0;\n100;\n\n\n1;2;3;\n50;51;52;\n"
                              "0\n0\n\n"
                              "1\n1\n1;\n"
                              "2\n2\n\n");
}

TEST(GenericDriver, FileThatCannotBeReadConvertsAndIsTold)
{
    const TemporaryFolder folder;
    const std::string good = folder.write("shot.txt", "0;100;0.001\n");
    const std::string mem = "/proc/self/mem";
    const std::string path = folder.path("line.otte");
    Problem problem;
    EXPECT_EQ(
        convertGenericText({good, mem, good}, path, {1.0, 2.0, 3.0}, {50.0, 51.0, 52.0}, problem),
        0);
    EXPECT_EQ(readFile(path), "otte\n1.0\n2\n2\n0;\n100;\n\n\n1;2;3;\n50;51;52;\n"
                              "0\n0\n1;\n"
                              "1\n1\n\n"
                              "0\n2\n1;\n");
    EXPECT_EQ(problem.file, mem);
    EXPECT_EQ(problem.line, 1u); // where it cannot be read on
    EXPECT_EQ(problem.detail, "the file cannot be read to its end");
}

TEST(GenericDriver, NoFilesMakeAnEmptyOutput)
{
    EXPECT_EQ(converted({}), "otte\n1.0\n2\n0\n\n\n");
}

TEST(GenericDriver, ShotPositionsBeyondTheFilesAreNotRead)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    EXPECT_EQ(convertGenericText({folder.write("shot.txt", "0;100;0.001\n")}, path, {1.0, 2.0, 3.0},
                                 {50.0, 51.0}),
              0);
    EXPECT_EQ(readFile(path), "otte\n1.0\n2\n1\n0;\n100;\n1;\n50;\n0\n0\n1;\n");
}

TEST(GenericDriver, MissingShotPositionFails)
{
    const TemporaryFolder folder;
    const std::vector<std::string> files = {folder.write("shot1.txt", twoReceivers),
                                            folder.write("shot2.txt", twoReceivers),
                                            folder.write("shot3.txt", twoReceivers)};
    const struct
    {
        std::vector<double> xs;
        std::vector<double> elevations;
        std::size_t file;
    } cases[] = {
        {{}, {}, 0},
        {{1.0, 2.0, 3.0}, {}, 0},
        {{}, {1.0, 2.0, 3.0}, 0},
        {{1.0}, {1.0, 2.0, 3.0}, 1},
        {{1.0, 2.0, 3.0}, {1.0, 2.0}, 2},
        {{1.0, 2.0}, {1.0, 2.0}, 2},
    };
    for (const auto &[xs, elevations, file] : cases) {
        SCOPED_TRACE(testing::PrintToString(xs) + testing::PrintToString(elevations));
        expectFailure(files, xs, elevations, subscript,
                      {files[file], 0, "no shot position is given for this file"});
    }
}

TEST(GenericDriver, MalformedFileLeavesTheOutputAlone)
{
    const TemporaryFolder folder;
    const std::string good = folder.write("good.txt", twoReceivers);
    const std::string twoFields = folder.write("two fields.txt", "0;100;0.001\n5;100\n");
    const std::string delimiters = folder.write("delimiters.txt", "0;100;0.001\n5;100;1\n;;\n");
    const std::vector<double> three(3, 0.0);
    expectFailure({twoFields, good, good}, three, three, subscript,
                  {twoFields, 2, "2 fields, 3 expected"});
    expectFailure({good, good, twoFields}, three, three, subscript,
                  {twoFields, 2, "2 fields, 3 expected"});
    expectFailure({good, delimiters, good}, three, three, position,
                  {delimiters, 3, "nothing but delimiters"});
}

TEST(GenericDriver, TheFirstFailureInFileOrderCounts)
{
    const TemporaryFolder folder;
    const std::string good = folder.write("good.txt", twoReceivers);
    const std::string bad = folder.write("bad.txt", ";\n");
    expectFailure({bad, good}, {0.0}, {0.0}, position, {bad, 1, "nothing but delimiters"});
    expectFailure({good, bad}, {0.0}, {0.0}, subscript,
                  {bad, 0, "no shot position is given for this file"});
}

TEST(GenericDriver, OutputInAMissingFolderIsOne)
{
    const TemporaryFolder folder;
    const std::string shot = folder.write("shot.txt", twoReceivers);
    const std::string path = folder.path("missing/line.otte");
    EXPECT_EQ(convertGenericText({shot}, path, {0.0}, {0.0}), 1);
    Problem problem;
    EXPECT_EQ(convertGenericText({shot}, path, {0.0}, {0.0}, problem), 1);
    EXPECT_EQ(problem.file, path);
    EXPECT_EQ(problem.line, 0u);
    EXPECT_EQ(problem.detail, std::generic_category().message(ENOENT));
}

TEST(GenericDriver, FullDiskIsZeroAndTold)
{
    const TemporaryFolder folder;
    const std::string shot = folder.write("shot.txt", twoReceivers);
    EXPECT_EQ(convertGenericText({shot}, "/dev/full", {0.0}, {0.0}), 0);
    Problem problem;
    EXPECT_EQ(convertGenericText({shot}, "/dev/full", {0.0}, {0.0}, problem), 0);
    EXPECT_EQ(problem.file, "/dev/full");
    EXPECT_EQ(problem.detail, std::generic_category().message(ENOSPC));
}

TEST(GenericDriver, SuccessTellsNothing)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    Problem problem;
    EXPECT_EQ(convertGenericText({folder.write("shot.txt", "0;100;0.001\n")}, path, {1.0}, {50.0},
                                 problem),
              0);
    EXPECT_EQ(problem.detail, "");
    EXPECT_EQ(readFile(path), "otte\n1.0\n2\n1\n0;\n100;\n1;\n50;\n0\n0\n1;\n");
}

TEST(GenericDriver, FileNamesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("Ausgabe é 測線.otte");
    EXPECT_EQ(convertGenericText({folder.write("Schuß 1 Übung.txt", "0;100;0.001\n")}, path, {1.0},
                                 {50.0}),
              0);
    EXPECT_EQ(readFile(path), "otte\n1.0\n2\n1\n0;\n100;\n1;\n50;\n0\n0\n1;\n");
}

TEST(GenericDriver, ShotPositionsArePrintedInSixDigits)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    const std::string shot = folder.write("shot.txt", "999999.5;0.00001;1e3\n");
    EXPECT_EQ(convertGenericText({shot, shot}, path, {1234567.0, -0.0}, {0.0001, 100000.0}), 0);
    EXPECT_EQ(readFile(path), "otte\n1.0\n2\n1\n1e+06;\n1e-05;\n1.23457e+06;-0;\n0.0001;100000;\n"
                              "0\n0\n1e+06;\n0\n1\n1e+06;\n");
}

TEST(GenericDriver, WritesNoMessage)
{
    const TemporaryFolder folder;
    CapturedStreams streams;
    outcomeOf([&] {
        return convertGenericText({folder.path("missing.txt"), folder.write("bad.txt", "1\n")},
                                  folder.path("line.otte"), {0.0, 1.0}, {0.0, 1.0});
    });
    streams.finish();
    EXPECT_EQ(streams.output, "");
    EXPECT_EQ(streams.error, "");
}
