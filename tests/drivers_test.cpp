// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/drivers.h"

#include "tests/support/reading.h"
#include "traveltime/project_files.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

using Files = std::vector<std::string>;

/// The driver of one format, with a small survey and the output that it makes of it.
struct Driver
{
    std::string name;
    std::int32_t (*convert)(std::string inputPath, std::string outputPath);
    std::int32_t (*convertAndTell)(const std::string &inputPath, const std::string &outputPath,
                                   Problem &problem);
    std::string input;
    std::string output;
};

const Driver geogiga = {"Geogiga", convertGeogiga, convertGeogiga,
                        "TX_CURVE\n"
                        "VERSION: 1.0\n"
                        "INFO: small line\n"
                        "ELEVATION: 100.5\n"
                        "TOTAL_NUMBER_OF_SHOTS: 2\n"
                        "SEISMIC_DATA_FILE_NAME: 1.sg2\n"
                        "SHOT_LOCATION: -2.5\n"
                        "NUMBER_OF_RECEIVERS: 2\n"
                        "Number X Time Flag\n"
                        "1 0 0.0021 1\r\n"
                        "2 5 0.0105 1\r\n"
                        "SEISMIC_DATA_FILE_NAME: 2.sg2\n"
                        "SHOT_LOCATION: 12.5\n"
                        "NUMBER_OF_RECEIVERS: 2\n"
                        "Number X Time Flag\n"
                        "1 0 0.0152 1\r\n"
                        "2 5 0.0081 1\r\n",
                        "otte\n1.0\n2\n1\n"
                        "0;5;\n100.5;100.5;\n"
                        "-2.5;12.5;\n100.5;100.5;\n"
                        "0\n0\n2.1;10.5;\n"
                        "0\n1\n15.2;8.1;\n"};

const Driver winsism = {"Winsism", convertWinsism, convertWinsism,
                        "Shot number, Shot elevation\n"
                        "2 1\n"
                        "101 100\n"
                        "Shot number, Shot distance\n"
                        "1 2\n"
                        "-2.5 12.5\n"
                        "Receiver number, receiver distance\n"
                        "3 1 2\n"
                        "10 0 5\n"
                        "Receiver number, receiver elevation\n"
                        "1 2 3\n"
                        "100 100.5 101\n"
                        "FBP times\n"
                        "\n"
                        "\n",
                        "otte\n1.0\n2\n1\n"
                        "0;5;10;\n100;100.5;101;\n"
                        "-2.5;12.5;\n100;101;\n"
                        "0\n0\n\n"
                        "0\n1\n\n"};

const Driver seisImager = {"SeisImager", convertSeisImager, convertSeisImager,
                           "picks\n"
                           "0 2\n"
                           "-2.5 2\n"
                           "0 2.1\n"
                           "5 10.5\n"
                           "12.5 2\n"
                           "0 15.2\n"
                           "5 8.1\n",
                           "otte\n1.0\n2\n1\n"
                           "0;5;\n0;0;\n"
                           "-2.5;12.5;\n0;0;\n"
                           "0\n0\n2.1;10.5;\n"
                           "0\n1\n15.2;8.1;\n"};

const Driver allDrivers[] = {geogiga, winsism, seisImager};

/// Expects that both forms of a driver fail in this way, and leave the output alone.
void expectFailure(const Driver &driver, const std::string &inputPath, const std::string &outcome,
                   std::size_t line, const std::string &detail)
{
    SCOPED_TRACE(driver.name + ": " + detail);
    CapturedStreams streams; // the Winsism reader writes there
    expectConversionFails([&](const std::string &path) { return driver.convert(inputPath, path); },
                          [&](const std::string &path, Problem &problem) {
                              return driver.convertAndTell(inputPath, path, problem);
                          },
                          outcome, {inputPath, line, detail});
}

void expectTextFails(const Driver &driver, const std::string &text, const std::string &outcome,
                     std::size_t line, const std::string &detail)
{
    const TemporaryFolder folder;
    expectFailure(driver, folder.write("survey.txt", text), outcome, line, detail);
}

/// Expects that both forms of the driver for several files fail in this way.
void expectFilesFail(const Files &files, const std::string &outcome, const Problem &expected)
{
    expectConversionFails(
        [&](const std::string &path) { return convertSeisImagerFiles(files, path); },
        [&](const std::string &path, Problem &problem) {
            return convertSeisImagerFiles(files, path, problem);
        },
        outcome, expected);
}

/// What several SeisImager files of these texts convert to.
std::string merged(const std::vector<std::string> &texts)
{
    const TemporaryFolder folder;
    Files files;
    for (const std::string &text : texts)
        files.push_back(folder.write(std::to_string(files.size()) + ".vs", text));
    const std::string path = folder.path("line.otte");
    const std::string outcome = outcomeOf([&] { return convertSeisImagerFiles(files, path); });
    return outcome == "0" ? readFile(path) : outcome;
}

/// The shotIndex of each record of several files that hold so many shots each, on one receiver.
std::string shotIndices(const std::vector<int> &shotCounts)
{
    std::vector<std::string> texts;
    int shots = 0;
    for (const int count : shotCounts) {
        texts.push_back("picks\n0 " + std::to_string(count) + '\n');
        for (int shot = 0; shot < count; ++shot)
            texts.back() += "7 1\n0 1\n";
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

const char oneShotA[] = "picks\n5 1\n-2.5 2\n0 2.1\n5 10.5\n";
const char oneShotB[] = "picks\n6 1\n12.5 2\n0 15.2\n5 8.1\n";
const char oneShotC[] = "picks\n7 1\n2.5 2\n0 3\n5.5 4\n";

} // namespace

TEST(Drivers, SurveyOfEachFormat)
{
    for (const Driver &driver : allDrivers) {
        SCOPED_TRACE(driver.name);
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("survey.txt", driver.input);
        EXPECT_EQ(driver.convert(inputPath, folder.path("line.otte")), 0);
        EXPECT_EQ(readFile(folder.path("line.otte")), driver.output);

        Problem problem;
        EXPECT_EQ(driver.convertAndTell(inputPath, folder.path("line2.otte"), problem), 0);
        EXPECT_EQ(readFile(folder.path("line2.otte")), driver.output);
        EXPECT_EQ(problem.detail, "");
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
    const std::string headings = winsism.input.substr(0, winsism.input.size() - 2);
    const std::string detail = "Invalid times : FBP times: 3 fields, 0 expected";
    expectTextFails(winsism, headings + "2.1 10.5 18.7\n15.2 8.1 2.4\n", "1", 14, detail);
    expectTextFails(winsism, headings + "\n15.2 8.1 2.4\n", "1", 15, detail);
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
    expectFailure(winsism, path, "1", 0, "Cannot open file " + path);
    expectFailure(seisImager, path, "1", 0, "the file cannot be opened");
}

TEST(Drivers, FolderAsInputIsOneAndNoOutput)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("");
    expectFailure(geogiga, path, "1", 0, "the file cannot be opened");
    expectFailure(winsism, path, "1", 0, "Cannot open file " + path);
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
        Problem problem;
        EXPECT_EQ(driver.convertAndTell(inputPath, outputPath, problem), 1);
        EXPECT_EQ(problem.file, outputPath);
        EXPECT_EQ(problem.line, 0u);
        EXPECT_EQ(problem.detail, systemText(ENOENT));
        EXPECT_FALSE(exists(folder.path("missing")));
    }
}

TEST(Drivers, FolderAsOutputIsOne)
{
    for (const Driver &driver : allDrivers) {
        SCOPED_TRACE(driver.name);
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("survey.txt", driver.input);
        Problem problem;
        EXPECT_EQ(driver.convert(inputPath, folder.path("")), 1);
        EXPECT_EQ(driver.convertAndTell(inputPath, folder.path(""), problem), 1);
        EXPECT_EQ(problem.file, folder.path(""));
        EXPECT_EQ(problem.detail, systemText(EISDIR));
    }
}

TEST(Drivers, FullDiskIsZeroAndTold)
{
    for (const Driver &driver : allDrivers) {
        SCOPED_TRACE(driver.name);
        const TemporaryFolder folder;
        const std::string inputPath = folder.write("survey.txt", driver.input);
        EXPECT_EQ(driver.convert(inputPath, "/dev/full"), 0);
        Problem problem;
        EXPECT_EQ(driver.convertAndTell(inputPath, "/dev/full", problem), 0);
        EXPECT_EQ(problem.file, "/dev/full");
        EXPECT_EQ(problem.line, 0u);
        EXPECT_EQ(problem.detail, systemText(ENOSPC));
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
        {"TX_CURVE\nVERSION: 1.0\nELEVATION:\n", "out of range: invalid vector subscript", 3,
         "1 field, 2 expected"},
        {"TX_CURVE\nVERSION: 1.0\n::\n", "out of range: invalid string position", 3,
         "nothing but delimiters"},
        {header + "TOTAL_NUMBER_OF_SHOTS: many\n", "invalid argument: invalid stod argument", 4,
         "number of shots \" many\""},
        {header + "TOTAL_NUMBER_OF_SHOTS: 1e999\n", "out of range: stod argument out of range", 4,
         "number of shots \" 1e999\""},
        {header + "TOTAL_NUMBER_OF_SHOTS: 1\n" + block + "NUMBER_OF_RECEIVERS: -1\n",
         "length error", 7, "number of receivers -1"},
        {header + "TOTAL_NUMBER_OF_SHOTS: 2\n" + block
             + "NUMBER_OF_RECEIVERS: 1\nheading\n1 0 0.002 1\r\n" + block
             + "NUMBER_OF_RECEIVERS: 2\nheading\n1 0 0.002 1\r\n2 5 0.004 1\r\n",
         "out of range: invalid vector subscript", 15, "2 receivers after 1 in the first shot"},
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
        {"", "out of range: invalid vector subscript", 1, "0 fields, 2 expected"},
        {"   \n0 1\n", "out of range: invalid string position", 1, "nothing but delimiters"},
        {"picks\n1\n", "out of range: invalid vector subscript", 2, "1 field, 2 expected"},
        {"picks\n0 1\n-2.5 2\n0 2.1\n5\t10.5\n", "out of range: invalid vector subscript", 5,
         "1 field, 2 expected"},
        {"picks\n0 1\n-2.5 2\n0 2.1\n", "out of range: invalid vector subscript", 5,
         "0 fields, 2 expected"},
    };
    for (const auto &[text, outcome, line, detail] : cases)
        expectTextFails(seisImager, text, outcome, line, detail);
}

TEST(Drivers, GeogigaRowThatIsNoNumberIsWrittenAndTold)
{
    const TemporaryFolder folder;
    const std::string inputPath = folder.write("survey.txt", geogigaWithAWrongRow);
    const std::string outputPath = folder.path("line.otte");
    Problem problem;
    EXPECT_EQ(convertGeogiga(inputPath, outputPath, problem), 0);
    EXPECT_EQ(readFile(outputPath), "otte\n1.0\n2\n1\n"
                                    "5;0;0;\n100.5;100.5;100.5;\n"
                                    "-2.5;\n100.5;\n"
                                    "0\n0\n2;2;2;\n");
    EXPECT_EQ(problem.file, inputPath);
    EXPECT_EQ(problem.line, 10u);
    EXPECT_EQ(problem.detail, "receiver row 2 of 3 is not four numbers");
}

TEST(Drivers, OfTwoWrongFilesTheInputIsTold)
{
    const TemporaryFolder folder;
    const std::string inputPath = folder.write("survey.txt", geogigaWithAWrongRow);
    const std::string missingFolder = folder.path("missing/line.otte");
    for (const std::string &outputPath : {missingFolder, std::string("/dev/full")}) {
        Problem problem;
        EXPECT_EQ(convertGeogiga(inputPath, outputPath, problem), outputPath == missingFolder);
        EXPECT_EQ(problem.file, inputPath);
        EXPECT_EQ(problem.detail, "receiver row 2 of 3 is not four numbers");
    }
}

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
    const std::string inputPath = folder.write("a.vs", seisImager.input);
    Problem problem;
    EXPECT_EQ(convertSeisImagerFiles({inputPath}, folder.path("line.otte"), problem), 0);
    EXPECT_EQ(readFile(folder.path("line.otte")), seisImager.output);
    EXPECT_EQ(problem.detail, "");
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
    const Problem expected{missing, 0, "the file cannot be opened"};
    expectFilesFail({missing, a, b}, "1", expected);
    expectFilesFail({a, missing, b}, "1", expected);
    expectFilesFail({a, b, missing}, "1", expected);
    expectFilesFail({missing}, "1", expected);
    expectFilesFail({a, folder.path("")}, "1", {folder.path(""), 0, "the file cannot be opened"});
}

TEST(SeveralSeisImagerFiles, FileThatCannotBeOpenedIsOneWithOrWithoutARecordAtItsPosition)
{
    const TemporaryFolder folder;
    const std::string twoShots = folder.write("a.vs", seisImager.input);
    const std::string noShots = folder.write("b.vs", "picks\n0 0\n");
    const std::string missing = folder.path("missing.vs");
    const Problem expected{missing, 0, "the file cannot be opened"};
    expectFilesFail({twoShots, missing, twoShots}, "1", expected);
    expectFilesFail({noShots, missing, twoShots}, "1", expected);
}

TEST(SeveralSeisImagerFiles, NoFileAfterAFailureIsRead)
{
    const TemporaryFolder folder;
    const std::string malformed = folder.write("malformed.vs", "picks\n1\n");
    const std::string missing = folder.path("missing.vs");
    expectFilesFail({missing, malformed}, "1", {missing, 0, "the file cannot be opened"});
    expectFilesFail({malformed, missing}, "out of range: invalid vector subscript",
                    {malformed, 2, "1 field, 2 expected"});
}

TEST(SeveralSeisImagerFiles, ErrorsPassThroughAndLeaveNoOutput)
{
    const TemporaryFolder folder;
    const std::string a = folder.write("a.vs", oneShotA);
    const std::string cut = folder.write("cut.vs", "picks\n0 1\n-2.5 2\n0 2.1\n5\n");
    const std::string blanks = folder.write("blanks.vs", "picks\n0 1\n-2.5 2\n   \n");
    expectFilesFail({a, cut, a}, "out of range: invalid vector subscript",
                    {cut, 5, "1 field, 2 expected"});
    expectFilesFail({a, a, blanks}, "out of range: invalid string position",
                    {blanks, 4, "nothing but delimiters"});
}

TEST(SeveralSeisImagerFiles, OutputInAMissingFolderIsOneAfterASuccessfulRead)
{
    const TemporaryFolder folder;
    const Files files = {folder.write("a.vs", oneShotA), folder.write("b.vs", oneShotB)};
    const std::string outputPath = folder.path("missing/line.otte");
    EXPECT_EQ(convertSeisImagerFiles(files, outputPath), 1);
    Problem problem;
    EXPECT_EQ(convertSeisImagerFiles(files, outputPath, problem), 1);
    EXPECT_EQ(problem.file, outputPath);
    EXPECT_EQ(problem.line, 0u);
    EXPECT_EQ(problem.detail, systemText(ENOENT));
}

TEST(SeveralSeisImagerFiles, FullDiskIsZeroAndTold)
{
    const TemporaryFolder folder;
    const Files files = {folder.write("a.vs", oneShotA), folder.write("b.vs", oneShotB)};
    EXPECT_EQ(convertSeisImagerFiles(files, "/dev/full"), 0);
    Problem problem;
    EXPECT_EQ(convertSeisImagerFiles(files, "/dev/full", problem), 0);
    EXPECT_EQ(problem.file, "/dev/full");
    EXPECT_EQ(problem.detail, systemText(ENOSPC));
}

TEST(SeveralSeisImagerFiles, FileNamesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    const std::string outputPath = folder.path("Ausgabe é 測線.otte");
    EXPECT_EQ(
        convertSeisImagerFiles({folder.write("Schuß 1 Übung.vs", seisImager.input)}, outputPath),
        0);
    EXPECT_EQ(readFile(outputPath), seisImager.output);
}

TEST(ProjectFiles, NamesInAProjectFolder)
{
    EXPECT_STREQ(gridFileName, "grid.xml");
    EXPECT_STREQ(tomodocFileName, "tomodoc.xml");
    EXPECT_STREQ(tracesFileName, "traces.xml");
    EXPECT_STREQ(palettesFileName, "palettes.xml");
    EXPECT_STREQ(refractionFileName, "refraction.xml");
}
