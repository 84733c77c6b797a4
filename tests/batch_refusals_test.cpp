// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/small_surveys.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

/// Expects a failed conversion: `line` alone on the standard error stream, the older output as it
/// was and nothing beside it.
void expectRefused(const BatchFolder &folder, std::vector<std::string> arguments,
                   const std::string &line)
{
    folder.write("line.otte", "older");
    const std::vector<std::string> before = folder.names();
    arguments.insert(arguments.end(), {"-o", "line.otte"});
    EXPECT_EQ(folder.run(arguments), (BatchRun{1, "", line + '\n'}));
    EXPECT_EQ(readFile(folder.path("line.otte")), "older") << line;
    EXPECT_EQ(folder.names(), before) << line;
}

/// The same for a format of one file, `file`, that holds `text`.
void expectRefused(const std::string &format, const std::string &file, const std::string &text,
                   const std::string &problem)
{
    const BatchFolder folder;
    folder.write(file, text);
    expectRefused(folder, {format, file}, file + ':' + problem);
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
        expectRefused(folder, {"generic", "--shots", "shots.txt"},
                      "shots.txt:3: \"file;x;elevation\" expected");
    }
}

TEST(BatchRefusals, ListThatNamesNothing)
{
    const BatchFolder folder;
    folder.write("shots.txt", "");
    std::filesystem::create_directory(folder.path("shots"));
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"shots.txt", "no shot is listed"},
        {"missing.txt", "no such file"},
        {"missing/shots.txt", "no such file"},
        {"shots", "this is a folder"},
    };
    for (const auto &[list, problem] : cases)
        expectRefused(folder, {"generic", "--shots", list}, list + ": " + problem);
}

TEST(BatchRefusals, MissingFileOfAList)
{
    const BatchFolder folder;
    std::filesystem::create_directory(folder.path("profile"));
    folder.write("profile/s1.txt", fileOf(genericLines));
    folder.write("profile/shots.txt", "s1.txt;-1;100\ns2.txt;-1;100\n");
    expectRefused(folder, {"generic", "--shots", "profile/shots.txt"},
                  "profile/s2.txt: no such file");
}

TEST(BatchRefusals, MissingInput)
{
    const BatchFolder folder;
    folder.write("here.txt", fileOf(genericLines));
    folder.write("here.vs", fileOf(seisImagerLines));
    std::filesystem::create_directory(folder.path("folder"));
    std::filesystem::create_symlink("loop", folder.path("loop"));
    const std::vector<std::vector<std::string>> commands = {
        {"geogiga"},
        {"winsism"},
        {"seisimager"},
        {"seisimager", "here.vs"},
        {"generic", "--shot", "-1,100"},
        {"generic", "--shot", "-1,100", "--shot", "-1,100", "here.txt"},
    };
    for (std::vector<std::string> command : commands) {
        SCOPED_TRACE(testing::PrintToString(command));
        command.push_back("missing.txt");
        expectRefused(folder, command, "missing.txt: no such file");
        command.back() = "folder";
        expectRefused(folder, command, "folder: this is a folder");
        command.back() = "loop";
        expectRefused(folder, command, "loop: " + systemText(ELOOP));
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
        {sixteenLines + "4;100\n", "17: invalid vector subscript: 2 fields, 3 expected"},
        {"0;100;0.001\n\n", "2: invalid vector subscript: 0 fields, 3 expected"},
        {"   \n", "1: invalid vector subscript: 0 fields, 3 expected"},
        {"0;100;0.001\n7", "2: invalid vector subscript: 1 field, 3 expected"},
        {"0;100;0.001\n;;\n", "2: invalid string position: nothing but delimiters"},
    };
    for (const auto &[text, problem] : cases) {
        folder.write("shot3.txt", text);
        expectRefused(folder,
                      {"generic", "good.txt", "shot3.txt", "--shot", "-1,100", "--shot", "9,100"},
                      "shot3.txt:" + problem);
    }
}

TEST(BatchRefusals, GeogigaLinesThatAreRefused)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "1: \"TX_CURVE\" expected"},
        {fileOf(geogigaLines, {{1, "TX-CURVE\n"}}), "1: \"TX_CURVE\" expected"},
        {fileOf(geogigaLines, {{2, "VERSION 1.0\n"}}), "2: \"VERSION:\" expected"},
        {fileOf(geogigaLines, {{2, "  \n"}}), "2: invalid string position: nothing but delimiters"},
        {fileOf(geogigaLines, {{4, "ELEVATION : 100.5\n"}}), "4: \"ELEVATION\" expected"},
        {fileOf(geogigaLines, {{4, "ELEVATION:\n"}}),
         "4: invalid vector subscript: 1 field, 2 expected"},
        {fileOf(geogigaLines, {{5, "\n"}}), "5: \"TOTAL_NUMBER_OF_SHOTS\" expected"},
        {fileOf(geogigaLines, {{5, "TOTAL_NUMBER_OF_SHOTS:two\n"}}),
         "5: invalid stod argument: number of shots \"two\""},
        {fileOf(geogigaLines, {{5, "TOTAL_NUMBER_OF_SHOTS:1e999\n"}}),
         "5: stod argument out of range: number of shots \"1e999\""},
        {fileOf(geogigaLines, {{6, "seismic_data_file_name: a\n"}}),
         "6: \"SEISMIC_DATA_FILE_NAME\" expected"},
        {fileOf(geogigaLines, {{7, "SHOT: 1\n"}}), "7: \"SHOT_LOCATION\" expected"},
        {fileOf(geogigaLines, {{8, "RECEIVERS: 3\n"}}), "8: \"NUMBER_OF_RECEIVERS\" expected"},
        {fileOf(geogigaLines, {{8, "NUMBER_OF_RECEIVERS: -3\n"}}),
         "8: vector too long: number of receivers -3"},
        {fileOf(geogigaLines, {{12, "3 10 0.0187 1\n"}}),
         "12: a carriage return or the next shot expected: do the rows end in CR LF?"},
        {fileOf(geogigaLines, {{14, "SHOT_LOCATION\n"}}),
         "14: invalid vector subscript: 1 field, 2 expected"},
        {fileOf(geogigaLines, {{5, "TOTAL_NUMBER_OF_SHOTS:3\n"}}),
         "20: \"SEISMIC_DATA_FILE_NAME\" expected"},
        {start(geogigaLines, 13), "14: \"SHOT_LOCATION\" expected"},
    };
    for (const auto &[text, problem] : cases)
        expectRefused("geogiga", "line.txt", text, problem);
}

TEST(BatchRefusals, GeogigaRowsThatAreNotFourNumbers)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {fileOf(geogigaLines, {{10, "one 0 0.0021 1\r\n"}}),
         "10: receiver row 1 of 3 is not four numbers"},
        {fileOf(geogigaLines, {{11, "2 5 fast 1\r\n"}}),
         "11: receiver row 2 of 3 is not four numbers"},
        // In the last block nothing is read behind the rows, which could miss what they hold.
        {fileOf(geogigaLines, {{17, "1 x 0.0152 1\r\n"}}),
         "17: receiver row 1 of 3 is not four numbers"},
        {fileOf(geogigaLines, {{18, "2 5 0,0081 1\r\n"}}),
         "18: receiver row 2 of 3 is not four numbers"},
        {fileOf(geogigaLines, {{19, "3 10 0.0024 one\r\n"}}),
         "19: receiver row 3 of 3 is not four numbers"},
        {start(geogigaLines, 18), "19: receiver row 3 of 3 is not four numbers"},
        {fileOf(geogigaLines,
                {{15, "NUMBER_OF_RECEIVERS: 4\n"}, {19, "3 10 0.0024 1\r\n4 15 1 1\n"}}),
         "20: invalid vector subscript: 4 receivers after 3 in the first shot"},
    };
    for (const auto &[text, problem] : cases)
        expectRefused("geogiga", "line.txt", text, problem);
}

TEST(BatchRefusals, WinsismLinesThatAreRefused)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "1: Invalid header : , \"Shot number, Shot elevation\" expected"},
        {fileOf(winsismLines, {{1, "Shot number\n"}}),
         "1: Invalid header : Shot number, \"Shot number, Shot elevation\" expected"},
        {fileOf(winsismLines, {{3, "100\n"}}),
         "3: Invalid match : Shot number, Shot elevation: 2 numbers, 1 value"},
        {fileOf(winsismLines, {{5, "1 2 3\n"}, {6, "0 5 10\n"}}),
         "5: Invalid shot ids : Shot number, Shot distance: 3 numbers, 2 expected"},
        {fileOf(winsismLines, {{5, "1 7\n"}}),
         "5: Invalid shot ids : Shot number, Shot distance: 7 is not listed above"},
        {fileOf(winsismLines, {{7, "FBP times\n"}}),
         "7: Invalid header : FBP times, \"Receiver number, receiver distance\" expected"},
        {fileOf(winsismLines, {{9, "0 5 10 15\n"}}),
         "9: Invalid match : Receiver number, receiver distance: 3 numbers, 4 values"},
        {fileOf(winsismLines, {{11, "1 2\n"}, {12, "100 101\n"}}),
         "11: Invalid phone list : Receiver number, receiver elevation: 2 numbers, 3 expected"},
        {fileOf(winsismLines, {{11, "1 2 4\n"}}),
         "11: Invalid phone ids : Receiver number, receiver elevation: 4 is not listed above"},
        {start(winsismLines, 12), "13: Invalid header : , \"FBP times\" expected"},
        {fileOf(winsismLines, {{14, "2.1 10.5 18.7\n"}}),
         "14: Invalid times : FBP times: 3 fields, 0 expected"},
        {fileOf(winsismLines, {{15, "7\n"}}), "15: Invalid times : FBP times: 1 field, 0 expected"},
    };
    for (const auto &[text, problem] : cases)
        expectRefused("winsism", "line.xyz", text, problem);
}

TEST(BatchRefusals, SeisImagerLinesThatAreRefused)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"0 0 0\n", "2: invalid vector subscript: 0 fields, 2 expected"},
        {fileOf(seisImagerLines, {{1, "  \n"}}),
         "1: invalid string position: nothing but delimiters"},
        {fileOf(seisImagerLines, {{2, "1\n"}}), "2: invalid vector subscript: 1 field, 2 expected"},
        {fileOf(seisImagerLines, {{3, "-2.5\t3\n"}}),
         "3: invalid vector subscript: 1 field, 2 expected"},
        {fileOf(seisImagerLines, {{5, "\n"}}), "5: invalid vector subscript: 0 fields, 2 expected"},
        {start(seisImagerLines, 5), "6: invalid vector subscript: 0 fields, 2 expected"},
        {start(seisImagerLines, 4) + "5 10.5", "6: invalid vector subscript: 0 fields, 2 expected"},
        {fileOf(seisImagerLines, {{2, "0 2\n"}}),
         "7: invalid vector subscript: 0 fields, 2 expected"},
    };
    for (const auto &[text, problem] : cases)
        expectRefused("seisimager", "a.vs", text, problem);
}

TEST(BatchRefusals, TheBadOneOfSeveralSeisImagerFilesIsNamed)
{
    const BatchFolder folder;
    folder.write("a.vs", fileOf(seisImagerLines));
    folder.write("b.vs", start(seisImagerLines, 4));
    expectRefused(folder, {"seisimager", "a.vs", "b.vs", "a.vs"},
                  "b.vs:5: invalid vector subscript: 0 fields, 2 expected");
}

TEST(BatchRefusals, BinaryFileIsQuotedInOneShortLine)
{
    const BatchFolder folder;
    folder.write("line.xyz", "\x1b[31m\r" + std::string(5000, 'x') + "\n");
    const BatchRun run = folder.run({"winsism", "line.xyz", "-o", "line.otte"});
    EXPECT_EQ(
        run,
        (BatchRun{1, "", "line.xyz:1: Invalid header : ?[31m?" + std::string(965, 'x') + "...\n"}));
}

TEST(BatchRefusals, RemarkOnTheFirstOfSeveralSeisImagerFilesIsKept)
{
    const BatchFolder folder;
    folder.write("empty.vs", "-\n0 0\n");
    folder.write("a.vs", fileOf(seisImagerLines));
    EXPECT_EQ(folder.run({"seisimager", "empty.vs", "a.vs", "-o", "line.otte"}),
              (BatchRun{0, "", "empty.vs:2: there are no shots in this file\n"}));
}
