// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/fields.h"

#include "tests/support/reading.h"

#include <gtest/gtest.h>

namespace {

Report reportAtLine17()
{
    Report report;
    report.place = {"shot3.txt", 17};
    return report;
}

/// What a field is read as, and the remarks on it.
struct Field
{
    const char *text;
    double value;
    Texts remarks;
};

/// Expects that `read` gives the value of each field, with the remarks.
template <typename Read, std::size_t count>
void expectReadAs(const Field (&fields)[count], Read read)
{
    for (const Field &field : fields) {
        SCOPED_TRACE(testing::PrintToString(field.text));
        Report report = reportAtLine17();
        EXPECT_PRED2(same, static_cast<double>(read(field.text, report)), field.value);
        EXPECT_EQ(remarksOf(report), field.remarks);
        EXPECT_EQ(failureOf(report), "");
        for (const Remark &remark : report.remarks)
            EXPECT_EQ(remark.place.file, "shot3.txt");
    }
}

/// The remarks on a line that is split into `expected`.
Texts remarksOnSplitting(const std::string &line, const std::string &delimiters,
                         const Texts &expected)
{
    Texts fields{"left from the line before"};
    Report report = reportAtLine17();
    splitNumbers(line, fields, delimiters, report);
    EXPECT_EQ(fields, expected) << line;
    EXPECT_EQ(failureOf(report), "");
    return remarksOf(report);
}

/// A function that gives lines in turn and counts them from 18 on.
auto linesInTurn(const Texts &lines, Report &report)
{
    return [&lines, &report, next = std::size_t(0)](std::string &line) mutable {
        line.clear();
        if (next == lines.size())
            return false;
        ++report.place.line;
        line = lines[next++];
        return true;
    };
}

} // namespace

TEST(SplitLine, SplitsAsTokenizeDoes)
{
    Texts fields{"left from the line before"};
    Report report = reportAtLine17();
    splitLine(";3;101", fields, ";", report);
    EXPECT_EQ(fields, (Texts{"3;101", "3", "101"}));
    splitLine("", fields, ";", report);
    EXPECT_EQ(fields, Texts{});
    EXPECT_EQ(report.place, (Place{"shot3.txt", 17}));
    EXPECT_EQ(failureOf(report), "");
    EXPECT_EQ(remarksOf(report), Texts{});
}

TEST(SplitLine, TellsOfALineOfDelimitersAlone)
{
    for (const auto split : {splitLine, splitNumbers}) {
        Texts fields;
        Report report = reportAtLine17();
        EXPECT_EQ(outcomeOf([&] { split(";;", fields, ";", report); }), invalidPosition);
        EXPECT_EQ(report.failure, (Failure{{"shot3.txt", 17}, "nothing but delimiters"}));
        EXPECT_EQ(remarksOf(report), Texts{});
    }
}

TEST(SplitNumbers, ALineThatBeginsWithADelimiterIsARemark)
{
    const char three[] = "shifted line, 17: the line begins with a delimiter: its first field, "
                         "\"3\", is read twice, so that all others shift";
    EXPECT_EQ(remarksOnSplitting(";3;101;0.02", ";", {"3", "3", "101", "0.02"}), Texts{three});
    EXPECT_EQ(remarksOnSplitting(";;3", ";", {"3", "3"}), Texts{three});
    EXPECT_EQ(remarksOnSplitting("  3 20", " ", {"3", "3", "20"}), Texts{three});
    EXPECT_EQ(remarksOnSplitting(";3 m;101", ";", {"3 m", "3 m", "101"}),
              Texts{"shifted line, 17: the line begins with a delimiter: its first field, \"3 m\", "
                    "is read twice, so that all others shift"});
}

TEST(SplitNumbers, OtherLinesAreSplitAsEver)
{
    EXPECT_EQ(remarksOnSplitting("3;101;0.02;", ";", {"3", "101", "0.02"}), Texts{});
    EXPECT_EQ(remarksOnSplitting("3 101", ";", {"3 101"}), Texts{});
    EXPECT_EQ(remarksOnSplitting("\t;3", ";", {"\t", "3"}), Texts{});
    EXPECT_EQ(remarksOnSplitting("", ";", {}), Texts{});
}

TEST(SplitNumbers, TheFieldInFrontKeepsTheNumberThatIsReadOfIt)
{
    // Blanks end a field, but a tab and the blanks after it come before the number.
    Texts fields;
    Report report = reportAtLine17();
    splitNumbers(" \t 5 6", fields, " ", report);
    EXPECT_EQ(fields, (Texts{"\t 5", "\t", "5", "6"}));
    EXPECT_EQ(readNumber(fields[0], report), 5.0);
    EXPECT_EQ(report.remarks.size(), 1U);
    splitNumbers(" \t ", fields, " ", report);
    EXPECT_EQ(fields, (Texts{"\t ", "\t"}));
}

TEST(RequireFields, PassesWhenThereAreEnough)
{
    Report report = reportAtLine17();
    requireFields({"1", "2", "3"}, 3, report);
    requireFields({"1", "2", "3", "4"}, 3, report);
    requireFields({}, 0, report);
    EXPECT_EQ(failureOf(report), "");
}

TEST(RequireFields, TellsHowManyAreMissing)
{
    const struct
    {
        Texts fields;
        std::size_t expected;
        std::string text;
    } cases[] = {
        {{"1", "2"}, 3, "2 fields, 3 expected"},
        {{"1"}, 2, "1 field, 2 expected"},
        {{}, 3, "0 fields, 3 expected"},
    };
    for (const auto &entry : cases) {
        Report report = reportAtLine17();
        EXPECT_EQ(outcomeOf([&] { requireFields(entry.fields, entry.expected, report); }),
                  invalidSubscript);
        EXPECT_EQ(report.failure, (Failure{{"shot3.txt", 17}, entry.text}));
    }
}

TEST(Fields, TheFirstFailureIsTheOneTold)
{
    Texts fields;
    Report report = reportAtLine17();
    fail(report, {"", 0}, "number of shots \"many\"");
    EXPECT_THROW(splitLine(" ", fields, " ", report), std::out_of_range);
    EXPECT_THROW(requireFields({}, 2, report), std::out_of_range);
    EXPECT_EQ(failureOf(report), "number of shots \"many\"");
}

TEST(ReadNumber, RemarksOnWhatIsNotWhollyANumber)
{
    for (const NumberText &number : numberTexts) {
        Report report = reportAtLine17();
        EXPECT_PRED2(same, readNumber(number.text, report), number.value) << number.text;
        EXPECT_EQ(remarksOf(report), *number.remark == '\0'
                                         ? Texts{}
                                         : Texts{std::string("not a number, 17: ") + number.remark})
            << number.text;
    }
    const Field fields[] = {
        {"0x10", 16, {"not a number, 17: \"0x10\" is read as 16: it is no plain number"}},
        {"-inf",
         -std::numeric_limits<double>::infinity(),
         {"not a number, 17: \"-inf\" is read as -inf: it is no plain number"}},
        {"", 0, {"not a number, 17: \"\" is read as 0: it is no plain number"}},
        {" \r", 0, {"not a number, 17: \"\" is read as 0: it is no plain number"}},
        {"1 000", 1, {"not a number, 17: \"1 000\" is read as 1: it is no plain number"}},
        {" 12 m\r", 12, {"not a number, 17: \"12 m\" is read as 12: it is no plain number"}},
        {"5,", 5, {"not a number, 17: \"5,\" is read as 5: it is no plain number"}},
        {"5,x", 5, {"not a number, 17: \"5,x\" is read as 5: it is no plain number"}},
        {",5", 0, {"not a number, 17: \",5\" is read as 0: write a decimal point, no comma"}},
        {"1.234,5",
         1.234,
         {"not a number, 17: \"1.234,5\" is read as 1.234: write a decimal point, no comma"}},
        {"+-1", 0, {"not a number, 17: \"+-1\" is read as 0: it is no plain number"}},
        {"+", 0, {"not a number, 17: \"+\" is read as 0: it is no plain number"}},
        {"++1", 0, {"not a number, 17: \"++1\" is read as 0: it is no plain number"}},
        {"1e-400", 0, {"not a number, 17: \"1e-400\" is read as 0: it is no plain number"}},
        // White space around a number is none of it.
        {" 12", 12, {}},
        {"12\r", 12, {}},
        {"\t\v\f 12.5 \r\n", 12.5, {}},
        {"+.5", 0.5, {}},
        {"-0", 0, {}},
    };
    expectReadAs(fields, readNumber);
}

TEST(ReadNumber, QuotesTheStartOfALongField)
{
    Report report = reportAtLine17();
    EXPECT_EQ(readNumber(std::string(1000000, 'x'), report), 0.0);
    EXPECT_EQ(remarksOf(report), Texts{"not a number, 17: \"" + std::string(60, 'x')
                                       + "...\" is read as 0: it is no plain number"});
}

TEST(ReadInteger, RemarksOnWhatIsNotWhollyAnInteger)
{
    const Field fields[] = {
        {"24", 24, {}},
        {"24\r", 24, {}},
        {" 7", 7, {}},
        {"+5", 5, {}},
        {"010", 10, {}},
        {"-3", -3, {}},
        {"2.0", 2, {}},
        {"2147483647", 2147483647, {}},
        {"2.9", 2, {"not a number, 17: \"2.9\" is read as 2: write a whole number in digits"}},
        {"1e5", 1, {"not a number, 17: \"1e5\" is read as 1: write a whole number in digits"}},
        {".5", 0, {"not a number, 17: \".5\" is read as 0: write a whole number in digits"}},
        {"1,5", 1, {"not a number, 17: \"1,5\" is read as 1: write a decimal point, no comma"}},
        {"0x10", 0, {"not a number, 17: \"0x10\" is read as 0: it is no plain number"}},
        {"inf", 0, {"not a number, 17: \"inf\" is read as 0: it is no plain number"}},
        {"nan", 0, {"not a number, 17: \"nan\" is read as 0: it is no plain number"}},
        {"12abc", 12, {"not a number, 17: \"12abc\" is read as 12: it is no plain number"}},
        {"abc", 0, {"not a number, 17: \"abc\" is read as 0: it is no plain number"}},
        // 32 bits are kept.
        {"2147483648",
         -2147483648.0,
         {"not a number, 17: \"2147483648\" is read as -2147483648: it is out of range"}},
        {"4294967298", 2, {"not a number, 17: \"4294967298\" is read as 2: it is out of range"}},
        {"-4294967295", 1, {"not a number, 17: \"-4294967295\" is read as 1: it is out of range"}},
        {"99999999999999999999",
         -1,
         {"not a number, 17: \"99999999999999999999\" is read as -1: it is out of range"}},
    };
    expectReadAs(fields, readInteger);
}

TEST(ReadPosition, RemarksOnWhatSixDigitsDoNotHoldToACentimetre)
{
    const Field fields[] = {
        {"9999.996", 9999.996, {}}, // four digits before the point leave two after it
        {"-2.123456", -2.123456, {}},
        {"12345.6", 12345.6, {}},
        {"500000", 500000, {}},
        {"10000.005", 10000.005, {}},
        {"10000.006",
         10000.006,
         {"rounded position, 17: a position of 10000.006 m becomes 10000 m, as the output has six "
          "digits"}},
        {"12345.67",
         12345.67,
         {"rounded position, 17: a position of 12345.67 m becomes 12345.7 m, as the output has six "
          "digits"}},
        {"-12345.67",
         -12345.67,
         {"rounded position, 17: a position of -12345.67 m becomes -12345.7 m, as the output has "
          "six digits"}},
        {"1234567",
         1234567,
         {"rounded position, 17: a position of 1234567 m becomes 1.23457e+06 m, as the output has "
          "six digits"}},
        {"12345.67 m",
         12345.67,
         {"not a number, 17: \"12345.67 m\" is read as 12345.67: it is no plain number",
          "rounded position, 17: a position of 12345.67 m becomes 12345.7 m, as the output has six "
          "digits"}},
        {"inf",
         std::numeric_limits<double>::infinity(),
         {"not a number, 17: \"inf\" is read as inf: it is no plain number"}},
    };
    expectReadAs(fields, readPosition);
}

TEST(ReadPosition, TheWorstIsNamed)
{
    Report report = reportAtLine17();
    readPosition("34567.81", report); // 34567.8: a centimetre
    ++report.place.line;
    readPosition("23456.74", report); // 23456.7: four centimetres
    ++report.place.line;
    readPosition("12345.67", report); // 12345.7: three centimetres
    EXPECT_EQ(remarksOf(report),
              Texts{"rounded position, 18: a position of 23456.74 m becomes 23456.7 m, as the "
                    "output has six digits"});
    EXPECT_EQ((report.remarkCounts[{"shot3.txt", RemarkKind::roundedPosition}]), 3U);
}

TEST(RemarkOnPosition, NamesTheTraceOfAPositionThatIsInNoLine)
{
    Report report;
    report.place = {"line.su", 0};
    remarkOnPosition(12345.6, report, 1);
    EXPECT_EQ(remarksOf(report), Texts{});
    remarkOnPosition(12345.67, report, 2);
    EXPECT_EQ(remarksOf(report),
              Texts{"rounded position, trace 2: a position of 12345.67 m becomes 12345.7 m, as the "
                    "output has six digits"});
    remarkOnPosition(12345.64, report);
    EXPECT_EQ(
        remarksOf(report),
        Texts{"rounded position, a position of 12345.64 m becomes 12345.6 m, as the output has "
              "six digits"});
}

TEST(ReadTime, IsInSeconds)
{
    Report report = reportAtLine17();
    EXPECT_EQ(readTime("0.0125", 1.0, report), 0.0125);
    EXPECT_EQ(readTime("12.5", 1000.0, report), 0.0125);
    EXPECT_EQ(readTime("0", 1000.0, report), 0.0);
    EXPECT_EQ(readTime("-0", 1000.0, report), 0.0);
    EXPECT_EQ(remarksOf(report), Texts{});
}

TEST(ReadTime, RemarksOnATimeBelowZero)
{
    const char text[] = "negative time, 17: a time of -1 ms goes into the output like any other, "
                        "also where it means \"not picked\"";
    Report report = reportAtLine17();
    EXPECT_EQ(readTime("-1", 1000.0, report), -0.001);
    EXPECT_EQ(remarksOf(report), Texts{text});
    Report inSeconds = reportAtLine17();
    EXPECT_EQ(readTime("-0.001", 1.0, inSeconds), -0.001);
    EXPECT_EQ(remarksOf(inSeconds), Texts{text});
}

TEST(ReadTime, RemarksOnWhatSixDigitsDoNotHoldToAMicrosecond)
{
    const Field fields[] = {
        {"999.9996", 0.9999996, {}}, // three digits before the point leave three after it
        {"12.3456789", 12.3456789 / 1000.0, {}},
        {"1234.57", 1.23457, {}},
        {"1000.0005", 1.0000005, {}},
        {"1000.0006",
         1.0000006,
         {"rounded time, 17: a time of 1000.0006 ms becomes 1000 ms, as the output has six "
          "digits"}},
        {"1234.5678",
         1.2345678,
         {"rounded time, 17: a time of 1234.5678 ms becomes 1234.57 ms, as the output has six "
          "digits"}},
        {"1234567",
         1234.567,
         {"rounded time, 17: a time of 1234567 ms becomes 1.23457e+06 ms, as the output has six "
          "digits"}},
    };
    expectReadAs(fields, [](const std::string &field, Report &report) {
        return readTime(field, 1000.0, report);
    });
}

TEST(ReadTime, TheWorstIsNamed)
{
    Report report = reportAtLine17();
    for (const char *time : {"1.234563", "2.345674", "3.456781"}) { // off by 3, 4 and 1 us
        readTime(time, 1.0, report);
        ++report.place.line;
    }
    EXPECT_EQ(remarksOf(report), Texts{"rounded time, 18: a time of 2345.674 ms becomes 2345.67 "
                                       "ms, as the output has six digits"});
}

TEST(RemarkUnlessWhole, ComparesWithTheValueThatIsUsed)
{
    Report report = reportAtLine17();
    remarkUnlessWhole(" 2 ", 2.0, report);
    EXPECT_EQ(remarksOf(report), Texts{});
    remarkUnlessWhole("2.9", 2.0, report);
    remarkUnlessWhole("-1", 4294967295.0, report);
    EXPECT_EQ(remarksOf(report),
              (Texts{"not a number, 17: \"2.9\" is read as 2: write a whole number in digits",
                     "not a number, 17: \"-1\" is read as 4294967295: it is out of range"}));
}

TEST(Rest, CountsTheLinesThatHoldMore)
{
    Report report = reportAtLine17();
    const Texts lines = {"0 0", "", " 0\r", "5 20", "0.0", "-20 24 0"};
    const Rest rest = readRest(linesInTurn(lines, report), "0. \t\r", report);
    EXPECT_EQ(rest.lineCount, 2U);
    EXPECT_EQ(rest.firstLine, "5 20");
    EXPECT_EQ(rest.first, (Place{"shot3.txt", 21}));

    remarkOnRest(rest, false, report);
    EXPECT_EQ(remarksOf(report), Texts{"not read, 21: 2 lines after the last shot: not read"});
    remarkOnRest(rest, true, report);
    EXPECT_EQ(remarksOf(report).back(),
              "not read, 21: another survey begins here: only the first is read");
}

TEST(Rest, OfLinesWithoutMeaningIsNoRemark)
{
    for (const Texts &lines : {Texts{}, Texts{"0 0", " 0", " 0 0"}}) {
        Report report = reportAtLine17();
        const Rest rest = readRest(linesInTurn(lines, report), "0. \t\r", report);
        EXPECT_EQ(rest.lineCount, 0U);
        remarkOnRest(rest, false, report);
        remarkOnRest(rest, true, report);
        EXPECT_EQ(remarksOf(report), Texts{});
    }
}

TEST(Quotable, IsWithoutWhiteSpaceAroundIt)
{
    EXPECT_EQ(quotable(" \t24\r\n"), "24");
    EXPECT_EQ(quotable("2 4"), "2 4");
    EXPECT_EQ(quotable(" \r"), "");
    EXPECT_EQ(quotable(""), "");
}

TEST(Quotable, EndsAfterSixtyCharacters)
{
    EXPECT_EQ(quotable(' ' + std::string(60, '7')), std::string(60, '7'));
    EXPECT_EQ(quotable(std::string(61, '7')), std::string(60, '7') + "...");
}
