// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/report.h"

#include "tests/support/reading.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <iostream>

#include <unistd.h>

namespace {

Report reportAt(const std::string &file, std::size_t line)
{
    Report report;
    report.place = {file, line};
    return report;
}

/// The remarks with the files that they name.
Texts placedRemarksOf(const Report &report)
{
    Texts texts;
    for (const Remark &remark : report.remarks)
        texts.push_back(remark.place.file + ' ' + lineAndText(remark.place, remark.text));
    return texts;
}

} // namespace

TEST(Fail, NamesWhatIsBeingRead)
{
    Report report = reportAt("line.vs", 17);
    EXPECT_FALSE(fail(report, "2 fields, 3 expected"));
    EXPECT_EQ(report.failure, (Failure{{"line.vs", 17}, "2 fields, 3 expected"}));
    EXPECT_EQ(report.result, 1);
    EXPECT_FALSE(report.error);
    EXPECT_EQ(report.printed, "");
    EXPECT_EQ(report.remarks, std::vector<Remark>{});
}

TEST(Fail, NamesAnotherPlace)
{
    Report report = reportAt("line.vs", 17);
    EXPECT_FALSE(fail(report, {"other.vs", 3}, "no shots"));
    EXPECT_EQ(report.failure, (Failure{{"other.vs", 3}, "no shots"}));
    EXPECT_EQ(report.place, (Place{"line.vs", 17}));
    EXPECT_EQ(report.result, 1);
}

TEST(Fail, KeepsTheFirst)
{
    Report report = reportAt("line.vs", 17);
    fail(report, "the first");
    report.place.line = 18;
    EXPECT_FALSE(fail(report, "the second"));
    EXPECT_FALSE(fail(report, {"other.vs", 3}, "the third"));
    EXPECT_EQ(report.failure, (Failure{{"line.vs", 17}, "the first"}));
}

TEST(Fail, WhereTheWindowGoesOnItsResultStaysZero)
{
    Report report = reportAt("shot.txt", 0);
    EXPECT_FALSE(fail(report, "the file is empty", Window::goesOn));
    EXPECT_EQ(failureOf(report), "the file is empty");
    EXPECT_EQ(report.result, 0);
    EXPECT_FALSE(fail(report, {"other.txt", 3}, "it breaks off", Window::goesOn));
    EXPECT_EQ(report.result, 0);
    // The failure stays the first, but now the window stops.
    EXPECT_FALSE(fail(report, "no keyword"));
    EXPECT_EQ(failureOf(report), "the file is empty");
    EXPECT_EQ(report.result, 1);
    EXPECT_FALSE(fail(report, "not read to its end", Window::goesOn));
    EXPECT_EQ(report.result, 1);
}

TEST(FailInSystem, GivesTheSystemsReasonForTheFile)
{
    Report report = reportAt("line.vs", 17);
    errno = ENOSPC;
    EXPECT_FALSE(failInSystem(report, "line.otte"));
    EXPECT_EQ(report.failure, (Failure{{"line.otte", 0}, systemText(ENOSPC)}));
    EXPECT_EQ(report.result, 1);
    errno = EACCES;
    EXPECT_FALSE(failInSystem(report, "line2.otte"));
    EXPECT_EQ(report.failure, (Failure{{"line.otte", 0}, systemText(ENOSPC)}));
}

TEST(FailInSystem, WhereTheWindowGoesOnItsResultStaysZero)
{
    Report report;
    errno = ENOSPC;
    EXPECT_FALSE(failInSystem(report, "line.otte", Window::goesOn));
    EXPECT_EQ(failureOf(report), systemText(ENOSPC));
    EXPECT_EQ(report.result, 0);
}

TEST(RemarkOn, ALineIsNoFailure)
{
    Report report = reportAt("line.vs", 17);
    remark(report, RemarkKind::notANumber, "\"x\" is read as 0");
    remark(report, RemarkKind::layout, {"other.vs", 3}, "elsewhere");
    EXPECT_EQ(report.remarks, (std::vector<Remark>{
                                  {RemarkKind::notANumber, {"line.vs", 17}, "\"x\" is read as 0"},
                                  {RemarkKind::layout, {"other.vs", 3}, "elsewhere"},
                              }));
    EXPECT_FALSE(report.failure);
    EXPECT_EQ(report.result, 0);
    EXPECT_EQ(report.printed, "");
    EXPECT_EQ(report.place, (Place{"line.vs", 17}));
}

TEST(RemarkOn, MoreThanTenOfAKindForAFileAreCounted)
{
    Report report;
    Texts expected;
    for (std::size_t line = 1; line <= 25; ++line) {
        report.place = {"a.vs", line};
        remark(report, RemarkKind::notANumber, "no number");
        if (line <= 10)
            expected.push_back("a.vs " + std::to_string(line) + ": no number");
    }
    EXPECT_EQ(placedRemarksOf(report), expected);
    // Another kind, or another file, has ten of its own.
    remark(report, RemarkKind::negativeTime, "a time of -1 ms");
    report.place = {"b.vs", 4};
    remark(report, RemarkKind::notANumber, "no number");
    expected.push_back("a.vs 25: a time of -1 ms");
    expected.push_back("b.vs 4: no number");
    EXPECT_EQ(placedRemarksOf(report), expected);
    EXPECT_EQ((report.remarkCounts[{"a.vs", RemarkKind::notANumber}]), 25U);
    EXPECT_EQ((report.remarkCounts[{"a.vs", RemarkKind::negativeTime}]), 1U);
    EXPECT_EQ((report.remarkCounts[{"b.vs", RemarkKind::notANumber}]), 1U);
    EXPECT_EQ(report.remarkCounts.size(), 3U);
}

TEST(RemarkOnTheWorst, KeepsOneOfAKindForAFile)
{
    Report report;
    const auto meet = [&report](const Place &place, double size) {
        report.place = place;
        remarkWorst(report, RemarkKind::roundedTime, size,
                    [size] { return "off by " + std::to_string(static_cast<int>(size)); });
    };
    meet({"a.vs", 3}, 20);
    remark(report, RemarkKind::notANumber, "no number");
    meet({"a.vs", 4}, 50);
    meet({"a.vs", 5}, 50); // the first of equals stays
    meet({"a.vs", 6}, 30);
    meet({"b.vs", 7}, 40);
    EXPECT_EQ(placedRemarksOf(report),
              (Texts{"a.vs 4: off by 50", "a.vs 3: no number", "b.vs 7: off by 40"}));
    EXPECT_EQ((report.remarkCounts[{"a.vs", RemarkKind::roundedTime}]), 4U);
    EXPECT_EQ((report.remarkCounts[{"b.vs", RemarkKind::roundedTime}]), 1U);
}

TEST(RemarkOnTheWorst, MakesNoTextForWhatIsNotKept)
{
    Report report;
    int texts = 0;
    for (const double size : {3.0, 1.0, 2.0, 3.0, 4.0})
        remarkWorst(report, RemarkKind::roundedPosition, size, [&texts] {
            ++texts;
            return std::string("rounded");
        });
    EXPECT_EQ(texts, 2);
}

TEST(RemarkOnTheWorst, OtherKindsAreOthers)
{
    Report report = reportAt("a.vs", 3);
    remarkWorst(report, RemarkKind::roundedPosition, 1.0, [] { return "a position"; });
    remarkWorst(report, RemarkKind::roundedTime, 2.0, [] { return "a time"; });
    EXPECT_EQ(remarksOf(report),
              (Texts{"rounded position, 3: a position", "rounded time, 3: a time"}));
}

TEST(Attempt, TellsWhetherAllWentWell)
{
    Report report = reportAt("a.vs", 3);
    bool isDone = false;
    EXPECT_TRUE(attempt(report, [&] { isDone = true; }));
    EXPECT_TRUE(isDone);
    EXPECT_FALSE(report.failure);
    EXPECT_FALSE(report.error);
    EXPECT_FALSE(attempt(report, [&] { fail(report, "it breaks off", Window::goesOn); }));
    EXPECT_EQ(failureOf(report), "3: it breaks off");
    EXPECT_FALSE(report.error);
    EXPECT_EQ(report.result, 0);
    // It failed before.
    EXPECT_FALSE(attempt(report, [] {}));
}

TEST(Attempt, AnErrorIsAFailure)
{
    Report report = reportAt("a.vs", 3);
    EXPECT_FALSE(attempt(report, [] { throw std::out_of_range("invalid vector subscript"); }));
    EXPECT_EQ(report.failure, (Failure{{"a.vs", 3}, "invalid vector subscript"}));
    EXPECT_TRUE(report.error);
}

TEST(Attempt, TheTextOfAnErrorFollowsTheDetail)
{
    Report report = reportAt("a.vs", 3);
    EXPECT_FALSE(attempt(report, [&report] {
        fail(report, "1 field, 2 expected");
        report.place.line = 4;
        throw std::out_of_range("invalid vector subscript");
    }));
    EXPECT_EQ(failureOf(report), "3: 1 field, 2 expected: invalid vector subscript");
}

TEST(Attempt, TheTextOfAnErrorDoesNotFollowAFailureFromBefore)
{
    Report report = reportAt("a.txt", 0);
    fail(report, "the file cannot be opened", Window::goesOn);
    report.place = {"b.txt", 3};
    EXPECT_FALSE(attempt(report, [&report] {
        fail(report, "1 field, 2 expected");
        throw std::out_of_range("invalid vector subscript");
    }));
    EXPECT_EQ(report.failure, (Failure{{"a.txt", 0}, "the file cannot be opened"}));
    EXPECT_EQ(outcomeOf([&] { return finish(report); }), invalidSubscript);
}

TEST(WindowReport, PrintsALineAtOnceAmongThoseOfTheStandardOutput)
{
    Report report = windowReport();
    CapturedStreams streams;
    dup2(STDOUT_FILENO, STDERR_FILENO); // both streams to one place, as in a terminal
    std::cout << "opening su file line.su\n";
    print(report, "Error while loading line.su");
    std::cout << "trace 1 of 2\n";
    streams.finish();
    EXPECT_EQ(streams.output,
              "opening su file line.su\nError while loading line.su\ntrace 1 of 2\n");
    EXPECT_EQ(report.printed, "");
}

TEST(Finish, ReturnsTheResult)
{
    Report report;
    EXPECT_EQ(finish(report), 0);
    fail(report, "it breaks off", Window::goesOn);
    EXPECT_EQ(finish(report), 0);
    fail(report, "no keyword");
    EXPECT_EQ(finish(report), 1);
}

TEST(Finish, RaisesTheErrorAgain)
{
    Report report;
    attempt(report, [] { throw std::invalid_argument("invalid stod argument"); });
    EXPECT_EQ(outcomeOf([&] { return finish(report); }), "invalid argument: invalid stod argument");
    attempt(report, [] { throw std::length_error("vector too long"); });
    EXPECT_EQ(outcomeOf([&] { return finish(report); }), tooLong);
}

TEST(Finish, WritesNothing)
{
    Report report = reportAt("a.xyz", 3);
    fail(report, "no heading");
    remark(report, RemarkKind::numbering, "twice");
    print(report, "Invalid header : FBP");
    print(report, "");
    CapturedStreams streams;
    EXPECT_EQ(finish(report), 1);
    streams.finish();
    EXPECT_EQ(streams.output + streams.error, "");
    EXPECT_EQ(report.printed, "Invalid header : FBP\n\n");
}
