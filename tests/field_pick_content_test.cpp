// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/pick_content.h"
#include "tests/support/odd_files.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

/// The formats that claim a file that begins so, by name, in alphabetical order.
std::string claimsOf(const std::string &start)
{
    const std::vector<
        std::pair<std::string, std::string (*)(const std::string &, const std::string &)>>
        recognisers = {{"csv", recogniseCsv},
                       {"generic", recogniseGeneric},
                       {"geogiga", recogniseGeogiga},
                       {"otte", recogniseOtte},
                       {"seisimager", recogniseSeisImager},
                       {"sgt", recogniseSgt},
                       {"winsism", recogniseWinsism}};
    std::string claims;
    for (const auto &[name, recognise] : recognisers)
        if (!recognise(start, "").empty())
            claims += (claims.empty() ? "" : " ") + name;
    return claims;
}

void expectClaims(const std::vector<std::pair<std::string, std::string>> &cases)
{
    for (const auto &[start, claims] : cases)
        EXPECT_EQ(claimsOf(start), claims) << start;
}

/// In UTF-16 with a mark, the low byte first or last.
} // namespace

TEST(FieldPickContent, FormatsThatNameThemselves)
{
    expectClaims({
        {"TX_CURVE\nVERSION: 1\n", "geogiga"},
        {"\n# picked by hand\r\n  tx_curve \r\n", "geogiga"},
        {"Shot number, Shot elevation\n1\n2\n", "winsism"},
        {"SHOT NUMBER ,Shot  elevation\r\n", "winsism"},
        {"otte\n1.0\n2\n", "otte"},
        {"OTTE \r1.0\r2\r", "otte"},
        {"shot_x,shot_elevation,receiver_x,receiver_elevation,time\n", "csv"},
        {"note,\"Time\", receiver_x ,SHOT_X\n", "csv"},
    });
    expectClaims({
        {"", ""},
        // Columns are missing; as it names some, it is no generic text.
        {"shot_x,shot_elevation,rx,receiver_elevation,time\n-2.5,100,0,100,0.01\n", "csv generic"},
        {"sx;receiver_x;time\n-2.5;0;0.01\n", "csv generic"},
        {"TX CURVE\n", ""},
        {"shot_x1,old_receiver_x\n", ""},
        {"Shot number, Shot distance\n", ""},
        {"otte 1\n", ""},
        {"Dear all, please find the picks below.\n", ""},
        {std::string("\x3A\x55\0\1\0\2", 6), ""},
    });
}

TEST(FieldPickContent, AnyEncodingAndLineEnd)
{
    for (const std::string text :
         {"TX_CURVE\nVERSION: 1\n", "TX_CURVE\r\n", "TX_CURVE\r", "TX_CURVE"}) {
        EXPECT_EQ(claimsOf(text), "geogiga") << text;
        EXPECT_EQ(claimsOf("\xEF\xBB\xBF" + text), "geogiga") << text;
        EXPECT_EQ(claimsOf(inUtf16(text)), "geogiga") << text;
        EXPECT_EQ(claimsOf(inUtf16(text, true)), "geogiga") << text;
    }
}

TEST(FieldPickContent, UnifiedDataFormat)
{
    expectClaims({
        {"2 # shot/geophone points\n#x y\n0 10\n5 11\n1 # measurements\n#s g t\n1 2 0.01\n", "sgt"},
        {"3\n0 10 1\n5 11 1\n9 9 1\n1\n1 2 0.01\n", "sgt"},
        {"2\n#x z\n0\t10\n5\t11\n", "sgt"},
        // Rows are missing; the comments still say it.
        {"57 # shot/geophone points\n#x y\n0 10\n3\n1 2 0.01\n", "sgt"},
    });
    expectClaims({
        {"57\n0 10\n3\n1 2 0.01\n", ""},
        {"6\n\"vertical\"\n\"gain 24 dB\"\n0\n300\n4000\n", ""},
    });
}

TEST(FieldPickContent, SeisImager)
{
    const std::string rows = "0 5.0\n10 6.0\n";
    expectClaims({
        {"First breaks, ms\n1 1\n-5 2\n" + rows, "seisimager"},
        {"# picks\n1 1\n-5 2\n" + rows, "seisimager"},
        {"1996 0 3.000000\n0 2 4.0\n-5 2 0.0\n0 5.1 1 \n4 6.1 1 \n9 2 0.0\n0 5.1 1 \n4 6.1 1 \n"
         "0 0 \n 0 \n 0 0 \n",
         "seisimager"},
        {"\t1996 0 3.000000\r\n  0\t1  4.0\r\n\r\n -5 1 0\r\n 0\t5.1\t1\r\n", "seisimager"},
        // The first shot has no receivers.
        {"First breaks, ms\n2 2 5\n-5 0 0\n20 2 0\n0 5.1 1\n10 6.1 1\n", "seisimager"},
        // A row is missing.
        {"First breaks, ms\n1 1\n-5 3\n" + rows, "seisimager"},
        {"1996 0 3.000000\n0 2 4.0\n-5 2 0.0\n0 5.1 1\n4 6.1 1\n9 2 0.0\n0 5.1 1\n", "seisimager"},
    });
    expectClaims({
        {"First breaks, ms\n1 five\n-5 2\n0 5.0\n", ""},
        {"First breaks, ms\n1 0\n", ""},
        {"First breaks, ms\n1;1\n-5;2\n0;5.0\n10;6.0\n", ""},
    });
}

TEST(FieldPickContent, Generic)
{
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"-5;212\n", "0;212.3;0.01\n"},     {"-5;212\n", "0;212.3;0.01;good\n"},
        {"-5\t212\n", "0\t212.3\t0.01\n"},  {"-5 212\n", "0 212.3 0.01\n"},
        {"-5,212\n", "0,212.3,0.01\n"},     {"-5, 212\n", "0, 212.3, 0.01\n"},
        {"-5,5;212\n", "0,5;212,3;0,01\n"}, {"-5,5 212\n", "0,5 212,3 0,01\n"},
        {"-5;212\n", "0;212.3;*\n"},        {"-5;212\n", "0;212.3;nan\n"},
        {"-5;212\n", "+1e1;2.;-1\n"},       {"-5;212\n", "1;2;3\n 0;212.3;\n"},
    };
    for (const auto &[shot, row] : rows) {
        EXPECT_EQ(claimsOf(row), "generic") << row;
        EXPECT_EQ(claimsOf("x z t\n" + shot + row + row), "generic") << row;
    }
    // A bad row does not hide what the file is.
    EXPECT_EQ(claimsOf("0;212;0.01\n5;2l2;0.02\n10;212\n15;212;0.03\n"), "generic");
    expectClaims({{"0;212\n5;213\n", ""}, {"0;high;0.01\n", ""}, {"a;b;c\n", ""}});
}

TEST(FieldPickContent, RowsThatCouldBeTwoFormats)
{
    // A shot of one receiver, or four receivers on a level of 1 m.
    EXPECT_EQ(claimsOf("0 1 .1\n5 1 .2\n10 1 .3\n15 1 .4\n"), "generic seisimager");
    // Whole times below 10 ms could be flags.
    EXPECT_EQ(claimsOf("0 1 5\n5 1 6\n10 1 7\n15 1 8\n"), "generic seisimager");
    // The shot's third field is 0 and the receiver's a flag; as pickers begin a file.
    EXPECT_EQ(claimsOf("0 1 .1\n5 1 .2\n10 1 0\n15 1 1\n"), "seisimager");
    EXPECT_EQ(claimsOf("1996 0 3.0\n5 1 .2\n10 1 .3\n15 1 .4\n"), "seisimager");
    // Counts that do not fit: a level of 5 m.
    EXPECT_EQ(claimsOf("0 5 .1\n5 5 .2\n10 5 .3\n15 5 .4\n"), "generic");
    // A row without its time, on a level of 212 m.
    EXPECT_EQ(claimsOf("-5 212\n0 212 .1\n5 212\n10 212 .3\n"), "generic");
    EXPECT_EQ(claimsOf("-5 212\n0 212 .1\n5 212 .2\n10 212\n15 212 .4\n"), "generic seisimager");
    // Flags, but counts that do not fit.
    EXPECT_EQ(claimsOf("0 5 .1\n5 5 .2\n10 5 .3\n15 5 1\n"), "generic seisimager");
}

TEST(FieldPickContent, CountsThatTheStartDoesNotReach)
{
    std::string start = "First breaks, ms\n1 2\n-5 90000\n";
    const std::size_t headSize = start.size();
    while (start.size() < startSize)
        start += "0 5.25 0.5\n";
    // The rows that are missing may follow, unless the file ends before.
    EXPECT_EQ(claimsOf(start.substr(0, startSize)), "generic seisimager");
    EXPECT_EQ(claimsOf(start.substr(0, headSize + 110)), "generic");
}
