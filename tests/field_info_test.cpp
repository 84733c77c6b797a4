// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/field_command.h"
#include "tests/support/field_seismic_unix.h"

#include <QJsonArray>
#include <gtest/gtest.h>

namespace {

/// A table of two shots, the second with one receiver less, an error for some picks.
const std::string table =
    "shot_x,shot_elevation,receiver_x,receiver_elevation,time,err\n"
    "-2.5,100,0,100,0.0123,0.001\n-2.5,100,5,101.5,0.02,\n7,101,0,100,0.03,\n";

/// Two traces, the second dead and longer, of shot 329.
std::string recordOfShot329(ByteOrder byteOrder)
{
    const std::map<std::size_t, std::int32_t> fields = {
        {8, 329},   {12, 1},    {28, 1},   {40, 1015}, {44, 1020}, {68, -10},
        {70, -100}, {72, -250}, {80, 500}, {108, -10}, {116, 250}, {156, 2022},
        {158, 81},  {160, 13},  {162, 58}, {164, 30}};
    auto second = fields;
    second[12] = 2;
    second[28] = 2;
    second[80] = 1000;
    return suTrace(byteOrder, fields, {1.5F, -2.5F})
           + suTrace(byteOrder, second, {0.0F, 0.0F, 0.0F});
}

QJsonObject range(double least, double greatest)
{
    return {{"min", least}, {"max", greatest}};
}

} // namespace

TEST(FieldInfo, Picks)
{
    const FieldFolder folder;
    folder.write("line.csv", table);
    EXPECT_EQ(folder.run({"info", "line.csv"}),
              (FieldRun{0,
                        "line.csv:\n"
                        "  format       table with a heading (csv)\n"
                        "  known by     shot_x in its heading\n"
                        "  units        metres, seconds\n"
                        "  shots        2, x -2.5 to 7 m, elevation 100 to 101 m\n"
                        "  receivers    2, x 0 to 5 m, elevation 100 to 101.5 m\n"
                        "  layouts      2\n"
                        "  picks        3\n"
                        "  times        12.3 to 30 ms\n"
                        "  errors       1 ms\n",
                        ""}));
}

TEST(FieldInfo, PicksForPrograms)
{
    const FieldFolder folder;
    folder.write("line.csv", table);
    const FieldRun run = folder.run({"info", "--json", "line.csv"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
    const QJsonObject picks = {{"shots", 2},
                               {"receivers", 2},
                               {"layouts", 2},
                               {"picks", 3},
                               {"picksWithError", 1},
                               {"shotX", range(-2.5, 7)},
                               {"shotElevation", range(100, 101)},
                               {"receiverX", range(0, 5)},
                               {"receiverElevation", range(100, 101.5)},
                               {"time", range(0.0123, 0.03)},
                               {"error", range(0.001, 0.001)}};
    const QJsonObject file = {
        {"file", "line.csv"},         {"format", "csv"}, {"knownBy", "shot_x in its heading"},
        {"units", "metres, seconds"}, {"picks", picks},  {"remarks", QJsonArray()},
        {"failures", QJsonArray()}};
    const QJsonObject expected = {
        {"files", QJsonArray{file}}, {"remarks", QJsonArray()}, {"failures", QJsonArray()}};
    EXPECT_EQ(objectOf(run), expected) << run.output;
    // Numbers are exact.
    EXPECT_NE(run.output.find("\"min\": 0.0123"), std::string::npos) << run.output;
}

TEST(FieldInfo, RecordsInEitherByteOrder)
{
    for (const ByteOrder byteOrder : {ByteOrder::littleEndian, ByteOrder::bigEndian}) {
        const std::string name = byteOrder == ByteOrder::bigEndian ? "big-endian" : "little-endian";
        const FieldFolder folder;
        folder.write("line.su", recordOfShot329(byteOrder));
        EXPECT_EQ(folder.run({"info", "line.su"}),
                  (FieldRun{0,
                            "line.su:\n"
                            "  format       Seismic Unix (su)\n"
                            "  known by     its size, that of 2 traces, "
                                + name
                                + "\n"
                                  "  units        as its headers say, otherwise metres, "
                                  "microseconds\n"
                                  "  byte order   "
                                + name
                                + "\n"
                                  "  traces       2, 1 dead\n"
                                  "  samples      2 to 3, 32-bit floats\n"
                                  "  interval     0.25 ms\n"
                                  "  delay        -10 ms\n"
                                  "  amplitudes   -2.5 to 1.5\n"
                                  "  shots        329\n"
                                  "  channels     1 to 2\n"
                                  "  sources      1, x -2.5 m, elevation 102 m\n"
                                  "  receivers    2, x 5 to 10 m, elevation 101.5 m\n"
                                  "  stacked      1\n"
                                  "  recorded     2022-03-22 13:58:30\n",
                            ""}));
    }
}

TEST(FieldInfo, ATextHasNoByteOrder)
{
    const FieldFolder folder;
    folder.write("LINE.ADT", "1\n\"up\"\n\"\"\n-0.01\n2\n4000\n");
    folder.write("LINE.A01", "1\n-2.5\n");
    EXPECT_EQ(folder.run({"info", "LINE.ADT"}),
              (FieldRun{0,
                        "LINE.ADT:\n"
                        "  format       Dolang, a set of files (dolang)\n"
                        "  known by     its name and its header\n"
                        "  units        seconds, samples per second\n"
                        "  traces       1\n"
                        "  samples      2, 32-bit floats\n"
                        "  interval     0.25 ms\n"
                        "  delay        -10 ms\n"
                        "  amplitudes   -2.5 to 1\n"
                        "  shots        none\n"
                        "  channels     1\n"
                        "  sources      none\n"
                        "  receivers    none\n"
                        "  stacked      1\n",
                        ""}));
    const QJsonObject info = objectOf(folder.run({"info", "--json", "LINE.ADT"}));
    const QJsonObject record = info["files"].toArray().at(0)["record"].toObject();
    EXPECT_FALSE(record.contains("byteOrder"));
    EXPECT_EQ(record["strings"], (QJsonObject{{"NOTE", "up"}}));
}

TEST(FieldInfo, RecordsForPrograms)
{
    const FieldFolder folder;
    folder.write("line.su", recordOfShot329(ByteOrder::bigEndian));
    const QJsonObject info = objectOf(folder.run({"info", "--json", "line.su"}));
    const QJsonObject sources = {{"traces", 2},
                                 {"locations", 1},
                                 {"x", range(-2.5, -2.5)},
                                 {"y", range(0, 0)},
                                 {"elevation", range(102, 102)}};
    const QJsonObject receivers = {{"traces", 2},
                                   {"locations", 2},
                                   {"x", range(5, 10)},
                                   {"y", range(0, 0)},
                                   {"elevation", range(101.5, 101.5)}};
    const QJsonObject expected = {{"byteOrder", "big"},
                                  {"strings", QJsonObject()},
                                  {"traces", 2},
                                  {"deadTraces", 1},
                                  {"hasAngles", false},
                                  {"sampleTypes", QJsonArray{"32-bit floats"}},
                                  {"samples", range(2, 3)},
                                  {"sampleInterval", range(0.00025, 0.00025)},
                                  {"delay", range(-0.01, -0.01)},
                                  {"amplitude", range(-2.5, 1.5)},
                                  {"stackCount", range(1, 1)},
                                  {"shotNumbers", QJsonArray{329}},
                                  {"channelNumbers", QJsonArray{1, 2}},
                                  {"recorded", QJsonArray{"2022-03-22 13:58:30"}},
                                  {"sources", sources},
                                  {"receivers", receivers}};
    EXPECT_EQ(info["files"].toArray().at(0)["record"].toObject(), expected);
}

TEST(FieldInfo, AFileThatIsRefusedDoesNotEndIt)
{
    const FieldFolder folder;
    folder.write("line.csv", table);
    folder.write("bad.vs", "First breaks, ms\n1 1\n0 2\n5 4\n");
    const std::vector<std::string> files = {"none.vs", "bad.vs", "line.csv"};
    const FieldRun run = folder.run({"info", files[0], files[1], files[2]});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.output.starts_with("none.vs:\nbad.vs:\n"
                                       "  format       SeisImager traveltimes (seisimager)\n"
                                       "  known by     counts of shots and receivers in its first "
                                       "lines\nline.csv:\n  format"))
        << run.output;
    EXPECT_TRUE(run.error.starts_with("none.vs: no such file\nbad.vs:4: ")) << run.error;

    const FieldRun json = folder.run({"info", files[0], files[1], files[2], "--json"});
    EXPECT_EQ(json.status, 1);
    EXPECT_EQ(json.error, run.error);
    const QJsonArray infos = objectOf(json)["files"].toArray();
    ASSERT_EQ(infos.size(), 3);
    const QJsonObject missing = {{"file", "none.vs"}, {"text", "no such file"}};
    EXPECT_EQ(infos[0]["failures"].toArray(), QJsonArray{missing});
    const QJsonObject bad = infos[1]["failures"].toArray().at(0).toObject();
    EXPECT_EQ(bad["file"], "bad.vs");
    EXPECT_EQ(bad["line"], 4);
    EXPECT_EQ(infos[2]["failures"].toArray(), QJsonArray());
    EXPECT_EQ(infos[2]["picks"].toObject()["picks"], 3);
}

TEST(FieldInfo, TheTracesBeforeADamagedEnd)
{
    const FieldFolder folder;
    folder.write("line.su", recordOfShot329(ByteOrder::bigEndian).substr(0, 248 + 100));
    const FieldRun run = folder.run({"info", "line.su"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.output.find("  traces       1\n"), std::string::npos) << run.output;
    EXPECT_EQ(run.error, "line.su: the file ends within trace 2: only the 1 whole trace before it "
                         "can be read\n");
}

TEST(FieldInfo, RemarksAndOptions)
{
    const FieldFolder folder;
    folder.write("s.txt", "0;100;12\n5;100;-1\n");
    folder.write("shots.txt", "s.txt;-2.5;99\n");
    const FieldRun run = folder.run({"info", "s.txt", "--shots", "shots.txt", "--times-in", "ms"});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.error.starts_with("s.txt:2: ")) << run.error;
    EXPECT_NE(run.output.find("  shots        1, x -2.5 m, elevation 99 m\n"), std::string::npos);
    EXPECT_NE(run.output.find("  times        12 ms\n"), std::string::npos);

    const FieldRun json = folder.run({"info", "s.txt", "--shots", "shots.txt", "--json"});
    const QJsonObject remark =
        objectOf(json)["files"].toArray().at(0)["remarks"].toArray().at(0).toObject();
    EXPECT_EQ(remark["file"], "s.txt");
    EXPECT_EQ(remark["line"], 2);
    EXPECT_EQ("s.txt:2: " + remark["text"].toString().toStdString() + '\n', json.error);

    const FieldRun noList = folder.run({"info", "s.txt", "--shots", "none.txt", "--json"});
    EXPECT_EQ(noList.status, 1);
    EXPECT_EQ(noList.error, "none.txt: no such file\n");
    const QJsonObject missing = {{"file", "none.txt"}, {"text", "no such file"}};
    EXPECT_EQ(objectOf(noList)["failures"].toArray(), QJsonArray{missing});
    EXPECT_EQ(objectOf(noList)["files"].toArray(), QJsonArray());
}

TEST(FieldInfo, StandardOutputThatIsFull)
{
    const FieldFolder folder;
    folder.write("line.csv", table);
    for (const std::string arguments : {"info line.csv", "info --json line.csv", "formats",
                                        "check line.csv", "check --json line.csv"}) {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(folder.path("")));
        process.start("sh", {"-c", QString::fromStdString("exec '" BATCH_COMMAND "' " + arguments
                                                          + " >/dev/full")});
        EXPECT_EQ(finish(process), (FieldRun{1, "", "standard output: cannot be written\n"}))
            << arguments;
    }
}
