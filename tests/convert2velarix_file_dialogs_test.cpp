// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/converter_window.h"
#include "tests/support/filters.h"

#include <QFileDialog>
#include <QTest>

namespace {

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

} // namespace

class Convert2VelarixFileDialogsTest : public ConverterWindowTests
{
    Q_OBJECT

private slots:
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
};

template struct WindowTests<Convert2VelarixFileDialogsTest>;

#include "convert2velarix_file_dialogs_test.moc"
