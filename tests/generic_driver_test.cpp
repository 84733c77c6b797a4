// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/generic_text.h"

#include "tests/support/reading.h"
#include "tests/support/traveltime_files.h"
#include "traveltime/otte_writer.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

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
void expectFailure(const Texts &files, const Numbers &xs, const Numbers &elevations,
                   const std::string &outcome, const Failure &expected)
{
    expectConversionFails(
        [&](const std::string &path) { return convertGenericText(files, path, xs, elevations); },
        [&](TraveltimeSurvey &survey, Report &report) {
            return readGenericFiles(files, xs, elevations, survey, report);
        },
        outcome, expected);
}

/// What the inner forms report of a conversion.
Report reportOf(const Texts &files, const Numbers &xs, const Numbers &elevations,
                const std::string &outputPath)
{
    TraveltimeSurvey survey;
    Report report;
    const bool isRead = readGenericFiles(files, xs, elevations, survey, report);
    EXPECT_EQ(isRead, !report.failure);
    const bool isWritten = writeOtte(outputPath, survey, report);
    EXPECT_EQ(isWritten, !report.failure);
    return report;
}

} // namespace

TEST(GenericDriver, TwoReceiversAndTheirShot)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    EXPECT_EQ(
        convertGenericText({folder.write("shot.txt", fileOf(genericLines))}, path, {-1.0}, {100.0}),
        0);
    EXPECT_EQ(readFile(path), genericOtte);
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
    // The first is the one told.
    const Report report = reportOf(files, {1.0, 2.0, 3.0}, {50.0, 51.0, 52.0}, path);
    EXPECT_EQ(report.failure, (Failure{{files[0], 0}, "the file cannot be opened"}));
}

TEST(GenericDriver, FileThatCannotBeReadConvertsAndIsTold)
{
    const TemporaryFolder folder;
    const std::string good = folder.write("shot.txt", "0;100;0.001\n");
    const std::string mem = "/proc/self/mem";
    const std::string path = folder.path("line.otte");
    EXPECT_EQ(convertGenericText({good, mem, good}, path, {1.0, 2.0, 3.0}, {50.0, 51.0, 52.0}), 0);
    EXPECT_EQ(readFile(path), "otte\n1.0\n2\n2\n0;\n100;\n\n\n1;2;3;\n50;51;52;\n"
                              "0\n0\n1;\n"
                              "1\n1\n\n"
                              "0\n2\n1;\n");
    const Report report =
        reportOf({good, mem, good}, {1.0, 2.0, 3.0}, {50.0, 51.0, 52.0}, folder.path("other.otte"));
    EXPECT_EQ(report.failure, (Failure{{mem, 0}, "the file cannot be read to its end"}));
    EXPECT_EQ(readFile(folder.path("other.otte")), readFile(path));
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
    const std::vector<std::string> files = {folder.write("shot1.txt", fileOf(genericLines)),
                                            folder.write("shot2.txt", fileOf(genericLines)),
                                            folder.write("shot3.txt", fileOf(genericLines))};
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
        expectFailure(files, xs, elevations, invalidSubscript,
                      {{files[file], 0},
                       "no shot position is given for this file: invalid vector subscript"});
    }
}

TEST(GenericDriver, MalformedFileLeavesTheOutputAlone)
{
    const TemporaryFolder folder;
    const std::string good = folder.write("good.txt", fileOf(genericLines));
    const std::string twoFields = folder.write("two fields.txt", "0;100;0.001\n5;100\n");
    const std::string delimiters = folder.write("delimiters.txt", "0;100;0.001\n5;100;1\n;;\n");
    const std::vector<double> three(3, 0.0);
    expectFailure({twoFields, good, good}, three, three, invalidSubscript,
                  {{twoFields, 2}, "2 fields, 3 expected: invalid vector subscript"});
    expectFailure({good, good, twoFields}, three, three, invalidSubscript,
                  {{twoFields, 2}, "2 fields, 3 expected: invalid vector subscript"});
    expectFailure({good, delimiters, good}, three, three, invalidPosition,
                  {{delimiters, 3}, "nothing but delimiters: invalid string position"});
}

TEST(GenericDriver, TheFirstFailureInFileOrderCounts)
{
    const TemporaryFolder folder;
    const std::string good = folder.write("good.txt", fileOf(genericLines));
    const std::string bad = folder.write("bad.txt", ";\n");
    expectFailure({bad, good}, {0.0}, {0.0}, invalidPosition,
                  {{bad, 1}, "nothing but delimiters: invalid string position"});
    expectFailure({good, bad}, {0.0}, {0.0}, invalidSubscript,
                  {{bad, 0}, "no shot position is given for this file: invalid vector subscript"});
    // A file that the window takes for an empty shot, and then one that it refuses.
    const std::string missing = folder.path("missing.txt");
    expectFailure({missing, bad}, {0.0, 1.0}, {0.0, 1.0}, invalidPosition,
                  {{missing, 0}, "the file cannot be opened"});
    expectFailure({missing, good}, {0.0}, {0.0}, invalidSubscript,
                  {{missing, 0}, "the file cannot be opened"});
}

TEST(GenericDriver, OutputInAMissingFolderIsOne)
{
    const TemporaryFolder folder;
    const std::string shot = folder.write("shot.txt", fileOf(genericLines));
    const std::string path = folder.path("missing/line.otte");
    EXPECT_EQ(convertGenericText({shot}, path, {0.0}, {0.0}), 1);
    const Report report = reportOf({shot}, {0.0}, {0.0}, path);
    EXPECT_EQ(report.failure, (Failure{{path, 0}, systemText(ENOENT)}));
    EXPECT_EQ(report.result, 1);
}

TEST(GenericDriver, FullDiskIsZeroAndTold)
{
    const TemporaryFolder folder;
    const std::string shot = folder.write("shot.txt", fileOf(genericLines));
    EXPECT_EQ(convertGenericText({shot}, "/dev/full", {0.0}, {0.0}), 0);
    const Report report = reportOf({shot}, {0.0}, {0.0}, "/dev/full");
    EXPECT_EQ(report.failure, (Failure{{"/dev/full", 0}, systemText(ENOSPC)}));
    EXPECT_EQ(report.result, 0);
}

TEST(GenericDriver, SuccessTellsNothing)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.otte");
    const std::string shot = folder.write("shot.txt", "0;100;0.001\n");
    const Report report = reportOf({shot}, {1.0}, {50.0}, path);
    EXPECT_EQ(failureOf(report), "");
    EXPECT_EQ(remarksOf(report), Texts{});
    EXPECT_EQ(report.result, 0);
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

TEST(GenericDriver, NanMakesASpreadOfItsOwn)
{
    EXPECT_EQ(converted({"nan;100;nan\n", "nan;100;0.001\n"}),
              "otte\n1.0\n2\n2\nnan;\n100;\nnan;\n100;\n0;1;\n50;50;\n0\n0\nnan;\n1\n1\n1;\n");
}

TEST(GenericDriver, EmptyFileIsAnEmptyShot)
{
    EXPECT_EQ(converted({""}), "otte\n1.0\n2\n1\n\n\n0;\n50;\n0\n0\n\n");
}

TEST(GenericDriver, ShotPositionsThatSixDigitsDoNotHoldAreRemarked)
{
    const TemporaryFolder folder;
    const Texts files = {folder.write("shot1.txt", "12345.64;100;0.001\n"),
                         folder.write("shot2.txt", "0;100;0.001\n")};
    const Report report =
        reportOf(files, {12345.67, 1.0}, {50.0, 1234567.0}, folder.path("line.otte"));
    EXPECT_EQ(failureOf(report), "");
    ASSERT_EQ(report.remarks.size(), 2U);
    // Of a file and its shot the worst.
    EXPECT_EQ(report.remarks[0], (Remark{RemarkKind::roundedPosition,
                                         {files[0], 1},
                                         "a position of 12345.64 m becomes 12345.6 m, as the "
                                         "output has six digits"}));
    EXPECT_EQ(report.remarks[1], (Remark{RemarkKind::roundedPosition,
                                         {files[1], 0},
                                         "a position of 1234567 m becomes 1.23457e+06 m, as the "
                                         "output has six digits"}));
}

TEST(GenericDriver, RemarksOfAllFilesStand)
{
    const TemporaryFolder folder;
    const Texts files = {folder.write("shot1.txt", "0;100;x\n"), folder.write("shot2.txt", ""),
                         folder.write("shot3.txt", "0;100;y\n")};
    const Report report =
        reportOf(files, {1.0, 2.0, 3.0}, {50.0, 50.0, 50.0}, folder.path("line.otte"));
    EXPECT_EQ(report.failure, (Failure{{files[1], 0}, "the file is empty"}));
    EXPECT_EQ(remarksOf(report),
              (Texts{"not a number, 1: \"x\" is read as 0: it is no plain number",
                     "not a number, 1: \"y\" is read as 0: it is no plain number"}));
    EXPECT_EQ(report.remarks[0].place.file, files[0]);
    EXPECT_EQ(report.remarks[1].place.file, files[2]);
}
