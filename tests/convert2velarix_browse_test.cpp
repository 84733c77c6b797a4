// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/converter_window.h"
#include "tests/support/filters.h"

#include <QCheckBox>
#include <QTest>
#include <QToolBox>

namespace {

/// What the generic page's file dialog shows.
const QStringList genericDialog = {
    "caption: Input file",
    "mode: open several",
    "filters: Generic text file (*.txt);;All Files (*)",
    "filter: Generic text file (*.txt)",
};

/// One record per shot, on one receiver at 0, picked at 1 ms.
std::string oneShotFile(const std::string &shotX)
{
    return "1996 0 3.0\n0 1\n" + shotX + " 1\n0 1\n";
}

} // namespace

class Convert2VelarixBrowseTest : public ConverterWindowTests
{
    Q_OBJECT

private slots:
    // Generic page.

    void genericPageShowsTheLastNameOnly()
    {
        type(*window, "inputEdit", "/typed/before.txt");
        const QStringList names = {file("a.txt"), file("b b.txt"), file("ç Schuß.txt")};
        QStringList chosen;
        QCOMPARE(click(*window, "browseInputButton_3", {choose(names, {}, &chosen)}),
                 QStringList());
        QCOMPARE(sorted(chosen), sorted(names));
        QCOMPARE(textOf(*window, "inputGenTxt"), chosen[2] + "; ");
        QCOMPARE(textOf(*window, "formatSelected_3"), generic);
        QCOMPARE(textOf(*window, "inputEdit"), "");
        QCOMPARE(textOf(*window, "formatSelected"), "-");
        QCOMPARE(textOf(*window, "inputSeismicEdit"), "");
        QCOMPARE(textOf(*window, "formatSeismicInput"), "Format");
        QCOMPARE(genericList(), chosen);
    }

    void genericPageTakesOneFileToo()
    {
        const QString name = file("line 3 Süd.txt");
        QCOMPARE(click(*window, "browseInputButton_3", {choose({name})}), QStringList());
        QCOMPARE(textOf(*window, "inputGenTxt"), name + "; ");
        QCOMPARE(genericList(), QStringList(name));
    }

    void cancellingOnTheGenericPageKeepsItsTextAndForgetsTheFiles()
    {
        const QString name = file("a.txt");
        QCOMPARE(click(*window, "browseInputButton_3", {choose({name}, allFiles)}), QStringList());
        QCOMPARE(textOf(*window, "formatSelected_3"), allFiles);
        type(*window, "inputEdit", "/typed.txt");
        QCOMPARE(click(*window, "browseInputButton_3", {cancel()}), QStringList());
        QCOMPARE(textOf(*window, "inputGenTxt"), name + "; ");
        QCOMPARE(textOf(*window, "formatSelected_3"), generic);
        QCOMPARE(textOf(*window, "inputEdit"), "");
        QCOMPARE(genericList(), QStringList());
    }

    void cancellingOnTheGenericPageAtTheStartShowsItsFilter()
    {
        QCOMPARE(click(*window, "browseInputButton_3", {cancel()}), QStringList());
        QCOMPARE(textOf(*window, "inputGenTxt"), "");
        QCOMPARE(textOf(*window, "formatSelected_3"), generic);
    }

    void choosingAgainReplacesTheFiles()
    {
        const QString second = file("2.txt");
        QCOMPARE(click(*window, "browseInputButton_3", {choose({file("0.txt"), file("1.txt")})}),
                 QStringList());
        QCOMPARE(click(*window, "browseInputButton_3", {choose({second})}), QStringList());
        QCOMPARE(textOf(*window, "inputGenTxt"), second + "; ");
        QCOMPARE(genericList(), QStringList(second));
    }

    // The window never offers it, since the box is greyed.
    void genericPageWithoutSeveralFilesTakesOneAndKeepsTheList()
    {
        const QString listed = file("listed.txt");
        const QString single = file("single.dat");
        type(*window, "inputEdit", "/typed.txt");
        named<QCheckBox>(*window, "multiTTFiles_3")->setChecked(false);
        QStringList seen = genericDialog;
        seen[1] = "mode: open one";
        QCOMPARE(click(*window, "browseInputButton_3", {lookAround()}), seen);
        QCOMPARE(textOf(*window, "inputGenTxt"), "");
        QCOMPARE(textOf(*window, "formatSelected_3"), "-");
        QCOMPARE(click(*window, "browseInputButton_3", {choose({single}, allFiles)}),
                 QStringList());
        QCOMPARE(textOf(*window, "inputGenTxt"), single);
        QCOMPARE(textOf(*window, "formatSelected_3"), allFiles);
        QCOMPARE(textOf(*window, "inputEdit"), "/typed.txt");

        named<QCheckBox>(*window, "multiTTFiles_3")->setChecked(true);
        QCOMPARE(click(*window, "browseInputButton_3", {choose({listed})}), QStringList());
        named<QCheckBox>(*window, "multiTTFiles_3")->setChecked(false);
        QCOMPARE(click(*window, "browseInputButton_3", {choose({single})}), QStringList());
        QCOMPARE(textOf(*window, "inputGenTxt"), single);
        QCOMPARE(genericList(), QStringList(listed));
    }

    // Structured page.

    void structuredPageShowsTheFileAndTheFilter_data()
    {
        QTest::addColumn<QString>("filter");
        for (const QString &filter : {seisImager, geogiga, winsism, allFiles})
            QTest::newRow(qPrintable(filter)) << filter;
    }

    void structuredPageShowsTheFileAndTheFilter()
    {
        QFETCH(QString, filter);
        turnTo(*window, "page");
        const QString name = file("Linie 3 süd.any");
        QCOMPARE(click(*window, "browseInputButton", {choose({name}, filter)}), QStringList());
        QCOMPARE(textOf(*window, "inputEdit"), name);
        QCOMPARE(textOf(*window, "formatSelected"), filter);
        QCOMPARE(textOf(*window, "inputGenTxt"), "");
        QCOMPARE(textOf(*window, "formatSelected_3"), "-");
        QCOMPARE(textOf(*window, "inputSeismicEdit"), "");
        QCOMPARE(textOf(*window, "formatSeismicInput"), "Format");
    }

    void cancellingOnTheStructuredPageChangesNoText()
    {
        turnTo(*window, "page");
        const QString name = file("a.vs");
        QCOMPARE(click(*window, "browseInputButton", {choose({name}, seisImager)}), QStringList());
        QCOMPARE(click(*window, "browseInputButton", {cancel()}), QStringList());
        QCOMPARE(textOf(*window, "inputEdit"), name);
        QCOMPARE(textOf(*window, "formatSelected"), seisImager);
    }

    void structuredPageShowsEveryNameOfSeveral()
    {
        turnTo(*window, "page");
        tick(*window, "multiTTFiles");
        const QStringList names = {file("b.vs", oneShotFile("1")), file("a a.vs", oneShotFile("2")),
                                   file("é.vs", oneShotFile("3"))};
        QStringList chosen;
        QCOMPARE(click(*window, "browseInputButton", {choose(names, seisImager, &chosen)}),
                 QStringList());
        QCOMPARE(sorted(chosen), sorted(names));
        QCOMPARE(textOf(*window, "inputEdit"),
                 chosen[0] + "; " + chosen[1] + "; " + chosen[2] + "; ");
        QCOMPARE(textOf(*window, "formatSelected"), seisImager);
        QCOMPARE(textOf(*window, "inputGenTxt"), "");
        QString shots;
        for (const QString &name : chosen)
            shots += QString("%1;").arg(names.indexOf(name) + 1);
        QCOMPARE(convertedSeisImagerShots(), shots);
    }

    void structuredPageWithSeveralFilesShowsOneWithItsSeparator()
    {
        turnTo(*window, "page");
        tick(*window, "multiTTFiles");
        const QString name = file("a.vs");
        QCOMPARE(click(*window, "browseInputButton", {choose({name}, allFiles)}), QStringList());
        QCOMPARE(textOf(*window, "inputEdit"), name + "; ");
        QCOMPARE(textOf(*window, "formatSelected"), allFiles);
    }

    void cancellingTheSeveralFilesOfTheStructuredPageForgetsThem()
    {
        turnTo(*window, "page");
        tick(*window, "multiTTFiles");
        const QStringList names = {file("a.vs", oneShotFile("1")), file("b.vs", oneShotFile("2"))};
        QCOMPARE(click(*window, "browseInputButton", {choose(names, seisImager)}), QStringList());
        QCOMPARE(click(*window, "browseInputButton", {cancel()}), QStringList());
        QCOMPARE(textOf(*window, "inputEdit"), "");
        QCOMPARE(textOf(*window, "formatSelected"), geogiga);
        // With the filter back, the list alone decides what is converted: nothing.
        tick(*window, "multiTTFiles");
        QCOMPARE(click(*window, "browseInputButton", {choose({names[0]}, seisImager)}),
                 QStringList());
        tick(*window, "multiTTFiles");
        QCOMPARE(convertedSeisImagerShots(), "");
    }

    void choosingOneFileOnTheStructuredPageKeepsTheListOfSeveral()
    {
        const QStringList names = {file("a.txt", oneShotFile("1")),
                                   file("b.txt", oneShotFile("2"))};
        QCOMPARE(click(*window, "browseInputButton_3", {choose(names)}), QStringList());
        turnTo(*window, "page");
        QCOMPARE(click(*window, "browseInputButton",
                       {choose({file("c.vs", oneShotFile("3"))}, seisImager)}),
                 QStringList());
        tick(*window, "multiTTFiles");
        QCOMPARE(convertedSeisImagerShots(), "1;2;");
    }

    void severalFilesOfEitherPageReplaceThoseOfTheOther()
    {
        QCOMPARE(click(*window, "browseInputButton_3", {choose({file("a.txt"), file("b.txt")})}),
                 QStringList());
        turnTo(*window, "page");
        tick(*window, "multiTTFiles");
        QCOMPARE(click(*window, "browseInputButton",
                       {choose({file("c.vs", oneShotFile("3"))}, seisImager)}),
                 QStringList());
        QCOMPARE(convertedSeisImagerShots(), "3;");
        turnTo(*window, "page_3");
        const QString name = file("d.txt");
        QCOMPARE(click(*window, "browseInputButton_3", {choose({name})}), QStringList());
        QCOMPARE(genericList(), QStringList(name));
        QCOMPARE(textOf(*window, "inputEdit"), "");
    }

    // Seismic page.

    void seismicPageShowsTheFileAndTheFilter_data()
    {
        QTest::addColumn<QString>("filter");
        for (const QString &filter : {su, dolang, allFiles})
            QTest::newRow(qPrintable(filter)) << filter;
    }

    void seismicPageShowsTheFileAndTheFilter()
    {
        QFETCH(QString, filter);
        turnTo(*window, "page_2");
        const QString name = file("Linie 3 süd.any");
        QCOMPARE(click(*window, "pushButton", {choose({name}, filter)}), QStringList());
        QCOMPARE(textOf(*window, "inputSeismicEdit"), name);
        QCOMPARE(textOf(*window, "formatSeismicInput"), filter);
        QCOMPARE(textOf(*window, "inputGenTxt"), "");
        QCOMPARE(textOf(*window, "formatSelected_3"), "-");
        QCOMPARE(textOf(*window, "inputEdit"), "");
        QCOMPARE(textOf(*window, "formatSelected"), "-");
    }

    void cancellingOnTheSeismicPageChangesNoText()
    {
        turnTo(*window, "page_2");
        const QString name = file("a.su");
        QCOMPARE(click(*window, "pushButton", {choose({name}, allFiles)}), QStringList());
        QCOMPARE(click(*window, "pushButton", {cancel()}), QStringList());
        QCOMPARE(textOf(*window, "inputSeismicEdit"), name);
        QCOMPARE(textOf(*window, "formatSeismicInput"), allFiles);
    }

    void outputDoesNotTouchTheFilter()
    {
        const QString name = file("a.txt");
        QCOMPARE(click(*window, "browseInputButton_3", {choose({name})}), QStringList());
        QCOMPARE(
            click(*window, "browseOutputButton_3", {choose({text(folder->path("out"))}, allFiles)}),
            QStringList());
        QCOMPARE(textOf(*window, "formatSelected_3"), generic);
        QCOMPARE(genericList(), QStringList(name));
        turnTo(*window, "page");
        QCOMPARE(
            click(*window, "browseOutputButton", {choose({text(folder->path("out 2"))}, allFiles)}),
            QStringList());
        turnTo(*window, "page_3");
        QCOMPARE(genericList(), QStringList(name));
    }

    // The filter and the files are the window's, not a page's.

    void cancelledDialogOfAnotherPageReplacesTheFilter()
    {
        turnTo(*window, "page_2");
        QCOMPARE(click(*window, "pushButton", {choose({file("a.su")})}), QStringList());
        turnTo(*window, "page");
        QCOMPARE(click(*window, "browseInputButton", {cancel()}), QStringList());
        QCOMPARE(textOf(*window, "formatSelected"), "-");
        QCOMPARE(textOf(*window, "formatSeismicInput"), su);
        // The Geogiga reader finds no file of no name, but the format is one of the page's.
        QCOMPARE(click(*window, "convertButton"), QStringList(conversionDone));
        turnTo(*window, "page_2");
        CapturedStreams streams;
        const QStringList seen = click(*window, "convertButton");
        streams.finish();
        QCOMPARE(seen, QStringList(conversionDone));
        QCOMPARE(text(streams.output), "");
        QVERIFY(!exists(folder->path("a.seg2")));
    }

    void cancelledSeismicDialogReplacesTheFilter()
    {
        const QString name = file("a.txt");
        QCOMPARE(click(*window, "browseInputButton_3", {choose({name})}), QStringList());
        turnTo(*window, "page_2");
        QCOMPARE(click(*window, "pushButton", {cancel()}), QStringList());
        turnTo(*window, "page_3");
        QCOMPARE(click(*window, "convertButton"), QStringList(conversionDone));
        turnTo(*window, "page");
        QCOMPARE(click(*window, "convertButton"),
                 QStringList({formatNotRecognized, conversionDone}));
    }

    void cancelledGenericDialogReplacesTheFilter()
    {
        turnTo(*window, "page");
        QCOMPARE(click(*window, "browseInputButton", {choose({file("a.vs")}, seisImager)}),
                 QStringList());
        turnTo(*window, "page_3");
        QCOMPARE(click(*window, "browseInputButton_3", {cancel()}), QStringList());
        turnTo(*window, "page");
        QCOMPARE(textOf(*window, "formatSelected"), seisImager);
        QCOMPARE(click(*window, "convertButton"),
                 QStringList({formatNotRecognized, conversionDone}));
    }

    void turningPagesKeepsEverything()
    {
        const QString name = file("a.txt");
        QCOMPARE(click(*window, "browseInputButton_3", {choose({name})}), QStringList());
        type(*window, "outputGenTxt", "/out.otte");
        for (const char *page : {"page", "page_2", "page", "page_3"})
            turnTo(*window, page);
        QCOMPARE(textOf(*window, "inputGenTxt"), name + "; ");
        QCOMPARE(textOf(*window, "outputGenTxt"), "/out.otte");
        QCOMPARE(textOf(*window, "formatSelected_3"), generic);
        QCOMPARE(genericList(), QStringList(name));
    }

    void newWindowShowsNothingOfTheOldOne()
    {
        QCOMPARE(click(*window, "browseInputButton_3", {choose({file("a.txt")})}), QStringList());
        type(*window, "outputGenTxt", "/out.otte");
        turnTo(*window, "page");
        tick(*window, "multiTTFiles");
        QCOMPARE(click(*window, "browseInputButton", {choose({file("a.vs")}, seisImager)}),
                 QStringList());
        turnTo(*window, "page_2");
        QCOMPARE(click(*window, "pushButton", {choose({file("a.su")})}), QStringList());
        openWindow();
        QCOMPARE(named<QToolBox>(*window, "toolBox")->currentIndex(), 0);
        for (const char *edit :
             {"inputGenTxt", "outputGenTxt", "inputEdit", "outputEdit", "inputSeismicEdit"})
            QCOMPARE(textOf(*window, edit), "");
        QCOMPARE(textOf(*window, "formatSelected_3"), "-");
        QCOMPARE(textOf(*window, "formatSelected"), "-");
        QCOMPARE(textOf(*window, "formatSeismicInput"), "Format");
        QVERIFY(!named<QCheckBox>(*window, "multiTTFiles")->isChecked());
        QCOMPARE(click(*window, "convertButton"), QStringList(conversionDone));
        QCOMPARE(click(*window, "browseInputButton_3", {lookAround()}), genericDialog);
    }

private:
    static QStringList sorted(QStringList names)
    {
        names.sort();
        return names;
    }

    /// The files that the generic page would convert, as it asks for their shots.
    QStringList genericList() const
    {
        const std::string output = folder->path("generic list.otte");
        type(*window, "outputGenTxt", text(output));
        QStringList asked;
        const Answer accept = [&](QDialog &dialog) {
            asked += textOf(dialog, "fileNameLabel");
            dialog.accept();
        };
        // One answer more than there can be files: what is left over is not looked at.
        const QStringList seen = watch(
            [&] {
                QTest::mouseClick(named<QAbstractButton>(*window, "convertButton"), Qt::LeftButton);
            },
            std::vector<Answer>(4, accept));
        if (!seen.contains(conversionDone) || !exists(output))
            asked += "not converted";
        return asked;
    }

    /// The line of the shots' x after the structured page converted.
    QString convertedSeisImagerShots() const
    {
        const std::string output = folder->path("seisimager list.otte");
        type(*window, "outputEdit", text(output));
        const QStringList seen = click(*window, "convertButton");
        if (seen != QStringList(conversionDone) || !exists(output))
            return "not converted";
        const QStringList lines = text(readFile(output)).split('\n');
        return lines[4 + 2 * lines[3].toInt()];
    }
};

template struct WindowTests<Convert2VelarixBrowseTest>;

#include "convert2velarix_browse_test.moc"
