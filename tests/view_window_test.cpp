// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_window.h"

#include <QAbstractButton>
#include <QDir>
#include <QDoubleSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QToolTip>

class ViewWindowTest : public ViewWindowTests
{
    Q_OBJECT

private slots:
    void emptyWindowSaysWhatToDo()
    {
        QCOMPARE(shownPage(), QString("emptyPage"));
        QCOMPARE(textOf(*window, "emptyLabel"),
                 QString("Open files of picks or records, or drop them here."));
        QCOMPARE(window->windowTitle(), QString("Convert2Velarix: pictures"));
        QCOMPARE(tabs(), QStringList());
    }

    void surveyIsShown()
    {
        open("line.vs", cleanSurvey);
        QCOMPARE(shownPage(), QString("picksPage"));
        QCOMPARE(window->windowTitle(), QString("Picks - Convert2Velarix: pictures"));
        QCOMPARE(shownTitle(picks()), QString("line.vs: 2 shots, 8 picks"));
        QCOMPARE(curveNames(picks()),
                 QStringList({"Shot 1 at 7 m", "Shot 1 at 7 m", "Shot 2 at 20 m"}));
        QCOMPARE(inView(picks()), QString("-0.9,30.9 -3.6,30.9"));
        QCOMPARE(findings(), QStringList());
        QCOMPARE(messages(), QStringList());
        QVERIFY(!named<QWidget>(*window, "tabs")->isVisible());
    }

    void shotsAreListedInTheirColours()
    {
        open("line.vs", cleanSurvey);
        const QListWidget &list = shotList();
        QCOMPARE(list.count(), 2);
        QCOMPARE(list.item(0)->text(), QString("Shot 1 at 7 m"));
        QCOMPARE(list.item(1)->text(), QString("Shot 2 at 20 m"));
        QCOMPARE(list.item(1)->toolTip(), QString("4 picks\nline.vs, line 8"));
        const QColor icon = list.item(1)->icon().pixmap(12, 12).toImage().pixelColor(6, 6);
        QCOMPARE(icon, graphNamed(picks(), "Shot 2 at 20 m")->pen().color());
    }

    void chosenShotIsBroughtOutAndTheOtherDimmed()
    {
        open("line.vs", cleanSurvey);
        clickShot(1);
        QCOMPARE(colourOfShot1(), QColor("#bfc9d4"));
        QCOMPARE(graphNamed(picks(), "Shot 2 at 20 m")->pen().color(), QColor("#e55a14"));
        clickShot(0, Qt::ControlModifier);
        QCOMPARE(colourOfShot1(), QColor("#012755"));
        clickShot(0, Qt::ControlModifier);
        clickShot(1, Qt::ControlModifier);
        QCOMPARE(colourOfShot1(), QColor("#012755"));
    }

    void offsetInsteadOfPosition()
    {
        open("line.vs", cleanSurvey);
        tick(*window, "offsetBox");
        QCOMPARE(pointsOf(picks(), "Shot 1 at 7 m"), QStringList({"-7,12 -2,4", "3,8 13,20"}));
        QCOMPARE(inView(picks()), QString("-20.99,13.99 -3.6,30.9"));
        tick(*window, "offsetBox");
        QCOMPARE(inView(picks()), QString("-0.9,30.9 -3.6,30.9"));
    }

    void reducedTime()
    {
        open("line.vs", cleanSurvey);
        auto *const velocity = named<QDoubleSpinBox>(*window, "velocityBox");
        QCOMPARE(velocity->text(), QString("1500 m/s"));
        tick(*window, "reducedBox");
        QCOMPARE(axesNamed(picks(), "times")->axis(QCPAxis::atLeft)->label(),
                 QString("Time - offset / 1500 m/s (ms)"));
        velocity->setFocus();
        velocity->selectAll();
        QTest::keyClicks(velocity, "500");
        QTest::keyClick(velocity, Qt::Key_Return);
        QCOMPARE(pointsOf(picks(), "Shot 1 at 7 m"), QStringList({"0,-2 5,0", "10,2 20,-6"}));
        QCOMPARE(inView(picks()), QString("-0.9,30.9 -11.44,2.36"));
        tick(*window, "reducedBox");
        QCOMPARE(pointsOf(picks(), "Shot 1 at 7 m"), QStringList({"0,12 5,4", "10,8 20,20"}));
    }

    void velocityThatIsNotUsedChangesNothing()
    {
        open("line.vs", cleanSurvey);
        axesNamed(picks(), "times")->axis(QCPAxis::atBottom)->setRange(3, 9);
        named<QDoubleSpinBox>(*window, "velocityBox")->setValue(600);
        QCOMPARE(rangeOf(*axesNamed(picks(), "times")->axis(QCPAxis::atBottom)), QString("3,9"));
    }

    void findingsAreMarkedUnlessTurnedOff()
    {
        open("line.vs", reciprocalSurvey);
        QCOMPARE(pointsOf(picks(), "Finding"), QStringList("0,26 10,20"));
        tick(*window, "findingsBox");
        QCOMPARE(pointsOf(picks(), "Finding"), QStringList());
    }

    void pointingAtAPickDescribesIt()
    {
        open("line.vs", cleanSurvey);
        QCustomPlot &plot = picks();
        const QPoint pick = pixelOf(*axesNamed(plot, "times"), 20, 20);
        moveMouse(plot, pick + QPoint(3, -3));
        QCOMPARE(QToolTip::text(),
                 QString("Shot 1 at 7 m\nReceiver at 20 m\n20 ms\nline.vs, line 7"));
        QCOMPARE(window->statusBar()->currentMessage(),
                 QString("Shot 1 at 7 m, Receiver at 20 m, 20 ms, line.vs, line 7"));
        moveMouse(plot, pick + QPoint(30, -3));
        QCOMPARE(window->statusBar()->currentMessage(), QString());
    }

    void wheelZoomsDragMovesAndDoubleClickShowsAll()
    {
        open("line.vs", cleanSurvey);
        QCustomPlot &plot = picks();
        const QCPAxis &x = *axesNamed(plot, "times")->axis(QCPAxis::atBottom);
        const QPoint middle = pixelOf(*axesNamed(plot, "times"), 15, 13);
        const QPointF global = plot.mapToGlobal(middle);
        QWheelEvent wheel(middle, global, {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&plot, &wheel);
        const double zoomed = x.range().size();
        QVERIFY(zoomed < 31.8 * 0.9);

        const double before = x.range().lower;
        QTest::mousePress(&plot, Qt::LeftButton, {}, middle);
        QMouseEvent move(QEvent::MouseMove, middle + QPoint(80, 0), global + QPointF(80, 0),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&plot, &move);
        QTest::mouseRelease(&plot, Qt::LeftButton, {}, middle + QPoint(80, 0));
        QVERIFY(x.range().lower < before - 0.5);
        QVERIFY(std::abs(x.range().size() - zoomed) < 1e-9);

        QTest::mouseDClick(&plot, Qt::LeftButton, {}, middle);
        QCOMPARE(inView(plot), QString("-0.9,30.9 -3.6,30.9"));
    }

    void choosingAShotKeepsWhatIsInView()
    {
        open("line.vs", cleanSurvey);
        axesNamed(picks(), "times")->axis(QCPAxis::atBottom)->setRange(3, 9);
        clickShot(1);
        QCOMPARE(rangeOf(*axesNamed(picks(), "times")->axis(QCPAxis::atBottom)), QString("3,9"));
    }

    void severalFilesAreOneSurvey()
    {
        open("line.vs", cleanSurvey);
        open("more.vs", "More\n0 1\n40 1\n30 10\n");
        QCOMPARE(shownTitle(picks()), QString("line.vs and 1 more: 3 shots, 9 picks"));
        QCOMPARE(shotList().count(), 3);
        QCOMPARE(shotList().item(2)->text(), QString("Shot 3 at 40 m"));
        QCOMPARE(inView(picks()), QString("-1.2,41.2 -3.6,30.9"));
    }

    void fileThatIsOpenedAgainIsReadAnew()
    {
        open("line.vs", cleanSurvey);
        open("more.vs", "More\n0 1\n40 1\n30 10\n");
        open("line.vs", "Line 7\n0 1\n2 1\n30 15\n");
        QCOMPARE(shotList().count(), 2);
        QCOMPARE(shotList().item(0)->text(), QString("Shot 1 at 2 m"));
        QCOMPARE(shotList().item(1)->text(), QString("Shot 2 at 40 m"));
    }

    void fileThatIsOpenByAnotherNameIsReadAnew()
    {
        open("line.vs", cleanSurvey);
        window->openFiles({QDir::current().relativeFilePath(path("line.vs"))});
        QCOMPARE(shownTitle(picks()), QString("line.vs: 2 shots, 8 picks"));
    }

    void messageShowsItsPanel()
    {
        QAction *const shows = named<QAction>(*window, "showPanelsAction");
        shows->setChecked(false);
        window->openFiles({path("none.vs")});
        QVERIFY(named<QWidget>(*window, "messages")->isVisible());
        QVERIFY(shows->isChecked());
    }

    void fileThatCannotBeReadLeavesAMessageAndTheOthers()
    {
        open("line.vs", cleanSurvey);
        const QString bad = file("bad.vs", "Line 7\n0 2\n0 1\n0 1\n5 1\n5 x\n");
        const QString more = file("more.vs", "More\n0 1\n40 1\n30 10\n");
        window->openFiles({bad, more, path("none.vs")});
        QCOMPARE(shotList().count(), 3); // none of the bad file's
        QCOMPARE(messages(), QStringList({bad + ":6: \"x\" is no number: a time expected",
                                          path("none.vs") + ": no such file"}));
        QCOMPARE(named<QTabWidget>(*window, "panels")->currentWidget()->objectName(),
                 QString("messages"));
        QCOMPARE(named<QTabWidget>(*window, "panels")->tabText(1), QString("Messages (2)"));
    }

    void filesAreReadAsTheCommandLineSays()
    {
        Request reading;
        reading.timesIn = TimeUnit::milliseconds;
        reading.shotList = folder->write("shots.txt", "shot.txt;2.5;100\n");
        openWindow(reading);
        open("shot.txt", "0;100;1\n5;100;4\n");
        QCOMPARE(pointsOf(picks(), "Shot 1 at 2.5 m"), QStringList({"0,1", "5,4"}));
        QVERIFY(axesNamed(picks(), "elevations") != nullptr);
    }

    void darkThemeIsFollowed()
    {
        open("line.vs", cleanSurvey);
        QPalette dark = window->palette();
        dark.setColor(QPalette::Base, QColor(20, 20, 20));
        dark.setColor(QPalette::Text, QColor(230, 230, 230));
        window->setPalette(dark);
        QCOMPARE(colourOfShot1(), QColor("#eaedfe"));
        const QImage shown = picks().grab().toImage();
        QCOMPARE(shown.pixelColor(3, shown.height() - 3), QColor(20, 20, 20));
        QCOMPARE(axesNamed(picks(), "times")->axis(QCPAxis::atLeft)->tickLabelColor(),
                 QColor(230, 230, 230));
    }

    void plotIsAsSharpAsItsScreen()
    {
        open("line.vs", cleanSurvey);
        QCOMPARE(picks().bufferDevicePixelRatio(),
                 qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble());
    }

    void everyControlCanBeReachedByItsLetter()
    {
        QSet<QChar> letters;
        int controls = 0;
        for (const char *page : {"picksPage", "recordPage"}) {
            letters.clear();
            for (const char *menu : {"&File", "&View"})
                letters.insert(menu[1]);
            for (const QWidget *widget : named<QWidget>(*window, page)->findChildren<QWidget *>()) {
                const QString text = widget->property("text").toString();
                const qsizetype mark = text.indexOf('&');
                if (mark < 0)
                    continue;
                ++controls;
                QVERIFY2(!letters.contains(text[mark + 1].toUpper()), qPrintable(text));
                letters.insert(text[mark + 1].toUpper());
            }
        }
        QCOMPARE(controls, 9);
    }

private:
    QListWidget &shotList() const
    {
        return *named<QListWidget>(*window, "shotList");
    }

    void clickShot(int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QListWidget &list = shotList();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers,
                          list.visualItemRect(list.item(row)).center());
    }

    QColor colourOfShot1() const
    {
        return graphNamed(picks(), "Shot 1 at 7 m")->pen().color();
    }

    static void moveMouse(QCustomPlot &plot, const QPoint &pixel)
    {
        QMouseEvent move(QEvent::MouseMove, pixel, plot.mapToGlobal(pixel), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&plot, &move);
    }
};

template struct WindowTests<ViewWindowTest>;

#include "view_window_test.moc"
