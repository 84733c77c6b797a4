// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/text_input.h"

#include "tests/support/field_picks.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace std::string_literals;

/// The lines of a file, those with content alone unless `all`, each with its number.
Remarks linesIn(const std::string &bytes, bool all = false)
{
    const TemporaryFolder folder;
    TextInput input;
    Report report;
    Remarks lines;
    if (!loadInput(folder.write("line", bytes), input, report))
        return {told(report.failure->place, report.failure->text)};
    while (all ? nextLine(input, report) : nextContent(input, report))
        lines.push_back(told(report.place, std::string(input.line)));
    return lines;
}

/// What reading fields as numbers gives: the numbers and what is told, line by line.
struct Numbers
{
    std::vector<double> values = {};
    std::string failure = {};
    Remarks remarks = {};

    bool operator==(const Numbers &) const = default;
};

/// Reads a number from every line.
Numbers numbersIn(const std::string &bytes, int power = 0)
{
    const TemporaryFolder folder;
    TextInput input;
    PickReading reading;
    Report report;
    std::vector<double> values;
    bool isGood = loadInput(folder.write("line", bytes), input, report);
    while (isGood && nextLine(input, report))
        isGood = readNumber(input.line, "the x", values.emplace_back(), input, report, power);
    if (isGood)
        endNumbers(input, report);
    addReport(reading, report);
    return {values, reading.failure, reading.remarks};
}

} // namespace

TEST(TextInput, LinesEndInLineFeedsCarriageReturnsOrBoth)
{
    const Remarks lines = {"1: a", "2: b", "3: ", "4: c"};
    for (const char *bytes : {"a\nb\n\nc\n", "a\nb\n\nc", "a\r\nb\r\n\r\nc\r\n", "a\rb\r\rc\r",
                              "a\rb\r\rc", "a\r\nb\n\r\nc\r", "a\nb\r\rc\n"})
        EXPECT_EQ(linesIn(bytes, true), lines) << bytes;
    EXPECT_EQ(linesIn("\n", true), Remarks{"1: "});
}

TEST(TextInput, BlanksAroundALineAreLeftOut)
{
    EXPECT_EQ(linesIn(" \ta b\t \n\t\n"), Remarks{"1: a b"});
}

TEST(TextInput, EmptyLinesAndCommentsAreNoContent)
{
    EXPECT_EQ(linesIn("# first\n\na\n  \t# second\n \n#\nb # third\n"),
              (Remarks{"3: a", "7: b # third"}));
}

TEST(TextInput, Utf8MarksAreLeftOut)
{
    EXPECT_EQ(linesIn("\xEF\xBB\xBF"
                      "a\nb"),
              (Remarks{"1: a", "2: b"}));
    EXPECT_EQ(linesIn("\xEF\xBB\xBF"), Remarks{});
}

TEST(TextInput, Utf16IsKnownByItsMark)
{
    // "aü€😀" and a second line.
    EXPECT_EQ(linesIn("\xFF\xFE"
                      "a\0\xFC\0\xAC\x20\x3D\xD8\x00\xDE\n\0b\0"s),
              (Remarks{"1: a\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80", "2: b"}));
    EXPECT_EQ(linesIn("\xFE\xFF\0a\0\xFC\x20\xAC\xD8\x3D\xDE\x00\0\r\0\n\0b"s),
              (Remarks{"1: a\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80", "2: b"}));
}

TEST(TextInput, WhatIsNoCharacterInUtf16IsReplaced)
{
    const std::string replaced = "\xEF\xBF\xBD";
    EXPECT_EQ(decodeText("\xFF\xFE\x3D\xD8"
                         "a\0"s),
              replaced + "a");
    EXPECT_EQ(decodeText("\xFF\xFE\x00\xDE"
                         "a\0"s),
              replaced + "a");
    EXPECT_EQ(decodeText("\xFF\xFE\x3D\xD8"s), replaced);
    EXPECT_EQ(decodeText("\xFF\xFE"
                         "a\0b"s),
              "a" + replaced);
}

TEST(TextInput, OtherBytesStayAsTheyAre)
{
    EXPECT_EQ(decodeText("\xE4\xFF\xFE"), "\xE4\xFF\xFE");
}

TEST(TextInput, AFileThatIsNoTextIsRefused)
{
    EXPECT_EQ(linesIn("a\nb\0c\n"s),
              Remarks{"2: this is no text: it has a byte of 0 (UTF-16 needs a byte order mark)"});
    EXPECT_EQ(linesIn("a\0\n\0"s),
              Remarks{"1: this is no text: it has a byte of 0 (UTF-16 needs a byte order mark)"});
    EXPECT_EQ(linesIn(""), Remarks{"the file is empty"});
}

TEST(TextInput, AFileThatIsNotThereIsRefused)
{
    TextInput input;
    Report report;
    EXPECT_FALSE(loadInput("/no/such/folder/line", input, report));
    EXPECT_EQ(report.failure, (Failure{{"/no/such/folder/line"}, systemText(ENOENT)}));
}

TEST(TextInput, FieldsAreApartByBlanksAndTabs)
{
    TextInput input;
    input.line = "1 \t2\t\t3  four";
    splitAtBlanks(input);
    EXPECT_EQ(input.fields, (std::vector<std::string_view>{"1", "2", "3", "four"}));
    input.line = "";
    splitAtBlanks(input);
    EXPECT_TRUE(input.fields.empty());
}

TEST(TextInput, FieldsAreApartByEveryDelimiter)
{
    TextInput input;
    input.line = "1; 2\t;;3;";
    splitAt(';', input);
    EXPECT_EQ(input.fields, (std::vector<std::string_view>{"1", "2", "", "3", ""}));
    input.line = "";
    splitAt(';', input);
    EXPECT_EQ(input.fields, std::vector<std::string_view>{""});
}

TEST(TextInput, TooFewFieldsAreRefused)
{
    TextInput input;
    input.fields = {"1", "2"};
    Report report;
    report.place = {"line", 7};
    EXPECT_TRUE(requireFields(2, "x and y", input, report));
    EXPECT_FALSE(requireFields(3, "x, y and z", input, report));
    EXPECT_EQ(report.failure, (Failure{{"line", 7}, "2 fields: x, y and z expected"}));
}

TEST(Numbers, AreDecimal)
{
    struct Case
    {
        const char *text;
        double value;
    };
    for (const auto &[text, value] : {Case{"1", 1},
                                      {"-2.5", -2.5},
                                      {"+1.5", 1.5},
                                      {".5", 0.5},
                                      {"5.", 5},
                                      {"1e3", 1000},
                                      {"1E-3", 0.001},
                                      {"1e+3", 1000},
                                      {"0000012", 12},
                                      {"4512345.67", 4512345.67}})
        EXPECT_EQ(numbersIn(text), (Numbers{{value}})) << text;
    EXPECT_TRUE(std::signbit(numbersIn("-0").values[0]));
}

TEST(Numbers, WhatIsNoNumberIsRefused)
{
    for (const char *text : {"abc", "12abc", "1 2", "0x10", "inf", "-inf", "nan", "1e999", "1e",
                             "--1", "+-1", "++1", "+", "-", ".", "1.2.3", "1e5.5", "*"})
        EXPECT_EQ(numbersIn(text).failure,
                  "1: \"" + std::string(text) + "\" is no number: the x expected");
    EXPECT_EQ(numbersIn("1\n\n2").failure, "2: the x is missing");
}

TEST(Numbers, ALongFieldIsQuotedInPart)
{
    EXPECT_EQ(numbersIn(std::string(39, 'a') + "bcd").failure,
              "1: \"" + std::string(39, 'a') + "b...\" is no number: the x expected");
}

TEST(Numbers, APowerOfTenIsRoundedOnce)
{
    // 12.3 / 1000 and 0.0123 are neighbours, but not the same, for some such numbers.
    for (int i = 0; i < 100000; ++i) {
        const std::string digits = std::to_string(i);
        const std::string padded =
            std::string(digits.size() < 5 ? 5 - digits.size() : 0, '0') + digits;
        const std::string milliseconds = digits + "." + padded.substr(0, 2);
        ASSERT_EQ(wholeNumber(milliseconds, -3), wholeNumber(milliseconds + "e-3")) << i;
    }
    EXPECT_EQ(wholeNumber("12.3", -3), 0.0123);
    EXPECT_EQ(wholeNumber("12.3e1", -3), 0.123);
    EXPECT_EQ(wholeNumber("12.3E+1", -3), 0.123);
    EXPECT_EQ(wholeNumber("+12", 3), 12000.0);
    EXPECT_EQ(wholeNumber("1e+311", -3), 1e308); // a number of its own that no double holds
    for (const char *text : {"", "e3", "1e", "1e+", "1e+-3", "1e3e3", "1e5000", "inf", "1x"})
        EXPECT_EQ(wholeNumber(text, -3), std::nullopt) << text;
}

TEST(Numbers, DecimalCommasAreToldOnce)
{
    EXPECT_EQ(numbersIn("7\n1,5\n1,250\n-,5\n"),
              (Numbers{{7, 1.5, 1.25, -0.5},
                       "",
                       {"2: 3 numbers with a decimal comma, of which the first is \"1,5\""}}));
    EXPECT_EQ(numbersIn("0,012"),
              (Numbers{{0.012},
                       "",
                       {"1: 1 number with a decimal comma, of which the first is \"0,012\""}}));
    EXPECT_EQ(numbersIn("12,3", -3).values, std::vector<double>{0.0123});
}

TEST(Numbers, ACommaThatMayPartThousandsIsRefused)
{
    for (const char *text : {"1,250", "12,250", "-125,250", "+125,250", "7\n1,250\n2,500"})
        EXPECT_TRUE(numbersIn(text).failure.ends_with(
            "\" has a comma that may part thousands: write a decimal point"))
            << numbersIn(text).failure;
    EXPECT_EQ(numbersIn("7\n1,250").failure,
              "2: \"1,250\" has a comma that may part thousands: write a decimal point");
    for (const char *text : {"0,250", "1,25", "1,2500", "1250,250", ",250", "1,25e1"})
        EXPECT_EQ(numbersIn(text).failure, "") << text;
}

TEST(Numbers, CommasAndPointsInOneFileAreRefused)
{
    EXPECT_EQ(numbersIn("2.5\n1,5\n3.5").failure,
              "2: \"1,5\" has a comma and \"2.5\" in line 1 a point: write a decimal point in "
              "every number");
    EXPECT_EQ(numbersIn("1,5\n2\n2.5").failure,
              "1: \"1,5\" has a comma and \"2.5\" in line 3 a point: write a decimal point in "
              "every number");
}

TEST(Numbers, OneOfTwoCommasIsNoNumber)
{
    EXPECT_EQ(numbersIn("1,234,5").failure, "1: \"1,234,5\" is no number: the x expected");
    EXPECT_EQ(numbersIn("1,").failure, "1: \"1,\" is no number: the x expected");
    EXPECT_EQ(numbersIn("1,e5").failure, "1: \"1,e5\" is no number: the x expected");
    EXPECT_EQ(numbersIn("1,234.5").failure, "1: \"1,234.5\" is no number: the x expected");
}

TEST(Counts, AreWholeNumbersFrom0)
{
    const auto countIn = [](const char *text) {
        TextInput input;
        Report report;
        std::size_t count = 7;
        return readCount(text, "the count", count, input, report) ? std::to_string(count)
                                                                  : report.failure->text;
    };
    EXPECT_EQ(countIn("0"), "0");
    EXPECT_EQ(countIn("24.000"), "24");
    EXPECT_EQ(countIn("4294967295"), "4294967295");
    for (const char *text : {"-1", "24.5", "4294967296", "1e300"})
        EXPECT_EQ(countIn(text),
                  "\"" + std::string(text) + "\" is no whole number from 0 on: the count expected");
    EXPECT_EQ(countIn("five"), "\"five\" is no number: the count expected");
}

TEST(Times, ThatAreMissingOrNegativeWereNotPicked)
{
    struct Case
    {
        const char *text;
        double seconds;
        const char *remark;
    };
    for (const auto &[text, seconds, told] : {
             Case{"12.5", 0.0125, ""},
             {"0", 0.0, ""},
             {"-0", 0.0, ""},
             {"-1", -0.001,
              "a time of \"-1\": not picked, so the receiver is left out of this shot"},
             {"", NAN, "no time: not picked, so the receiver is left out of this shot"},
             {"*", NAN, "a time of \"*\": not picked, so the receiver is left out of this shot"},
             {"NaN", NAN,
              "a time of \"NaN\": not picked, so the receiver is left out of this shot"},
         }) {
        TextInput input;
        Report report;
        double read = 7.0;
        EXPECT_TRUE(readTime(text, powerOf(TimeUnit::milliseconds), read, input, report)) << text;
        EXPECT_TRUE(read == seconds || (std::isnan(read) && std::isnan(seconds))) << text;
        EXPECT_EQ(report.remarks.empty() ? "" : report.remarks[0].text, told) << text;
    }
    TextInput input;
    Report report;
    double read = 7.0;
    EXPECT_FALSE(readTime("-", 0, read, input, report));
    EXPECT_EQ(report.failure->text, "\"-\" is no number: a time expected");
}

TEST(Words, AreTheSameInAnyCase)
{
    EXPECT_TRUE(sameWord("TX_Curve", "tx_curve"));
    EXPECT_FALSE(sameWord("TX_Curve ", "tx_curve"));
    EXPECT_FALSE(sameWord("", "a"));
    EXPECT_FALSE(sameWord("a[", "a{"));
}
