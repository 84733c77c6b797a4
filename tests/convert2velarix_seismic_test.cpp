// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/converter_window.h"
#include "tests/support/convertible_files.h"
#include "tests/support/filters.h"

#include <QFile>
#include <QTest>

#include <filesystem>

class Convert2VelarixSeismicTest : public ConverterWindowTests
{
    Q_OBJECT

private slots:
    void seismicUnixFileIsConverted()
    {
        turnTo(*window, "page_2");
        browse("pushButton", {file("Linie 3 süd.su", suFile)}, su);
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "opening su file " + path("Linie 3 süd.su")
                                     + "\nTraceINDEX : 0\n1\n-2\n0\nTraceINDEX : 1\n0.5\n4\n0\n");
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("Linie 3 süd_tmp"), text(suListing));
        QCOMPARE(bytesOf("Linie 3 süd.seg2"), bytesOf(suSeg2));
    }

    void dolangSetIsConverted()
    {
        const WorkingFolder working(folder->path(""));
        file("Linie 3.ADT", "\"A kind\"\n1\n-\n-\n0\n2\n1000\n");
        file("Linie 3.A01", "7\n-3\n");
        file("Linie 3.CDT", "0\n-\n-\n0\n0\n1000\n");
        file("Linie 3.RDT", "0\n-\n-\n0\n0\n1000\n");
        turnTo(*window, "page_2");
        browse("pushButton", {path("Linie 3.ADT")}, dolang);
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "TraceINDEX : 0\n7\n-3\n");
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("tmp_ADT"),
                 text(listingHeading + "1    2      0     0.001     0      0      0\n"));
        QCOMPARE(written("tmp_CDT"), text(listingHeading));
        QCOMPARE(written("tmp_RDT"), text(listingHeading));
        QCOMPARE(bytesOf("Linie 3_ADT_dolang.seg2"), bytesOf(dolangSeg2));
        QCOMPARE(bytesOf("Linie 3_CDT_dolang.seg2"), bytesOf(emptySeg2));
        QCOMPARE(bytesOf("Linie 3_RDT_dolang.seg2"), bytesOf(emptySeg2));
    }

    // The base is told by the name of the header that is not there.
    void dolangNameIsCutAtItsLastDot_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("header");
        QTest::newRow("another header of the set") << "LINE1.CDT"
                                                   << "LINE1.ADT";
        QTest::newRow("dot in a folder too") << "rec.old/LINE1.CDT"
                                             << "rec.old/LINE1.ADT";
        QTest::newRow("dot in a folder alone") << "rec.old/LINE1"
                                               << "rec.ADT";
        QTest::newRow("no dot") << "LINE1"
                                << "LINE1.ADT";
        QTest::newRow("two dots") << "LINE.1.CDT"
                                  << "LINE.1.ADT";
        QTest::newRow("dot at the end") << "LINE1."
                                        << "LINE1.ADT";
        QTest::newRow("blanks and umlauts") << "Linie 3 süd.RDT"
                                            << "Linie 3 süd.ADT";
    }

    void dolangNameIsCutAtItsLastDot()
    {
        QFETCH(QString, name);
        QFETCH(QString, header);
        const WorkingFolder working(folder->path(""));
        std::filesystem::create_directory(folder->path("rec.old"));
        turnTo(*window, "page_2");
        browse("pushButton", {file(name.toStdString(), "")}, dolang);
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "");
        QCOMPARE(outcome.error, "Error in reading file " + path(header) + '\n');
    }

    void seismicUnixFileThatIsGoneIsDoneAllTheSame()
    {
        turnTo(*window, "page_2");
        browse("pushButton", {file("a.su", suFile)}, su);
        QVERIFY(QFile::remove(path("a.su")));
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "opening su file " + path("a.su") + '\n');
        QCOMPARE(outcome.error, "Error while loading " + path("a.su") + "\nEXCEPTION!\n");
        QCOMPARE(written("a_tmp"), text(listingHeading));
        QCOMPARE(written("a.seg2"), "");
    }

    void seismicUnixListingThatCannotBeMadeIsDoneAllTheSame()
    {
        std::filesystem::create_directory(folder->path("a_tmp"));
        turnTo(*window, "page_2");
        browse("pushButton", {file("a.su", suFile)}, su);
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "Error in opening file " + path("a_tmp") + '\n');
        QCOMPARE(written("a.seg2"), "nothing");
    }

    void unknownFilterOfTheSeismicPageConvertsNothing_data()
    {
        QTest::addColumn<QStringList>("choice"); // page, button and filter
        QTest::newRow("nothing chosen") << QStringList();
        QTest::newRow("All Files") << QStringList({"page_2", "pushButton", allFiles});
        QTest::newRow("SeisImager") << QStringList({"page", "browseInputButton", seisImager});
        QTest::newRow("generic page's") << QStringList({"page_3", "browseInputButton_3", generic});
    }

    void unknownFilterOfTheSeismicPageConvertsNothing()
    {
        QFETCH(QStringList, choice);
        if (!choice.isEmpty())
            chooseAs({"page_2", "pushButton", su}, file("a.su", suFile));
        chooseAs(choice, path("a.su"));
        turnTo(*window, "page_2");
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "");
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("a_tmp"), "nothing");
        QCOMPARE(written("a.seg2"), "nothing");
    }

    void typedNameDoesNotCountOnTheSeismicPage()
    {
        turnTo(*window, "page_2");
        browse("pushButton", {file("a.su", suFile)}, su);
        type(*window, "inputSeismicEdit", path("b.su"));
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output.section('\n', 0, 0), "opening su file " + path("a.su"));
        QCOMPARE(bytesOf("a.seg2"), bytesOf(suSeg2));
    }

    void cancelledSeismicDialogBringsTheFilterBackAndKeepsTheFile()
    {
        turnTo(*window, "page_2");
        browse("pushButton", {file("a.su", suFile)}, allFiles);
        QCOMPARE(click(*window, "pushButton", {cancel()}), QStringList());
        QCOMPARE(convert().seen, QStringList(conversionDone));
        QCOMPARE(bytesOf("a.seg2"), bytesOf(suSeg2));
    }

    void structuredConversionLeavesItsInputToTheSeismicPage()
    {
        turnTo(*window, "page_2");
        browse("pushButton", {file("a.su", suFile)}, su);
        turnTo(*window, "page");
        type(*window, "inputEdit", path("b.su"));
        turnTo(*window, "page_2");
        QCOMPARE(convert().output.section('\n', 0, 0), "opening su file " + path("a.su"));
        turnTo(*window, "page");
        QCOMPARE(convert().seen, QStringList({formatNotRecognized, conversionDone}));
        turnTo(*window, "page_2");
        QCOMPARE(convert().output.section('\n', 0, 0), "opening su file " + path("b.su"));
    }
};

template struct WindowTests<Convert2VelarixSeismicTest>;

#include "convert2velarix_seismic_test.moc"
