// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/converter_window.h"
#include "tests/support/convertible_files.h"
#include "tests/support/filters.h"

#include <QAbstractButton>
#include <QFile>
#include <QTest>

using namespace std::string_literals;

class Convert2VelarixGenericTest : public ConverterWindowTests
{
    Q_OBJECT

private slots:
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

private:
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
};

template struct WindowTests<Convert2VelarixGenericTest>;

#include "convert2velarix_generic_test.moc"
