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

const QString listingRefused = "Error in opening file %1\n";
const QString keywordWarning =
    "WARNING: Keyword  is not a standard keyword for the file descriptor block.\n";

} // namespace

class Convert2VelarixRecordFaultsTest : public WindowFaultTests
{
    Q_OBJECT

private slots:
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
        QVERIFY(readFile(folder->path("tmp_ADT")) == older());
        QVERIFY(readFile(folder->path("L_ADT_dolang.seg2")) == older());
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
        const QByteArray made = ends      ? bytesOf(older())
                                : isEmpty ? bytesOf(seg2Head(0) + "\4\0 \0\0\0  "s)
                                          : bytesOf(isSu ? suSeg2 : dolangSeg2);
        if (blocked == "listing" && by != "older file")
            QCOMPARE(stateOf(listing), by == "read-only file" ? bytesOf(older()) : by.toUtf8());
        else
            QCOMPARE(stateOf(listing), bytesOf(isSu ? suListing : dolangListing));
        if (blocked == "SEG2 file" && by != "older file")
            QCOMPARE(stateOf(seg2), by == "read-only file" ? bytesOf(older()) : by.toUtf8());
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

    void oddDolangHeader_data()
    {
        QTest::addColumn<std::string>("header");
        const std::string header = "1\n-\n-\n0\n2\n1000\n";
        QTest::newRow("empty") << ""s;
        QTest::newRow("NUL bytes") << nulBytes();
        QTest::newRow("UTF-16") << inUtf16(header);
        QTest::newRow("byte order mark") << byteOrderMark + header;
    }

    void oddDolangHeader()
    {
        QFETCH(std::string, header);
        oddDolangHeaderIsConverted(header);
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
    static QString progressOf(const QString &filter)
    {
        return filter == su ? "TraceINDEX : 0\n1\n-2\n0\nTraceINDEX : 1\n0.5\n4\n0\n"
                            : "TraceINDEX : 0\n7\n-3\n";
    }

    /// Puts what must be in the way under a name; false where that holds nobody back.
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
};

template struct WindowTests<Convert2VelarixRecordFaultsTest>;

#include "convert2velarix_record_faults_test.moc"
