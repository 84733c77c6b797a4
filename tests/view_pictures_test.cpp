// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"

#include "tests/support/field_seismic_unix.h"

#include <QDir>
#include <QImage>
#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>

namespace {

const std::string surveyText =
    "Line 7\n0 2\n7 4\n0 12\n5 4\n10 8\n20 20\n20 4\n0 30\n10 15\n20 0\n30 15\n";

/// A folder with a survey, in which nothing knows of a display.
struct Pictures : BatchFolder
{
    Pictures()
    {
        write("line.vs", surveyText);
    }

    BatchRun draw(const std::vector<std::string> &arguments) const
    {
        for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            unsetenv(name);
        return run(arguments);
    }

    /// What another program says of a file.
    std::string ask(const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(path("")));
        process.start(program, arguments);
        const BatchRun run = finish(process);
        EXPECT_EQ(run.status, 0) << run.error;
        return run.output;
    }
};

void expectWrong(const std::vector<std::string> &arguments, const std::string &reason)
{
    SCOPED_TRACE(testing::PrintToString(arguments));
    const Pictures pictures;
    const auto before = pictures.contents();
    EXPECT_EQ(pictures.draw(arguments),
              (BatchRun{2, "", "convert2velarix-view: " + reason + "; see --help\n"}));
    EXPECT_EQ(pictures.contents(), before);
}

} // namespace

TEST(ViewPictures, PngHasItsSizeAndTitle)
{
    const Pictures pictures;
    EXPECT_EQ(pictures.draw({"line.vs", "-o", "line.png"}), BatchRun{});
    const QImage image(QString::fromStdString(pictures.path("line.png")));
    EXPECT_EQ(image.size(), QSize(1200, 800));
    EXPECT_EQ(image.text("Title").toStdString(), "line.vs: 2 shots, 8 picks");
    EXPECT_EQ(pictures.draw({"line.vs", "-o", "LINE.PNG", "--size", "640x480"}), BatchRun{});
    EXPECT_EQ(QImage(QString::fromStdString(pictures.path("LINE.PNG"))).size(), QSize(640, 480));
}

TEST(ViewPictures, SvgIsDrawnByAnotherProgram)
{
    const Pictures pictures;
    EXPECT_EQ(pictures.draw({"line.vs", "-o", "line.svg", "--size", "700x500"}), BatchRun{});
    pictures.ask("rsvg-convert", {"line.svg", "-o", "drawn.png"});
    const QImage image(QString::fromStdString(pictures.path("drawn.png")));
    EXPECT_EQ(image.size(), QSize(700, 500));
    std::size_t orange = 0; // of shot 2
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            orange += image.pixelColor(x, y) == QColor(0xe5, 0x5a, 0x14) ? 1 : 0;
    EXPECT_GT(orange, 50u);
    const std::string text = readFile(pictures.path("line.svg"));
    for (const char *part :
         {"<title>line.vs: 2 shots, 8 picks</title>", ">line.vs: 2 shots, 8 picks<", ">Time (ms)<",
          ">Position along the line (m)<", ">Shot 1 at 7 m<", ">Shot 2 at 20 m<"})
        EXPECT_NE(text.find(part), std::string::npos) << part;
    EXPECT_EQ(text.find("<image"), std::string::npos);
}

TEST(ViewPictures, PdfHasTextAndSize)
{
    const Pictures pictures;
    EXPECT_EQ(pictures.draw({"line.vs", "-o", "line.pdf", "--size", "700x500"}), BatchRun{});
    const std::string text = pictures.ask("pdftotext", {"line.pdf", "-"});
    for (const char *part : {"line.vs: 2 shots, 8 picks", "Time (ms)",
                             "Position along the line (m)", "Shot 1 at 7 m", "Shot 2 at 20 m"})
        EXPECT_NE(text.find(part), std::string::npos) << part;
    const std::string facts = pictures.ask("pdfinfo", {"line.pdf"});
    for (const char *part :
         {"line.vs: 2 shots, 8 picks", "Page size:       700 x 500 pts", "Pages:           1\n"})
        EXPECT_NE(facts.find(part), std::string::npos) << part;
}

TEST(ViewPictures, TitleOfOddFileNames)
{
    const Pictures pictures;
    pictures.write("<a&b>\xc3\xa9.vs", surveyText);
    EXPECT_EQ(pictures.draw({"<a&b>\xc3\xa9.vs", "-o", "line.svg"}), BatchRun{});
    pictures.ask("rsvg-convert", {"line.svg", "-o", "drawn.png"});
    EXPECT_NE(readFile(pictures.path("line.svg"))
                  .find("<title>&lt;a&amp;b&gt;\xc3\xa9.vs: 2 shots, 8 picks</title>"),
              std::string::npos);
}

TEST(ViewPictures, SeveralFilesAreOneSurvey)
{
    const Pictures pictures;
    pictures.write("more.csv", "shot_x,shot_elevation,receiver_x,receiver_elevation,time\n"
                               "40,0,30,0,0.01\n");
    EXPECT_EQ(pictures.draw({"line.vs", "more.csv", "-o", "line.png"}), BatchRun{});
    EXPECT_EQ(QImage(QString::fromStdString(pictures.path("line.png"))).text("Title").toStdString(),
              "line.vs and 1 more: 3 shots, 9 picks");
}

TEST(ViewPictures, OptionsOfReading)
{
    const Pictures pictures;
    pictures.write("shot.txt", "0;100;1\n5;100;4\n");
    pictures.write("shots.txt", "shot.txt;2.5;100\n");
    EXPECT_EQ(
        pictures.draw({"shot.txt", "--shots", "shots.txt", "--times-in", "ms", "-o", "a.svg"}),
        BatchRun{});
    EXPECT_NE(readFile(pictures.path("a.svg")).find(">Shot 1 at 2.5 m<"), std::string::npos);
    EXPECT_NE(readFile(pictures.path("a.svg")).find(">Elevation (m)<"), std::string::npos);
    pictures.write("ground.txt", "0;0\n10;0\n");
    EXPECT_EQ(pictures.draw({"shot.txt", "--from", "generic", "--shots", "shots.txt",
                             "--topography", "ground.txt", "-o", "b.svg"}),
              BatchRun{});
    EXPECT_EQ(readFile(pictures.path("b.svg")).find(">Elevation (m)<"), std::string::npos);
}

TEST(ViewPictures, FileThatCannotBeReadLeavesTheOlderPicture)
{
    const Pictures pictures;
    pictures.write("line.png", "older");
    pictures.write("bad.vs", "Line 7\n0 1\n0 1\n5 x\n");
    EXPECT_EQ(pictures.draw({"line.vs", "bad.vs", "-o", "line.png"}),
              (BatchRun{1, "", "bad.vs:4: \"x\" is no number: a time expected\n"}));
    EXPECT_EQ(pictures.draw({"none.vs", "-o", "line.png"}).status, 1);
    EXPECT_EQ(readFile(pictures.path("line.png")), "older");
    EXPECT_EQ(pictures.names(), (std::vector<std::string>{"bad.vs", "line.png", "line.vs"}));
}

TEST(ViewPictures, PictureThatCannotBeWritten)
{
    const Pictures pictures;
    for (const std::string ending : {"png", "svg", "pdf"})
        EXPECT_EQ(pictures.draw({"line.vs", "-o", "none/line." + ending}),
                  (BatchRun{1, "", "none/line." + ending + ": the folder none does not exist\n"}));
    for (const std::string ending : {"png", "svg", "pdf"})
        expectRefused(pictures, {"line.vs", "-o", "line.vs/line." + ending},
                      "line.vs/line." + ending + ": line.vs is not a folder");
}

TEST(ViewPictures, WrongUsage)
{
    expectWrong({"-o", "line.png"}, "an input file is needed");
    expectWrong({"", "-o", "line.png"}, "a file has no name");
    expectWrong({"line.vs", "-o", "line.gif"}, "a picture is .png, .svg or .pdf, not line.gif");
    expectWrong({"line.vs", "-o", "png"}, "a picture is .png, .svg or .pdf, not png");
    expectWrong({"line.vs", "-o", ""}, "--output needs a value");
    expectWrong({"line.vs", "-o", "-"},
                "standard input and output are not taken: name a file instead of \"-\"");
    expectWrong({"line.vs", "-o", "a.png", "-o", "b.png"}, "--output is given twice");
    expectWrong({"line.vs", "--size", "640x480"}, "--size is for pictures: -o PICTURE");
    for (const std::string size : {"640", "640x", "x480", "640X480", "199x300", "300x199",
                                   "10000x300", "-640x480", "640x480 ", "6e2x480"})
        expectWrong({"line.vs", "-o", "a.png", "--size", size},
                    "--size takes WIDTHxHEIGHT, each from 200 to 9999, not \"" + size + '"');
    expectWrong({"line.vs", "--loud"}, "Unknown option 'loud'");
    expectWrong({"line.vs", "--from", "png"},
                "--from takes generic, geogiga, seisimager, winsism, otte, sgt, csv, su, seg2 or "
                "dolang, not \"png\"");
}

TEST(ViewPictures, Help)
{
    const Pictures pictures;
    const BatchRun run = pictures.draw({"--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
    for (const char *part :
         {"convert2velarix-view [FILE...]", "convert2velarix-view FILE... -o PICTURE [--size WxH]",
          "-o, --output <PICTURE>", "--size <WxH>", "--shots <file>"})
        EXPECT_NE(run.output.find(part), std::string::npos) << part;
    EXPECT_EQ(pictures.draw({"--version"}), (BatchRun{0, "convert2velarix-view 1.0.0\n", ""}));
}

TEST(ViewPictures, ManPageDescribesEveryOption)
{
    const Pictures pictures;
    const std::string help = pictures.draw({"--help"}).output;
    const std::string page = std::regex_replace(readFile(VIEW_MAN_PAGE), std::regex("\\\\-"), "-");
    std::size_t options = 0;
    const std::regex option("^  (-[a-z], )?(--[-a-z]+)", std::regex::multiline);
    for (std::sregex_iterator match(help.begin(), help.end(), option), end; match != end; ++match) {
        EXPECT_NE(page.find(match->str(2)), std::string::npos) << match->str(2);
        ++options;
    }
    EXPECT_EQ(options, 8u) << help;
}

TEST(ViewPictures, RecordIsDrawnWithItsPicks)
{
    const Pictures pictures;
    std::string record;
    for (int trace = 0; trace < 3; ++trace)
        record += suTrace(ByteOrder::bigEndian,
                          {{0, trace + 1}, {72, 7}, {80, 5 * trace}, {70, 1}, {88, 1}, {116, 1000}},
                          {0, 1, -1, 0});
    pictures.write("line.su", record);
    EXPECT_EQ(pictures.draw({"line.su", "line.vs", "-o", "line.svg"}), BatchRun{});
    const std::string picture = readFile(pictures.path("line.svg"));
    for (const char *part : {"3 traces</title>", ">Trace<", ">Time (ms)<", "#c80082"})
        EXPECT_NE(picture.find(part), std::string::npos) << part;
    EXPECT_EQ(pictures.draw({"line.su", "-o", "alone.svg"}), BatchRun{});
    EXPECT_EQ(readFile(pictures.path("alone.svg")).find("#c80082"), std::string::npos);

    pictures.write("elsewhere.vs", "Line 7\n0 1\n40 1\n45 8\n");
    EXPECT_EQ(pictures.draw({"line.su", "elsewhere.vs", "-o", "elsewhere.png"}),
              (BatchRun{0, "",
                        "line.su: none of the picks lies on it: their shots or receivers are "
                        "elsewhere\n"}));

    pictures.write("other.su", record);
    EXPECT_EQ(pictures.draw({"line.su", "other.su", "-o", "two.svg"}),
              (BatchRun{1, "",
                        "other.su: a picture has one record: give the others pictures of their "
                        "own\n"}));
}

// docs/make_pictures.sh makes them anew. Elsewhere the fonts may be others.
TEST(ViewPictures, ThoseOfThePagesAreAsNowDrawn)
{
    if (readFile("/etc/os-release").find("VERSION_CODENAME=bookworm\n") == std::string::npos)
        GTEST_SKIP() << "not Debian 12";
    const Pictures pictures;
    const QString docs = QDir::cleanPath(VIEW_MAN_PAGE "/../../docs") + '/';
    const QString folder = QString::fromStdString(pictures.path(""));
    pictures.ask("sh", {docs + "make_pictures.sh", BATCH_COMMAND, folder});
    for (const char *name : {"traveltimes.png", "record.png", "findings.png"}) {
        const QImage drawn(folder + name);
        const QImage shown(docs + name);
        ASSERT_EQ(drawn.size(), QSize(1000, 640)) << name;
        ASSERT_EQ(shown.size(), drawn.size()) << name;
        int others = 0;
        for (int y = 0; y < drawn.height(); ++y)
            for (int x = 0; x < drawn.width(); ++x)
                others += drawn.pixel(x, y) == shown.pixel(x, y) ? 0 : 1;
        EXPECT_LT(others, 1000 * 640 / 200) << name;
    }
}
