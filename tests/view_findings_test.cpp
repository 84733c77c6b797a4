// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_window.h"

#include <QTabWidget>
#include <QTest>

class ViewFindingsTest : public ViewWindowTests
{
    Q_OBJECT

private slots:
    void findingsAreListedWithFileAndLine()
    {
        open("line.vs", reciprocalSurvey);
        QCOMPARE(findings(),
                 QStringList("line.vs:5: 20 ms from x = 0 to 10, but 26 ms the other way round "
                             "(line 7): a wave takes the same time both ways, so that a pick or a "
                             "position is wrong"));
        QCOMPARE(named<QTabWidget>(*window, "panels")->tabText(0), QString("Findings (1)"));
    }

    void chosenFindingIsRingedJoinedAndBroughtIntoView()
    {
        open("line.vs", reciprocalSurvey);
        QCOMPARE(pointsOf(picks(), "Chosen finding"), QStringList());
        clickFinding(0);
        QCOMPARE(pointsOf(picks(), "Chosen finding"), QStringList("0,26 10,20"));
        // 12 % of 10 m around both, and 15 % of 26 ms around the shots' picks there.
        QCOMPARE(inView(picks()), QString("-1.2,11.2 6.1,29.9"));
        int lines = 0;
        for (int i = 0; i < picks().itemCount(); ++i)
            lines += qobject_cast<QCPItemLine *>(picks().item(i)) != nullptr ? 1 : 0;
        QCOMPARE(lines, 1);
    }

    void ringIsSeenWhereThePickIs()
    {
        open("line.vs", reciprocalSurvey);
        clickFinding(0);
        QCustomPlot &plot = picks();
        const QImage shown = plot.grab().toImage();
        const QPoint pick = pixelOf(*axesNamed(plot, "times"), 0, 26);
        const QColor ring = graphNamed(plot, "Chosen finding")->scatterStyle().pen().color();
        QVERIFY(isNear(shown.pixelColor(pick + QPoint(-9, 0)), ring, 40));
        QVERIFY(!isNear(shown.pixelColor(pick + QPoint(-14, 0)), ring, 40));
    }

    void findingIsLetGoByControlAndClick()
    {
        open("line.vs", reciprocalSurvey);
        clickFinding(0);
        clickFinding(0, Qt::ControlModifier);
        QCOMPARE(pointsOf(picks(), "Chosen finding"), QStringList());
    }

    void otherFilesForgetTheChosenFinding()
    {
        open("line.vs", reciprocalSurvey);
        clickFinding(0);
        open("more.vs", "More\n0 1\n40 1\n30 10\n");
        QCOMPARE(pointsOf(picks(), "Chosen finding"), QStringList());
        QCOMPARE(findings().size(), 1);
        QCOMPARE(inView(picks()), QString("-1.2,41.2 -3.12,26.78"));
    }

    void findingOfAWholeFileShowsAll()
    {
        // Milliseconds that are taken for seconds: 0.5 m/s.
        open("slow.csv", "shot_x,shot_elevation,receiver_x,receiver_elevation,time\n"
                         "0,0,5,0,10\n0,0,10,0,20\n");
        QCOMPARE(findings().size(), 1);
        QVERIFY(findings().front().startsWith("slow.csv: the median of offset over time is 1 m/s"));
        axesNamed(picks(), "times")->axis(QCPAxis::atBottom)->setRange(3, 4);
        clickFinding(0);
        QCOMPARE(rangeOf(*axesNamed(picks(), "times")->axis(QCPAxis::atBottom)),
                 QString("-0.3,10.3"));
    }

private:
    void clickFinding(int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        const auto *const list = named<QListWidget>(*window, "findingList");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers,
                          list->visualItemRect(list->item(row)).center());
    }
};

template struct WindowTests<ViewFindingsTest>;

#include "view_findings_test.moc"
