// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/convertible_files.h"
#include "tests/support/faults.h"
#include "tests/support/odd_files.h"
#include "tests/support/window_faults.h"

#include <QTest>

#include <filesystem>

using namespace std::string_literals;

namespace fs = std::filesystem;

namespace {

/// What a generic file without lines becomes.
const std::string emptyShotOtte = "otte\n1.0\n2\n1\n\n\n-1;\n100;\n0\n0\n\n";

std::function<std::string()> utf16Of(const QString &filter)
{
    return [filter] { return inUtf16(formatOf(filter).input); };
}

std::function<std::string()> markedOf(const QString &filter)
{
    return [filter] { return byteOrderMark + formatOf(filter).input; };
}

const std::vector<OddInput> oddInputs = {
    {"empty Geogiga", geogiga, [] { return ""s; }, conversionDone, "", ""},
    {"empty Winsism", winsism, [] { return ""s; }, conversionDone, "Invalid header : \n", ""},
    {"empty SeisImager", seisImager, [] { return ""s; }, conversionNotCompleted, wentWrong, ""},
    {"empty generic", generic, [] { return ""s; }, conversionDone, "", emptyShotOtte},

    {"NUL bytes, Geogiga", geogiga, nulBytes, conversionDone, "", ""},
    {"NUL bytes, Winsism", winsism, nulBytes, conversionDone,
     "Invalid header : " + nulBytes() + '\n', ""},
    {"NUL bytes, SeisImager", seisImager, nulBytes, conversionNotCompleted, wentWrong, ""},
    {"NUL bytes, generic", generic, nulBytes, conversionNotCompleted, wentWrong, ""},

    // Of UTF-16 text every number begins with a byte 0 and reads as 0: so does the number of shots
    // of a SeisImager file. A generic file ends in a line that is the second byte of its line end.
    {"UTF-16, Geogiga", geogiga, utf16Of(geogiga), conversionDone, "", ""},
    {"UTF-16, Winsism", winsism, utf16Of(winsism), conversionDone,
     "Invalid header : " + inUtf16("Shot number, Shot elevation") + '\n', ""},
    {"UTF-16, SeisImager", seisImager, utf16Of(seisImager), conversionDone, "", emptyOtte},
    {"UTF-16, generic", generic, utf16Of(generic), conversionNotCompleted, wentWrong, ""},

    // A SeisImager file's first line is passed over; a generic file's first number is lost.
    {"byte order mark, Geogiga", geogiga, markedOf(geogiga), conversionDone, "", ""},
    {"byte order mark, Winsism", winsism, markedOf(winsism), conversionDone,
     "Invalid header : " + byteOrderMark + "Shot number, Shot elevation\n", ""},
    {"byte order mark, SeisImager", seisImager, markedOf(seisImager), conversionDone, "",
     seisImagerOtte},
    {"byte order mark, generic", generic, markedOf(generic), conversionDone, "",
     "otte\n1.0\n2\n1\n0;10;\n100.5;101;\n-1;\n100;\n0\n0\n1;4;\n"},
};

} // namespace

class Convert2VelarixTraveltimeFaultsTest : public WindowFaultTests
{
    Q_OBJECT

private slots:
    // The OTTE file.

    void traveltimesInto_data()
    {
        QTest::addColumn<QString>("place");
        QTest::addColumn<QString>("filter");
        for (const QString place : {"full device", "missing folder", "folder", "read-only file",
                                    "older file", "input itself"}) {
            for (const Traveltimes &format : traveltimeFormats())
                QTest::addRow("%s, %s", qPrintable(place), qPrintable(format.filter))
                    << place << format.filter;
        }
    }

    void traveltimesInto()
    {
        QFETCH(QString, place);
        QFETCH(QString, filter);
        const Traveltimes &format = formatOf(filter);
        const QString input = file("line", format.input);
        const std::map<QString, QString> outputs = {
            {"full device", text(memoryDevice(*folder, 7, "/dev/full"))},
            {"missing folder", path("missing/line.otte")},
            {"folder", path("folder")},
            {"input itself", input},
        };
        fs::create_directory(folder->path("folder"));
        const QString output = outputs.count(place) ? outputs.at(place) : file("out.otte", older());
        if (place == "read-only file" && !makeReadOnly(output))
            QSKIP("Permissions hold nobody back here.");

        const Outcome outcome = convertTraveltimes(format, input, output);
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "");
        QCOMPARE(outcome.error, "");
        if (place == "full device")
            QVERIFY(fs::is_character_file(output.toStdString()));
        else if (place == "missing folder")
            QVERIFY(!exists(folder->path("missing")));
        else if (place == "folder")
            QVERIFY(fs::is_empty(folder->path("folder")));
        else if (place == "read-only file")
            QVERIFY(readFile(folder->path("out.otte")) == older());
        else
            QCOMPARE(text(readFile(output.toStdString())), text(format.otte));
        nextTraveltimesAreRight(format);
    }

    // What a file of traveltimes may be.

    void oddTraveltimes_data()
    {
        QTest::addColumn<std::size_t>("index");
        for (std::size_t i = 0; i < oddInputs.size(); ++i)
            QTest::newRow(oddInputs[i].name) << i;
    }

    void oddTraveltimes()
    {
        QFETCH(std::size_t, index);
        oddInputIsConverted(oddInputs[index]);
    }

    void folderOfTraveltimes_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("error");
        QTest::addColumn<std::string>("otte");
        QTest::newRow("Geogiga") << geogiga << "" << older();
        QTest::newRow("Winsism") << winsism << "Cannot open file %1\n" << older();
        QTest::newRow("SeisImager") << seisImager << "" << older();
        QTest::newRow("generic") << generic << "" << emptyShotOtte;
    }

    void folderOfTraveltimes()
    {
        QFETCH(QString, filter);
        QFETCH(QString, error);
        QFETCH(std::string, otte);
        const QString input = file("line", "");
        const auto replace = [&input] {
            fs::remove(input.toStdString());
            fs::create_directory(input.toStdString());
        };
        const Outcome outcome =
            convertTraveltimes(formatOf(filter), input, file("out.otte", older()), replace);
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, error.contains("%1") ? error.arg(input) : error);
        QCOMPARE(written("out.otte"), text(otte));
        nextTraveltimesAreRight(formatOf(filter));
    }

    void pipeOfTraveltimes_data()
    {
        QTest::addColumn<QString>("filter");
        for (const Traveltimes &format : traveltimeFormats())
            QTest::newRow(qPrintable(format.filter)) << format.filter;
    }

    void pipeOfTraveltimes()
    {
        QFETCH(QString, filter);
        const Traveltimes &format = formatOf(filter);
        const QString input = file("line", "");
        std::unique_ptr<FedPipe> pipe;
        const Outcome outcome = convertTraveltimes(format, input, path("out.otte"), [&] {
            pipe = std::make_unique<FedPipe>(input.toStdString(), format.input);
        });
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("out.otte"), text(format.otte));
        nextTraveltimesAreRight(format);
    }

    // Numbers in a file that no file can keep.

    void countOfTraveltimes_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<std::string>("input");
        QTest::addColumn<QString>("box");
        for (const char *count : {"2147483647", "99999999999", "-1"})
            QTest::addRow("%s Geogiga receivers", count)
                << geogiga << geogigaWithReceivers(count) << conversionNotCompleted;
        for (const char *count : {"2147483647", "-1"})
            QTest::addRow("%s SeisImager receivers", count)
                << seisImager << seisImagerWithCounts("1", count) << conversionNotCompleted;
        QTest::newRow("2147483647 SeisImager shots")
            << seisImager << seisImagerWithCounts("2147483647", "1") << conversionNotCompleted;
        QTest::newRow("-1 SeisImager shots")
            << seisImager << seisImagerWithCounts("-1", "1") << conversionDone;
    }

    void countOfTraveltimes()
    {
        QFETCH(QString, filter);
        QFETCH(std::string, input);
        QFETCH(QString, box);
        const long before = megabytesHeld();
        const Outcome outcome =
            convertTraveltimes(formatOf(filter), file("line", input), file("out.otte", older()));
        QCOMPARE(outcome.seen, QStringList(box));
        const bool isDone = box == conversionDone; // no shots at all
        QCOMPARE(outcome.error, isDone ? "" : text(wentWrong));
        QCOMPARE(written("out.otte"), text(isDone ? emptyOtte : older()));
        QVERIFY2(megabytesHeld() < before + 100, "takes much memory");
        nextTraveltimesAreRight(formatOf(filter));
    }
};

template struct WindowTests<Convert2VelarixTraveltimeFaultsTest>;

#include "convert2velarix_traveltime_faults_test.moc"
