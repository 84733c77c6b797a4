// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/converter_window.h"
#include "tests/support/convertible_files.h"
#include "tests/support/filters.h"

#include <QTest>

#include <iostream>
#include <streambuf>

using namespace std::string_literals;

namespace {

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

class Convert2VelarixStructuredTest : public ConverterWindowTests
{
    Q_OBJECT

private slots:
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
};

template struct WindowTests<Convert2VelarixStructuredTest>;

#include "convert2velarix_structured_test.moc"
