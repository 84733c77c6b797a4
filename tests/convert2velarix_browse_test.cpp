// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "app/convert2velarix_dialog.h"
#include "tests/support/support.h"
#include "tests/support/window.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QTest>
#include <QToolBox>

#include <memory>

namespace {

const QString generic = "Generic text file (*.txt)";
const QString seisImager = "SeisImager traveltimes (*.vs)";
const QString geogiga = "Geogiga text file (*.txt)";
const QString winsism = "Geo2X Winsism XYZ file (*.xyz)";
const QString su = "Seismic Unix (*.su)";
const QString dolang = "Dolang seismic file (*.*DT  )";
const QString allFiles = "All Files (*)";

/// The answer that notes what a file dialog shows, and cancels.
Answer lookAround()
{
    return [](QDialog &window) {
        auto *const dialog = qobject_cast<QFileDialog *>(&window);
        if (dialog == nullptr)
            return note("no file dialog");
        const QFileDialog::FileMode mode = dialog->fileMode();
        note("caption: " + dialog->windowTitle());
        note(QString("mode: ")
             + (dialog->acceptMode() == QFileDialog::AcceptSave ? "save " : "open ")
             + (mode == QFileDialog::ExistingFiles  ? "several"
                : mode == QFileDialog::ExistingFile ? "one"
                : mode == QFileDialog::AnyFile      ? "any"
                                                    : "another"));
        note("filters: " + dialog->nameFilters().join(";;"));
        note("filter: " + dialog->selectedNameFilter());
        if (dialog->directory() != QDir(QDir::homePath()))
            note("folder: " + dialog->directory().path());
        if (dialog->parent() == nullptr
            || dialog->parent()->objectName() != "Convert2VelarixDialog")
            note("another parent");
        if (dialog->options() != QFileDialog::Options())
            note("options");
        if (!dialog->defaultSuffix().isEmpty())
            note("suffix: " + dialog->defaultSuffix());
        window.reject();
    };
}

struct Button
{
    const char *page;
    const char *button;
    const char *ticked; ///< a check box to click first
    QStringList seen;
};

const Button buttons[] = {
    {"page_3",
     "browseInputButton_3",
     nullptr,
     {"caption: Input file", "mode: open several",
      "filters: Generic text file (*.txt);;All Files (*)", "filter: Generic text file (*.txt)"}},
    {"page",
     "browseInputButton",
     nullptr,
     {"caption: Input file", "mode: open one",
      "filters: SeisImager traveltimes (*.vs);;Geogiga text file (*.txt);;Geo2X Winsism XYZ file "
      "(*.xyz);;All Files (*)",
      "filter: Geogiga text file (*.txt)"}},
    {"page",
     "browseInputButton",
     "multiTTFiles",
     {"caption: Input file", "mode: open several",
      "filters: SeisImager traveltimes (*.vs);;Geogiga text file (*.txt);;Geo2X Winsism XYZ file "
      "(*.xyz);;All Files (*)",
      "filter: Geogiga text file (*.txt)"}},
    {"page_2",
     "pushButton",
     nullptr,
     {"caption: Input file", "mode: open one",
      "filters: Seismic Unix (*.su);;Dolang seismic file (*.*DT );;All Files (*)",
      "filter: Seismic Unix (*.su)"}},
    {"page_3",
     "browseOutputButton_3",
     nullptr,
     {"caption: OTTE File", "mode: save any",
      "filters: Opent traveltime exchange format (*.otte);;All Files (*)",
      "filter: Opent traveltime exchange format (*.otte)"}},
    {"page",
     "browseOutputButton",
     nullptr,
     {"caption: OTTE File", "mode: save any",
      "filters: Opent traveltime exchange format (*.otte);;All Files (*)",
      "filter: Opent traveltime exchange format (*.otte)"}},
};

/// One record per shot, on one receiver at 0, picked at 1 ms.
std::string seisImagerFile(const std::string &shotX)
{
    return "1996 0 3.0\n0 1\n" + shotX + " 1\n0 1\n";
}

} // namespace

class Convert2VelarixBrowseTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        prepareTest();
        folder = std::make_unique<TemporaryFolder>();
        restart();
    }

    void cleanup()
    {
        window.reset();
        folder.reset();
    }

    void fileDialogOpensForTheButton_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(buttons)); ++i)
            QTest::addRow("%s %s", buttons[i].button, buttons[i].ticked ? "several" : "") << i;
    }

    void fileDialogOpensForTheButton()
    {
        QFETCH(int, index);
        const Button &button = buttons[index];
        turnTo(*window, button.page);
        if (button.ticked != nullptr)
            tick(*window, button.ticked);
        QCOMPARE(click(*window, button.button, {lookAround()}), button.seen);
    }

    // Neither the folder nor the filter of the last time is where the next file dialog starts.
    void everyFileDialogStartsInTheHomeFolderWithItsOwnFilter_data()
    {
        fileDialogOpensForTheButton_data();
    }

    void everyFileDialogStartsInTheHomeFolderWithItsOwnFilter()
    {
        QFETCH(int, index);
        const Button &button = buttons[index];
        turnTo(*window, button.page);
        if (button.ticked != nullptr)
            tick(*window, button.ticked);
        const QString name =
            button.seen[1] == "mode: save any" ? text(folder->path("new")) : file("chosen");
        const Answer walkAway = [&](QDialog &dialog) {
            qobject_cast<QFileDialog *>(&dialog)->setDirectory(text(folder->path("")));
            choose({name}, allFiles)(dialog);
        };
        QCOMPARE(click(*window, button.button, {walkAway}), QStringList());
        QCOMPARE(click(*window, button.button, {lookAround()}), button.seen);
    }

    void homeFolderIsAskedForEveryTime()
    {
        const QByteArray before = qgetenv("HOME");
        qputenv("HOME", QByteArray::fromStdString(folder->path("")));
        const QStringList seen = click(*window, "browseInputButton_3", {lookAround()});
        qputenv("HOME", before);
        QCOMPARE(seen, buttons[0].seen);
    }

    void textsAreTranslatedInTheContextOfTheWindow_data()
    {
        fileDialogOpensForTheButton_data();
    }

    // Two filters and a default in angle brackets make "<first", the others and "last>".
    void textsAreTranslatedInTheContextOfTheWindow()
    {
        QFETCH(int, index);
        const Button &button = buttons[index];
        turnTo(*window, button.page);
        if (button.ticked != nullptr)
            tick(*window, button.ticked);
        const MarkingTranslator translator("Convert2VelarixDialog");
        const QStringList seen = click(*window, button.button, {lookAround()});
        QCOMPARE(seen.value(0), "caption: <" + button.seen[0].mid(9) + '>');
        QCOMPARE(seen.value(2), "filters: <" + button.seen[2].mid(9) + '>');
    }

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
        QStringList seen = buttons[0].seen;
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
        const QStringList names = {file("b.vs", seisImagerFile("1")),
                                   file("a a.vs", seisImagerFile("2")),
                                   file("é.vs", seisImagerFile("3"))};
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
        const QStringList names = {file("a.vs", seisImagerFile("1")),
                                   file("b.vs", seisImagerFile("2"))};
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
        const QStringList names = {file("a.txt", seisImagerFile("1")),
                                   file("b.txt", seisImagerFile("2"))};
        QCOMPARE(click(*window, "browseInputButton_3", {choose(names)}), QStringList());
        turnTo(*window, "page");
        QCOMPARE(click(*window, "browseInputButton",
                       {choose({file("c.vs", seisImagerFile("3"))}, seisImager)}),
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
                       {choose({file("c.vs", seisImagerFile("3"))}, seisImager)}),
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

    // Outputs.

    void outputNameIsTakenAsItStands_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("name");
        for (const char *page : {"page_3", "page"}) {
            for (const char *name : {"line.otte", "line", "line.txt", "Linie 3 süd", "line."})
                QTest::newRow(qPrintable(QString(page) + ' ' + name)) << page << QString(name);
        }
    }

    void outputNameIsTakenAsItStands()
    {
        QFETCH(QString, page);
        QFETCH(QString, name);
        turnTo(*window, qPrintable(page));
        const bool onGeneric = page == "page_3";
        const QString path = text(folder->path(name.toStdString()));
        QCOMPARE(click(*window, onGeneric ? "browseOutputButton_3" : "browseOutputButton",
                       {choose({path})}),
                 QStringList());
        QCOMPARE(textOf(*window, onGeneric ? "outputGenTxt" : "outputEdit"), path);
        QCOMPARE(textOf(*window, onGeneric ? "outputEdit" : "outputGenTxt"), "");
        QCOMPARE(textOf(*window, "inputGenTxt"), "");
        QCOMPARE(textOf(*window, "inputEdit"), "");
        QCOMPARE(textOf(*window, "formatSelected_3"), "-");
        QCOMPARE(textOf(*window, "formatSelected"), "-");
        QVERIFY(!exists(path.toStdString()));
    }

    void cancellingAnOutputChangesNothing()
    {
        for (const char *page : {"page_3", "page"}) {
            turnTo(*window, page);
            const bool onGeneric = QLatin1String(page) == "page_3";
            const char *edit = onGeneric ? "outputGenTxt" : "outputEdit";
            type(*window, edit, "/typed/out.otte");
            QCOMPARE(click(*window, onGeneric ? "browseOutputButton_3" : "browseOutputButton",
                           {cancel()}),
                     QStringList());
            QCOMPARE(textOf(*window, edit), "/typed/out.otte");
        }
    }

    void outputThatExistsIsTakenWhenTheUserAgrees()
    {
        const QString path = file("old.otte", "old");
        const QStringList agreed =
            click(*window, "browseOutputButton_3", {choose({path}), press(QMessageBox::Yes)});
        QCOMPARE(agreed.size(), 1);
        QVERIFY2(agreed[0].contains("already exists"), qPrintable(agreed[0]));
        QCOMPARE(textOf(*window, "outputGenTxt"), path);
        QCOMPARE(readFile(path.toStdString()), "old");
    }

    void outputThatExistsIsNotTakenWhenTheUserRefuses()
    {
        const QString path = file("old.otte", "old");
        const QStringList refused = click(*window, "browseOutputButton_3",
                                          {choose({path}), press(QMessageBox::No), cancel()});
        QCOMPARE(refused.size(), 1);
        QVERIFY2(refused[0].contains("already exists"), qPrintable(refused[0]));
        QCOMPARE(textOf(*window, "outputGenTxt"), "");
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
        restart();
        QCOMPARE(named<QToolBox>(*window, "toolBox")->currentIndex(), 0);
        for (const char *edit :
             {"inputGenTxt", "outputGenTxt", "inputEdit", "outputEdit", "inputSeismicEdit"})
            QCOMPARE(textOf(*window, edit), "");
        QCOMPARE(textOf(*window, "formatSelected_3"), "-");
        QCOMPARE(textOf(*window, "formatSelected"), "-");
        QCOMPARE(textOf(*window, "formatSeismicInput"), "Format");
        QVERIFY(!named<QCheckBox>(*window, "multiTTFiles")->isChecked());
        QCOMPARE(click(*window, "convertButton"), QStringList(conversionDone));
        QCOMPARE(click(*window, "browseInputButton_3", {lookAround()}), buttons[0].seen);
    }

private:
    void restart()
    {
        window = std::make_unique<Convert2VelarixDialog>();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    /// Writes a file, by default of one generic receiver line.
    QString file(const std::string &name, const std::string &bytes = "0;100;0.001\n") const
    {
        return text(folder->write(name, bytes));
    }

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

    std::unique_ptr<TemporaryFolder> folder;
    std::unique_ptr<Convert2VelarixDialog> window;
};

int main(int argc, char *argv[])
{
    Convert2VelarixBrowseTest tests;
    return runWindowTests(&tests, argc, argv);
}

#include "convert2velarix_browse_test.moc"
