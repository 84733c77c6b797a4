// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/field_command.h"
#include "tests/support/field_seismic_unix.h"

#include <QJsonArray>
#include <gtest/gtest.h>

namespace {

/// A folder with two shots that see each other in 10 and 14 ms, in two files.
struct Survey : FieldFolder
{
    Survey()
    {
        write("a.vs", "First breaks, ms\n1 1\n0 2\n5 5\n10 10\n");
        write("b.vs", "First breaks, ms\n1 1\n10 2\n5 5\n0 14\n");
        write("clean.vs", "First breaks, ms\n1 1\n0 2\n5 5\n10 10\n");
    }
};

const std::string pair =
    "a.vs:5: 10 ms from x = 0 to 10, but 14 ms the other way round (b.vs:5): a wave takes the same "
    "time both ways, so that a pick or a position is wrong\n";
const std::string sameInWindow =
    "a.vs: the window reads the same survey\nb.vs: the window reads the same survey\n";
const std::string sum = "2 shots, 4 picks, 1 reciprocal pair, median difference 4 ms\n";

/// A record of one trace that is dead.
std::string deadRecord()
{
    return suTrace(ByteOrder::littleEndian,
                   {{8, 1}, {12, 1}, {28, 2}, {70, 1}, {72, -5}, {80, 5}, {116, 250}},
                   {0.0F, 0.0F});
}

} // namespace

TEST(FieldCheck, ACleanSurveyHasNoFinding)
{
    const Survey survey;
    for (const std::vector<std::string> &arguments :
         {std::vector<std::string>{"check", "clean.vs"}, {"check", "clean.vs", "--strict"}})
        EXPECT_EQ(survey.run(arguments), (FieldRun{0,
                                                   "clean.vs: the window reads the same survey\n"
                                                   "1 shot, 2 picks, 0 reciprocal pairs\n"
                                                   "nothing found\n",
                                                   ""}));
}

TEST(FieldCheck, AllFilesOfPicksAreOneSurvey)
{
    const Survey survey;
    EXPECT_EQ(survey.run({"check", "a.vs", "b.vs"}),
              (FieldRun{0, pair + sameInWindow + sum + "1 finding\n", ""}));
    EXPECT_EQ(survey.run({"check", "a.vs", "b.vs", "--strict"}),
              (FieldRun{1, pair + sameInWindow + sum + "1 finding\n", ""}));
}

TEST(FieldCheck, Tolerance)
{
    const Survey survey;
    for (const std::string tolerance : {"4", "4.5"})
        EXPECT_EQ(survey.run({"check", "a.vs", "b.vs", "--strict", "--tolerance", tolerance}),
                  (FieldRun{0, sameInWindow + sum + "nothing found\n", ""}))
            << tolerance;
    EXPECT_EQ(survey.run({"check", "a.vs", "b.vs", "--tolerance", "3.9"}).output,
              pair + sameInWindow + sum + "1 finding\n");
}

TEST(FieldCheck, WhatTheWindowReads)
{
    const Survey survey;
    survey.write("a.vs", "First breaks, ms\n1 1\n0 2\n5 5\n 10 9\n");
    const FieldRun run = survey.run({"check", "a.vs", "--strict"});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.output.starts_with("a.vs:5: the window reads ")) << run.output;
    EXPECT_TRUE(run.output.ends_with("\n1 shot, 2 picks, 0 reciprocal pairs\n1 finding\n"))
        << run.output;

    // It reads no files of other formats.
    ASSERT_EQ(survey.run({"convert", "clean.vs", "-o", "a.sgt"}), FieldRun{});
    EXPECT_EQ(survey.run({"check", "a.sgt"}),
              (FieldRun{0, "1 shot, 2 picks, 0 reciprocal pairs\nnothing found\n", ""}));
}

TEST(FieldCheck, RecordsAreCheckedOneByOne)
{
    const Survey survey;
    survey.write("line.su", deadRecord());
    const FieldRun run = survey.run({"check", "line.su", "clean.vs", "--strict"});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.output.starts_with("line.su: trace 1: ")) << run.output;
    EXPECT_TRUE(run.output.ends_with("\nline.su: 1 trace\n"
                                     "clean.vs: the window reads the same survey\n"
                                     "1 shot, 2 picks, 0 reciprocal pairs\n1 finding\n"))
        << run.output;
}

TEST(FieldCheck, AFileThatIsRefused)
{
    const Survey survey;
    survey.write("line.su", deadRecord());
    survey.write("bad.vs", "First breaks, ms\n1 1\n0 2\n5 5\n10 x\n");
    const FieldRun run = survey.run({"check", "a.vs", "bad.vs", "line.su"});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.error.starts_with("bad.vs:5: ")) << run.error;
    EXPECT_TRUE(run.output.ends_with("\na.vs: the window reads the same survey\n"
                                     "line.su: 1 trace\n"
                                     "the picks are not checked, as a file was refused\n"
                                     "1 finding\n"))
        << run.output;
    // A record that is damaged does not keep the picks from it.
    survey.write("line.su", deadRecord().substr(0, 244));
    const FieldRun picks = survey.run({"check", "clean.vs", "line.su"});
    EXPECT_EQ(picks.status, 1);
    EXPECT_TRUE(picks.error.starts_with("line.su: ")) << picks.error;
    EXPECT_NE(picks.output.find("\n1 shot, 2 picks, "), std::string::npos) << picks.output;
}

TEST(FieldCheck, ForPrograms)
{
    const Survey survey;
    survey.write("line.su", deadRecord());
    const FieldRun run = survey.run({"check", "a.vs", "b.vs", "line.su", "--json", "--strict"});
    EXPECT_EQ(run.status, 1);
    const QJsonObject object = objectOf(run);
    EXPECT_EQ(object.keys(),
              (QStringList{"failures", "findings", "picks", "records", "remarks", "window"}));
    EXPECT_EQ(object["failures"].toArray(), QJsonArray());
    EXPECT_EQ(object["remarks"].toArray(), QJsonArray());

    const QJsonArray findings = object["findings"].toArray();
    ASSERT_EQ(findings.size(), 2);
    const QJsonObject dead = findings[0].toObject();
    EXPECT_EQ(dead.keys(), (QStringList{"file", "kind", "text", "trace"}));
    EXPECT_EQ(dead["kind"], "dead");
    EXPECT_EQ(dead["file"], "line.su");
    EXPECT_EQ(dead["trace"], 1);
    const QJsonObject reciprocal = findings[1].toObject();
    EXPECT_EQ(reciprocal.keys(), (QStringList{"file", "kind", "line", "text"}));
    EXPECT_EQ(reciprocal["kind"], "reciprocal");
    EXPECT_EQ(reciprocal["file"], "a.vs");
    EXPECT_EQ(reciprocal["line"], 5);
    EXPECT_EQ("a.vs:5: " + reciprocal["text"].toString().toStdString() + '\n', pair);

    const QJsonObject picks = object["picks"].toObject();
    EXPECT_EQ(picks["shots"], 2);
    EXPECT_EQ(picks["picks"], 4);
    EXPECT_EQ(picks["reciprocalPairs"], 1);
    EXPECT_DOUBLE_EQ(picks["medianReciprocalDifference"].toDouble(), 0.004);
    EXPECT_EQ(object["records"].toArray(),
              (QJsonArray{QJsonObject{{"file", "line.su"}, {"traces", 1}}}));
    EXPECT_EQ(object["window"].toArray(),
              (QJsonArray{QJsonObject{{"file", "a.vs"}, {"isSame", true}},
                          QJsonObject{{"file", "b.vs"}, {"isSame", true}}}));
}

TEST(FieldCheck, ForProgramsWithoutPairsOrWindow)
{
    const Survey survey;
    survey.write("a.vs", "First breaks, ms\n1 1\n0 2\n5 5\n 10 9\n");
    const QJsonObject object = objectOf(survey.run({"check", "a.vs", "--json"}));
    EXPECT_TRUE(object["picks"].toObject()["medianReciprocalDifference"].isNull());
    EXPECT_EQ(object["picks"].toObject()["reciprocalPairs"], 0);
    const QJsonObject window = object["window"].toArray().at(0).toObject();
    EXPECT_EQ(window["isSame"], false);
    EXPECT_EQ(window["line"], 5);
    EXPECT_EQ(window["text"], object["findings"].toArray().at(0)["text"]);

    const FieldRun none = survey.run({"check", "none.vs", "--json"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.error, "none.vs: no such file\n");
    EXPECT_EQ(objectOf(none).keys(), (QStringList{"failures", "findings", "remarks"}));
}

TEST(FieldCheck, ShotsOfGenericFiles)
{
    const Survey survey;
    survey.write("s.txt", "5;0;5\n10;0;10\n");
    survey.write("shots.txt", "s.txt;0;0\n");
    const FieldRun run = survey.run(
        {"check", "s.txt", "--shots", "shots.txt", "--times-in", "ms", "--from", "generic"});
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_NE(run.output.find("1 shot, 2 picks, "), std::string::npos) << run.output;
    EXPECT_EQ(survey.run({"check", "s.txt", "--shots", "none.txt"}),
              (FieldRun{1, "nothing found in what could be read\n", "none.txt: no such file\n"}));
}

TEST(FieldCheck, AFindingIsOneLineWhateverItQuotes)
{
    const FieldFolder folder;
    folder.write("a\x1B.vs", "First breaks, ms\n1 1\n0 1\n5 0\n");
    EXPECT_EQ(
        folder.run({"check", "a\x1B.vs"}),
        (FieldRun{0,
                  "a?.vs:4: a time of 0 at x = 5, away from the shot at 0: no wave is that fast, "
                  "so that it is no pick\n"
                  "a?.vs: the window reads the same survey\n"
                  "1 shot, 1 pick, 0 reciprocal pairs\n"
                  "1 finding\n",
                  ""}));
    EXPECT_TRUE(folder.run({"info", "a\x1B.vs"}).output.starts_with("a?.vs:\n"));
}
