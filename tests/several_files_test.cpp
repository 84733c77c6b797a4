// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/drivers.h"

#include "tests/support/reading.h"
#include "tests/support/traveltime_files.h"
#include "traveltime/otte_writer.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sstream>

namespace {

/// Expects that both forms of the driver for several files fail in this way.
void expectFilesFail(const Texts &files, const std::string &outcome, const Failure &expected)
{
    expectConversionFails(
        [&](const std::string &path) { return convertSeisImagerFiles(files, path); },
        [&](TraveltimeSurvey &survey, Report &report) {
            return readSeisImagerFiles(files, survey, report);
        },
        outcome, expected);
}

/// What the inner forms report of a conversion.
Report reportOf(const Texts &files, const std::string &outputPath)
{
    TraveltimeSurvey survey;
    Report report;
    const bool isRead = readSeisImagerFiles(files, survey, report);
    EXPECT_EQ(isRead, !report.failure);
    writeOtte(outputPath, survey, report);
    return report;
}

/// What several SeisImager files of these texts convert to.
std::string merged(const Texts &texts)
{
    const TemporaryFolder folder;
    Texts files;
    for (const std::string &text : texts)
        files.push_back(folder.write(std::to_string(files.size()) + ".vs", text));
    const std::string path = folder.path("line.otte");
    const std::string outcome = outcomeOf([&] { return convertSeisImagerFiles(files, path); });
    return outcome == "0" ? readFile(path) : outcome;
}

/// A file of so many shots on one receiver.
std::string fileOfShots(int count)
{
    std::string text = "picks\n0 " + std::to_string(count) + '\n';
    for (int shot = 0; shot < count; ++shot)
        text += "7 1\n0 1\n";
    return text;
}

/// The remarks on files of so many shots each, each with the number of its file.
Texts remarksOnShots(const std::vector<int> &shotCounts)
{
    const TemporaryFolder folder;
    Texts files;
    for (const int count : shotCounts)
        files.push_back(folder.write(std::to_string(files.size()) + ".vs", fileOfShots(count)));
    const Report report = reportOf(files, folder.path("line.otte"));
    EXPECT_EQ(failureOf(report), "");
    Texts remarks = remarksOf(report);
    for (std::size_t i = 0; i < remarks.size(); ++i) {
        const auto file = std::find(files.begin(), files.end(), report.remarks[i].place.file);
        remarks[i].insert(0, "file " + std::to_string(file - files.begin()) + ": ");
    }
    return remarks;
}

/// The shotIndex of each record of several files that hold so many shots each, on one receiver.
std::string shotIndices(const std::vector<int> &shotCounts)
{
    Texts texts;
    int shots = 0;
    for (const int count : shotCounts) {
        texts.push_back(fileOfShots(count));
        shots += count;
    }
    std::string positions;
    std::string elevations;
    for (int shot = 0; shot < shots; ++shot) {
        positions += "7;";
        elevations += "0;";
    }
    const std::string header =
        shots == 0 ? "otte\n1.0\n2\n0\n\n\n"
                   : "otte\n1.0\n2\n1\n0;\n0;\n" + positions + '\n' + elevations + '\n';
    const std::string text = merged(texts);
    if (!text.starts_with(header))
        return text;
    std::istringstream records(text.substr(header.size()));
    std::string spreadIndex;
    std::string shotIndex;
    std::string times;
    std::string indices;
    while (records >> spreadIndex >> shotIndex >> times)
        indices += spreadIndex == "0" && times == "1;" ? shotIndex + ' ' : "another record ";
    return indices;
}

const char oneShotA[] = "picks\n5 1\n-2.5 2\n0 2.1\n5 10.5\n";
const char oneShotB[] = "picks\n6 1\n12.5 2\n0 15.2\n5 8.1\n";
const char oneShotC[] = "picks\n7 1\n2.5 2\n0 3\n5.5 4\n";

} // namespace

TEST(SeveralSeisImagerFiles, OfOneShotEachAreNumberedInFileOrder)
{
    EXPECT_EQ(merged({oneShotA, oneShotB, oneShotC}), "otte\n"
                                                      "1.0\n"
                                                      "2\n"
                                                      "2\n"
                                                      "0;5;\n"
                                                      "0;0;\n"
                                                      "0;5.5;\n"
                                                      "0;0;\n"
                                                      "-2.5;12.5;2.5;\n"
                                                      "0;0;0;\n"
                                                      "0\n"
                                                      "0\n"
                                                      "2.1;10.5;\n"
                                                      "0\n"
                                                      "1\n"
                                                      "15.2;8.1;\n"
                                                      "1\n"
                                                      "2\n"
                                                      "3;4;\n");
    EXPECT_EQ(shotIndices({1, 1, 1}), "0 1 2 ");
}

TEST(SeveralSeisImagerFiles, OfTwoShotsEachKeepTheirOwnNumbersBehindTheFileCount)
{
    EXPECT_EQ(shotIndices({2, 2}), "0 1 0 1 ");
}

TEST(SeveralSeisImagerFiles, FileWithoutRecordsIsPassedOver)
{
    EXPECT_EQ(shotIndices({1, 0, 1}), "0 0 ");
    EXPECT_EQ(shotIndices({0, 1, 1}), "0 0 ");
    EXPECT_EQ(shotIndices({1, 1, 0}), "0 1 ");
    EXPECT_EQ(shotIndices({0}), "");
    EXPECT_EQ(shotIndices({0, 0, 0}), "");
}

TEST(SeveralSeisImagerFiles, RecordAtTheFilesPositionIsRenumbered)
{
    const struct
    {
        std::vector<int> shotCounts;
        std::string indices;
    } cases[] = {
        {{1}, "0 "},
        {{3}, "0 1 2 "},
        {{2, 2, 2}, "0 1 2 1 0 1 "},
        {{2, 1, 1, 1}, "0 1 2 3 0 "},
        {{3, 1, 1}, "0 1 2 0 0 "},
        {{1, 3, 1}, "0 1 2 2 0 "},
        {{1, 2}, "0 1 1 "},
        {{0, 2}, "0 1 "},
        {{0, 3, 2}, "0 1 2 0 1 "},
        {{0, 0, 1, 2}, "0 0 1 "},
        {{2, 0, 1}, "0 1 2 "},
        {{2, 0, 0, 2}, "0 1 0 3 "},
    };
    for (const auto &[shotCounts, indices] : cases)
        EXPECT_EQ(shotIndices(shotCounts), indices) << testing::PrintToString(shotCounts);
}

TEST(SeveralSeisImagerFiles, NoFilesMakeAnEmptyOutput)
{
    EXPECT_EQ(merged({}), "otte\n1.0\n2\n0\n\n\n");
}

TEST(SeveralSeisImagerFiles, OneFileConvertsAsAloneAndTellsNothing)
{
    const TemporaryFolder folder;
    const std::string inputPath = folder.write("a.vs", fileOf(twoSeisImagerShots));
    const Report report = reportOf({inputPath}, folder.path("line.otte"));
    EXPECT_EQ(readFile(folder.path("line.otte")), seisImagerShotsOtte);
    EXPECT_EQ(failureOf(report), "");
    EXPECT_EQ(remarksOf(report), Texts{});
}

TEST(SeveralSeisImagerFiles, TheSameFileTwiceIsTwoShotsOnOneSpread)
{
    EXPECT_EQ(merged({oneShotA, oneShotA}),
              "otte\n1.0\n2\n1\n0;5;\n0;0;\n-2.5;-2.5;\n0;0;\n0\n0\n2.1;10.5;\n0\n1\n2.1;10.5;\n");
}

TEST(SeveralSeisImagerFiles, ShotsWithoutReceiversNeverShareASpread)
{
    EXPECT_EQ(merged({"picks\n0 1\n1 0\n", "picks\n0 1\n2 0\n"}),
              "otte\n1.0\n2\n2\n\n\n\n\n1;2;\n0;0;\n0\n0\n\n1\n1\n\n");
}

TEST(SeveralSeisImagerFiles, FileThatCannotBeOpenedEndsTheConversionWithOne)
{
    const TemporaryFolder folder;
    const std::string a = folder.write("a.vs", oneShotA);
    const std::string b = folder.write("b.vs", oneShotB);
    const std::string missing = folder.path("missing.vs");
    const Failure expected{{missing, 0}, "the file cannot be opened"};
    expectFilesFail({missing, a, b}, "1", expected);
    expectFilesFail({a, missing, b}, "1", expected);
    expectFilesFail({a, b, missing}, "1", expected);
    expectFilesFail({missing}, "1", expected);
    expectFilesFail({a, folder.path("")}, "1", {{folder.path(""), 0}, "the file cannot be opened"});
}

TEST(SeveralSeisImagerFiles, FileThatCannotBeOpenedIsOneWithOrWithoutARecordAtItsPosition)
{
    const TemporaryFolder folder;
    const std::string twoShots = folder.write("a.vs", fileOf(twoSeisImagerShots));
    const std::string noShots = folder.write("b.vs", "picks\n0 0\n");
    const std::string missing = folder.path("missing.vs");
    const Failure expected{{missing, 0}, "the file cannot be opened"};
    expectFilesFail({twoShots, missing, twoShots}, "1", expected);
    expectFilesFail({noShots, missing, twoShots}, "1", expected);
}

TEST(SeveralSeisImagerFiles, NoFileAfterAFailureIsRead)
{
    const TemporaryFolder folder;
    const std::string malformed = folder.write("malformed.vs", "picks\n1\n");
    const std::string missing = folder.path("missing.vs");
    expectFilesFail({missing, malformed}, "1", {{missing, 0}, "the file cannot be opened"});
    expectFilesFail({malformed, missing}, invalidSubscript,
                    {{malformed, 2}, "1 field, 2 expected: invalid vector subscript"});
}

TEST(SeveralSeisImagerFiles, ErrorsPassThroughAndLeaveNoOutput)
{
    const TemporaryFolder folder;
    const std::string a = folder.write("a.vs", oneShotA);
    const std::string cut = folder.write("cut.vs", "picks\n0 1\n-2.5 2\n0 2.1\n5\n");
    const std::string blanks = folder.write("blanks.vs", "picks\n0 1\n-2.5 2\n   \n");
    expectFilesFail({a, cut, a}, invalidSubscript,
                    {{cut, 5}, "1 field, 2 expected: invalid vector subscript"});
    expectFilesFail({a, a, blanks}, invalidPosition,
                    {{blanks, 4}, "nothing but delimiters: invalid string position"});
}

TEST(SeveralSeisImagerFiles, OutputInAMissingFolderIsOneAfterASuccessfulRead)
{
    const TemporaryFolder folder;
    const Texts files = {folder.write("a.vs", oneShotA), folder.write("b.vs", oneShotB)};
    const std::string outputPath = folder.path("missing/line.otte");
    EXPECT_EQ(convertSeisImagerFiles(files, outputPath), 1);
    const Report report = reportOf(files, outputPath);
    EXPECT_EQ(report.failure, (Failure{{outputPath, 0}, systemText(ENOENT)}));
    EXPECT_EQ(report.result, 1);
}

TEST(SeveralSeisImagerFiles, FullDiskIsZeroAndTold)
{
    const TemporaryFolder folder;
    const Texts files = {folder.write("a.vs", oneShotA), folder.write("b.vs", oneShotB)};
    EXPECT_EQ(convertSeisImagerFiles(files, "/dev/full"), 0);
    const Report report = reportOf(files, "/dev/full");
    EXPECT_EQ(report.failure, (Failure{{"/dev/full", 0}, systemText(ENOSPC)}));
    EXPECT_EQ(report.result, 0);
}

TEST(SeveralSeisImagerFiles, FileNamesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    const std::string outputPath = folder.path("Ausgabe é 測線.otte");
    EXPECT_EQ(convertSeisImagerFiles({folder.write("Schuß 1 Übung.vs", fileOf(twoSeisImagerShots))},
                                     outputPath),
              0);
    EXPECT_EQ(readFile(outputPath), seisImagerShotsOtte);
}

TEST(SeveralSeisImagerFiles, OfOneShotEachAreNoRemark)
{
    EXPECT_EQ(remarksOnShots({1, 1, 1}), Texts{});
    EXPECT_EQ(remarksOnShots({1}), Texts{});
    EXPECT_EQ(remarksOnShots({3}), Texts{}); // one file numbers its own shots
    EXPECT_EQ(remarksOnShots({}), Texts{});
}

TEST(SeveralSeisImagerFiles, ThatAreNotNumberedThroughAreARemarkOnTheFirstReason)
{
    const std::string numbering = " in one of several files: the shots are not numbered through, "
                                  "so that picks go to another shot";
    const std::string noShots = "no shots, 2: there are no shots in this file";
    EXPECT_EQ(remarksOnShots({2, 2}), Texts{"file 0: numbering, 2: 2 shots" + numbering});
    EXPECT_EQ(remarksOnShots({1, 3, 2}), Texts{"file 1: numbering, 2: 3 shots" + numbering});
    EXPECT_EQ(remarksOnShots({1, 2}), Texts{"file 1: numbering, 2: 2 shots" + numbering});
    EXPECT_EQ(remarksOnShots({0, 1, 1}),
              (Texts{"file 0: " + noShots, "file 0: numbering, 2: 0 shots" + numbering}));
    // By chance these are: the indices are 0 1 2 and 0 1.
    EXPECT_EQ(remarksOnShots({2, 0, 1}), Texts{"file 1: " + noShots});
    EXPECT_EQ(remarksOnShots({1, 1, 0}), Texts{"file 2: " + noShots});
    EXPECT_EQ(remarksOnShots({0, 2}), Texts{"file 0: " + noShots});
}

TEST(SeveralSeisImagerFiles, RemarksOfAllFilesStand)
{
    const TemporaryFolder folder;
    const Texts files = {folder.write("a.vs", "picks\n0 1\n1 1\nx 5\n"),
                         folder.write("b.vs", "picks\n0 1\n1 1\n0 -1\nmore\n")};
    const Report report = reportOf(files, folder.path("line.otte"));
    EXPECT_EQ(failureOf(report), "");
    EXPECT_EQ(remarksOf(report),
              (Texts{"not a number, 4: \"x\" is read as 0: it is no plain number",
                     "negative time, 4: a time of -1 ms goes into the output like any other, also "
                     "where it means \"not picked\"",
                     "not read, 5: 1 line after the last shot: not read"}));
    EXPECT_EQ(report.remarks[0].place.file, files[0]);
    EXPECT_EQ(report.remarks[1].place.file, files[1]);
    EXPECT_EQ(report.remarks[2].place.file, files[1]);
}

TEST(SeveralSeisImagerFiles, AfterAFailureNothingIsSaidOfTheNumbers)
{
    const TemporaryFolder folder;
    const Texts files = {folder.write("a.vs", fileOfShots(2)), folder.write("b.vs", "picks\n")};
    TraveltimeSurvey survey;
    Report report;
    EXPECT_FALSE(readSeisImagerFiles(files, survey, report));
    EXPECT_EQ(failureOf(report),
              "1: the file ends before its number of shots: invalid vector subscript");
    EXPECT_EQ(remarksOf(report), Texts{});
}
