// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/text.h"

#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace {

using Fields = std::vector<std::string>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Equal with the sign of zero, and NaN equal to NaN.
bool same(double a, double b)
{
    return std::isnan(a) ? std::isnan(b) : a == b && std::signbit(a) == std::signbit(b);
}

Fields fieldsOf(const std::string &line, const std::string &delimiters)
{
    Fields fields{"left from the line before"};
    tokenize(line, fields, delimiters);
    return fields;
}

/// The text of the error that `action` raises, which must be of the class `Error` itself.
template <typename Error, typename Action>
std::string textOf(Action action)
{
    try {
        action();
    } catch (const std::exception &error) {
        return typeid(error) == typeid(Error) ? error.what() : "an error of another class";
    }
    return "no error";
}

/// What readLine gives for the first line of `text`.
std::string firstLine(const std::string &text)
{
    std::istringstream stream(text);
    std::string line = "left from the line before";
    readLine(stream, line);
    return line;
}

std::string printed(double value)
{
    std::string text = "x=";
    appendNumber(text, value);
    return text.substr(0, 2) == "x=" ? text.substr(2) : "the text before is lost";
}

struct NumberText
{
    std::string text;
    double value;
};

// What every conversion of text to double takes.
const std::vector<NumberText> numberTexts = {
    {"1e5", 100000.0},      {"1E5", 100000.0},   {"1e-05", 0.00001},    {"+1.5", 1.5},
    {"-1.5", -1.5},         {".5", 0.5},         {"5.", 5.0},           {"0x1p3", 8.0},
    {"0x10", 16.0},         {"-0", -0.0},        {"inf", infinity},     {"-inf", -infinity},
    {"INFINITY", infinity}, {"nan", notANumber}, {"1,5", 1.0},          {"1.234,5", 1.234},
    {"1 000", 1.0},         {" 7", 7.0},         {"\t\n\v\f\r 7", 7.0}, {"12abc", 12.0},
    {"12\r", 12.0},         {"12 m", 12.0},      {"1.5.5", 1.5},        {"1e", 1.0},
    {"1e+", 1.0},
};

// No number begins these.
const std::vector<std::string> otherTexts = {
    "",
    " ",
    "abc",
    "-",
    ".",
    ",5",
    "e5",
    "+-1",
    "\xc2\xa0"
    "7",
};

} // namespace

TEST(Tokenize, LineBeginningWithADelimiterHasTheRemainderInFront)
{
    EXPECT_EQ(fieldsOf(";3;101;0.02", ";"), (Fields{"3;101;0.02", "3", "101", "0.02"}));
}

TEST(Tokenize, SplitsAtRunsOfDelimiters)
{
    const struct
    {
        std::string line;
        std::string delimiters;
        Fields fields;
    } cases[] = {
        {"10 20  30", " ", {"10", "20", "30"}},
        {"  10 20", " ", {"10 20", "10", "20"}},
        {"", " ", {}},
        {"10", " ", {"10"}},
        {" 10", " ", {"10", "10"}},
        {"10 ", " ", {"10"}},
        {"10 20   ", " ", {"10", "20"}},
        {" 10 20 ", " ", {"10 20 ", "10", "20"}},
        {"1;;2;3", ";", {"1", "2", "3"}},
        {";;1;2", ";", {"1;2", "1", "2"}},
        {"a:b c", " :", {"a", "b", "c"}},
        {"a : b", " :", {"a", "b"}},
        {":a b", " :", {"a b", "a", "b"}},
        {"10\t20 30", " ", {"10\t20", "30"}},
        {"10 20\r", " ", {"10", "20\r"}},
        {" \r", " ", {"\r", "\r"}},
        {"10 20", "", {"10 20"}},
        {"10 20", ";", {"10 20"}},
        {"", "", {}},
    };
    for (const auto &[line, delimiters, fields] : cases)
        EXPECT_EQ(fieldsOf(line, delimiters), fields) << '"' << line << "\" at \"" << delimiters;
}

TEST(Tokenize, LineOfDelimitersAloneThrows)
{
    const struct
    {
        std::string line;
        std::string delimiters;
    } cases[] = {{" ", " "}, {"    ", " "}, {";;", ";"}, {": :", " :"}};
    for (const auto &entry : cases)
        EXPECT_EQ(textOf<std::out_of_range>([&] { fieldsOf(entry.line, entry.delimiters); }),
                  "invalid string position")
            << '"' << entry.line << '"';
}

TEST(Tokenize, AnyByteCanBeADelimiter)
{
    for (int code = 0; code < 256; ++code) {
        const char delimiter = static_cast<char>(code);
        const std::string field(1, code == 'a' ? 'b' : 'a');
        EXPECT_EQ(fieldsOf(field + delimiter + field, std::string(1, delimiter)),
                  (Fields{field, field}))
            << "byte " << code;
    }
}

TEST(Tokenize, NeverYieldsAnEmptyField)
{
    for (unsigned length = 1; length <= 8; ++length) {
        for (unsigned bits = 0; bits < (1u << length) - 1; ++bits) {
            std::string line;
            for (unsigned i = 0; i < length; ++i)
                line += (bits >> i & 1u) != 0 ? ';' : static_cast<char>('a' + i);
            Fields expected;
            if (line.front() == ';')
                expected.push_back(line.substr(line.find_first_not_of(';')));
            std::string run;
            for (const char next : line + ';') {
                if (next != ';') {
                    run += next;
                } else if (!run.empty()) {
                    expected.push_back(run);
                    run.clear();
                }
            }
            EXPECT_EQ(fieldsOf(line, ";"), expected) << line;
        }
    }
}

TEST(ReadLine, DropsTheCarriageReturnOfCrLf)
{
    EXPECT_EQ(firstLine("FBP times\r\nnext"), "FBP times");
}

TEST(ReadLine, DropsOnlyOneOfTwoCarriageReturns)
{
    EXPECT_EQ(firstLine("FBP times\r\r\nnext"), "FBP times\r");
}

TEST(ReadLine, DropsLeadingSpaces)
{
    EXPECT_EQ(firstLine("   word\n"), "word");
}

TEST(ReadLine, CleansBothEndsOfALine)
{
    const struct
    {
        std::string text;
        std::string line;
    } cases[] = {
        {"word\nnext", "word"},
        {"word", "word"},
        {"word\r", "word"},
        {"  1 2  \r\n", "1 2  "},
        {"   \n", ""},
        {"   \r\n", ""},
        {"\n", ""},
        {"\r\n", ""},
        {"\r\r\n", "\r"},
        {"\tword\n", "\tword"},
        {" \t word\n", "\t word"},
        {"word\t\r\n", "word\t"},
        {"\rword\n", "\rword"},
        {"a\rb\n", "a\rb"},
        {"", ""},
    };
    for (const auto &[text, line] : cases)
        EXPECT_EQ(firstLine(text), line) << testing::PrintToString(text);
}

TEST(ReadLine, GivesTheLinesInTurnAndEmptyLinesPastTheEnd)
{
    std::istringstream stream("one\r\n\n  two");
    std::string line;
    readLine(stream, line);
    EXPECT_EQ(line, "one");
    readLine(stream, line);
    EXPECT_EQ(line, "");
    EXPECT_TRUE(stream);
    readLine(stream, line);
    EXPECT_EQ(line, "two");
    EXPECT_TRUE(stream);
    for (int past = 0; past < 2; ++past) {
        line = "two";
        readLine(stream, line);
        EXPECT_EQ(line, "");
        EXPECT_FALSE(stream);
    }
}

TEST(TrimLeadingSpaces, RemovesSpacesAlone)
{
    const struct
    {
        std::string line;
        std::string trimmed;
    } cases[] = {
        {"   word", "word"},
        {"word", "word"},
        {" a b ", "a b "},
        {"   ", ""},
        {"", ""},
        {"\t word", "\t word"},
        {" \r", "\r"},
        {" \n x", "\n x"},
        {" \v", "\v"},
        {"\xc2\xa0x", "\xc2\xa0x"},
    };
    for (const auto &[line, trimmed] : cases) {
        std::string changed = line;
        trimLeadingSpaces(changed);
        EXPECT_EQ(changed, trimmed) << testing::PrintToString(line);
    }
}

TEST(ToDouble, ReadsTheLongestNumberThatBeginsTheText)
{
    for (const auto &[text, value] : numberTexts)
        EXPECT_PRED2(same, toDouble(text), value) << testing::PrintToString(text);
}

TEST(ToDouble, TextWithoutANumberIsZero)
{
    for (const std::string &text : otherTexts)
        EXPECT_PRED2(same, toDouble(text), 0.0) << testing::PrintToString(text);
}

TEST(ToDouble, ValuesBeyondADoubleAreInfiniteOrZero)
{
    EXPECT_EQ(toDouble("1e999"), infinity);
    EXPECT_EQ(toDouble("-1e999"), -infinity);
    EXPECT_EQ(toDouble("1e-400"), 0.0);
}

TEST(ToDoubleOrThrow, ReadsTheLongestNumberThatBeginsTheText)
{
    for (const auto &[text, value] : numberTexts)
        EXPECT_PRED2(same, toDoubleOrThrow(text), value) << testing::PrintToString(text);
}

TEST(ToDoubleOrThrow, TextWithoutANumberThrows)
{
    for (const std::string &text : otherTexts)
        EXPECT_EQ(textOf<std::invalid_argument>([&] { toDoubleOrThrow(text); }),
                  "invalid stod argument")
            << testing::PrintToString(text);
}

TEST(ToDoubleOrThrow, ValuesBeyondADoubleThrow)
{
    for (const std::string text : {"1e999", "-1e999", "1e-400", "-1e-400", "1e999abc"})
        EXPECT_EQ(textOf<std::out_of_range>([&] { toDoubleOrThrow(text); }),
                  "stod argument out of range")
            << text;
}

TEST(ToDoubleOrThrow, AnErrorFromBeforeDoesNotCount)
{
    errno = ERANGE;
    EXPECT_EQ(toDoubleOrThrow("24"), 24.0);
}

TEST(ToInt, ReadsTheDecimalIntegerThatBeginsTheText)
{
    const struct
    {
        std::string text;
        std::int32_t value;
    } cases[] = {
        {"24", 24},
        {"-1", -1},
        {"+5", 5},
        {"010", 10},
        {" 7", 7},
        {"\t\n 7", 7},
        {"12abc", 12},
        {"24\r", 24},
        {"2.9", 2},
        {"1,5", 1},
        {"1.000", 1},
        {"1e5", 1},
        {"0x10", 0},
        {".5", 0},
        {"", 0},
        {" ", 0},
        {"abc", 0},
        {"-", 0},
        {"- 1", 0},
        {"inf", 0},
        {"2147483647", 2147483647},
        {"-2147483648", -2147483647 - 1},
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(toInt(text), value) << testing::PrintToString(text);
}

TEST(ToInt, KeepsTheLow32BitsOfTheClamped64)
{
    const struct
    {
        std::string text;
        std::int32_t value;
    } cases[] = {
        {"2147483648", -2147483647 - 1},
        {"4294967295", -1},
        {"4294967296", 0},
        {"-4294967297", -1},
        {"99999999999", 1215752191}, // 23 * 2^32 + 1215752191
        {"-99999999999", -1215752191},
        {"9223372036854775807", -1},
        {"9223372036854775808", -1}, // clamped to 2^63 - 1
        {"99999999999999999999", -1},
        {"-9223372036854775808", 0},
        {"-99999999999999999999", 0}, // clamped to -2^63
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(toInt(text), value) << text;
}

TEST(AppendNumber, PrintsSixSignificantDigits)
{
    const struct
    {
        double value;
        std::string text;
    } cases[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {12.5, "12.5"},
        {-2.5, "-2.5"},
        {1000.0, "1000"},
        {100000.0, "100000"},
        {123456.0, "123456"},
        {999999.0, "999999"},
        {999999.4, "999999"},
        {999998.5, "999998"}, // halfway goes to the even digit
        {999999.5, "1e+06"},
        {1e6, "1e+06"},
        {1e5, "100000"},
        {1234567.0, "1.23457e+06"},
        {-1234567.0, "-1.23457e+06"},
        {1e100, "1e+100"},
        {0.1 + 0.2, "0.3"},
        {12.3456789, "12.3457"},
        {0.0001, "0.0001"},
        {0.00012345678, "0.000123457"},
        {0.000099999951, "0.0001"},
        {0.000099999949, "9.99999e-05"},
        {0.00001, "1e-05"},
        {0.000025, "2.5e-05"},
        {1e-100, "1e-100"},
        {1e-300, "1e-300"},
        {std::numeric_limits<double>::max(), "1.79769e+308"},
        {std::numeric_limits<double>::denorm_min(), "4.94066e-324"},
        {infinity, "inf"},
        {-infinity, "-inf"},
        {notANumber, "nan"},
        {-notANumber, "-nan"},
    };
    for (const auto &[value, text] : cases)
        EXPECT_EQ(printed(value), text);
}

TEST(AppendNumber, PrintsAsAStreamDoes)
{
    std::mt19937_64 bits(20);
    for (int i = 0; i < 20000; ++i) {
        // Every second value from the range of field surveys, the others from all there are.
        const double value = i % 2 == 0 ? std::bit_cast<double>(bits())
                                        : static_cast<double>(bits() % 2000000000) / 1000.0 - 1e6;
        std::ostringstream stream;
        stream << value;
        EXPECT_EQ(printed(value), stream.str());
    }
}

TEST(FixedNumber, PrintsSixDigitsAfterThePoint)
{
    const struct
    {
        double value;
        std::string text;
    } cases[] = {
        {0.0, "0.000000"},
        {-0.0, "-0.000000"},
        {1.0, "1.000000"},
        {-2.5, "-2.500000"},
        {12.3456789, "12.345679"},
        {1234567.0, "1234567.000000"},
        {999999.9999996, "1000000.000000"},
        {0.0078125, "0.007812"}, // halfway goes to the even digit
        {0.0234375, "0.023438"},
        {1e-7, "0.000000"},
        {-1e-7, "-0.000000"},
        {0.000001, "0.000001"},
        {1e22, "10000000000000000000000.000000"},
        {infinity, "inf"},
        {-infinity, "-inf"},
        {notANumber, "nan"},
    };
    for (const auto &[value, text] : cases)
        EXPECT_EQ(fixedNumber(value), text);
}

TEST(FixedNumber, HoldsTheLargestDouble)
{
    // (2^53 - 1) * 2^971
    const std::string digits =
        "179769313486231570814527423731704356798070567525844996598917476803157260780028538760"
        "589558632766878171540458953514382464234321326889464182768467546703537516986049910576"
        "551282076245490090389328944075868508455133942304583236903222948165808559332123348274"
        "797826204144723168738177180919299881250404026184124858368";
    EXPECT_EQ(fixedNumber(std::numeric_limits<double>::max()), digits + ".000000");
    EXPECT_EQ(fixedNumber(std::numeric_limits<double>::lowest()), '-' + digits + ".000000");
}

TEST(FixedNumber, PrintsAsAStreamDoes)
{
    std::mt19937_64 bits(22);
    for (int i = 0; i < 2000; ++i) {
        const double value = i % 2 == 0 ? std::bit_cast<double>(bits())
                                        : static_cast<double>(bits() % 2000000000) / 1000.0 - 1e6;
        std::ostringstream stream;
        stream << std::fixed << value;
        EXPECT_EQ(fixedNumber(value), stream.str());
    }
}

TEST(OpenText, OpensFilesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("Profil 1 Übung é 測線.txt", "0;100;0.001");
    std::ifstream stream = openText(path);
    ASSERT_TRUE(stream);
    std::string line;
    std::getline(stream, line);
    EXPECT_EQ(line, "0;100;0.001");
}

TEST(OpenText, KeepsTheBytesOfTheFile)
{
    const TemporaryFolder folder;
    std::ifstream stream = openText(folder.write("bytes.txt", "a\r\nb\x1a\xff\n"));
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(bytes, "a\r\nb\x1a\xff\n");
}

TEST(OpenText, MissingFileIsNotOpened)
{
    const TemporaryFolder folder;
    errno = 0;
    EXPECT_FALSE(openText(folder.path("missing.txt")));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(openText(""));
}

TEST(OpenText, FolderIsNotOpened)
{
    const TemporaryFolder folder;
    errno = 0;
    EXPECT_FALSE(openText(folder.path("")));
    EXPECT_EQ(errno, EISDIR);
}

TEST(LoadText, HoldsTheFileByteByByte)
{
    const TemporaryFolder folder;
    const std::string bytes = std::string(70000, 'x') + "\r\n\0\xff";
    Problem problem;
    const TextFile file = loadText(folder.write("Linie 1 größer.txt", bytes), problem);
    EXPECT_TRUE(file.isOpen);
    EXPECT_EQ(file.text, bytes);
    EXPECT_FALSE(loadText(folder.path("missing.txt"), problem).isOpen);
    EXPECT_FALSE(loadText(folder.path(""), problem).isOpen);
    EXPECT_EQ(problem.detail, "");
}

TEST(NextLine, KeepsTheCarriageReturnAndCountsTheLines)
{
    TextFile file{"one\r\n two\r\r\n\nlast"};
    std::string line;
    Problem problem;
    std::size_t number = 0;
    for (const std::string expected : {"one\r", " two\r\r", "", "last"}) {
        EXPECT_TRUE(nextLine(file, line, problem));
        EXPECT_EQ(line, expected);
        EXPECT_EQ(problem.line, ++number);
    }
    EXPECT_EQ(problem.detail, "");
}

TEST(NextLine, IsEmptyPastTheEndAndStaysAtTheLineAfterTheLast)
{
    for (const std::string text : {"one\n", "one"}) {
        TextFile file{text};
        std::string line;
        Problem problem;
        EXPECT_TRUE(nextLine(file, line, problem));
        EXPECT_EQ(line, "one");
        for (int past = 0; past < 3; ++past) {
            line = "one";
            EXPECT_FALSE(nextLine(file, line, problem));
            EXPECT_EQ(line, "");
            EXPECT_EQ(problem.line, 2u);
        }
    }
}

TEST(SplitLine, SplitsAsTokenizeDoes)
{
    Fields fields{"left from the line before"};
    Problem problem{"shot3.txt", 17};
    splitLine(";3;101", fields, ";", problem);
    EXPECT_EQ(fields, (Fields{"3;101", "3", "101"}));
    splitLine("", fields, ";", problem);
    EXPECT_EQ(fields, Fields{});
    EXPECT_EQ(problem.file, "shot3.txt");
    EXPECT_EQ(problem.line, 17u);
    EXPECT_EQ(problem.detail, "");
}

TEST(SplitLine, TellsOfALineOfDelimitersAlone)
{
    Fields fields;
    Problem problem{"shot3.txt", 17};
    EXPECT_EQ(textOf<std::out_of_range>([&] { splitLine(";;", fields, ";", problem); }),
              "invalid string position");
    EXPECT_EQ(problem.file, "shot3.txt");
    EXPECT_EQ(problem.line, 17u);
    EXPECT_EQ(problem.detail, "nothing but delimiters");
}

TEST(RequireFields, PassesWhenThereAreEnough)
{
    Problem problem;
    requireFields({"1", "2", "3"}, 3, problem);
    requireFields({"1", "2", "3", "4"}, 3, problem);
    requireFields({}, 0, problem);
    EXPECT_EQ(problem.detail, "");
}

TEST(RequireFields, TellsHowManyAreMissing)
{
    const struct
    {
        Fields fields;
        std::size_t expected;
        std::string detail;
    } cases[] = {
        {{"1", "2"}, 3, "2 fields, 3 expected"},
        {{"1"}, 2, "1 field, 2 expected"},
        {{}, 3, "0 fields, 3 expected"},
    };
    for (const auto &entry : cases) {
        Problem problem{"shot3.txt", 17};
        EXPECT_EQ(textOf<std::out_of_range>(
                      [&] { requireFields(entry.fields, entry.expected, problem); }),
                  "invalid vector subscript");
        EXPECT_EQ(problem.file, "shot3.txt");
        EXPECT_EQ(problem.line, 17u);
        EXPECT_EQ(problem.detail, entry.detail);
    }
}

TEST(RequireHoldable, TenMillionValuesMoreThanBytes)
{
    const struct
    {
        std::uint64_t values;
        std::size_t bytes;
        const char *detail;
    } cases[] = {
        {10000000, 0, ""},
        {10000005, 5, ""},
        {10000001, 0, "10000001 values asked for, of 0 bytes"},
        {10000002, 1, "10000002 values asked for, of 1 byte"},
        {4294967295, 200, "4294967295 values asked for, of 200 bytes"},
    };
    for (const auto &asked : cases) {
        Problem problem{"LINE.ADT", 6};
        EXPECT_EQ(
            textOf<std::length_error>([&] { requireHoldable(asked.values, asked.bytes, problem); }),
            *asked.detail == '\0' ? "no error" : "vector too long")
            << asked.values;
        EXPECT_EQ(problem.detail, asked.detail);
        EXPECT_EQ(problem.line, 6U);
    }
}

TEST(Problems, TheFirstOneIsTheOneTold)
{
    Fields fields;
    Problem problem{"", 0, "number of shots \"many\""};
    EXPECT_THROW(splitLine(" ", fields, " ", problem), std::out_of_range);
    EXPECT_THROW(requireFields({}, 2, problem), std::out_of_range);
    EXPECT_EQ(problem.detail, "number of shots \"many\"");
}

TEST(Problems, TheSystemsReasonNamesTheFileAndKeepsTheRemark)
{
    Problem problem{"line.vs", 17, "", "there are no shots in this file"};
    errno = ENOSPC;
    tellSystemError(problem, "line.otte");
    EXPECT_EQ(problem.file, "line.otte");
    EXPECT_EQ(problem.line, 0u);
    EXPECT_EQ(problem.detail, std::generic_category().message(ENOSPC));
    EXPECT_EQ(problem.remark, "there are no shots in this file");
    errno = EACCES;
    tellSystemError(problem, "line2.otte");
    EXPECT_EQ(problem.file, "line.otte");
    EXPECT_EQ(problem.detail, std::generic_category().message(ENOSPC));
}

TEST(Counted, AddsThePluralButToOne)
{
    EXPECT_EQ(counted(0, "shot"), "0 shots");
    EXPECT_EQ(counted(1, "shot"), "1 shot");
    EXPECT_EQ(counted(2, "shot"), "2 shots");
    EXPECT_EQ(counted(1000000, "spread"), "1000000 spreads");
}
