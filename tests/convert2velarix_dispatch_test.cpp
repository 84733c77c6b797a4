// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/converter_window.h"
#include "tests/support/convertible_files.h"

#include <QAbstractButton>
#include <QToolBox>

#include <filesystem>
#include <iostream>
#include <streambuf>

namespace {

const QString allFiles = "All Files (*)";

/// Notes what is flushed to std::cerr while it lives.
class ErrorStreamNotes : public std::stringbuf
{
public:
    ErrorStreamNotes()
        : before(std::cerr.rdbuf(this))
    {
    }
    ~ErrorStreamNotes() override
    {
        std::cerr.rdbuf(before);
    }
    ErrorStreamNotes(const ErrorStreamNotes &) = delete;
    ErrorStreamNotes &operator=(const ErrorStreamNotes &) = delete;

protected:
    int sync() override
    {
        if (!str().empty())
            note("error stream: " + text(str()));
        str("");
        return 0;
    }

private:
    std::streambuf *before;
};

} // namespace

class Convert2VelarixDispatchTest : public ConverterWindowTests
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

    // Structured page.

    void structuredFormatIsConverted_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("name");
        QTest::addColumn<std::string>("input");
        QTest::addColumn<std::string>("expected");
        QTest::newRow("Geogiga") << geogiga << "a.txt" << geogigaFile << geogigaOtte;
        QTest::newRow("Winsism") << winsism << "a.xyz" << winsismFile << winsismOtte;
        QTest::newRow("SeisImager") << seisImager << "a.vs" << seisImagerFile << seisImagerOtte;
        QTest::newRow("blanks and umlauts")
            << geogiga << "Linie 3 süd Schuß.txt" << geogigaFile << geogigaOtte;
        QTest::newRow("Geogiga named .vs") << geogiga << "a.vs" << geogigaFile << geogigaOtte;
        QTest::newRow("Winsism named .txt") << winsism << "a.txt" << winsismFile << winsismOtte;
        QTest::newRow("SeisImager named .xyz")
            << seisImager << "a.xyz" << seisImagerFile << seisImagerOtte;
    }

    void structuredFormatIsConverted()
    {
        QFETCH(QString, filter);
        QFETCH(QString, name);
        QFETCH(std::string, input);
        QFETCH(std::string, expected);
        turnTo(*window, "page");
        browse("browseInputButton", {file(name.toStdString(), input)}, filter);
        type(*window, "outputEdit", path("out " + name));
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "");
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("out " + name), text(expected));
    }

    void convertingAgainConvertsTheSame()
    {
        turnTo(*window, "page");
        browse("browseInputButton", {file("a.txt", geogigaFile)}, geogiga);
        for (const char *output : {"1.otte", "2.otte"}) {
            type(*window, "outputEdit", path(output));
            QCOMPARE(convert().seen, QStringList(conversionDone));
            QCOMPARE(written(output), text(geogigaOtte));
        }
    }

    void typedNamesCountOnTheStructuredPage()
    {
        turnTo(*window, "page");
        browse("browseInputButton", {file("a.txt", "")}, geogiga);
        type(*window, "inputEdit", file("getippt ä.txt", geogigaFile));
        type(*window, "outputEdit", path("aus ö.otte"));
        QCOMPARE(convert().seen, QStringList(conversionDone));
        QCOMPARE(written("aus ö.otte"), text(geogigaOtte));
    }

    void unknownFormatOfTheStructuredPageWarnsAndIsDone_data()
    {
        QTest::addColumn<QStringList>("choice"); // page, button and filter
        QTest::newRow("nothing chosen") << QStringList();
        QTest::newRow("All Files") << QStringList({"page", "browseInputButton", allFiles});
        QTest::newRow("generic page's") << QStringList({"page_3", "browseInputButton_3", generic});
        QTest::newRow("Seismic Unix") << QStringList({"page_2", "pushButton", su});
        QTest::newRow("Dolang") << QStringList({"page_2", "pushButton", dolang});
    }

    void unknownFormatOfTheStructuredPageWarnsAndIsDone()
    {
        QFETCH(QStringList, choice);
        chooseAs(choice, file("a.txt", geogigaFile));
        turnTo(*window, "page");
        type(*window, "inputEdit", file("a.txt", geogigaFile));
        type(*window, "outputEdit", path("out.otte"));
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList({formatNotRecognized, conversionDone}));
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("out.otte"), "nothing");
    }

    void conversionThatFailsQuietlyIsDoneAllTheSame_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<std::string>("input");
        QTest::addColumn<QString>("output");
        QTest::addColumn<QString>("error");
        QTest::newRow("Geogiga file refused") << geogiga << "TX_CURVES\n"s
                                              << "out.otte"
                                              << "";
        QTest::newRow("Winsism times refused")
            << winsism << winsismFile.substr(0, winsismFile.size() - 1) + "10 12.5\n"
            << "out.otte"
            << "Invalid times : FBP times\n";
        QTest::newRow("Geogiga, output in a missing folder")
            << geogiga << geogigaFile << "no/out.otte"
            << "";
        QTest::newRow("Winsism, output in a missing folder")
            << winsism << winsismFile << "no/out.otte"
            << "";
        QTest::newRow("SeisImager, output in a missing folder")
            << seisImager << seisImagerFile << "no/out.otte"
            << "";
    }

    void conversionThatFailsQuietlyIsDoneAllTheSame()
    {
        QFETCH(QString, filter);
        QFETCH(std::string, input);
        QFETCH(QString, output);
        QFETCH(QString, error);
        turnTo(*window, "page");
        browse("browseInputButton", {file("a", input)}, filter);
        type(*window, "outputEdit", path(output));
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, error);
        QCOMPARE(written(output), "nothing");
    }

    void missingInputIsDoneAllTheSame_data()
    {
        QTest::addColumn<QString>("filter");
        for (const QString &filter : {geogiga, winsism, seisImager})
            QTest::newRow(qPrintable(filter)) << filter;
    }

    void missingInputIsDoneAllTheSame()
    {
        QFETCH(QString, filter);
        turnTo(*window, "page");
        browse("browseInputButton", {file("a", "")}, filter);
        type(*window, "inputEdit", path("missing"));
        type(*window, "outputEdit", path("out.otte"));
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error,
                 filter == winsism ? "Cannot open file " + path("missing") + '\n' : "");
        QCOMPARE(written("out.otte"), "nothing");
    }

    void severalSeisImagerFilesAreTheListNotTheText()
    {
        turnTo(*window, "page");
        tick(*window, "multiTTFiles");
        QStringList chosen;
        QCOMPARE(click(*window, "browseInputButton",
                       {choose({file("a.vs", seisImagerFile),
                                file("b é.vs", "1996 0 3.0\n0 1\n7.5 2\n0 20\n5 25\n")},
                               seisImager, &chosen)}),
                 QStringList());
        type(*window, "inputEdit", path("missing"));
        type(*window, "outputEdit", path("out.otte"));
        QCOMPARE(convert().seen, QStringList(conversionDone));
        QCOMPARE(chosen.value(0), path("a.vs"));
        QCOMPARE(written("out.otte"),
                 "otte\n1.0\n2\n1\n0;5;\n0;0;\n2.5;7.5;\n0;0;\n0\n0\n10;12.5;\n0\n1\n20;25;\n");
    }

    void seisImagerFilesAreTheTextOnceTheBoxIsUnticked()
    {
        turnTo(*window, "page");
        tick(*window, "multiTTFiles");
        browse("browseInputButton", {file("a.vs", "")}, seisImager);
        tick(*window, "multiTTFiles");
        type(*window, "inputEdit", file("b.vs", seisImagerFile));
        type(*window, "outputEdit", path("out.otte"));
        QCOMPARE(convert().seen, QStringList(conversionDone));
        QCOMPARE(written("out.otte"), text(seisImagerOtte));
    }

    void severalSeisImagerFilesWithoutAFileGiveAnEmptySurvey()
    {
        turnTo(*window, "page");
        browse("browseInputButton", {file("a.vs", seisImagerFile)}, seisImager);
        tick(*window, "multiTTFiles");
        type(*window, "outputEdit", path("out.otte"));
        QCOMPARE(convert().seen, QStringList(conversionDone));
        QCOMPARE(written("out.otte"), text(emptyOtte));
    }

    void severalFilesOfAnotherFormatAreTakenAsOneName()
    {
        turnTo(*window, "page");
        tick(*window, "multiTTFiles");
        QStringList chosen;
        QCOMPARE(click(*window, "browseInputButton",
                       {choose({file("a.xyz", winsismFile), file("b.xyz", winsismFile)}, winsism,
                               &chosen)}),
                 QStringList());
        type(*window, "outputEdit", path("out.otte"));
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.error, "Cannot open file " + chosen.join("; ") + "; \n");
        QCOMPARE(written("out.otte"), "nothing");
    }

    // Errors that readers raise.

    void raisedErrorWarnsAndIsNotDone_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<std::string>("input");
        QTest::newRow("keyword without a value") << geogiga << "TX_CURVE\nVERSION:\nELEVATION\n"s;
        QTest::newRow("number of shots is no number")
            << geogiga << "TX_CURVE\nVERSION:\nELEVATION:1\nTOTAL_NUMBER_OF_SHOTS:many\n"s;
        QTest::newRow("number of shots too large")
            << geogiga << "TX_CURVE\nVERSION:\nELEVATION:1\nTOTAL_NUMBER_OF_SHOTS:1e999\n"s;
        QTest::newRow("negative number of receivers")
            << geogiga
            << "TX_CURVE\nVERSION:\nELEVATION:1\nTOTAL_NUMBER_OF_SHOTS:1\n"
               "SEISMIC_DATA_FILE_NAME:a\nSHOT_LOCATION:1\nNUMBER_OF_RECEIVERS:-1\n\n"s;
        QTest::newRow("empty SeisImager file") << seisImager << ""s;
        QTest::newRow("line of blanks") << seisImager << "   \n"s;
        QTest::newRow("tab between fields") << seisImager << "0\n0 1\n2.5 1\n0\t10\n"s;
    }

    void raisedErrorWarnsAndIsNotDone()
    {
        QFETCH(QString, filter);
        QFETCH(std::string, input);
        turnTo(*window, "page");
        browse("browseInputButton", {file("a", input)}, filter);
        type(*window, "outputEdit", file("out.otte", "older survey"));
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionNotCompleted));
        QCOMPARE(outcome.output, "");
        QCOMPARE(outcome.error, "Something went wrong\n");
        QCOMPARE(written("out.otte"), "older survey");
    }

    void errorStreamTellsBeforeTheBoxDoes()
    {
        turnTo(*window, "page");
        browse("browseInputButton", {file("a.vs", "")}, seisImager);
        QStringList seen;
        {
            const ErrorStreamNotes notes;
            seen = click(*window, "convertButton");
        }
        QCOMPARE(seen.join('|'),
                 "error stream: Something went wrong|error stream: \n|" + conversionNotCompleted);
    }

    void windowStaysUsableAfterAnError()
    {
        turnTo(*window, "page");
        browse("browseInputButton", {file("a.vs", "")}, seisImager);
        type(*window, "outputEdit", path("out.otte"));
        QCOMPARE(convert().seen, QStringList(conversionNotCompleted));
        QVERIFY(window->isVisible() && window->isEnabled());
        type(*window, "inputEdit", file("b.vs", seisImagerFile));
        QCOMPARE(convert().seen, QStringList(conversionDone));
        QCOMPARE(written("out.otte"), text(seisImagerOtte));
    }

    void messagesAreTranslatedAndTitlesAreNot()
    {
        const auto translated = [&] {
            const MarkingTranslator translator("Convert2VelarixDialog");
            return convert();
        };
        turnTo(*window, "page");
        const QString box = "%1 of Convert2VelarixDialog: %2: <%3> [OK]";
        QCOMPARE(translated().seen,
                 QStringList({box.arg("Warning", "Warning", "Ops... Input format not recognized"),
                              box.arg("Information", "Info", "Conversion done")}));
        browse("browseInputButton", {file("a.vs", "")}, seisImager);
        const Outcome outcome = translated();
        QCOMPARE(outcome.seen,
                 QStringList(box.arg("Warning", "Warning", "Ops... Conversion not completed")));
        QCOMPARE(outcome.error, "<Something went wrong>\n");
    }

    // Generic page.

    void everyGenericFileIsAskedForItsShot()
    {
        const QStringList names = chooseThreeShots();
        type(*window, "outputGenTxt", path("out.otte"));
        const Outcome outcome = convert(
            {placeShot("-1.5", "100"), placeShot("2.5", "100.25"), placeShot("7", "101.125")});
        QCOMPARE(outcome.seen,
                 QStringList({names.value(0) + ": 0.000000, 0.000000",
                              names.value(1) + ": -1.500000, 100.000000",
                              names.value(2) + ": 2.500000, 100.250000", conversionDone}));
        QCOMPARE(outcome.output, "");
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("out.otte"),
                 "otte\n1.0\n2\n2\n0;5;\n100;100.5;\n0;5;\n100;101;\n-1.5;2.5;7;\n"
                 "100;100.25;101.125;\n0\n0\n1;4;\n0\n1\n2;0.5;\n1\n2\n3;6;\n");
    }

    void everyClickStartsFromShotPosition0()
    {
        const QString name = chooseOneShot();
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(convert({placeShot("12.5", "-3")}).seen,
                     QStringList({name + ": 0.000000, 0.000000", conversionDone}));
        }
    }

    void shotDialogIsModalAndHasNoParent()
    {
        chooseOneShot();
        QCOMPARE(convert({[](QDialog &dialog) {
                     if (dialog.parent() != nullptr)
                         note("parent");
                     if (!dialog.isModal() || dialog.windowModality() != Qt::ApplicationModal)
                         note("not modal");
                     dialog.accept();
                 }}).seen,
                 QStringList(conversionDone));
    }

    void shotPositionIsReadAsTyped()
    {
        chooseThreeShots();
        type(*window, "outputGenTxt", path("out.otte"));
        const QStringList seen = convert({placeShot("1,5", " 7.25 "), placeShot("", "1e3"),
                                          placeShot("12 m", "1234.5678912")})
                                     .seen;
        QVERIFY(seen.value(1).endsWith(": 0.000000, 7.250000"));
        QVERIFY(seen.value(2).endsWith(": 0.000000, 1000.000000"));
        QCOMPARE(seen.value(3), conversionDone);
        QCOMPARE(written("out.otte").section('\n', 8, 9), "0;0;0;\n7.25;1000;1234.57;");
    }

    void refusedShotInTheMiddleEndsInAnError()
    {
        const QStringList names = chooseThreeShots();
        type(*window, "outputGenTxt", path("out.otte"));
        const Outcome refused =
            convert({placeShot("-1.5", "100"), refuseShot(), placeShot("7", "101")});
        QCOMPARE(refused.seen,
                 QStringList({names.value(0) + ": 0.000000, 0.000000",
                              names.value(1) + ": -1.500000, 100.000000",
                              names.value(2) + ": -1.500000, 100.000000", conversionNotCompleted}));
        QCOMPARE(refused.error, "Something went wrong\n");
        QCOMPARE(written("out.otte"), "nothing");

        const Answer accept = placeShot("1", "2");
        QCOMPARE(convert({accept, accept, accept}).seen.last(), conversionDone);
        QVERIFY(exists(folder->path("out.otte")));
    }

    void anyRefusedShotEndsInAnError_data()
    {
        QTest::addColumn<QString>("refused");
        for (const char *refused : {"first", "last", "first and second", "every"})
            QTest::newRow(refused) << refused;
    }

    void anyRefusedShotEndsInAnError()
    {
        QFETCH(QString, refused);
        chooseThreeShots();
        type(*window, "outputGenTxt", path("out.otte"));
        const bool every = refused == "every";
        const Answer accept = placeShot("1", "2");
        const Answer refuse = refuseShot();
        const Outcome outcome = convert({every || refused.startsWith("first") ? refuse : accept,
                                         every || refused.endsWith("second") ? refuse : accept,
                                         every || refused == "last" ? refuse : accept});
        QCOMPARE(outcome.seen.size(), 4);
        QCOMPARE(outcome.seen.last(), conversionNotCompleted);
        QCOMPARE(outcome.error, "Something went wrong\n");
        QCOMPARE(written("out.otte"), "nothing");
    }

    void refusedShotKeepsThePositionBefore()
    {
        chooseThreeShots();
        const QStringList seen = convert({refuseShot(), placeShot("3", "4"), refuseShot()}).seen;
        QVERIFY(seen.value(1).endsWith(": 0.000000, 0.000000"));
        QVERIFY(seen.value(2).endsWith(": 3.000000, 4.000000"));
    }

    void genericPageWithoutFilesWritesAnEmptySurvey()
    {
        QCOMPARE(click(*window, "browseInputButton_3", {cancel()}), QStringList());
        type(*window, "outputGenTxt", path("out.otte"));
        QCOMPARE(convert().seen, QStringList(conversionDone));
        QCOMPARE(written("out.otte"), text(emptyOtte));
    }

    void typedInputDoesNotCountOnTheGenericPage()
    {
        const QString name = chooseOneShot();
        type(*window, "inputGenTxt", file("other.txt", "9;9;9\n"));
        type(*window, "inputEdit", path("other.txt"));
        type(*window, "outputGenTxt", path("out.otte"));
        QCOMPARE(convert({placeShot("-1", "100")}).seen,
                 QStringList({name + ": 0.000000, 0.000000", conversionDone}));
        QCOMPARE(written("out.otte"), "otte\n1.0\n2\n1\n0;5;\n100;100.5;\n-1;\n100;\n0\n0\n1;4;\n");
    }

    void unknownFilterOfTheGenericPageConvertsNothing_data()
    {
        QTest::addColumn<QStringList>("choice"); // page, button and filter
        QTest::newRow("nothing chosen") << QStringList();
        QTest::newRow("All Files") << QStringList({"page_3", "browseInputButton_3", allFiles});
        QTest::newRow("Geogiga, also *.txt") << QStringList({"page", "browseInputButton", geogiga});
        QTest::newRow("SeisImager") << QStringList({"page", "browseInputButton", seisImager});
        QTest::newRow("Seismic Unix") << QStringList({"page_2", "pushButton", su});
    }

    void unknownFilterOfTheGenericPageConvertsNothing()
    {
        QFETCH(QStringList, choice);
        if (!choice.isEmpty())
            chooseOneShot();
        chooseAs(choice, path("shot.txt"));
        turnTo(*window, "page_3");
        type(*window, "outputGenTxt", path("out.otte"));
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QCOMPARE(outcome.output, "");
        QCOMPARE(outcome.error, "");
        QCOMPARE(written("out.otte"), "nothing");
    }

    void genericFileThatIsGoneIsAShotWithoutPicks()
    {
        const QString name = chooseOneShot();
        QVERIFY(QFile::remove(name));
        type(*window, "outputGenTxt", path("out.otte"));
        QCOMPARE(convert({placeShot("1", "2")}).seen.last(), conversionDone);
        QCOMPARE(written("out.otte"), "otte\n1.0\n2\n1\n\n\n1;\n2;\n0\n0\n\n");
    }

    void raisedErrorOfAGenericFileWarns_data()
    {
        QTest::addColumn<std::string>("input");
        QTest::newRow("two fields") << "4;100\n"s;
        QTest::newRow("empty line") << "0;100;0.001\n\n"s;
        QTest::newRow("semicolons alone") << ";;\n"s;
    }

    void raisedErrorOfAGenericFileWarns()
    {
        QFETCH(std::string, input);
        browse("browseInputButton_3", {file("shot.txt", input)}, generic);
        type(*window, "outputGenTxt", path("out.otte"));
        const Outcome outcome = convert({placeShot("1", "2")});
        QCOMPARE(outcome.seen.last(), conversionNotCompleted);
        QCOMPARE(outcome.seen.size(), 2);
        QCOMPARE(outcome.error, "Something went wrong\n");
        QCOMPARE(written("out.otte"), "nothing");
    }

    void genericOutputThatCannotBeOpenedIsDoneAllTheSame()
    {
        chooseOneShot();
        type(*window, "outputGenTxt", path("no/out.otte"));
        const Outcome outcome = convert({placeShot("1", "2")});
        QCOMPARE(outcome.seen.last(), conversionDone);
        QCOMPARE(outcome.seen.size(), 2);
        QCOMPARE(outcome.error, "");
    }

    void genericOutputIsTheOneNamedAfterTheLastShot()
    {
        chooseOneShot();
        type(*window, "outputGenTxt", path("before.otte"));
        QCOMPARE(convert({[&](QDialog &dialog) {
                     type(*window, "outputGenTxt", path("after.otte"));
                     dialog.accept();
                 }}).seen,
                 QStringList(conversionDone));
        QVERIFY(exists(folder->path("after.otte")));
        QVERIFY(!exists(folder->path("before.otte")));
    }

    void filesAddedWhileAskingAreAskedForToo()
    {
        const QString first = chooseOneShot();
        const QString second = file("zweite.txt", "0;100;0.002\n5;100.5;0.0005\n");
        type(*window, "outputGenTxt", path("out.otte"));
        const Outcome outcome =
            convert({[&](QDialog &dialog) {
                         named<QAbstractButton>(*window, "browseInputButton_3")->click();
                         placeShot("1", "2")(dialog);
                     },
                     choose({first, second}), placeShot("3", "4")});
        QCOMPARE(outcome.seen, QStringList({first + ": 0.000000, 0.000000",
                                            second + ": 1.000000, 2.000000", conversionDone}));
        QCOMPARE(written("out.otte").section('\n', 6, 7), "1;3;\n2;4;");
    }

    // Seismic page.

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

    // The page that is visible, whatever index the tool box has.

    void seismicPageComesFirstWhenAllAreVisible()
    {
        browse("browseInputButton_3", {file("shot.txt", "0;100;0.001\n")}, generic);
        showPage("page");
        showPage("page_2");
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QVERIFY(named<QWidget>(*window, "page_3")->isVisible());
    }

    void structuredPageComesBeforeTheGenericOne()
    {
        browse("browseInputButton_3", {file("shot.txt", "0;100;0.001\n")}, generic);
        showPage("page");
        QVERIFY(named<QWidget>(*window, "page_3")->isVisible());
        QCOMPARE(convert().seen, QStringList({formatNotRecognized, conversionDone}));
    }

    void visiblePageDecidesAgainstTheCurrentIndex_data()
    {
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("visible");
        QTest::addColumn<QStringList>("seen");
        const QStringList nothing = {conversionDone};
        const QStringList warning = {formatNotRecognized, conversionDone};
        const QStringList asked = {"shot", conversionNotCompleted};
        QTest::newRow("structured") << "page_3"
                                    << "page" << warning;
        QTest::newRow("seismic") << "page_3"
                                 << "page_2" << nothing;
        QTest::newRow("generic instead of structured") << "page"
                                                       << "page_3" << asked;
        QTest::newRow("generic instead of seismic") << "page_2"
                                                    << "page_3" << asked;
        QTest::newRow("none instead of generic") << "page_3"
                                                 << "" << nothing;
        QTest::newRow("none instead of structured") << "page"
                                                    << "" << nothing;
    }

    void visiblePageDecidesAgainstTheCurrentIndex()
    {
        QFETCH(QString, current);
        QFETCH(QString, visible);
        QFETCH(QStringList, seen);
        browse("browseInputButton_3", {file("shot.txt", "0;100;0.001\n")}, generic);
        turnTo(*window, qPrintable(current));
        named<QWidget>(*window, qPrintable(current))->hide();
        if (!visible.isEmpty())
            showPage(qPrintable(visible));
        QCOMPARE(named<QToolBox>(*window, "toolBox")->currentWidget()->objectName(), current);
        const std::vector<Answer> answers(seen.contains("shot") ? 1 : 0, [](QDialog &dialog) {
            note("shot");
            dialog.reject();
        });
        QCOMPARE(convert(answers).seen, seen);
    }

    void hiddenWindowConvertsNothing()
    {
        turnTo(*window, "page");
        window->hide();
        QCOMPARE(watch([&] { named<QAbstractButton>(*window, "convertButton")->click(); }),
                 QStringList(conversionDone));
    }

private:
    /// Chooses a file by page, button and filter; none when these are empty.
    void chooseAs(const QStringList &choice, const QString &name) const
    {
        if (choice.isEmpty())
            return;
        turnTo(*window, qPrintable(choice[0]));
        browse(qPrintable(choice[1]), {name}, choice[2]);
    }

    QString chooseOneShot() const
    {
        const QString name = file("shot.txt", "0;100;0.001\n5;100.5;0.004\n");
        browse("browseInputButton_3", {name}, generic);
        return name;
    }

    /// Three files, the third one on another spread; in the order in which the dialog gave them.
    QStringList chooseThreeShots() const
    {
        const QStringList names = {file("1.txt", "0;100;0.001\n5;100.5;0.004\n"),
                                   file("2 zwei.txt", "0;100;0.002\n5;100.5;0.0005\n"),
                                   file("3 Schuß.txt", "0;100;0.003\n5;101;0.006\n")};
        browse("browseInputButton_3", names, generic);
        return names;
    }

    /// Makes a page visible beside the current one.
    void showPage(const char *name) const
    {
        auto *const page = named<QWidget>(*window, name);
        for (QWidget *widget = page; !page->isVisible(); widget = widget->parentWidget())
            widget->show();
    }
};

int main(int argc, char *argv[])
{
    Convert2VelarixDispatchTest tests;
    return runWindowTests(&tests, argc, argv);
}

#include "convert2velarix_dispatch_test.moc"
