// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/faults.h"
#include "tests/support/field_command.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>

namespace {

using Arguments = std::vector<std::string>;

/// A folder with a survey in several formats: a shot at 0 m with receivers at 5 and 10 m, 4 and 7
/// ms, on a level of 0 m.
struct Picks : FieldFolder
{
    Picks()
    {
        write("a.vs", "First breaks, ms\n1 1\n0 2\n5 4\n10 7\n");
        write("a.txt",
              "TX_CURVE\nVERSION: 1\nELEVATION: 0\nTOTAL_NUMBER_OF_SHOTS: 1\n"
              "SEISMIC_DATA_FILE_NAME: C:\\a.su\nSHOT_LOCATION: 0\nNUMBER_OF_RECEIVERS: 2\n"
              "No x t ch\n1 5 0.004 1\n2 10 0.007 2\n");
        write("a.csv", "shot_x,shot_elevation,receiver_x,receiver_elevation,time\r\n"
                       "0,0,5,0,0.004\r\n0,0,10,0,0.007\r\n");
        write("s.txt", "5;0;0.004\n10;0;0.007\n");
        write("shots.txt", "s.txt;0;0\nother.txt;99;0\n");
        write("line.otte", "older");
    }

    /// Converts into line.otte and gives what that holds; nothing is to be said.
    std::string otteOf(const Arguments &arguments) const
    {
        Arguments all = {"convert", "-o", "line.otte"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        EXPECT_EQ(run(all), FieldRun{}) << testing::PrintToString(arguments);
        return readFile(path("line.otte"));
    }
};

const std::string oneShot = "otte\n1.0\n2\n1\n5;10;\n0;0;\n0;\n0;\n0\n0\n4;7;\n";

void expectRefusal(const Arguments &arguments, const std::string &line)
{
    SCOPED_TRACE(testing::PrintToString(arguments));
    const Picks picks;
    expectRefused(picks, arguments, line);
}

} // namespace

TEST(FieldConvertPicks, EveryFormatIsFoundByItsContent)
{
    const Picks picks;
    EXPECT_EQ(picks.otteOf({"a.vs"}), oneShot);
    EXPECT_EQ(picks.otteOf({"a.txt"}), oneShot);
    EXPECT_EQ(picks.otteOf({"a.csv"}), oneShot);
    EXPECT_EQ(picks.otteOf({"s.txt", "--shots", "shots.txt"}), oneShot);
    std::filesystem::rename(picks.path("a.vs"), picks.path("picks.csv"));
    EXPECT_EQ(picks.otteOf({"picks.csv"}), oneShot);
}

TEST(FieldConvertPicks, SeveralFormatsBecomeOneSurvey)
{
    const Picks picks;
    picks.write("b.vs", "First breaks, ms\n1 1\n15 2\n10 3\n5 8\n");
    EXPECT_EQ(picks.otteOf({"a.vs", "b.vs", "a.csv", "s.txt", "a.txt", "--shots", "shots.txt"}),
              "otte\n1.0\n2\n2\n5;10;\n0;0;\n10;5;\n0;0;\n"
              "0;15;0;0;0;\n0;0;0;0;0;\n"
              "0\n0\n4;7;\n1\n1\n3;8;\n0\n2\n4;7;\n0\n3\n4;7;\n0\n4\n4;7;\n");
}

TEST(FieldConvertPicks, TheOutputIsInTheFormatOfItsExtensionOrOfTheOption)
{
    const Picks picks;
    const std::string csv = readFile(picks.path("a.csv"));
    EXPECT_EQ(picks.run({"convert", "a.vs", "-o", "LINE.OTTE"}), FieldRun{});
    EXPECT_EQ(readFile(picks.path("LINE.OTTE")), oneShot);
    EXPECT_EQ(picks.run({"convert", "a.vs", "-o", "b.csv"}), FieldRun{});
    EXPECT_EQ(readFile(picks.path("b.csv")), csv);
    EXPECT_EQ(picks.run({"convert", "a.csv", "--to", "otte", "-o", "b.csv"}), FieldRun{});
    EXPECT_EQ(readFile(picks.path("b.csv")), oneShot);
    EXPECT_EQ(picks.run({"convert", "a.vs", "--to", "csv", "-o", "table"}), FieldRun{});
    EXPECT_EQ(readFile(picks.path("table")), csv);
    for (const std::string extension : {"vs", "sgt"}) {
        const std::string name = "made." + extension;
        EXPECT_EQ(picks.run({"convert", "a.vs", "-o", name}), FieldRun{}) << name;
        EXPECT_EQ(picks.otteOf({name}), oneShot) << name;
    }
}

TEST(FieldConvertPicks, ContentThatCouldBeTwoFormats)
{
    const Picks picks;
    // Receivers at 0 to 15 m on a level of 1 m, or a shot at 10 m with a receiver at 15 m.
    picks.write("two.txt", "0 1 .1\n5 1 .2\n10 1 .3\n15 1 .4\n");
    picks.write("shots.txt", "two.txt;-5;1\n");
    expectRefused(picks, {"convert", "two.txt", "-o", "line.otte"},
                  "two.txt: this could be generic or seisimager: choose with --from");
    EXPECT_EQ(picks.otteOf({"two.txt", "--from", "seisimager"}),
              "otte\n1.0\n2\n1\n15;\n0;\n10;\n0;\n0\n0\n1;\n");
    EXPECT_NE(picks.run({"info", "two.txt", "--from", "seisimager"})
                  .output.find("known by     counts of shots and receivers that fit its lines, and "
                               "--from: it could also be generic\n"),
              std::string::npos);
    EXPECT_EQ(picks.otteOf({"two.txt", "--from", "generic", "--shots", "shots.txt"}),
              "otte\n1.0\n2\n1\n0;5;10;15;\n1;1;1;1;\n-5;\n1;\n0\n0\n100;200;300;400;\n");
}

TEST(FieldConvertPicks, ContentOfOneFormatHoldsAgainstTheOption)
{
    const Picks picks;
    EXPECT_EQ(
        picks.run({"convert", "a.txt", "--from", "seisimager", "-o", "line.otte"}),
        (FieldRun{0, "", "a.txt: read as geogiga, which its content says, not as seisimager\n"}));
    EXPECT_EQ(readFile(picks.path("line.otte")), oneShot);
    EXPECT_EQ(
        picks.run({"convert", "a.vs", "--from", "geogiga", "-o", "line.otte"}),
        (FieldRun{0, "", "a.vs: read as seisimager, which its content says, not as geogiga\n"}));
    EXPECT_EQ(readFile(picks.path("line.otte")), oneShot);
}

TEST(FieldConvertPicks, TheOptionDecidesOnlyForFilesThatCouldBeTwoFormats)
{
    const Picks picks;
    picks.write("two.txt", "0 1 .1\n5 1 .2\n10 1 .3\n15 1 .4\n");
    EXPECT_EQ(picks.run({"convert", "two.txt", "a.csv", "s.txt", "--from", "seisimager", "--shots",
                         "shots.txt", "-o", "line.otte"}),
              (FieldRun{0, "",
                        "a.csv: read as csv, which its content says, not as seisimager\n"
                        "s.txt: read as generic, which its content says, not as seisimager\n"}));
    EXPECT_EQ(readFile(picks.path("line.otte")), "otte\n1.0\n2\n2\n15;\n0;\n5;10;\n0;0;\n"
                                                 "10;0;0;\n0;0;0;\n"
                                                 "0\n0\n1;\n1\n1\n4;7;\n1\n2\n4;7;\n");
    // Content that could be of two formats, neither of which the option names.
    const FieldRun run = picks.run({"convert", "two.txt", "--from", "otte", "-o", "line.otte"});
    EXPECT_EQ(run.error, "two.txt: read as otte, though its content fits generic or seisimager\n"
                         "two.txt:1: \"0 1 .1\" where \"otte\" is expected\n");
    EXPECT_EQ(run.status, 1);
}

TEST(FieldConvertPicks, ContentThatIsNotKnown)
{
    const Picks picks;
    picks.write("letter.txt", "Dear all,\nplease find the picks below.\n");
    picks.write("empty.vs", "");
    picks.write("line.sgy", "C" + std::string(4000, ' '));
    expectRefused(picks, {"convert", "letter.txt", "-o", "line.otte"},
                  "letter.txt: this is of no format that is known here; --from FORMAT reads it all "
                  "the same");
    expectRefused(picks, {"convert", "letter.txt", "--from", "geogiga", "-o", "line.otte"},
                  "letter.txt:1: \"Dear all,\" where TX_CURVE is expected");
    expectRefused(picks, {"convert", "empty.txt", "-o", "line.otte"}, "empty.txt: no such file");
    expectRefused(picks, {"convert", "line.sgy", "-o", "line.otte"},
                  "line.sgy: this seems to be SEG-Y, which is not read");
    // It names columns, though not all.
    picks.write("table.csv", "shot_x,shot_elevation,rx,receiver_elevation,time\n0,0,5,0,0.004\n");
    picks.write("shots.txt", "table.csv;0;0\n");
    expectRefused(picks, {"convert", "table.csv", "--shots", "shots.txt", "-o", "line.otte"},
                  "table.csv:1: the heading has no column \"receiver_x\"");
    // The reader of its extension's format says where it is damaged.
    picks.write("damaged.vs", "First breaks, ms\n1 five\n0 2\n5 4\n10 7\n");
    const FieldRun run = picks.run({"convert", "damaged.vs", "-o", "line.otte"});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.error.starts_with("damaged.vs:2: ")) << run.error;
}

TEST(FieldConvertPicks, FilesThatCannotBeRead)
{
    const Picks picks;
    std::filesystem::create_directory(picks.path("folder"));
    ASSERT_EQ(mkfifo(picks.path("pipe").c_str(), 0600), 0);
    for (const auto &[name, reason] : std::vector<std::pair<std::string, std::string>>{
             {"none.vs", "no such file"},
             {"folder", "this is a folder"},
             {"pipe", "this is no regular file, which can be read more than once"}}) {
        for (const Arguments &arguments : {Arguments{"convert", "a.vs", name, "-o", "line.otte"},
                                           {"convert", name, "a.vs", "-o", "line.otte"}})
            EXPECT_EQ(picks.run(arguments), (FieldRun{1, "", name + ": " + reason + '\n'}));
        EXPECT_EQ(readFile(picks.path("line.otte")), "older");
    }
    expectRefusal({"convert", "s.txt", "--shots", "none.txt", "-o", "line.otte"},
                  "none.txt: no such file");
    expectRefusal({"convert", "a.vs", "--topography", "none.txt", "-o", "line.otte"},
                  "none.txt: no such file");
}

TEST(FieldConvertPicks, AnOutputThatWouldReplaceAnInput)
{
    for (const std::string output : {"a.vs", "./a.vs"})
        expectRefusal({"convert", "a.csv", "a.vs", "-o", output},
                      "a.vs: the output would replace this input");
    expectRefusal({"convert", "s.txt", "--shots", "shots.txt", "--to", "otte", "-o", "shots.txt"},
                  "shots.txt: the output would replace this input");
    const Picks picks;
    picks.write("ground.txt", "0;1\n");
    expectRefused(
        picks, {"convert", "a.vs", "--topography", "ground.txt", "--to", "csv", "-o", "ground.txt"},
        "ground.txt: the output would replace this input");
}

TEST(FieldConvertPicks, AFileThatIsRefusedLeavesTheOlderOutput)
{
    const Picks picks;
    picks.write("b.vs", "First breaks, ms\n1 1\n0 2\n5 4\n10 7x\n");
    const FieldRun run = picks.run({"convert", "a.vs", "b.vs", "-o", "line.otte"});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.error.starts_with("b.vs:5: ")) << run.error;
    EXPECT_EQ(readFile(picks.path("line.otte")), "older");
    EXPECT_EQ(picks.names(), (std::vector<std::string>{"a.csv", "a.txt", "a.vs", "b.vs",
                                                       "line.otte", "s.txt", "shots.txt"}));
}

TEST(FieldConvertPicks, RemarksAreShownAndStrictTakesNone)
{
    const Picks picks;
    picks.write("b.vs", "First breaks, ms\n1 1\n0 3\n5 4\n7 -1\n10 7\n");
    const FieldRun run = picks.run({"convert", "b.vs", "-o", "line.otte"});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.error.starts_with("b.vs:5: ")) << run.error;
    EXPECT_EQ(readFile(picks.path("line.otte")), oneShot);

    picks.write("line.otte", "older");
    EXPECT_EQ(
        picks.run({"convert", "b.vs", "-o", "line.otte", "--strict"}),
        (FieldRun{1, "", run.error + "line.otte: nothing is made: --strict takes no remarks\n"}));
    EXPECT_EQ(readFile(picks.path("line.otte")), "older");
}

TEST(FieldConvertPicks, AFileGivenTwiceIsRemarkedOnOnce)
{
    const Picks picks;
    picks.write("b.vs", "First breaks, ms\n1 1\n0 3\n5 4\n7 -1\n10 7\n");
    const std::string error =
        "b.vs:5: a time of \"-1\": not picked, so the receiver is left out of "
        "this shot\n";
    EXPECT_EQ(picks.run({"convert", "b.vs", "b.vs", "-o", "line.otte"}), (FieldRun{0, "", error}));
    EXPECT_EQ(readFile(picks.path("line.otte")),
              "otte\n1.0\n2\n1\n5;10;\n0;0;\n0;0;\n0;0;\n0\n0\n4;7;\n0\n1\n4;7;\n");
    EXPECT_EQ(picks.run({"check", "b.vs", "b.vs"}).error, error);
}

TEST(FieldConvertPicks, UnitOfTimes)
{
    const Picks picks;
    picks.write("s.txt", "5;0;4\n10;0;7\n");
    EXPECT_EQ(picks.otteOf({"s.txt", "--shots", "shots.txt", "--times-in", "ms"}), oneShot);
    EXPECT_EQ(picks.otteOf({"a.txt", "--times-in", "s"}), oneShot);
    EXPECT_EQ(
        picks.run({"convert", "a.vs", "--times-in", "s", "-o", "line.otte"}),
        (FieldRun{0, "", "a.vs: seisimager has a unit of times: --times-in does not change it\n"}));
    EXPECT_EQ(readFile(picks.path("line.otte")), oneShot);
}

TEST(FieldConvertPicks, Topography)
{
    const Picks picks;
    picks.write("ground.txt", "10 3\n0 1\n");
    EXPECT_EQ(picks.otteOf({"a.vs", "--topography", "ground.txt"}),
              "otte\n1.0\n2\n1\n5;10;\n2;3;\n0;\n1;\n0\n0\n4;7;\n");
}

TEST(FieldConvertPicks, PicksAndRecordsDoNotMix)
{
    const Picks picks;
    std::string record(240 + 4 * 2, '\0');
    record[114] = 2; // samples, little-endian
    record[116] = 100;
    picks.write("line.su", record + record);
    expectRefused(picks, {"convert", "a.vs", "line.su", "-o", "line.otte"},
                  "line.su: a record (su, known by the header that repeats at byte 248, "
                  "little-endian) cannot become otte");
    for (const std::string name : {"su", "seg2"})
        expectRefused(
            picks, {"convert", "a.vs", "-o", "line." + name},
            "a.vs: picks (seisimager, known by counts of shots and receivers that fit its "
            "lines) cannot become "
                + name);
    picks.write("letter.dat", "Dear all,\nplease find the picks below.\n");
    expectRefused(picks, {"convert", "letter.dat", "-o", "line.otte"},
                  "letter.dat: a record (seg2, known by its name) cannot become otte");
}

TEST(FieldConvertPicks, AnOutputThatCannotBeWritten)
{
    expectRefusal({"convert", "a.vs", "-o", "none/line.otte"},
                  "none/line.otte: the folder none does not exist");
    const Picks picks;
    std::filesystem::create_directory(picks.path("folder"));
    expectRefused(picks, {"convert", "a.vs", "--to", "otte", "-o", "folder"},
                  "folder: this is a folder");
    for (const std::string format : {"otte", "sgt", "csv", "seisimager"}) {
        const FieldRun run = picks.run({"convert", "a.vs", "--to", format, "-o", "/dev/full"});
        EXPECT_EQ(run.status, 1) << format;
        EXPECT_EQ(run.error, "/dev/full: " + systemText(ENOSPC) + '\n') << format;
    }
}

TEST(FieldConvertPicks, AnInterruptLeavesTheOlderOutput)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const Picks picks;
        // Nothing comes from the topography, so the command waits while it makes its output.
        ASSERT_EQ(mkfifo(picks.path("ground.txt").c_str(), 0600), 0);
        const std::vector<std::string> before = picks.names();
        QProcess process;
        picks.start(process, {"convert", "a.vs", "--topography", "ground.txt", "-o", "line.otte"});
        const int pipe = openReadPipe(picks.path("ground.txt"));
        ASSERT_GE(pipe, 0);
        EXPECT_EQ(readFile(picks.path("line.otte")), "older");
        sendSignal(process, signal);
        EXPECT_EQ(finish(process), (FieldRun{-signal, "", ""}));
        close(pipe);
        EXPECT_EQ(picks.names(), before);
        EXPECT_EQ(readFile(picks.path("line.otte")), "older");
    }
}
