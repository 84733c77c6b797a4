// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

/// A folder with inputs that convert and an older output.
struct Survey : BatchFolder
{
    Survey()
    {
        write("s1.txt", "0;100;0.001\n5;100;0.004\n");
        write("s2.txt", "0;100;0.001\n5;100;0.004\n");
        write("a.vs", "-\n0 1\n0 1\n0 2\n");
        write("b.vs", "-\n0 1\n0 1\n0 2\n");
        write("shots.txt", "s1.txt;-1;100\n");
        write("line.otte", "older");
    }
};

/// Expects that the command line is refused before anything happens, and gives the line that the
/// standard error stream holds.
std::string refusal(const std::vector<std::string> &arguments)
{
    const Survey survey;
    const std::vector<std::string> before = survey.names();
    const BatchRun run = survey.run(arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(std::count(run.error.begin(), run.error.end(), '\n'), 1) << run.error;
    EXPECT_EQ(survey.names(), before);
    EXPECT_EQ(readFile(survey.path("line.otte")), "older");
    return run.error;
}

} // namespace

TEST(BatchUsage, WrongUsageTellsWhy)
{
    const std::string formats = "geogiga, winsism, seisimager, generic, su or dolang";
    const std::string noFormat = "a format is needed: " + formats;
    const std::string noStream =
        "standard input and output are not taken: name a file instead of \"-\"";
    const std::string noOutput = "one output file is needed: -o FILE";
    const std::string noInput = "an input file is needed";
    const std::string noShot = "one --shot is needed for each file";
    const std::string notAlone = "--shots names all files and positions alone";
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{}, noFormat},
        {{"-o", "line.otte"}, noFormat},
        {{"a.vs", "-o", "line.otte"}, "a format is needed before \"a.vs\": " + formats},
        {{"SeisImager", "a.vs", "-o", "line.otte"},
         "\"SeisImager\" is no format: write seisimager"},
        {{"SU", "a.su"}, "\"SU\" is no format: write su"},
        {{"segy", "a.vs", "-o", "line.otte"}, "\"segy\" is no format: the formats are " + formats},
        {{"", "a.vs", "-o", "line.otte"}, "\"\" is no format: the formats are " + formats},
        {{"seisimager", "-", "-o", "line.otte"}, noStream},
        {{"seisimager", "a.vs", "-", "-o", "line.otte"}, noStream},
        {{"seisimager", "a.vs", "-o", "-"}, noStream},
        {{"generic", "--shots", "-", "-o", "line.otte"}, noStream},
        {{"su", "-"}, noStream},
        {{"dolang", "-"}, noStream},
        {{"seisimager", "a.vs"}, noOutput},
        {{"seisimager", "a.vs", "-o", ""}, noOutput},
        {{"seisimager", "a.vs", "--output="}, noOutput},
        {{"seisimager", "a.vs", "-o", "line.otte", "-o", "line.otte"}, noOutput},
        {{"seisimager", "a.vs", "-o", "line.otte", "--output", "more.otte"}, noOutput},
        {{"geogiga", "s1.txt"}, noOutput},
        {{"winsism", "s1.txt"}, noOutput},
        {{"generic", "s1.txt", "--shot", "-1,100"}, noOutput},
        {{"generic", "--shots", "shots.txt"}, noOutput},
        {{"geogiga", "-o", "line.otte"}, noInput},
        {{"winsism", "-o", "line.otte"}, noInput},
        {{"seisimager", "-o", "line.otte"}, noInput},
        {{"generic", "-o", "line.otte"}, noInput},
        {{"su"}, noInput},
        {{"dolang", "--echo"}, noInput},
        {{"geogiga", "s1.txt", "s2.txt", "-o", "line.otte"}, "geogiga takes one input file"},
        {{"winsism", "s1.txt", "s2.txt", "-o", "line.otte"}, "winsism takes one input file"},
        {{"generic", "s1.txt", "-o", "line.otte"}, noShot},
        {{"generic", "s1.txt", "s2.txt", "--shot", "-1,100", "-o", "line.otte"}, noShot},
        {{"generic", "s1.txt", "--shot", "-1,100", "--shot", "9,100", "-o", "line.otte"}, noShot},
        {{"generic", "s1.txt", "--shots", "shots.txt", "-o", "line.otte"}, notAlone},
        {{"generic", "--shots", "shots.txt", "--shot", "-1,100", "-o", "line.otte"}, notAlone},
        {{"generic", "--shots", "shots.txt", "--shots", "shots.txt", "-o", "line.otte"}, notAlone},
    };
    for (const auto &[arguments, reason] : cases) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        EXPECT_EQ(refusal(arguments), "convert2velarix-batch: " + reason + "; see --help\n");
    }
}

TEST(BatchUsage, OptionsThatTheFormatDoesNotTake)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"geogiga", "s1.txt", "-o", "line.otte", "--shot", "-1,100"}, "geogiga takes no --shot"},
        {{"winsism", "s1.txt", "-o", "line.otte", "--shots", "shots.txt"},
         "winsism takes no --shots"},
        {{"seisimager", "a.vs", "-o", "line.otte", "--echo"}, "seisimager takes no --echo"},
        {{"generic", "s1.txt", "--shot", "-1,100", "-o", "line.otte", "--echo"},
         "generic takes no --echo"},
        {{"su", "s1.txt", "-o", "line.otte"}, "su takes no --output"},
        {{"su", "s1.txt", "--shot", "-1,100"}, "su takes no --shot"},
        {{"dolang", "s1.txt", "--output", "line.otte"}, "dolang takes no --output"},
        {{"dolang", "s1.txt", "--shots", "shots.txt"}, "dolang takes no --shots"},
    };
    for (const auto &[arguments, reason] : cases) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        EXPECT_EQ(refusal(arguments), "convert2velarix-batch: " + reason + "; see --help\n");
    }
}

TEST(BatchUsage, UnknownOptionsAndMissingValues)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"seisimager", "a.vs", "-o", "line.otte", "--loud"}, "Unknown option 'loud'"},
        {{"seisimager", "a.vs", "-o", "line.otte", "-x"}, "Unknown option 'x'"},
        {{"seisimager", "-a.vs", "-o", "line.otte"}, "Unknown option"},
        {{"seisimager", "a.vs", "-o"}, "Missing value after '-o'"},
        {{"generic", "s1.txt", "-o", "line.otte", "--shot"}, "Missing value after '--shot'"},
        {{"su", "s1.txt", "--echo=yes"}, "Unexpected value after '--echo"},
        {{"--help", "--loud"}, "Unknown option 'loud'"},
    };
    for (const auto &[arguments, reason] : cases) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const std::string line = refusal(arguments);
        EXPECT_TRUE(line.starts_with("convert2velarix-batch: " + reason)) << line;
        EXPECT_TRUE(line.ends_with("; see --help\n")) << line;
    }
}

TEST(BatchUsage, ShotPositionsThatAreNotTwoNumbers)
{
    for (const std::string position : {"", "1", ",", "1,", ",1", "1,2,3", "1,5,100,5", "x,1", "1,x",
                                       "1;2", "1 2", "1m,2", "1e999,2"}) {
        SCOPED_TRACE(position);
        EXPECT_EQ(refusal({"generic", "s1.txt", "--shot", position, "-o", "line.otte"}),
                  "convert2velarix-batch: --shot takes X,ELEVATION, not \"" + position
                      + "\"; see --help\n");
    }
    EXPECT_EQ(refusal({"generic", "s1.txt", "s2.txt", "--shot", "1,2", "--shot", "3", "-o", "x"}),
              "convert2velarix-batch: --shot takes X,ELEVATION, not \"3\"; see --help\n");
}

TEST(BatchUsage, ShotPositionsOutOfTheWorld)
{
    for (const std::string position : {"nan,1", "1,nan", "inf,1", "1,-inf"}) {
        SCOPED_TRACE(position);
        EXPECT_EQ(refusal({"generic", "s1.txt", "--shot", position, "-o", "line.otte"}),
                  "convert2velarix-batch: --shot takes X,ELEVATION, not \"" + position
                      + "\"; see --help\n");
    }
}

TEST(BatchUsage, HelpNamesEveryFormatAndOption)
{
    for (const std::string option : {"-h", "--help"}) {
        SCOPED_TRACE(option);
        const Survey survey;
        const BatchRun run = survey.run({option});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.error, "");
        for (const std::string text :
             {"geogiga LINE.txt -o LINE.otte", "winsism LINE.xyz -o LINE.otte",
              "seisimager A.vs [B.vs ...] -o LINE.otte",
              "generic S1.txt ... --shot X,ELEVATION ... -o LINE.otte",
              "generic --shots SHOTS.txt -o LINE.otte", "su [--echo] LINE.su [MORE.su ...]",
              "dolang [--echo] LINE.ADT [MORE.ADT ...]", "-h, --help", "-v, --version",
              "-o, --output", "--shot ", "--shots ", "--strict", "--echo"})
            EXPECT_NE(run.output.find(text), std::string::npos) << text;
        std::istringstream lines(run.output);
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with("Usage: ")) { // which names the command as it was called
                EXPECT_LE(line.size(), 80u) << line;
            }
        }
    }
}

TEST(BatchUsage, ArgumentThatIsNoUtf8IsRefused)
{
    const Survey survey;
    // QProcess would encode it: a shell hands the bytes over.
    QProcess process;
    process.setWorkingDirectory(QString::fromStdString(survey.path("")));
    process.start("sh", {"-c", "exec '" BATCH_COMMAND "' su \"$(printf 'l\\344.su')\""});
    EXPECT_EQ(finish(process), (BatchRun{2, "",
                                         "convert2velarix-batch: argument 2 is not valid "
                                         "UTF-8; see --help\n"}));
}

TEST(BatchUsage, Version)
{
    const Survey survey;
    for (const std::string option : {"-v", "--version"})
        EXPECT_EQ(survey.run({option}), (BatchRun{0, "convert2velarix-batch 1.0.0\n"})) << option;
}

TEST(BatchUsage, HelpAndVersionConvertNothing)
{
    for (const std::string option : {"--help", "--version"}) {
        const Survey survey;
        EXPECT_EQ(survey.run({"seisimager", "a.vs", "-o", "line.otte", option}).status, 0);
        EXPECT_EQ(readFile(survey.path("line.otte")), "older") << option;
    }
}

TEST(BatchUsage, OptionsMayStandAnywhere)
{
    for (const std::vector<std::string> &arguments :
         {std::vector<std::string>{"-o", "line.otte", "seisimager", "a.vs"},
          {"seisimager", "-o", "line.otte", "a.vs"},
          {"seisimager", "--output=line.otte", "a.vs"},
          {"seisimager", "-oline.otte", "a.vs"},
          {"-o", "line.otte", "--", "seisimager", "a.vs"}}) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Survey survey;
        EXPECT_EQ(survey.run(arguments), BatchRun{});
        EXPECT_EQ(readFile(survey.path("line.otte")),
                  "otte\n1.0\n2\n1\n0;\n0;\n0;\n0;\n0\n0\n2;\n");
    }
}

TEST(BatchUsage, FileNameThatBeginsWithAMinus)
{
    const Survey survey;
    survey.write("-a.vs", "-\n0 1\n0 1\n0 2\n");
    EXPECT_EQ(survey.run({"seisimager", "-o", "-line.otte", "--", "-a.vs"}), BatchRun{});
    EXPECT_EQ(readFile(survey.path("-line.otte")), "otte\n1.0\n2\n1\n0;\n0;\n0;\n0;\n0\n0\n2;\n");
}
