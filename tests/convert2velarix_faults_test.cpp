// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/converter_window.h"
#include "tests/support/convertible_files.h"
#include "tests/support/faults.h"
#include "tests/support/odd_files.h"
#include "tests/support/seg2_parser.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// A format of traveltimes: where the window takes it, a file of it and what that becomes.
struct Traveltimes
{
    QString filter;
    const char *page;
    const char *browseButton;
    const char *outputEdit;
    std::string input;
    std::string otte;
};

const std::vector<Traveltimes> formats = {
    {geogiga, "page", "browseInputButton", "outputEdit", geogigaFile, geogigaOtte},
    {winsism, "page", "browseInputButton", "outputEdit", winsismFile, winsismOtte},
    {seisImager, "page", "browseInputButton", "outputEdit", seisImagerFile, seisImagerOtte},
    {generic, "page_3", "browseInputButton_3", "outputGenTxt", "5;100.5;0.001\n10;101;0.004\n",
     "otte\n1.0\n2\n1\n5;10;\n100.5;101;\n-1;\n100;\n0\n0\n1;4;\n"},
};

const Traveltimes &formatOf(const QString &filter)
{
    return *std::find_if(formats.begin(), formats.end(),
                         [&filter](const Traveltimes &format) { return format.filter == filter; });
}

/// What a generic file without lines becomes.
const std::string emptyShotOtte = "otte\n1.0\n2\n1\n\n\n-1;\n100;\n0\n0\n\n";

/// Longer than what replaces it.
const std::string older = repeated("older ", 1000);

const std::string wentWrong = "Something went wrong\n";

/// An input that is not what its format is, and what comes of it. An empty `otte` stands for an
/// older output that is left alone.
struct OddInput
{
    const char *name;
    QString filter;
    std::function<std::string()> bytes;
    QString box;
    std::string error;
    std::string otte;
};

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

    {"100 MB line, Geogiga", geogiga, endlessLine, conversionDone, "", ""},
    {"100 MB line, SeisImager", seisImager, endlessLine, conversionNotCompleted, wentWrong, ""},
    {"100 MB line, generic", generic, endlessLine, conversionNotCompleted, wentWrong, ""},
    {"100 MB behind the third field", generic, [] { return "5;7;0.001;" + endlessLine(); },
     conversionDone, "", "otte\n1.0\n2\n1\n5;\n7;\n-1;\n100;\n0\n0\n1;\n"},

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

const QString listingRefused = "Error in opening file %1\n";
const QString keywordWarning =
    "WARNING: Keyword  is not a standard keyword for the file descriptor block.\n";

} // namespace

class Convert2VelarixFaultsTest : public ConverterWindowTests
{
    Q_OBJECT

private slots:
    void init()
    {
        openWindow();
    }

    void cleanup()
    {
        closeWindow();
    }

    // The OTTE file.

    void traveltimesInto_data()
    {
        QTest::addColumn<QString>("place");
        QTest::addColumn<QString>("filter");
        for (const QString place : {"full device", "missing folder", "folder", "read-only file",
                                    "older file", "input itself"}) {
            for (const Traveltimes &format : formats)
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
        const QString output = outputs.count(place) ? outputs.at(place) : file("out.otte", older);
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
            QVERIFY(readFile(folder->path("out.otte")) == older);
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
        const OddInput &odd = oddInputs[index];
        const Traveltimes &format = formatOf(odd.filter);
        const Outcome outcome =
            convertTraveltimes(format, file("odd", odd.bytes()), file("out.otte", older));
        QCOMPARE(outcome.seen, QStringList(odd.box));
        QCOMPARE(outcome.output, "");
        QVERIFY(outcome.error == text(odd.error));
        QCOMPARE(written("out.otte"), text(odd.otte.empty() ? older : odd.otte));
        nextTraveltimesAreRight(format);
    }

    void endlessLineInsteadOfAWinsismHeading()
    {
        const Outcome outcome = convertTraveltimes(formatOf(winsism), file("odd", endlessLine()),
                                                   file("out.otte", older));
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QVERIFY(outcome.error == "Invalid header : " + text(endlessLine()) + '\n');
        QCOMPARE(written("out.otte"), text(older));
        nextTraveltimesAreRight(formatOf(winsism));
    }

    void folderOfTraveltimes_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("error");
        QTest::addColumn<std::string>("otte");
        QTest::newRow("Geogiga") << geogiga << "" << older;
        QTest::newRow("Winsism") << winsism << "Cannot open file %1\n" << older;
        QTest::newRow("SeisImager") << seisImager << "" << older;
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
            convertTraveltimes(formatOf(filter), input, file("out.otte", older), replace);
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, error.contains("%1") ? error.arg(input) : error);
        QCOMPARE(written("out.otte"), text(otte));
        nextTraveltimesAreRight(formatOf(filter));
    }

    void pipeOfTraveltimes_data()
    {
        QTest::addColumn<QString>("filter");
        for (const Traveltimes &format : formats)
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

    void aMillionShots_data()
    {
        QTest::addColumn<QString>("filter");
        for (const QString &filter : {geogiga, winsism, seisImager})
            QTest::newRow(qPrintable(filter)) << filter;
    }

    void aMillionShots()
    {
        QFETCH(QString, filter);
        const ManyShots shots = filter == geogiga   ? manyGeogigaShots()
                                : filter == winsism ? manyWinsismShots()
                                                    : manySeisImagerShots();
        const Outcome outcome =
            convertTraveltimes(formatOf(filter), file("line", shots.input), path("out.otte"));
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "");
        QVERIFY(readFile(folder->path("out.otte")) == shots.otte);
        nextTraveltimesAreRight(formatOf(filter));
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
            convertTraveltimes(formatOf(filter), file("line", input), file("out.otte", older));
        QCOMPARE(outcome.seen, QStringList(box));
        const bool isDone = box == conversionDone; // no shots at all
        QCOMPARE(outcome.error, isDone ? "" : text(wentWrong));
        QCOMPARE(written("out.otte"), text(isDone ? emptyOtte : older));
        QVERIFY2(megabytesHeld() < before + 100, "takes much memory");
        nextTraveltimesAreRight(formatOf(filter));
    }

    void countOfADolangSet_data()
    {
        QTest::addColumn<std::string>("header");
        QTest::addColumn<QString>("box");
        for (const char *count : {"-1", "4294967295", "2147483647"})
            QTest::addRow("%s samples", count) << "1\n-\n-\n0\n"s + count + "\n1000\n"
                                               << conversionNotCompleted;
        QTest::newRow("-1 channels") << "-1\n-\n-\n0\n2\n1000\n"s << conversionDone;
    }

    void countOfADolangSet()
    {
        QFETCH(std::string, header);
        QFETCH(QString, box);
        const WorkingFolder working(folder->path(""));
        writeDolangSet("L");
        file("L.ADT", header);
        writeOlderRecord(dolang);
        const long before = megabytesHeld();
        const Outcome outcome = convertRecord(dolang, path("L.ADT"));
        QCOMPARE(outcome.seen, QStringList(box));
        QCOMPARE(outcome.error, box == conversionDone // by a channel that is not there
                                    ? "Error in reading file " + path("L.ADT") + '\n'
                                    : text(wentWrong));
        QVERIFY(readFile(folder->path("tmp_ADT")) == older);
        QVERIFY(readFile(folder->path("L_ADT_dolang.seg2")) == older);
        QVERIFY2(megabytesHeld() < before + 100, "takes much memory");
        nextRecordIsRight(dolang);
    }

    // The listing and the SEG2 file.

    void recordInto_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("blocked"); // listing or SEG2 file
        QTest::addColumn<QString>("by");
        for (const QString &filter : {su, dolang}) {
            for (const char *blocked : {"listing", "SEG2 file"}) {
                for (const char *by : {"older file", "folder", "full device", "read-only file"})
                    QTest::addRow("%s as %s, %s", by, blocked, qPrintable(filter))
                        << filter << blocked << by;
            }
        }
    }

    void recordInto()
    {
        QFETCH(QString, filter);
        QFETCH(QString, blocked);
        QFETCH(QString, by);
        const bool isSu = filter == su;
        const WorkingFolder working(folder->path(""));
        writeDolangSet("L");
        const QString input = isSu ? file("L.su", suFile) : path("L.ADT");
        const std::string listing = isSu ? "L_tmp" : "tmp_ADT";
        const std::string seg2 = isSu ? "L.seg2" : "L_ADT_dolang.seg2";
        writeOlderRecord(filter);
        if (!block(blocked == "listing" ? listing : seg2, by))
            QSKIP("Permissions hold nobody back here.");

        const Outcome outcome = convertRecord(filter, input);
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        const bool ends = blocked == "listing" && (by == "folder" || by == "read-only file");
        // A device gives no listing back: a SEG2 file without traces and keywords is made.
        const bool isEmpty = blocked == "listing" && by == "full device";
        QCOMPARE(outcome.error, ends      ? listingRefused.arg(isSu ? path("L_tmp") : "tmp_ADT")
                                : isEmpty ? keywordWarning + keywordWarning
                                          : "");
        QCOMPARE(outcome.output, (isSu ? "opening su file " + input + '\n' : "")
                                     + (ends || isEmpty ? "" : progressOf(filter)));
        const QByteArray made = ends      ? bytesOf(older)
                                : isEmpty ? bytesOf(seg2Head(0) + "\4\0 \0\0\0  "s)
                                          : bytesOf(isSu ? suSeg2 : dolangSeg2);
        if (blocked == "listing" && by != "older file")
            QCOMPARE(stateOf(listing), by == "read-only file" ? bytesOf(older) : by.toUtf8());
        else
            QCOMPARE(stateOf(listing), bytesOf(isSu ? suListing : dolangListing));
        if (blocked == "SEG2 file" && by != "older file")
            QCOMPARE(stateOf(seg2), by == "read-only file" ? bytesOf(older) : by.toUtf8());
        else
            QCOMPARE(stateOf(seg2), made);
        if (!isSu)
            QCOMPARE(bytesOf("L_CDT_dolang.seg2"), ends ? "nothing" : bytesOf(emptySeg2));
        if (blocked == "listing" && !isSu)
            fs::remove(folder->path(listing)); // which all sets share
        nextRecordIsRight(filter);
    }

    void seismicUnixFileThatIsItsOwnSeg2File()
    {
        const QString input = file("L.seg2", suFile);
        const Outcome outcome = convertRecord(su, input);
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "opening su file " + input + '\n' + progressOf(su));
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("L_tmp"), text(suListing));
        QCOMPARE(bytesOf("L.seg2"), bytesOf(suSeg2));
        nextRecordIsRight(su);
    }

    void recordWhoseFolderIsGone()
    {
        const WorkingFolder working(folder->path(""));
        fs::create_directory(folder->path("gone"));
        const auto remove = [this] { fs::remove_all(folder->path("gone")); };
        Outcome outcome = convertRecord(su, file("gone/L.su", suFile), remove);
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "Error while loading " + path("gone/L.su") + '\n'
                                    + listingRefused.arg(path("gone/L_tmp")));
        nextRecordIsRight(su);

        fs::create_directory(folder->path("gone"));
        outcome = convertRecord(dolang, file("gone/L.ADT", "0\n"), remove);
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "Error in reading file " + path("gone/L.ADT") + '\n');
        QVERIFY(!exists(folder->path("gone")));
        nextRecordIsRight(dolang);
    }

    void dolangSetInAWorkingFolderThatMayNotBeWritten()
    {
        fs::create_directory(folder->path("working"));
        {
            const WorkingFolder working(folder->path("working"));
            writeDolangSet("L");
            if (!makeReadOnly(path("working")))
                QSKIP("Permissions hold nobody back here.");
            const Outcome outcome = convertRecord(dolang, path("L.ADT"));
            QCOMPARE(outcome.seen, QStringList(conversionDone));
            QCOMPARE(outcome.output, "");
            QCOMPARE(outcome.error, listingRefused.arg("tmp_ADT"));
            QCOMPARE(bytesOf("L_ADT_dolang.seg2"), "nothing");
            fs::permissions(folder->path("working"), fs::perms(0700));
        }
        const WorkingFolder working(folder->path(""));
        nextRecordIsRight(dolang);
    }

    // What a file of records may be.

    void oddSeismicUnixFile_data()
    {
        QTest::addColumn<std::string>("input");
        QTest::newRow("empty") << ""s;
        QTest::newRow("text") << "2.5 100 0.0125\n"s;
        QTest::newRow("UTF-16") << inUtf16("2.5 100 0.0125\n");
    }

    void oddSeismicUnixFile()
    {
        QFETCH(std::string, input);
        writeOlderRecord(su);
        const Outcome outcome = convertRecord(su, file("L.su", input));
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "opening su file " + path("L.su") + '\n');
        QCOMPARE(outcome.error, "EXCEPTION!\n");
        QCOMPARE(written("L_tmp"), text(listingHeading));
        QCOMPARE(written("L.seg2"), "");
        nextRecordIsRight(su);
    }

    void seismicUnixFileOfNulBytes()
    {
        const Outcome outcome = convertRecord(su, file("L.su", nulBytes()));
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "");
        // Headers of traces without samples; 160 bytes are left over.
        const ParsedSeg2 seg2 = parseSeg2(readFile(folder->path("L.seg2")));
        QCOMPARE(seg2.traces.size(), 4166U);
        for (const ParsedTrace &trace : seg2.traces)
            QVERIFY(trace.sampleCount == 0 && trace.strings.at(3) == "SAMPLE_INTERVAL 0");
        nextRecordIsRight(su);
    }

    void seismicUnixFileOfOneEndlessLine()
    {
        // "xx" is 30840: 809 traces of 240 + 4 * 30840 bytes, at an interval of 0.03084 s.
        QStringList seen;
        const QString input = file("L.su", endlessLine());
        turnTo(*window, "page_2");
        browse("pushButton", {input}, su);
        {
            // The progress would be 25 million lines.
            const CapturedStreams streams;
            const int null = open("/dev/null", O_WRONLY);
            dup2(null, STDOUT_FILENO);
            close(null);
            seen = click(*window, "convertButton");
        }
        QCOMPARE(seen, QStringList(conversionDone));
        // 3312 bytes in front of the traces, each a descriptor of 172 and 123360 of samples.
        QCOMPARE(fs::file_size(folder->path("L.seg2")), 3312U + 809U * (172U + 123360U));
        nextRecordIsRight(su);
    }

    void oddDolangHeader_data()
    {
        QTest::addColumn<std::string>("header");
        const std::string header = "1\n-\n-\n0\n2\n1000\n";
        QTest::newRow("empty") << ""s;
        QTest::newRow("100 MB line") << endlessLine();
        QTest::newRow("NUL bytes") << nulBytes();
        QTest::newRow("UTF-16") << inUtf16(header);
        QTest::newRow("byte order mark") << byteOrderMark + header;
    }

    void oddDolangHeader()
    {
        QFETCH(std::string, header);
        const WorkingFolder working(folder->path(""));
        writeDolangSet("L");
        file("L.ADT", header);
        writeOlderRecord(dolang);
        const Outcome outcome = convertRecord(dolang, path("L.ADT"));
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "");
        QCOMPARE(outcome.error, "");
        // The first line begins with no number: no channels.
        QCOMPARE(written("tmp_ADT"), text(listingHeading));
        QCOMPARE(bytesOf("L_ADT_dolang.seg2"), bytesOf(emptySeg2));
        nextRecordIsRight(dolang);
    }

    void dolangChannelOfOneEndlessLine()
    {
        const WorkingFolder working(folder->path(""));
        writeDolangSet("L");
        file("L.A01", "7" + endlessLine());
        const Outcome outcome = convertRecord(dolang, path("L.ADT"));
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "TraceINDEX : 0\n7\n0\n"); // the second line is missing
        QCOMPARE(outcome.error, "");
        nextRecordIsRight(dolang);
    }

    void folderOfRecords()
    {
        const WorkingFolder working(folder->path(""));
        const auto replace = [this](const char *name) {
            fs::remove(folder->path(name));
            fs::create_directory(folder->path(name));
        };
        Outcome outcome = convertRecord(su, file("L.su", suFile), [&replace] { replace("L.su"); });
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "Error while loading " + path("L.su") + "\nEXCEPTION!\n");
        QCOMPARE(written("L_tmp"), text(listingHeading));
        QCOMPARE(written("L.seg2"), "");
        nextRecordIsRight(su);

        for (const char *name : {"L.A01", "L.ADT"}) {
            writeDolangSet("L");
            outcome = convertRecord(dolang, path("L.ADT"), [&] { replace(name); });
            QCOMPARE(outcome.seen, QStringList(conversionDone));
            QCOMPARE(outcome.error, "Error in reading file " + path("L.ADT") + '\n');
            QVERIFY(!exists(folder->path("L_ADT_dolang.seg2")));
            nextRecordIsRight(dolang);
            fs::remove(folder->path(name));
        }
    }

    void pipeOfRecords_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("name");
        QTest::addColumn<std::string>("bytes");
        QTest::newRow("Seismic Unix") << su << "L.su" << suFile;
        QTest::newRow("Dolang header") << dolang << "L.ADT"
                                       << "1\n-\n-\n0\n2\n1000\n"s;
        QTest::newRow("Dolang channel") << dolang << "L.A01"
                                        << "7\n-3\n"s;
    }

    void pipeOfRecords()
    {
        QFETCH(QString, filter);
        QFETCH(QString, name);
        QFETCH(std::string, bytes);
        const WorkingFolder working(folder->path(""));
        writeDolangSet("L");
        file("L.su", suFile);
        std::unique_ptr<FedPipe> pipe;
        const Outcome outcome = convertRecord(filter, path(filter == su ? "L.su" : "L.ADT"), [&] {
            pipe = std::make_unique<FedPipe>(path(name).toStdString(), bytes);
        });
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "");
        if (filter == su)
            QCOMPARE(bytesOf("L.seg2"), bytesOf(suSeg2));
        else
            QCOMPARE(bytesOf("L_ADT_dolang.seg2"), bytesOf(dolangSeg2));
        nextRecordIsRight(filter);
    }

private:
    /// Chooses the input, lets `before` change it and converts as an ordinary user.
    Outcome convertTraveltimes(
        const Traveltimes &format, const QString &input, const QString &output,
        const std::function<void()> &before = [] {}) const
    {
        turnTo(*window, format.page);
        browse(format.browseButton, {input}, format.filter);
        type(*window, format.outputEdit, output);
        before();
        const OrdinaryUser user;
        if (format.filter != generic)
            return convert();
        Outcome outcome = convert({placeShot("-1", "100")});
        if (!outcome.seen.removeOne(input + ": 0.000000, 0.000000"))
            outcome.seen += "another shot was asked for";
        return outcome;
    }

    void nextTraveltimesAreRight(const Traveltimes &format) const
    {
        QVERIFY(window->isVisible() && window->isEnabled());
        const Outcome outcome =
            convertTraveltimes(format, file("next", format.input), path("next.otte"));
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("next.otte"), text(format.otte));
    }

    /// The same for records.
    Outcome convertRecord(
        const QString &filter, const QString &input,
        const std::function<void()> &before = [] {}) const
    {
        turnTo(*window, "page_2");
        browse("pushButton", {input}, filter);
        before();
        const OrdinaryUser user;
        return convert();
    }

    /// Dolang listings go to the working folder, which must be this test's.
    void nextRecordIsRight(const QString &filter) const
    {
        QVERIFY(window->isVisible() && window->isEnabled());
        writeDolangSet("next");
        file("next.su", suFile);
        const Outcome outcome = convertRecord(filter, path(filter == su ? "next.su" : "next.ADT"));
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "");
        QCOMPARE(written(filter == su ? "next_tmp" : "tmp_ADT"),
                 text(filter == su ? suListing : dolangListing));
        QCOMPARE(bytesOf(filter == su ? "next.seg2" : "next_ADT_dolang.seg2"),
                 bytesOf(filter == su ? suSeg2 : dolangSeg2));
    }

    /// One channel of kind A, and none of the others.
    void writeDolangSet(const std::string &base) const
    {
        file(base + ".ADT", "1\n-\n-\n0\n2\n1000\n");
        file(base + ".A01", "7\n-3\n");
        file(base + ".CDT", "0\n-\n-\n0\n0\n1000\n");
        file(base + ".RDT", "0\n-\n-\n0\n0\n1000\n");
    }

    void writeOlderRecord(const QString &filter) const
    {
        for (const char *name : {"L_tmp", "L.seg2"}) {
            if (filter == su)
                file(name, older);
        }
        for (const char *name : {"tmp_ADT", "L_ADT_dolang.seg2"}) {
            if (filter == dolang)
                file(name, older);
        }
    }

    static QString progressOf(const QString &filter)
    {
        return filter == su ? "TraceINDEX : 0\n1\n-2\n0\nTraceINDEX : 1\n0.5\n4\n0\n"
                            : "TraceINDEX : 0\n7\n-3\n";
    }

    /// False where permissions hold nobody back.
    bool makeReadOnly(const QString &name) const
    {
        fs::permissions(name.toStdString(), fs::perms::owner_write, fs::perm_options::remove);
        const OrdinaryUser user;
        return faccessat(AT_FDCWD, name.toStdString().c_str(), W_OK, AT_EACCESS) != 0;
    }

    bool block(const std::string &name, const QString &by) const
    {
        if (by == "read-only file")
            return makeReadOnly(path(text(name)));
        if (by != "older file")
            fs::remove(folder->path(name));
        if (by == "folder")
            fs::create_directory(folder->path(name));
        if (by == "full device")
            fs::create_symlink(memoryDevice(*folder, 7, "/dev/full"), folder->path(name));
        return true;
    }

    /// What stands under a name: a folder, a full device or a file of these bytes.
    QByteArray stateOf(const std::string &name) const
    {
        if (fs::is_directory(folder->path(name)))
            return "folder";
        if (fs::is_character_file(folder->path(name)))
            return "full device";
        return bytesOf(name.c_str());
    }

    const std::string dolangListing =
        listingHeading + "1    2      0     0.001     0      0      0\n";
};

int main(int argc, char *argv[])
{
    Convert2VelarixFaultsTest tests;
    return runWindowTests(&tests, argc, argv);
}

#include "convert2velarix_faults_test.moc"
