// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/convertible_files.h"
#include "tests/support/faults.h"
#include "tests/support/odd_files.h"
#include "tests/support/window_faults.h"

#include <QTest>

#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

const std::vector<OddInput> endlessInputs = {
    {"100 MB line, Geogiga", geogiga, endlessLine, conversionDone, "", ""},
    {"100 MB line, SeisImager", seisImager, endlessLine, conversionNotCompleted, wentWrong, ""},
    {"100 MB line, generic", generic, endlessLine, conversionNotCompleted, wentWrong, ""},
    {"100 MB behind the third field", generic, [] { return "5;7;0.001;" + endlessLine(); },
     conversionDone, "", "otte\n1.0\n2\n1\n5;\n7;\n-1;\n100;\n0\n0\n1;\n"},
};

} // namespace

// These take their time, so they run under one locale alone.
class Convert2VelarixLargeFilesTest : public WindowFaultTests
{
    Q_OBJECT

private slots:
    void lineWithoutEnd_data()
    {
        QTest::addColumn<std::size_t>("index");
        for (std::size_t i = 0; i < endlessInputs.size(); ++i)
            QTest::newRow(endlessInputs[i].name) << i;
    }

    void lineWithoutEnd()
    {
        QFETCH(std::size_t, index);
        oddInputIsConverted(endlessInputs[index]);
    }

    void endlessLineInsteadOfAWinsismHeading()
    {
        const Outcome outcome = convertTraveltimes(formatOf(winsism), file("odd", endlessLine()),
                                                   file("out.otte", older()));
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QVERIFY(outcome.error == "Invalid header : " + text(endlessLine()) + '\n');
        QCOMPARE(written("out.otte"), text(older()));
        nextTraveltimesAreRight(formatOf(winsism));
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

    void endlessLineInsteadOfADolangHeader()
    {
        oddDolangHeaderIsConverted(endlessLine());
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
};

template struct WindowTests<Convert2VelarixLargeFilesTest>;

#include "convert2velarix_large_files_test.moc"
