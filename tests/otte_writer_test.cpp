// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/otte_writer.h"

#include "tests/support/reading.h"
#include "tests/support/special_numbers.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <limits>

namespace {

/// What the writer makes of a survey.
std::string written(const TraveltimeSurvey &survey)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    EXPECT_EQ(writeOtteFile(path, survey.traveltimes, survey.spreads, survey.shots), 0);
    return readFile(path);
}

/// What the inner form reports of writing a survey; it writes nothing to the standard streams.
Report reportOf(const std::string &path, const TraveltimeSurvey &survey)
{
    Report report;
    CapturedStreams streams;
    const bool wentWell = writeOtte(path, survey, report);
    streams.finish();
    EXPECT_EQ(streams.output + streams.error, "");
    EXPECT_EQ(wentWell, !report.failure);
    return report;
}

/// The line of times that the writer makes of one time.
std::string timesLine(double time)
{
    const std::string before = "otte\n1.0\n2\n0\n\n\n0\n0\n";
    const std::string text = written({{{0, 0, 0.0, 0.0, {time}}}, {}, {}});
    return text.starts_with(before) ? text.substr(before.size()) : text;
}

const TraveltimeSurvey twoShots = {
    {{0, 0, -2.5, 100.0, {0.0021, 0.0105, 0.0187}}, {0, 1, 12.5, 101.0, {0.0152, 0.0081, 0.0024}}},
    {{{0.0, 100.0}, {5.0, 100.5}, {10.0, 101.0}}},
    {{-2.5, 100.0, "shot1.txt"}, {12.5, 101.0, "shot2.txt"}}};

const char twoShotsText[] = "otte\n"
                            "1.0\n"
                            "2\n"
                            "1\n"
                            "0;5;10;\n"
                            "100;100.5;101;\n"
                            "-2.5;12.5;\n"
                            "100;101;\n"
                            "0\n"
                            "0\n"
                            "2.1;10.5;18.7;\n"
                            "0\n"
                            "1\n"
                            "15.2;8.1;2.4;\n";

const char emptyText[] = "otte\n1.0\n2\n0\n\n\n";

} // namespace

TEST(OtteWriter, TwoShotsOnOneSpread)
{
    EXPECT_EQ(written(twoShots), twoShotsText);
}

TEST(OtteWriter, EmptySurveyIsSixLines)
{
    EXPECT_EQ(written({}), "otte\n1.0\n2\n0\n\n\n");
}

TEST(OtteWriter, SpreadWithoutReceiversIsTwoEmptyLines)
{
    EXPECT_EQ(written({{}, {{}}, {}}), "otte\n1.0\n2\n1\n\n\n\n\n");
}

TEST(OtteWriter, RecordWithoutTimesIsTwoIndicesAndAnEmptyLine)
{
    EXPECT_EQ(written({{{3, 7, 1.0, 2.0, {}}}, {}, {}}), "otte\n1.0\n2\n0\n\n\n3\n7\n\n");
}

TEST(OtteWriter, TimesAreMillisecondsOfSixDigits)
{
    EXPECT_EQ(timesLine(0.0123456789), "12.3457;\n");
}

TEST(OtteWriter, NegativeTimePasses)
{
    EXPECT_EQ(timesLine(-1.0), "-1000;\n");
}

TEST(OtteWriter, TimesAtTheEdgesOfSixDigits)
{
    const struct
    {
        double time;
        std::string line;
    } cases[] = {
        {0.0, "0;\n"},
        {-0.0, "-0;\n"},
        {0.0125, "12.5;\n"},
        {99.9999, "99999.9;\n"},
        {999.9994, "999999;\n"},
        {999.9996, "1e+06;\n"},
        {1000.0, "1e+06;\n"},
        {1234.567, "1.23457e+06;\n"},
        {0.0000001, "0.0001;\n"},
        {0.00000001, "1e-05;\n"},
        {1e308, "inf;\n"},
        {infinity, "inf;\n"},
        {-infinity, "-inf;\n"},
        {std::numeric_limits<double>::quiet_NaN(), "nan;\n"},
    };
    for (const auto &[time, line] : cases)
        EXPECT_EQ(timesLine(time), line) << time;
}

TEST(OtteWriter, PositionsAtTheEdgesOfSixDigits)
{
    EXPECT_EQ(
        written({{},
                 {{{999999.5, 1000.0}, {1234567.0, 0.0001}, {100000.0, 0.00001}, {1e6, -0.0}}},
                 {{12.5, -2.5, ""}, {infinity, 123456.7, ""}}}),
        "otte\n1.0\n2\n1\n"
        "1e+06;1.23457e+06;100000;1e+06;\n"
        "1000;0.0001;1e-05;-0;\n"
        "12.5;inf;\n"
        "-2.5;123457;\n");
}

TEST(OtteWriter, SpreadsStandInTheirOrder)
{
    EXPECT_EQ(written({{}, {{{1.0, 2.0}}, {}, {{3.0, 4.0}, {5.0, 6.0}}}, {}}), "otte\n1.0\n2\n3\n"
                                                                               "1;\n2;\n"
                                                                               "\n\n"
                                                                               "3;5;\n4;6;\n"
                                                                               "\n\n");
}

TEST(OtteWriter, ShotsWithoutRecordsAndSpreadsAreWritten)
{
    EXPECT_EQ(written({{}, {}, {{1.0, 2.0, ""}}}), "otte\n1.0\n2\n0\n1;\n2;\n");
}

TEST(OtteWriter, IndicesAreUnsignedAndPlain)
{
    EXPECT_EQ(written({{{4294967295u, 1234567u, 0.0, 0.0, {0.001}}}, {}, {}}),
              "otte\n1.0\n2\n0\n\n\n4294967295\n1234567\n1;\n");
}

TEST(OtteWriter, NumberOfSpreadsIsPlain)
{
    const std::string text = written({{}, std::vector<Spread>(1234), {}});
    EXPECT_EQ(text, "otte\n1.0\n2\n1234\n" + std::string(2 * 1234 + 2, '\n'));
}

TEST(OtteWriter, SurveyThatContradictsItselfIsWrittenAsItStands)
{
    EXPECT_EQ(written({{{9, 8, 0.0, 0.0, {0.001, 0.002}}}, {{{0.0, 100.0}}}, {{1.0, 2.0, ""}}}),
              "otte\n1.0\n2\n1\n0;\n100;\n1;\n2;\n9\n8\n1;2;\n");
}

TEST(OtteWriter, OlderLongerFileIsReplaced)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.otte", std::string(5000, 'x'));
    EXPECT_EQ(writeOtteFile(path, {}, {}, {}), 0);
    EXPECT_EQ(readFile(path), emptyText);
}

TEST(OtteWriter, FileNameIsUsedAsGiven)
{
    const TemporaryFolder folder;
    for (const std::string name : {"line", "line.txt", "Profil 1 Übung é 測線.otte", " .otte "}) {
        EXPECT_EQ(writeOtteFile(folder.path(name), {}, {}, {}), 0) << name;
        EXPECT_EQ(readFile(folder.path(name)), emptyText) << name;
    }
    const std::filesystem::directory_iterator files(folder.path(""));
    EXPECT_EQ(std::distance(begin(files), end(files)), 4);
}

TEST(OtteWriter, MissingFolderIsOne)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("missing/line.otte");
    EXPECT_EQ(writeOtteFile(path, {}, {}, {}), 1);
    const Report report = reportOf(path, {});
    EXPECT_EQ(report.failure, (Failure{{path, 0}, systemText(ENOENT)}));
    EXPECT_EQ(report.result, 1);
    EXPECT_FALSE(exists(folder.path("missing")));
}

TEST(OtteWriter, EmptyFileNameIsOne)
{
    EXPECT_EQ(writeOtteFile("", {}, {}, {}), 1);
}

TEST(OtteWriter, FolderAsOutputIsOne)
{
    const TemporaryFolder folder;
    EXPECT_EQ(writeOtteFile(folder.path(""), {}, {}, {}), 1);
    const Report report = reportOf(folder.path(""), {});
    EXPECT_EQ(report.failure, (Failure{{folder.path(""), 0}, systemText(EISDIR)}));
    EXPECT_EQ(report.result, 1);
}

TEST(OtteWriter, FullDiskIsZeroAndTold)
{
    // One survey that fails when the file is closed, one that fails on the way.
    const TraveltimeSurvey large = {
        {{0, 0, 0.0, 0.0, std::vector<double>(100000, 0.0123)}}, {}, {}};
    for (const TraveltimeSurvey &survey : {twoShots, large}) {
        EXPECT_EQ(writeOtteFile("/dev/full", survey.traveltimes, survey.spreads, survey.shots), 0);
        const Report report = reportOf("/dev/full", survey);
        EXPECT_EQ(report.failure, (Failure{{"/dev/full", 0}, systemText(ENOSPC)}));
        EXPECT_EQ(report.result, 0);
    }
}

TEST(OtteWriter, SuccessTellsNothing)
{
    const TemporaryFolder folder;
    const Report report = reportOf(folder.path("line.otte"), twoShots);
    EXPECT_EQ(failureOf(report), "");
    EXPECT_EQ(remarksOf(report), Texts{});
    EXPECT_EQ(readFile(folder.path("line.otte")), twoShotsText);
}

TEST(OtteWriter, AFailureFromBeforeStays)
{
    const TemporaryFolder folder;
    Report report;
    fail(report, {"shot2.txt", 24}, "it breaks off", Window::goesOn);
    EXPECT_FALSE(writeOtte(folder.path("line.otte"), twoShots, report));
    EXPECT_EQ(readFile(folder.path("line.otte")), twoShotsText);
    EXPECT_FALSE(writeOtte("/dev/full", twoShots, report));
    EXPECT_EQ(report.failure, (Failure{{"shot2.txt", 24}, "it breaks off"}));
    EXPECT_EQ(report.result, 0);
}

TEST(ConvertToOtte, WritesWhatIsRead)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    EXPECT_EQ(convertToOtte([](TraveltimeSurvey &survey, Report &) { survey = twoShots; }, path),
              0);
    EXPECT_EQ(readFile(path), twoShotsText);
}

TEST(ConvertToOtte, WritesNothingWhereTheWindowStops)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    EXPECT_EQ(
        convertToOtte([](TraveltimeSurvey &, Report &report) { fail(report, "no keyword"); }, path),
        1);
    EXPECT_EQ(outcomeOf([&] {
                  return convertToOtte(
                      [](TraveltimeSurvey &, Report &report) {
                          attempt(report, [] { throw std::length_error("vector too long"); });
                      },
                      path);
              }),
              tooLong);
    EXPECT_FALSE(exists(path));
}

TEST(ConvertToOtte, WritesWhereTheWindowGoesOn)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    const auto read = [](TraveltimeSurvey &survey, Report &report) {
        survey = twoShots;
        fail(report, "it breaks off", Window::goesOn);
        remark(report, RemarkKind::notANumber, "\"x\" is read as 0");
    };
    EXPECT_EQ(convertToOtte(read, path), 0);
    EXPECT_EQ(readFile(path), twoShotsText);
    EXPECT_EQ(convertToOtte(read, folder.path("missing/line.otte")), 1);
}

TEST(OtteWriter, WritesNoMessage)
{
    const TemporaryFolder folder;
    CapturedStreams streams;
    writeOtteFile(folder.path("line.otte"), {}, {}, {});
    writeOtteFile(folder.path("missing/line.otte"), {}, {}, {});
    writeOtteFile("/dev/full", {}, {}, {});
    streams.finish();
    EXPECT_EQ(streams.output, "");
    EXPECT_EQ(streams.error, "");
}
