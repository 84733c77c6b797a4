// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/generic_reading.h"
#include "tests/support/special_numbers.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {


/// "x elevation time" of each receiver of a file of this text, a line each.
std::string receiversOf(const std::string &text)
{
    const Reading reading = readText(text);
    const TraveltimeSurvey &survey = reading.survey;
    if (reading.outcome != "0" || reading.report.failure || survey.spreads.size() != 1
        || survey.traveltimes.size() != 1
        || survey.spreads[0].size() != survey.traveltimes[0].times.size())
        return "not one shot: " + reading.outcome;
    std::ostringstream lines;
    for (std::size_t i = 0; i < survey.spreads[0].size(); ++i)
        lines << survey.spreads[0][i].x << ' ' << survey.spreads[0][i].elevation << ' '
              << survey.traveltimes[0].times[i] << '\n';
    return lines.str();
}

/// The remarks on a file that both forms read without a failure.
Texts remarksOn(const std::string &text)
{
    const Reading reading = readText(text);
    EXPECT_EQ(reading.outcome, "0") << text;
    EXPECT_EQ(failureOf(reading.report), "") << text;
    return remarksOf(reading.report);
}

/// Expects that a file of this text is refused in this way and leaves the survey alone.
void expectRefused(const std::string &text, const std::string &outcome, const std::string &failure)
{
    SCOPED_TRACE(testing::PrintToString(text));
    const TraveltimeSurvey before{{{7, 8, 9.0, 10.0, {0.5}}}, {{{1.0, 2.0}}}, {}};
    const Reading reading = readText(text, before);
    EXPECT_EQ(reading.outcome, outcome);
    EXPECT_EQ(failureOf(reading.report), failure);
    EXPECT_TRUE(sameSurvey(reading.survey, before));
}

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
    expectRefused("4;100\n", invalidSubscript, "1: 2 fields, 3 expected: invalid vector subscript");
}

TEST(GenericLine, EmptyLineIsRefused)
{
    expectRefused("\n", invalidSubscript, "1: 0 fields, 3 expected: invalid vector subscript");
}

TEST(GenericLine, LineOfSpacesIsRefused)
{
    expectRefused("   \n", invalidSubscript, "1: 0 fields, 3 expected: invalid vector subscript");
}

TEST(GenericLine, LineOfSemicolonsIsRefused)
{
    expectRefused(";;\n", invalidPosition, "1: nothing but delimiters: invalid string position");
    expectRefused(";\n", invalidPosition, "1: nothing but delimiters: invalid string position");
    expectRefused("  ;;\n", invalidPosition, "1: nothing but delimiters: invalid string position");
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
        // A leading 1 keeps the first number from losing its leading spaces.
        const Reading reading = readText("1;1;1\n" + text + ';' + text + ';' + text);
        EXPECT_EQ(reading.outcome, "0") << text;
        const TraveltimeSurvey &survey = reading.survey;
        ASSERT_EQ(survey.spreads.at(0).size(), 2u) << text;
        EXPECT_EQ(survey.spreads[0][1].x, value) << text;
        EXPECT_EQ(survey.spreads[0][1].elevation, value) << text;
        EXPECT_EQ(survey.traveltimes.at(0).times.at(1), value) << text;
    }
}

TEST(GenericReader, TwoReceiversAndTheirShot)
{
    const Reading reading = readText(fileOf(genericLines), {}, {-1.0, 100.5, "elsewhere"}, 42);
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "");
    const TraveltimeSurvey &survey = reading.survey;
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
    const TraveltimeSurvey before{
        {{7, 8, 9.0, 10.0, {0.5}}}, {{}, {{0.0, 100.0}, {5.0, 100.0}}}, {}};
    const Reading reading = readText(fileOf(genericLines), before);
    EXPECT_EQ(reading.outcome, "0");
    const TraveltimeSurvey &survey = reading.survey;
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
    expectRefused("-1;100\n0;100;0.001\n", invalidSubscript,
                  "1: 2 fields, 3 expected: invalid vector subscript");
}

TEST(GenericReader, EmptyLineAnywhereIsRefused)
{
    expectRefused("\n0;100;0.001\n", invalidSubscript,
                  "1: 0 fields, 3 expected: invalid vector subscript");
    expectRefused("0;100;0.001\n\n5;100;0.004\n", invalidSubscript,
                  "2: 0 fields, 3 expected: invalid vector subscript");
    expectRefused("0;100;0.001\n5;100;0.004\n\n", invalidSubscript,
                  "3: 0 fields, 3 expected: invalid vector subscript");
    expectRefused("0;100;0.001\n  ", invalidSubscript,
                  "2: 0 fields, 3 expected: invalid vector subscript");
}

TEST(GenericReader, FinalLineEndIsOptional)
{
    EXPECT_EQ(receiversOf("0;100;0.001\n5;100;0.004\n"), "0 100 0.001\n5 100 0.004\n");
    EXPECT_EQ(receiversOf("0;100;0.001\n5;100;0.004"), "0 100 0.001\n5 100 0.004\n");
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
    expectRefused("0;100;0.001\r\n\r\n", invalidSubscript,
                  "2: 1 field, 3 expected: invalid vector subscript");
    expectRefused("4;100\r\n", invalidSubscript,
                  "1: 2 fields, 3 expected: invalid vector subscript");
    expectRefused(";;\r\n", invalidSubscript, "1: 2 fields, 3 expected: invalid vector subscript");
    EXPECT_EQ(receiversOf("4;100;\r\n"), "4 100 0\n");
    EXPECT_EQ(receiversOf("4;100;\r\r\n"), "4 100 0\n");
    EXPECT_EQ(receiversOf("0;100;0.001\r5;100;0.004\r"), "0 100 0.001\n");
}

TEST(GenericReader, NamesTheLineThatItRefuses)
{
    std::string text;
    for (int receiver = 0; receiver < 16; ++receiver)
        text += "0;100;0.001\n";
    expectRefused(text + "80;100\n", invalidSubscript,
                  "17: 2 fields, 3 expected: invalid vector subscript");
    expectRefused(text + ";\n80;100\n", invalidPosition,
                  "17: nothing but delimiters: invalid string position");
}

TEST(GenericReader, MissingFileIsAnEmptyShot)
{
    const TemporaryFolder folder;
    const Reading reading =
        readPath(folder.path("missing.txt"), {{}, {{}}, {}}, {-1.0, 100.0, ""}, 3);
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "the file cannot be opened");
    EXPECT_EQ(remarksOf(reading.report), Texts{});
    const TraveltimeSurvey &survey = reading.survey;
    ASSERT_EQ(survey.spreads.size(), 2u);
    EXPECT_TRUE(survey.spreads[1].empty());
    ASSERT_EQ(survey.traveltimes.size(), 1u);
    EXPECT_EQ(survey.traveltimes[0].spreadIndex, 1u);
    EXPECT_EQ(survey.traveltimes[0].shotIndex, 3u);
    EXPECT_EQ(survey.traveltimes[0].shotX, -1.0);
    EXPECT_EQ(survey.traveltimes[0].shotElevation, 100.0);
    EXPECT_TRUE(survey.traveltimes[0].times.empty());
}

TEST(GenericReader, EmptyFileIsTold)
{
    const Reading reading = readText("");
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "the file is empty");
    EXPECT_EQ(remarksOf(reading.report), Texts{});
}

TEST(GenericReader, FolderIsAnEmptyShot)
{
    const TemporaryFolder folder;
    const Reading reading = readPath(folder.path(""));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "the file cannot be opened");
    const TraveltimeSurvey &survey = reading.survey;
    ASSERT_EQ(survey.spreads.size(), 1u);
    EXPECT_TRUE(survey.spreads[0].empty());
    ASSERT_EQ(survey.traveltimes.size(), 1u);
    EXPECT_TRUE(survey.traveltimes[0].times.empty());
}

TEST(GenericReader, FileThatCannotBeReadIsAnEmptyShot)
{
    // It opens, but its first byte cannot be read.
    const Reading reading = readPath("/proc/self/mem");
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "the file cannot be read to its end");
    EXPECT_EQ(remarksOf(reading.report), Texts{});
    const TraveltimeSurvey &survey = reading.survey;
    ASSERT_EQ(survey.spreads.size(), 1u);
    EXPECT_TRUE(survey.spreads[0].empty());
    ASSERT_EQ(survey.traveltimes.size(), 1u);
    EXPECT_TRUE(survey.traveltimes[0].times.empty());
}

TEST(GenericRemarks, NoneOnAFileWithoutAFault)
{
    EXPECT_EQ(remarksOn(fileOf(genericLines)), Texts{});
    EXPECT_EQ(remarksOn("  3;101.5;0.0123;extra\r\n-3.;+1e2;.5;;\r\n"), Texts{});
    EXPECT_EQ(remarksOn("1; 2 ;\t3 \n1;;2;3"), Texts{});
}

TEST(GenericRemarks, FieldsThatAreNotWhollyNumbers)
{
    for (const NumberText &number : numberTexts) {
        const Texts remarks = *number.remark == '\0'
                                  ? Texts{}
                                  : Texts{std::string("not a number, 2: ") + number.remark};
        const std::string text = number.text;
        EXPECT_EQ(remarksOn("1;1;1\n" + text + ";100;0.001\n"), remarks);
        EXPECT_EQ(remarksOn("1;1;1\n0;" + text + ";0.001\n"), remarks);
        if (text[0] != '-') {
            EXPECT_EQ(remarksOn("1;1;1\n0;100;" + text + "\n"), remarks);
        }
    }
    EXPECT_EQ(remarksOn("x;elevation;time\n0;100;0.001 s\r\n0 ; 0x10 ; \n"),
              (Texts{"not a number, 1: \"x\" is read as 0: it is no plain number",
                     "not a number, 1: \"elevation\" is read as 0: it is no plain number",
                     "not a number, 1: \"time\" is read as 0: it is no plain number",
                     "not a number, 2: \"0.001 s\" is read as 0.001: it is no plain number",
                     "not a number, 3: \"0x10\" is read as 16: it is no plain number",
                     "not a number, 3: \"\" is read as 0: it is no plain number"}));
}

TEST(GenericRemarks, ALineThatBeginsWithASemicolon)
{
    const std::string remark = "the line begins with a delimiter: its first field, \"3\", is read "
                               "twice, so that all others shift";
    EXPECT_EQ(remarksOn("0;100;0.001\n;3;101;0.02\n"), Texts{"shifted line, 2: " + remark});
    EXPECT_EQ(remarksOn("  ;3;101;0.02\n"), Texts{"shifted line, 1: " + remark});
}

TEST(GenericRemarks, TimesBelowZero)
{
    EXPECT_EQ(
        remarksOn("0;100;0.001\n5;100;-1\n"),
        Texts{"negative time, 2: a time of -1000 ms goes into the output like any other, also "
              "where it means \"not picked\""});
}

TEST(GenericRemarks, TheWorstThatSixDigitsDoNotHold)
{
    EXPECT_EQ(remarksOn("12345.67;100;2.3456784\n0;12345.64;0.001\n0;100;2.3456774\n"),
              (Texts{"rounded position, 2: a position of 12345.64 m becomes 12345.6 m, as the "
                     "output has six digits",
                     "rounded time, 3: a time of 2345.6774 ms becomes 2345.68 ms, as the output "
                     "has six digits"}));
}

TEST(GenericRemarks, TenOfAKindAndACount)
{
    std::string text;
    for (int i = 0; i < 25; ++i)
        text += "x;100;0.001\n";
    const Reading reading = readText(text);
    EXPECT_EQ(reading.report.remarks.size(), 10U);
    EXPECT_EQ(remarksOf(reading.report).back(),
              "not a number, 10: \"x\" is read as 0: it is no plain number");
    ASSERT_EQ(reading.report.remarkCounts.size(), 1U);
    EXPECT_EQ(reading.report.remarkCounts.begin()->second, 25U);
}
