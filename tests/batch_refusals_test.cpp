// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/odd_files.h"
#include "tests/support/small_surveys.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

/// Expects that the survey is refused with the lines, and that an older output stays.
void expectSurveyRefused(const BatchFolder &folder, Arguments arguments, const std::string &lines)
{
    folder.write("line.otte", "older");
    arguments.insert(arguments.end(), {"-o", "line.otte"});
    expectRefused(folder, arguments, lines);
}

/// The same for a format of one file, which is "line".
void expectTextRefused(const std::string &format, const std::string &text, const std::string &lines)
{
    const BatchFolder folder;
    folder.write("line", text);
    expectSurveyRefused(folder, {format, "line"}, lines);
}

} // namespace

TEST(BatchRefusals, BadLinesOfAList)
{
    for (const std::string line :
         {"", "s1.txt", "s1.txt;1", "s1.txt;1;", "s1.txt;;2", ";1;2", "s1.txt;1;2;3", "s1.txt,1,2",
          "s1.txt;x;2", "s1.txt;1;y", "s1.txt;1,5;2", "s1.txt 1 2", ";;", "\r"}) {
        SCOPED_TRACE(line);
        const BatchFolder folder;
        folder.write("s1.txt", fileOf(genericLines));
        folder.write("shots.txt", "s1.txt;-1;100\ns1.txt;-1;100\n" + line + "\nalso bad\n");
        expectSurveyRefused(folder, {"generic", "--shots", "shots.txt"},
                            "shots.txt:3: \"file;x;elevation\" expected");
    }
}

TEST(BatchRefusals, ListThatNamesNothing)
{
    const BatchFolder folder;
    folder.write("empty.txt", "");
    folder.write("mark.txt", byteOrderMark);
    std::filesystem::create_directory(folder.path("shots"));
    for (const std::string lines : {"empty.txt: the file is empty", "mark.txt: no shot is listed",
                                    "missing.txt: no such file", "missing/shots.txt: no such file",
                                    "shots: this is a folder"}) {
        const std::string list = lines.substr(0, lines.find(':'));
        expectSurveyRefused(folder, {"generic", "--shots", list}, lines);
    }
}

TEST(BatchRefusals, MissingFileOfAList)
{
    const BatchFolder folder;
    std::filesystem::create_directory(folder.path("profile"));
    folder.write("profile/s1.txt", fileOf(genericLines));
    folder.write("profile/shots.txt", "s1.txt;-1;100\ns2.txt;-1;100\n");
    expectSurveyRefused(folder, {"generic", "--shots", "profile/shots.txt"},
                        "profile/s2.txt: no such file");
}

TEST(BatchRefusals, InputsThatAreNoFilesOrEmpty)
{
    const BatchFolder folder;
    folder.write("here.txt", fileOf(genericLines));
    folder.write("here.vs", fileOf(seisImagerLines));
    folder.write("empty", "");
    std::filesystem::create_directory(folder.path("folder"));
    std::filesystem::create_symlink("loop", folder.path("loop"));
    const std::vector<Arguments> commands = {
        {"geogiga"},
        {"winsism"},
        {"seisimager"},
        {"seisimager", "here.vs"},
        {"generic", "--shot", "-1,100"},
        {"generic", "--shot", "-1,100", "--shot", "-1,100", "here.txt"},
    };
    for (Arguments command : commands) {
        command.push_back("missing.txt");
        expectSurveyRefused(folder, command, "missing.txt: no such file");
        command.back() = "folder";
        expectSurveyRefused(folder, command, "folder: this is a folder");
        command.back() = "loop";
        expectSurveyRefused(folder, command, "loop: " + systemText(ELOOP));
        command.back() = "empty";
        expectSurveyRefused(folder, command, "empty: the file is empty");
    }
}

TEST(BatchRefusals, GenericLinesThatAreRefused)
{
    const BatchFolder folder;
    std::string sixteenLines;
    for (int i = 0; i < 16; ++i)
        sixteenLines += "5;100;0.004\n";
    folder.write("good.txt", fileOf(genericLines));
    const std::vector<std::pair<std::string, std::string>> cases = {
        {sixteenLines + "4;100\n", "17: 2 fields, 3 expected: invalid vector subscript"},
        {"0;100;0.001\n\n", "2: 0 fields, 3 expected: invalid vector subscript"},
        {"   \n", "1: 0 fields, 3 expected: invalid vector subscript"},
        {"0;100;0.001\n7", "2: 1 field, 3 expected: invalid vector subscript"},
        {"0;100;0.001\n;;\n", "2: nothing but delimiters: invalid string position"},
    };
    for (const auto &[text, problem] : cases) {
        folder.write("shot3.txt", text);
        expectSurveyRefused(
            folder, {"generic", "good.txt", "shot3.txt", "--shot", "-1,100", "--shot", "9,100"},
            "shot3.txt:" + problem);
    }
}

TEST(BatchRefusals, GeogigaLinesThatAreRefused)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {fileOf(geogigaLines, {{1, "TX-CURVE\n"}}), "1: \"TX_CURVE\" expected"},
        {fileOf(geogigaLines, {{2, "VERSION 1.0\n"}}), "2: \"VERSION:\" expected"},
        {fileOf(geogigaLines, {{2, "  \n"}}), "2: nothing but delimiters: invalid string position"},
        {fileOf(geogigaLines, {{4, "ELEVATION : 100.5\n"}}), "4: \"ELEVATION\" expected"},
        {fileOf(geogigaLines, {{4, "ELEVATION:\n"}}),
         "4: 1 field, 2 expected: invalid vector subscript"},
        {fileOf(geogigaLines, {{5, "\n"}}), "5: \"TOTAL_NUMBER_OF_SHOTS\" expected"},
        {fileOf(geogigaLines, {{5, "TOTAL_NUMBER_OF_SHOTS:two\n"}}),
         "5: number of shots \"two\": invalid stod argument"},
        {fileOf(geogigaLines, {{5, "TOTAL_NUMBER_OF_SHOTS:1e999\n"}}),
         "5: number of shots \"1e999\": stod argument out of range"},
        {fileOf(geogigaLines, {{6, "seismic_data_file_name: a\n"}}),
         "6: \"SEISMIC_DATA_FILE_NAME\" expected"},
        {fileOf(geogigaLines, {{7, "SHOT: 1\n"}}), "7: \"SHOT_LOCATION\" expected"},
        {fileOf(geogigaLines, {{8, "RECEIVERS: 3\n"}}), "8: \"NUMBER_OF_RECEIVERS\" expected"},
        {fileOf(geogigaLines, {{8, "NUMBER_OF_RECEIVERS: -3\n"}}),
         "8: number of receivers -3: vector too long"},
        {fileOf(geogigaLines, {{12, "3 10 0.0187 1\n"}}),
         "12: a carriage return or the next shot expected: do the rows end in CR LF?"},
        {fileOf(geogigaLines, {{14, "SHOT_LOCATION\n"}}),
         "14: 1 field, 2 expected: invalid vector subscript"},
        {fileOf(geogigaLines, {{5, "TOTAL_NUMBER_OF_SHOTS:3\n"}}),
         "19: the file ends after 2 of 3 shots where \"SEISMIC_DATA_FILE_NAME\" is expected"},
        {start(geogigaLines, 13),
         "13: the file ends after 1 of 2 shots where \"SHOT_LOCATION\" is expected"},
    };
    for (const auto &[text, problem] : cases)
        expectTextRefused("geogiga", text, "line:" + problem);
}

TEST(BatchRefusals, GeogigaRowsThatAreNotFourNumbers)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {fileOf(geogigaLines, {{10, "one 0 0.0021 1\r\n"}}),
         "line:10: receiver row 1 of 3 is not four numbers"},
        {fileOf(geogigaLines, {{11, "2 5 fast 1\r\n"}}),
         "line:11: receiver row 2 of 3 is not four numbers"},
        // After the last block nothing more is read that could be missed.
        {fileOf(geogigaLines, {{17, "1 x 0.0152 1\r\n"}}),
         "line:17: receiver row 1 of 3 is not four numbers"},
        {fileOf(geogigaLines, {{18, "2 5 0,0081 1\r\n"}}),
         "line:18: \"0,0081\" is read as 0: write a decimal point, no comma\n"
         "line:18: receiver row 2 of 3 is not four numbers"},
        {fileOf(geogigaLines, {{19, "3 10 0.0024 one\r\n"}}),
         "line:19: receiver row 3 of 3 is not four numbers"},
        {start(geogigaLines, 18), "line:18: the file ends after 1 of 2 shots and 2 of 3 receivers"},
        {fileOf(geogigaLines,
                {{15, "NUMBER_OF_RECEIVERS: 4\n"}, {19, "3 10 0.0024 1\r\n4 15 1 1\n"}}),
         "line:20: 4 receivers after 3 in the first shot: invalid vector subscript"},
    };
    for (const auto &[text, lines] : cases)
        expectTextRefused("geogiga", text, lines);
}

TEST(BatchRefusals, WinsismLinesThatAreRefused)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {fileOf(winsismLines, {{1, "Shot number\n"}}),
         "1: \"Shot number, Shot elevation\" is expected: Invalid header : Shot number"},
        {fileOf(winsismLines, {{3, "100\n"}}),
         "3: 2 numbers and 1 value: Invalid match : Shot number, Shot elevation"},
        {fileOf(winsismLines, {{5, "1 2 3\n"}, {6, "0 5 10\n"}}),
         "5: 3 numbers, 2 expected: Invalid shot ids : Shot number, Shot distance"},
        {fileOf(winsismLines, {{5, "1 7\n"}}),
         "5: 7 is not listed above: Invalid shot ids : Shot number, Shot distance"},
        {fileOf(winsismLines, {{7, "FBP times\n"}}),
         "7: \"Receiver number, receiver distance\" is expected: Invalid header : FBP times"},
        {fileOf(winsismLines, {{9, "0 5 10 15\n"}}),
         "9: 3 numbers and 4 values: Invalid match : Receiver number, receiver distance"},
        {fileOf(winsismLines, {{11, "1 2\n"}, {12, "100 101\n"}}),
         "11: 2 numbers, 3 expected: Invalid phone list : Receiver number, receiver elevation"},
        {fileOf(winsismLines, {{11, "1 2 4\n"}}),
         "11: 4 is not listed above: Invalid phone ids : Receiver number, receiver elevation"},
        {start(winsismLines, 12),
         "12: the file ends: \"FBP times\" is expected: Invalid header : "},
        {fileOf(winsismLines, {{14, "2.1 10.5 18.7\n"}}),
         "14: 3 times in a line that must be empty: Invalid times : FBP times"},
        {fileOf(winsismLines, {{15, "7\n"}}),
         "15: 1 time in a line that must be empty: Invalid times : FBP times"},
    };
    for (const auto &[text, problem] : cases)
        expectTextRefused("winsism", text, "line:" + problem);
}

TEST(BatchRefusals, SeisImagerLinesThatAreRefused)
{
    const std::string subscript = ": invalid vector subscript";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"0 0 0\n", "1: the file ends before its number of shots" + subscript},
        {fileOf(seisImagerLines, {{1, "  \n"}}),
         "1: nothing but delimiters: invalid string position"},
        {fileOf(seisImagerLines, {{2, "1\n"}}), "2: 1 field, 2 expected" + subscript},
        {fileOf(seisImagerLines, {{3, "-2.5\t3\n"}}), "3: 1 field, 2 expected" + subscript},
        {fileOf(seisImagerLines, {{5, "\n"}}), "5: 0 fields, 2 expected" + subscript},
        {start(seisImagerLines, 5),
         "5: the file ends after 0 of 1 shots and 2 of 3 receivers" + subscript},
        {start(seisImagerLines, 4) + "5 10.5",
         "5: the file ends after 0 of 1 shots and 2 of 3 receivers" + subscript},
        {fileOf(seisImagerLines, {{2, "0 2\n"}}),
         "6: the file ends after 1 of 2 shots" + subscript},
        {fileOf(seisImagerLines, {{2, "0 007\n"}}),
         "6: the file ends after 1 of 007 shots" + subscript},
    };
    for (const auto &[text, problem] : cases)
        expectTextRefused("seisimager", text, "line:" + problem);
}

TEST(BatchRefusals, SeisImagerReceiverLineThatIsMissing)
{
    // The second shot's line is read as a receiver, so that its first receiver is read as a shot.
    expectTextRefused(
        "seisimager", "0 0 0\n0 2\n-2.5 3 0\n0 2.1 1\n5 10.5 1\n12.5 3 0\n0 15.2 1\n5 8.1 1\n",
        "line:6: shot 1, line 3, says 3 receivers, but line 6 looks like a shot line: "
        "invalid vector subscript");
}

TEST(BatchRefusals, TheBadOneOfSeveralSeisImagerFilesIsNamed)
{
    const BatchFolder folder;
    folder.write("a.vs", fileOf(seisImagerLines));
    folder.write("b.vs", start(seisImagerLines, 4));
    expectSurveyRefused(folder, {"seisimager", "a.vs", "b.vs", "a.vs"},
                        "b.vs:4: the file ends after 0 of 1 shots and 1 of 3 receivers: invalid "
                        "vector subscript");
}

TEST(BatchRefusals, SurveysWithoutShotsOrReceivers)
{
    const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
        {"seisimager", "-\n0 0\n",
         "line:2: there are no shots in this file\nline: there are no shots to convert"},
        {"seisimager", "-\n0 1\n0 0\n",
         "line:3: shot 1 has no receivers\nline: there are no receivers to convert"},
        {"geogiga", "TX_CURVE\nVERSION: 1\nELEVATION:1\nTOTAL_NUMBER_OF_SHOTS:0\n",
         "line:4: there are no shots in this file\nline: there are no shots to convert"},
    };
    for (const auto &[format, text, lines] : cases)
        expectTextRefused(format, text, lines);
}

TEST(BatchRefusals, BinaryFileIsQuotedInOneShortLine)
{
    const std::string beginning =
        "line:1: \"Shot number, Shot elevation\" is expected: Invalid header : ?[31m??";
    expectTextRefused("winsism", "\x1b[31m\r\x7f" + std::string(5000, 'x') + "\n",
                      beginning + std::string(1000 - beginning.size(), 'x') + "...");
}
