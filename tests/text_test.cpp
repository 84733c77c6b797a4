// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/text.h"

#include "tests/support/reading.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sstream>

namespace {

using Fields = std::vector<std::string>;

Fields fieldsOf(const std::string &line, const std::string &delimiters)
{
    Fields fields{"left from the line before"};
    tokenize(line, fields, delimiters);
    return fields;
}

/// What readLine gives for the first line of `text`.
std::string firstLine(const std::string &text)
{
    std::istringstream stream(text);
    std::string line = "left from the line before";
    readLine(stream, line);
    return line;
}

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
        EXPECT_EQ(outcomeOf([&] { fieldsOf(entry.line, entry.delimiters); }), invalidPosition)
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

TEST(MarkSize, CountsTheBytesOfAByteOrderMark)
{
    EXPECT_EQ(markSize("\xEF\xBB\xBFline"), 3U);
    EXPECT_EQ(markSize("\xFF\xFEl"), 2U);
    EXPECT_EQ(markSize("\xFE\xFFl"), 2U);
    EXPECT_EQ(markSize("\xEF\xBBline"), 0U);
    EXPECT_EQ(markSize("line"), 0U);
    EXPECT_EQ(markSize(""), 0U);
}

TEST(LoadText, HoldsTheFileByteByByte)
{
    const TemporaryFolder folder;
    const std::string bytes = std::string(70000, 'x') + "\r\n\0\xff";
    const std::string path = folder.write("Linie 1 größer.txt", bytes);
    Report report;
    report.place = {"the file before", 17};
    const TextFile file = loadText(path, report);
    EXPECT_TRUE(file.isOpen);
    EXPECT_EQ(file.text, bytes);
    EXPECT_EQ(report.place, (Place{path, 0}));
    EXPECT_EQ(failureOf(report), "");
}

TEST(LoadText, AFileThatIsNotOpenedIsLeftToTheReader)
{
    const TemporaryFolder folder;
    for (const std::string &path : {folder.path("missing.txt"), folder.path("")}) {
        Report report;
        EXPECT_FALSE(loadText(path, report).isOpen);
        EXPECT_EQ(report.place, (Place{path, 0}));
        EXPECT_EQ(failureOf(report), "");
    }
}

TEST(LoadText, AnEmptyFileIsAFailureForCommandsAlone)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("empty.txt", "");
    Report report;
    EXPECT_TRUE(loadText(path, report).isOpen);
    EXPECT_EQ(report.failure, (Failure{{path, 0}, "the file is empty"}));
    EXPECT_EQ(report.result, 0);
    Report other;
    loadText(folder.write("line end.txt", "\n"), other);
    EXPECT_EQ(failureOf(other), "");
}

TEST(LoadText, AFileThatCannotBeReadIsAFailureForCommandsAlone)
{
    // It opens, but its first byte cannot be read.
    Report report;
    const TextFile file = loadText("/proc/self/mem", report);
    EXPECT_TRUE(file.isOpen);
    EXPECT_EQ(file.text, "");
    EXPECT_EQ(report.failure,
              (Failure{{"/proc/self/mem", 0}, "the file cannot be read to its end"}));
    EXPECT_EQ(report.result, 0);
}

TEST(NextLine, KeepsTheCarriageReturnAndCountsTheLines)
{
    TextFile file{"one\r\n two\r\r\n\nlast"};
    std::string line;
    Report report;
    std::size_t number = 0;
    for (const std::string expected : {"one\r", " two\r\r", "", "last"}) {
        EXPECT_TRUE(nextLine(file, line, report));
        EXPECT_EQ(line, expected);
        EXPECT_EQ(report.place.line, ++number);
    }
    EXPECT_EQ(failureOf(report), "");
}

TEST(NextLine, IsEmptyPastTheEndWhereTheLastLineStaysThePlace)
{
    for (const std::string text : {"one\n", "one"}) {
        TextFile file{text};
        std::string line;
        Report report;
        EXPECT_TRUE(nextLine(file, line, report));
        EXPECT_EQ(line, "one");
        for (int past = 0; past < 3; ++past) {
            line = "one";
            EXPECT_FALSE(nextLine(file, line, report));
            EXPECT_EQ(line, "");
            EXPECT_EQ(report.place.line, 1U);
        }
        EXPECT_TRUE(file.failed);
    }
}

TEST(NextLine, ReadsNothingAfterAFailure)
{
    TextFile file{"one\ntwo\n"};
    file.failed = true;
    std::string line = "zero";
    Report report;
    EXPECT_FALSE(nextLine(file, line, report));
    EXPECT_EQ(line, "");
    EXPECT_EQ(report.place.line, 0U);
}

TEST(RequireHoldable, TenMillionValuesMoreThanBytes)
{
    const struct
    {
        std::uint64_t values;
        std::size_t bytes;
        const char *failure;
    } cases[] = {
        {10000000, 0, ""},
        {10000005, 5, ""},
        {10000001, 0, "6: 10000001 values asked for, of 0 bytes"},
        {10000002, 1, "6: 10000002 values asked for, of 1 byte"},
        {4294967295, 200, "6: 4294967295 values asked for, of 200 bytes"},
    };
    for (const auto &asked : cases) {
        Report report;
        report.place = {"LINE.ADT", 6};
        EXPECT_EQ(outcomeOf([&] { requireHoldable(asked.values, asked.bytes, report); }),
                  *asked.failure == '\0' ? "no error" : tooLong)
            << asked.values;
        EXPECT_EQ(failureOf(report), asked.failure);
    }
}

TEST(Counted, AddsThePluralButToOne)
{
    EXPECT_EQ(counted(0, "shot"), "0 shots");
    EXPECT_EQ(counted(1, "shot"), "1 shot");
    EXPECT_EQ(counted(2, "shot"), "2 shots");
    EXPECT_EQ(counted(1000000, "spread"), "1000000 spreads");
}
