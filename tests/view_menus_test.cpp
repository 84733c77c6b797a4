// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/field_seismic_unix.h"
#include "tests/support/view_window.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>

namespace {

const std::string oneShot = "-\n0 1\n0 1\n2 1\n";
const std::string oneShotAsOtte = "otte\n1.0\n2\n1\n2;\n0;\n0;\n0;\n0\n0\n1;\n";

/// Notes what a file dialog offers, and cancels.
void lookAtFilters(QDialog &window)
{
    const auto *const dialog = qobject_cast<QFileDialog *>(&window);
    note(dialog->windowTitle() + ": " + dialog->nameFilters().join(";;"));
    window.reject();
}

} // namespace

class ViewMenusTest : public ViewWindowTests
{
    Q_OBJECT

private slots:
    void everyEntryHasAShortcutOfItsOwn()
    {
        open("line.vs", oneShot);
        QStringList entries;
        for (const QAction *menu : window->menuBar()->actions())
            entries += entriesOf(*menu->menu());
        QCOMPARE(entries, QStringList({"Open...: Ctrl+O", "1 " + path("line.vs") + ": Ctrl+1",
                                       "Reload: F5", "Close All: Ctrl+W", "Convert To...: Ctrl+E",
                                       "Save Picture...: Ctrl+S", "Copy Picture: Ctrl+C",
                                       "Quit: Ctrl+Q", "Show All: Ctrl+0",
                                       "Findings and Messages: Ctrl+F", "Next Picture: Ctrl+Tab"}));
    }

    void withoutFilesThereIsNothingToDoWithThem()
    {
        for (const char *action : {"reloadAction", "closeAction", "convertAction",
                                   "savePictureAction", "copyPictureAction", "showAllAction"})
            QVERIFY2(!named<QAction>(*window, action)->isEnabled(), action);
        open("line.vs", oneShot);
        for (const char *action : {"reloadAction", "closeAction", "convertAction",
                                   "savePictureAction", "copyPictureAction", "showAllAction"})
            QVERIFY2(named<QAction>(*window, action)->isEnabled(), action);
        QVERIFY(!named<QAction>(*window, "nextPageAction")->isEnabled());
    }

    void openTakesSeveralFiles()
    {
        const QString first = file("first.vs", oneShot);
        const QString second = file("second.vs", oneShot);
        QCOMPARE(press("Ctrl+O", {choose({first, second})}), QStringList());
        QCOMPARE(shownTitle(picks()), QString("first.vs and 1 more: 2 shots, 2 picks"));
    }

    void openThatIsCancelledChangesNothing()
    {
        QCOMPARE(press("Ctrl+O", {cancel()}), QStringList());
        QCOMPARE(shownPage(), QString("emptyPage"));
        QCOMPARE(messages(), QStringList());
    }

    void recentFilesAreOpenedAgainAlsoByTheNextWindow()
    {
        open("first.vs", oneShot);
        open("second.vs", cleanSurvey);
        window->openFiles({path("none.vs")});
        openWindow();
        QCOMPARE(press("Ctrl+1"), QStringList());
        QCOMPARE(shownTitle(picks()), QString("second.vs: 2 shots, 8 picks"));
        QCOMPARE(press("Ctrl+2"), QStringList());
        QCOMPARE(shownTitle(picks()), QString("second.vs and 1 more: 3 shots, 9 picks"));
        QCOMPARE(press("Ctrl+3"), QStringList());
        QCOMPARE(messages(), QStringList());
    }

    void nineFilesAreRemembered()
    {
        for (int i = 1; i <= 11; ++i)
            open("line" + std::to_string(i) + ".vs", oneShot);
        const QStringList entries = entriesOf(*named<QMenu>(*window, "recentMenu"));
        QCOMPARE(entries.size(), 9);
        QCOMPARE(entries.front(), "1 " + path("line11.vs") + ": Ctrl+1");
        QCOMPARE(entries.back(), "9 " + path("line3.vs") + ": Ctrl+9");
    }

    void reloadReadsWhatHasChanged()
    {
        open("line.vs", oneShot);
        file("line.vs", cleanSurvey);
        QCOMPARE(press("F5"), QStringList());
        QCOMPARE(shownTitle(picks()), QString("line.vs: 2 shots, 8 picks"));
    }

    void closeAllEmptiesTheWindow()
    {
        open("line.vs", reciprocalSurvey);
        window->openFiles({path("none.vs")});
        QCOMPARE(press("Ctrl+W"), QStringList());
        QCOMPARE(shownPage(), QString("emptyPage"));
        QCOMPARE(findings(), QStringList());
        QCOMPARE(messages(), QStringList());
        open("line.vs", oneShot);
        QCOMPARE(shownTitle(picks()), QString("line.vs: 1 shot, 1 pick"));
    }

    void convertOffersTheFormatsThatAreWritten()
    {
        open("line.vs", oneShot);
        QCOMPARE(press("Ctrl+E", {lookAtFilters}),
                 QStringList("Convert To: SeisImager traveltimes (*.vs);;OTTE traveltimes "
                             "(*.otte);;unified data format (*.sgt);;table with a heading "
                             "(*.csv)"));
        open("line.su", record());
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        QCOMPARE(press("Ctrl+E", {lookAtFilters}),
                 QStringList("Convert To: Seismic Unix (*.su);;SEG2 (*.seg2 *.sg2 *.dat)"));
    }

    void picksAreConverted()
    {
        open("line.vs", oneShot);
        QCOMPARE(press("Ctrl+E", {choose({path("out.otte")}, "OTTE traveltimes (*.otte)")}),
                 QStringList());
        QCOMPARE(readFile(folder->path("out.otte")), oneShotAsOtte);
        QCOMPARE(messages(), QStringList(path("out.otte") + " is written."));
    }

    void filterDecidesWhereTheNameDoesNot()
    {
        open("line.vs", oneShot);
        QCOMPARE(press("Ctrl+E", {choose({path("out")}, "OTTE traveltimes (*.otte)")}),
                 QStringList());
        QCOMPARE(readFile(folder->path("out.otte")), oneShotAsOtte);
        QCOMPARE(press("Ctrl+E", {choose({path("out.txt")}, "OTTE traveltimes (*.otte)")}),
                 QStringList());
        QCOMPARE(readFile(folder->path("out.txt")), oneShotAsOtte);
        QCOMPARE(press("Ctrl+E", {choose({path("again.otte")}, "unified data format (*.sgt)")}),
                 QStringList());
        QCOMPARE(readFile(folder->path("again.otte")), oneShotAsOtte);
    }

    void fileIsReplacedOnlyWithLeave_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("left");
        QTest::newRow("no") << int(QMessageBox::No) << "old";
        QTest::newRow("yes") << int(QMessageBox::Yes) << text(oneShotAsOtte);
    }

    void fileIsReplacedOnlyWithLeave()
    {
        QFETCH(int, answer);
        QFETCH(QString, left);
        open("line.vs", oneShot);
        file("out.otte", "old");
        QCOMPARE(press("Ctrl+E", {choose({path("out")}, "OTTE traveltimes (*.otte)"),
                                  ::press(QMessageBox::StandardButton(answer))}),
                 QStringList("Question of ViewerWindow: Convert To: out.otte already exists.\n"
                             "Do you want to replace it? [Yes, No]"));
        QCOMPARE(text(readFile(folder->path("out.otte"))), left);
    }

    void conversionThatWasNotStoppedSaysThatItIsDone()
    {
        open("line.vs", largeSurvey());
        bool isPressed = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, window.get(), [&] {
            auto *const dialog = window->findChild<QProgressDialog *>();
            if (dialog == nullptr)
                return;
            dialog->cancel();
            isPressed = true;
            timer.stop();
        });
        timer.start(0);
        QCOMPARE(press("Ctrl+E", {choose({path("out.otte")})}), QStringList());
        QVERIFY(isPressed);
        QCOMPARE(messages(), QStringList(path("out.otte") + " is written."));
    }

    void recordIsConverted()
    {
        open("line.su", record());
        QCOMPARE(press("Ctrl+E", {choose({path("out.su")}, "Seismic Unix (*.su)")}), QStringList());
        QCOMPARE(readFile(folder->path("out.su")), record());
        QCOMPARE(messages().back(), path("out.su") + " is written.");
    }

    void conversionThatFailsSaysWhy()
    {
        open("line.vs", oneShot);
        QCOMPARE(press("Ctrl+E", {choose({path("line.vs")}), ::press(QMessageBox::Yes)}),
                 QStringList("Warning of QFileDialog: Convert To: line.vs already exists.\n"
                             "Do you want to replace it? [Yes, No]"));
        QCOMPARE(messages(),
                 QStringList(path("line.vs") + ": the output would replace this input"));
        QCOMPARE(readFile(folder->path("line.vs")), oneShot);
    }

    void pictureIsSaved()
    {
        open("line.vs", cleanSurvey);
        axesNamed(picks(), "times")->axis(QCPAxis::atBottom)->setRange(-5, 55);
        const QSize size = picks().size();
        for (const char *ending : {"png", "svg", "pdf"}) {
            const QString name = path(QString("picture.") + ending);
            QCOMPARE(press("Ctrl+S", {choose({name})}), QStringList());
            QVERIFY2(exists(name.toStdString()), ending);
        }
        QCOMPARE(QImage(path("picture.png")).size(), size);
        const std::string svg = readFile(folder->path("picture.svg"));
        for (const char *part : {">line.vs: 2 shots, 8 picks<", ">Shot 2 at 20 m<", ">40<"})
            QVERIFY2(svg.find(part) != std::string::npos, part);
        QVERIFY(readFile(folder->path("picture.pdf")).starts_with("%PDF"));
        QCOMPARE(messages().size(), 3);
        QCOMPARE(messages().front(), path("picture.png") + " is written.");
    }

    void picturesFilterDecidesWhereTheNameDoesNot()
    {
        open("line.vs", cleanSurvey);
        QCOMPARE(press("Ctrl+S", {choose({path("picture")}, "SVG (*.svg)")}), QStringList());
        QVERIFY(exists(folder->path("picture.svg")));
        QCOMPARE(press("Ctrl+S", {choose({path("picture.gif")})}), QStringList());
        QCOMPARE(messages().back(), path("picture.gif") + ": a picture is .png, .svg or .pdf");
        QVERIFY(!exists(folder->path("picture.gif")));
    }

    void pictureIsOnPaperEvenInADarkTheme()
    {
        QPalette dark;
        dark.setColor(QPalette::Base, QColor(20, 20, 20));
        dark.setColor(QPalette::Text, QColor(230, 230, 230));
        window->setPalette(dark);
        open("line.vs", cleanSurvey);
        QCOMPARE(press("Ctrl+S", {choose({path("picture.png")})}), QStringList());
        const QImage image(path("picture.png"));
        QCOMPARE(image.pixelColor(3, image.height() - 3), QColor(Qt::white));
    }

    void pictureIsCopied()
    {
        open("line.vs", cleanSurvey);
        QGuiApplication::clipboard()->clear();
        QCOMPARE(press("Ctrl+C"), QStringList());
        const QImage copied = QGuiApplication::clipboard()->image();
        QCOMPARE(copied.size(), picks().size());
        int coloured = 0; // pixels of shot 2
        for (int y = 0; y < copied.height(); ++y)
            for (int x = 0; x < copied.width(); ++x)
                coloured += copied.pixelColor(x, y) == QColor(0xe5, 0x5a, 0x14) ? 1 : 0;
        QVERIFY(coloured > 50);
    }

    void copiedPictureIsTheSavedOne()
    {
        window->resize(1200, 700);
        open(std::string(100, 'n') + ".vs", cleanSurvey);
        QCOMPARE(press("Ctrl+C"), QStringList());
        QCOMPARE(press("Ctrl+S", {choose({path("picture.png")})}), QStringList());
        const QImage copied = QGuiApplication::clipboard()->image();
        QCOMPARE(copied.convertToFormat(QImage::Format_RGB32),
                 QImage(path("picture.png")).convertToFormat(QImage::Format_RGB32));
    }

    void showAllBringsEverythingIntoView()
    {
        open("line.vs", cleanSurvey);
        axesNamed(picks(), "times")->axis(QCPAxis::atBottom)->setRange(3, 4);
        QCOMPARE(press("Ctrl+0"), QStringList());
        QCOMPARE(inView(picks()), QString("-0.9,30.9 -3.6,30.9"));
    }

    void panelIsHiddenAndShown()
    {
        const auto *const panels = named<QWidget>(*window, "panels");
        QVERIFY(panels->isVisible());
        QCOMPARE(press("Ctrl+F"), QStringList());
        QVERIFY(!panels->isVisible());
        QCOMPARE(press("Ctrl+F"), QStringList());
        QVERIFY(panels->isVisible());
    }

    void quitClosesTheWindow()
    {
        QCOMPARE(press("Ctrl+Q"), QStringList());
        QVERIFY(!window->isVisible());
    }

    void droppedFilesAreOpened()
    {
        QVERIFY(drop({file("first.vs", oneShot), file("second.vs", oneShot)}));
        QCOMPARE(shownTitle(picks()), QString("first.vs and 1 more: 2 shots, 2 picks"));
    }

    void otherThingsCannotBeDropped()
    {
        QMimeData data;
        data.setText("line.vs");
        QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(window.get(), &enter);
        QVERIFY(!enter.isAccepted());
    }

private:
    static QStringList entriesOf(const QMenu &menu)
    {
        QStringList entries;
        for (const QAction *action : menu.actions()) {
            if (action->menu() != nullptr)
                entries += entriesOf(*action->menu());
            else if (!action->isSeparator())
                entries += action->text().remove('&') + ": " + action->shortcut().toString();
        }
        return entries;
    }

    /// Takes some time to be converted.
    static std::string largeSurvey()
    {
        std::string survey = "Line 500\n0 500\n";
        for (int shot = 0; shot < 500; ++shot) {
            survey += std::to_string(shot) + " 48\n";
            for (int receiver = 1; receiver <= 48; ++receiver)
                survey += std::to_string(shot + receiver) + ' ' + std::to_string(receiver) + '\n';
        }
        return survey;
    }

    static std::string record()
    {
        return suTrace(ByteOrder::littleEndian, {{0, 1}, {116, 250}}, {0, 1, -1, 0})
               + suTrace(ByteOrder::littleEndian, {{0, 2}, {116, 250}}, {0, 2, -2, 0});
    }
};

template struct WindowTests<ViewMenusTest>;

#include "view_menus_test.moc"
