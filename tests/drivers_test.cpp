// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/drivers.h"

#include "readers/geogiga.h"
#include "readers/winsism.h"
#include "tests/support/reading.h"
#include "tests/support/traveltime_files.h"
#include "traveltime/otte_writer.h"
#include "traveltime/project_files.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

/// The driver of one format, its reading alone, and a small survey with the output that it makes.
struct Driver
{
    std::string name;
    std::int32_t (*convert)(std::string inputPath, std::string outputPath);
    bool (*read)(const std::string &inputPath, TraveltimeSurvey &survey, Report &report);
    std::string input;
    std::string output;
};

bool readOneSeisImagerFile(const std::string &inputPath, TraveltimeSurvey &survey, Report &report)
{
    return readSeisImagerFiles({inputPath}, survey, report);
}

const Driver geogiga = {"Geogiga", convertGeogiga, readGeogiga, fileOf(geogigaLines),
                        geogigaLinesOtte};
const Driver winsism = {"Winsism", convertWinsism, readWinsism, fileOf(winsismLines),
                        winsismLinesOtte};
const Driver seisImager = {"SeisImager", convertSeisImager, readOneSeisImagerFile,
                           fileOf(twoSeisImagerShots), seisImagerShotsOtte};

const Driver allDrivers[] = {geogiga, winsism, seisImager};

/// What the inner forms report of a conversion.
Report reportOf(const Driver &driver, const std::string &inputPath, const std::string &outputPath)
{
    TraveltimeSurvey survey;
    Report report;
    driver.read(inputPath, survey, report);
    writeOtte(outputPath, survey, report);
    return report;
}

/// Expects that both forms of a driver fail in this way, and leave the output alone.
void expectFailure(const Driver &driver, const std::string &inputPath, const std::string &outcome,
                   std::size_t line, const std::string &text)
{
    SCOPED_TRACE(driver.name + ": " + text);
    CapturedStreams streams; // the Winsism reader's line is written there
    expectConversionFails([&](const std::string &path) { return driver.convert(inputPath, path); },
                          [&](TraveltimeSurvey &survey, Report &report) {
                              return driver.read(inputPath, survey, report);
                          },
                          outcome, {{inputPath, line}, text});
}

void expectTextFails(const Driver &driver, const std::string &text, const std::string &outcome,
                     std::size_t line, const std::string &failure)
{
    const TemporaryFolder folder;
    expectFailure(driver, folder.write("survey.txt", text), outcome, line, failure);
}

const char geogigaWithAWrongRow[] = "TX_CURVE\n"
                                    "VERSION: 1.0\n"
                                    "ELEVATION: 100.5\n"
                                    "TOTAL_NUMBER_OF_SHOTS: 1\n"
                                    "SEISMIC_DATA_FILE_NAME: 1.sg2\n"
                                    "SHOT_LOCATION: -2.5\n"
                                    "NUMBER_OF_RECEIVERS: 3\n"
                                    "Number X Time Flag\n"
                                    "1 5 0.002 1\r\n"
                                    "2 ? 0.004 1\r\n"
                                    "3 10 0.006 1\r\n";

} // namespace

TEST(Drivers, SurveyOfEachFormat)
{
    for (const Driver &driver : allDrivers) {
        SCOPED_TRACE(driver.name);
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("survey.txt", driver.input);
        EXPECT_EQ(driver.convert(inputPath, folder.path("line.otte")), 0);
        EXPECT_EQ(readFile(folder.path("line.otte")), driver.output);

        const Report report = reportOf(driver, inputPath, folder.path("line2.otte"));
        EXPECT_EQ(readFile(folder.path("line2.otte")), driver.output);
        EXPECT_EQ(failureOf(report), "");
        EXPECT_EQ(remarksOf(report), Texts{});
    }
}

TEST(Drivers, EachConversionStartsWithAnEmptySurvey)
{
    for (const Driver &driver : allDrivers) {
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("survey.txt", driver.input);
        const std::string outputPath = folder.path("line.otte");
        for (int run = 0; run < 2; ++run) {
            EXPECT_EQ(driver.convert(inputPath, outputPath), 0) << driver.name;
            EXPECT_EQ(readFile(outputPath), driver.output) << driver.name;
        }
    }
}

TEST(Drivers, FileNamesWithBlanksAndLettersOutsideOfAscii)
{
    for (const Driver &driver : allDrivers) {
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("Profil 1 Übung.txt", driver.input);
        const std::string outputPath = folder.path("Ausgabe é 測線.otte");
        EXPECT_EQ(driver.convert(inputPath, outputPath), 0) << driver.name;
        EXPECT_EQ(readFile(outputPath), driver.output) << driver.name;
    }
}

TEST(Drivers, RejectedGeogigaFileGivesTheReadersCodeAndNoOutput)
{
    expectTextFails(geogiga,
                    "TX_CURVE\nVERSION: 1.0\nINFO: small line\nELEVATION : 100.5\n"
                    "TOTAL_NUMBER_OF_SHOTS: 0\n",
                    "1", 4, "\"ELEVATION\" expected");
}

TEST(Drivers, RejectedWinsismFileGivesTheReadersCodeAndNoOutput)
{
    const std::string detail = "3 times in a line that must be empty: Invalid times : FBP times";
    expectTextFails(winsism, fileOf(winsismLines, {{14, "2.1 10.5 18.7\n"}}), "1", 14, detail);
    expectTextFails(winsism, fileOf(winsismLines, {{15, "15.2 8.1 2.4\n"}}), "1", 15, detail);
}

TEST(Drivers, WinsismMessageGoesToStandardError)
{
    const TemporaryFolder folder;
    const std::string inputPath = folder.path("missing survey.xyz");
    CapturedStreams streams;
    EXPECT_EQ(convertWinsism(inputPath, folder.path("line.otte")), 1);
    streams.finish();
    EXPECT_EQ(streams.error, "Cannot open file " + inputPath + '\n');
    EXPECT_EQ(streams.output, "");
}

TEST(Drivers, MissingInputIsOneAndNoOutput)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("missing.txt");
    expectFailure(geogiga, path, "1", 0, "the file cannot be opened");
    expectFailure(winsism, path, "1", 0, "the file cannot be opened");
    expectFailure(seisImager, path, "1", 0, "the file cannot be opened");
}

TEST(Drivers, FolderAsInputIsOneAndNoOutput)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("");
    expectFailure(geogiga, path, "1", 0, "the file cannot be opened");
    expectFailure(winsism, path, "1", 0, "the file cannot be opened");
    expectFailure(seisImager, path, "1", 0, "the file cannot be opened");
}

TEST(Drivers, OutputInAMissingFolderIsOneAfterASuccessfulRead)
{
    for (const Driver &driver : allDrivers) {
        SCOPED_TRACE(driver.name);
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("survey.txt", driver.input);
        const std::string outputPath = folder.path("missing/line.otte");
        EXPECT_EQ(driver.convert(inputPath, outputPath), 1);
        const Report report = reportOf(driver, inputPath, outputPath);
        EXPECT_EQ(report.failure, (Failure{{outputPath, 0}, systemText(ENOENT)}));
        EXPECT_EQ(report.result, 1);
        EXPECT_FALSE(exists(folder.path("missing")));
    }
}

TEST(Drivers, FolderAsOutputIsOne)
{
    for (const Driver &driver : allDrivers) {
        SCOPED_TRACE(driver.name);
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("survey.txt", driver.input);
        EXPECT_EQ(driver.convert(inputPath, folder.path("")), 1);
        const Report report = reportOf(driver, inputPath, folder.path(""));
        EXPECT_EQ(report.failure, (Failure{{folder.path(""), 0}, systemText(EISDIR)}));
    }
}

TEST(Drivers, FullDiskIsZeroAndTold)
{
    for (const Driver &driver : allDrivers) {
        SCOPED_TRACE(driver.name);
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("survey.txt", driver.input);
        EXPECT_EQ(driver.convert(inputPath, "/dev/full"), 0);
        const Report report = reportOf(driver, inputPath, "/dev/full");
        EXPECT_EQ(report.failure, (Failure{{"/dev/full", 0}, systemText(ENOSPC)}));
        EXPECT_EQ(report.result, 0);
    }
}

TEST(Drivers, OlderLongerOutputIsReplaced)
{
    for (const Driver &driver : allDrivers) {
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("survey.txt", driver.input);
        const std::string outputPath = folder.write("line.otte", std::string(5000, 'x'));
        EXPECT_EQ(driver.convert(inputPath, outputPath), 0) << driver.name;
        EXPECT_EQ(readFile(outputPath), driver.output) << driver.name;
    }
}

TEST(Drivers, GeogigaErrorsPassThroughAndLeaveNoOutput)
{
    const std::string header = "TX_CURVE\nVERSION: 1.0\nELEVATION: 100.5\n";
    const std::string block = "SEISMIC_DATA_FILE_NAME: 1.sg2\nSHOT_LOCATION: -2.5\n";
    const struct
    {
        std::string text;
        std::string outcome;
        std::size_t line;
        std::string detail;
    } cases[] = {
        {"TX_CURVE\nVERSION: 1.0\nELEVATION:\n", invalidSubscript, 3,
         "1 field, 2 expected: invalid vector subscript"},
        {"TX_CURVE\nVERSION: 1.0\n::\n", invalidPosition, 3,
         "nothing but delimiters: invalid string position"},
        {header + "TOTAL_NUMBER_OF_SHOTS: many\n", invalidStod, 4,
         "number of shots \"many\": invalid stod argument"},
        {header + "TOTAL_NUMBER_OF_SHOTS: 1e999\n", stodOutOfRange, 4,
         "number of shots \"1e999\": stod argument out of range"},
        {header + "TOTAL_NUMBER_OF_SHOTS: 1\n" + block + "NUMBER_OF_RECEIVERS: -1\n", tooLong, 7,
         "number of receivers -1: vector too long"},
        {header + "TOTAL_NUMBER_OF_SHOTS: 2\n" + block
             + "NUMBER_OF_RECEIVERS: 1\nheading\n1 0 0.002 1\r\n" + block
             + "NUMBER_OF_RECEIVERS: 2\nheading\n1 0 0.002 1\r\n2 5 0.004 1\r\n",
         invalidSubscript, 15, "2 receivers after 1 in the first shot: invalid vector subscript"},
    };
    for (const auto &[text, outcome, line, detail] : cases)
        expectTextFails(geogiga, text, outcome, line, detail);
}

TEST(Drivers, SeisImagerErrorsPassThroughAndLeaveNoOutput)
{
    const struct
    {
        std::string text;
        std::string outcome;
        std::size_t line;
        std::string detail;
    } cases[] = {
        {"", invalidSubscript, 0, "the file is empty: invalid vector subscript"},
        {"   \n0 1\n", invalidPosition, 1, "nothing but delimiters: invalid string position"},
        {"picks\n1\n", invalidSubscript, 2, "1 field, 2 expected: invalid vector subscript"},
        {"picks\n0 1\n-2.5 2\n0 2.1\n5\t10.5\n", invalidSubscript, 5,
         "1 field, 2 expected: invalid vector subscript"},
        {"picks\n0 1\n-2.5 2\n0 2.1\n", invalidSubscript, 4,
         "the file ends after 0 of 1 shots and 1 of 2 receivers: invalid vector subscript"},
    };
    for (const auto &[text, outcome, line, detail] : cases)
        expectTextFails(seisImager, text, outcome, line, detail);
}

TEST(Drivers, GeogigaRowThatIsNoNumberIsWrittenAndTold)
{
    const TemporaryFolder folder;
    const std::string inputPath = folder.write("survey.txt", geogigaWithAWrongRow);
    const std::string outputPath = folder.path("line.otte");
    EXPECT_EQ(convertGeogiga(inputPath, outputPath), 0);
    const std::string expected = "otte\n1.0\n2\n1\n"
                                 "5;0;0;\n100.5;100.5;100.5;\n"
                                 "-2.5;\n100.5;\n"
                                 "0\n0\n2;2;2;\n";
    EXPECT_EQ(readFile(outputPath), expected);
    const Report report = reportOf(geogiga, inputPath, folder.path("line2.otte"));
    EXPECT_EQ(readFile(folder.path("line2.otte")), expected);
    EXPECT_EQ(report.failure,
              (Failure{{inputPath, 10}, "receiver row 2 of 3 is not four numbers"}));
    EXPECT_EQ(report.result, 0);
}

TEST(Drivers, OfTwoWrongFilesTheInputIsTold)
{
    const TemporaryFolder folder;
    const std::string inputPath = folder.write("survey.txt", geogigaWithAWrongRow);
    const std::string missingFolder = folder.path("missing/line.otte");
    for (const std::string &outputPath : {missingFolder, std::string("/dev/full")}) {
        EXPECT_EQ(convertGeogiga(inputPath, outputPath), outputPath == missingFolder);
        const Report report = reportOf(geogiga, inputPath, outputPath);
        EXPECT_EQ(report.failure,
                  (Failure{{inputPath, 10}, "receiver row 2 of 3 is not four numbers"}));
        EXPECT_EQ(report.result, outputPath == missingFolder);
    }
}

TEST(ProjectFiles, NamesInAProjectFolder)
{
    EXPECT_STREQ(gridFileName, "grid.xml");
    EXPECT_STREQ(tomodocFileName, "tomodoc.xml");
    EXPECT_STREQ(tracesFileName, "traces.xml");
    EXPECT_STREQ(palettesFileName, "palettes.xml");
    EXPECT_STREQ(refractionFileName, "refraction.xml");
}
