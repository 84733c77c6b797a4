// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/pick_checks.h"
#include "tests/support/view_plot.h"
#include "tests/support/window.h"
#include "view/colours.h"
#include "view/pick_plot.h"
#include "view/plot_title.h"

#include <QTest>

namespace {

/// Two shots: one between receivers, one where a receiver is.
PickSurvey twoShots(double elevation = 0.0)
{
    PickSurvey picks;
    addShot(picks, 1, 7, {{10, 8}, {0, 12}, {5, 4}, {20, 20}}, elevation);
    addShot(picks, 2, 20, {{0, 30}, {10, 15}, {20, 0}, {30, 15}}, elevation);
    return picks;
}

std::vector<Finding> findingsIn(const PickSurvey &picks)
{
    PickCheckSummary summary;
    return checkPicks(picks, 2.0, summary);
}

PickPlotOptions onPaper()
{
    PickPlotOptions options;
    options.palette = paperPalette();
    return options;
}

/// The picture of a plot of 600 by 400 pixels.
QImage pictureOf(QCustomPlot &plot)
{
    return plot.toPixmap(600, 400).toImage();
}

} // namespace

class ViewPicksTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        prepareTest();
        plot = std::make_unique<QCustomPlot>();
    }

    void curvesJoinReceiversOnEachSideOfTheShot()
    {
        drawPicks(*plot, twoShots(), {}, onPaper());
        QCOMPARE(curveNames(*plot),
                 QStringList({"Shot 1 at 7 m", "Shot 1 at 7 m", "Shot 2 at 20 m"}));
        QCOMPARE(pointsOf(*plot, "Shot 1 at 7 m"), QStringList({"0,12 5,4", "10,8 20,20"}));
        QCOMPARE(pointsOf(*plot, "Shot 2 at 20 m"), QStringList("0,30 10,15 20,0 30,15"));
        QCOMPARE(graphNamed(*plot, "Shot 1 at 7 m")->lineStyle(), QCPGraph::lsLine);
    }

    void shotsPlacesAreMarkedAndNumberedAtATimeOf0()
    {
        drawPicks(*plot, twoShots(), {}, onPaper());
        QCOMPARE(pointsOf(*plot, "Place of Shot 1 at 7 m"), QStringList("7,0"));
        QCOMPARE(pointsOf(*plot, "Place of Shot 2 at 20 m"), QStringList("20,0"));
        QStringList labels;
        for (int i = 0; i < plot->itemCount(); ++i)
            if (const auto *const label = qobject_cast<QCPItemText *>(plot->item(i)))
                labels += label->text() + " at " + QString::number(label->position->key());
        QCOMPARE(labels, QStringList({"1 at 7", "2 at 20"}));
    }

    void numbersOfShotsThatAreCloseTogetherAreLeftOut()
    {
        PickSurvey picks;
        for (std::uint32_t shot = 0; shot <= 60; ++shot) // 30 m, 0.5 m apart: 1 m has room
            addShot(picks, shot, shot * 0.5, {{100, 50}});
        drawPicks(*plot, picks, {}, onPaper());
        QCOMPARE(plot->itemCount(), 21); // every third
    }

    void timesGoDownAndEverythingIsInView()
    {
        drawPicks(*plot, twoShots(), {}, onPaper());
        const QCPAxisRect &times = *axesNamed(*plot, "times");
        QVERIFY(times.axis(QCPAxis::atLeft)->rangeReversed());
        QCOMPARE(times.axis(QCPAxis::atLeft)->label(), QString("Time (ms)"));
        QCOMPARE(times.axis(QCPAxis::atBottom)->label(), QString("Position along the line (m)"));
        QCOMPARE(rangeOf(*times.axis(QCPAxis::atBottom)), QString("-0.9,30.9"));
        QCOMPARE(rangeOf(*times.axis(QCPAxis::atLeft)), QString("-3.6,30.9"));
        QCOMPARE(titleOf(*plot), QString("line.vs: 2 shots, 8 picks"));
    }

    void offsetsCountFromTheShot()
    {
        PickPlotOptions options = onPaper();
        options.axes.isByOffset = true;
        drawPicks(*plot, twoShots(100.0), {}, options);
        QCOMPARE(pointsOf(*plot, "Shot 1 at 7 m"), QStringList({"-7,12 -2,4", "3,8 13,20"}));
        QCOMPARE(pointsOf(*plot, "Shots"), QStringList("0,0"));
        const QCPAxisRect &times = *axesNamed(*plot, "times");
        QCOMPARE(times.axis(QCPAxis::atBottom)->label(), QString("Offset from the shot (m)"));
        QCOMPARE(rangeOf(*times.axis(QCPAxis::atBottom)), QString("-20.99,13.99"));
        QVERIFY(axesNamed(*plot, "elevations") == nullptr);
    }

    void reducedTimesAreLessOffsetOverVelocity()
    {
        PickPlotOptions options = onPaper();
        options.axes.reductionVelocity = 500.0; // 1 m is 2 ms
        drawPicks(*plot, twoShots(), {}, options);
        QCOMPARE(pointsOf(*plot, "Shot 1 at 7 m"), QStringList({"0,-2 5,0", "10,2 20,-6"}));
        const QCPAxis &time = *axesNamed(*plot, "times")->axis(QCPAxis::atLeft);
        QCOMPARE(time.label(), QString("Time - offset / 500 m/s (ms)"));
        QCOMPARE(rangeOf(time), QString("-11.44,2.36"));
        QCOMPARE(pointsOf(*plot, "Place of Shot 1 at 7 m"), QStringList("7,0"));
    }

    void elevationsAreAStripAboveThatMovesWithTheCurves()
    {
        PickSurvey picks = twoShots(100.0);
        picks.survey.shots[1].elevation = 98.0;
        drawPicks(*plot, picks, {}, onPaper());
        QCPAxisRect *const elevations = axesNamed(*plot, "elevations");
        QVERIFY(elevations != nullptr);
        QCOMPARE(elevations->axis(QCPAxis::atLeft)->label(), QString("Elevation (m)"));
        QCOMPARE(rangeOf(*elevations->axis(QCPAxis::atLeft)), QString("97.5,100.5"));
        QCOMPARE(pointsOf(*plot, "Ground of Shot 2 at 20 m"), QStringList("20,98"));
        QCOMPARE(pointsOf(*plot, "Receivers"),
                 QStringList("0,100 0,100 5,100 10,100 10,100 20,100 20,100 30,100"));
        axesNamed(*plot, "times")->axis(QCPAxis::atBottom)->setRange(3, 9);
        QCOMPARE(rangeOf(*elevations->axis(QCPAxis::atBottom)), QString("3,9"));
        elevations->axis(QCPAxis::atBottom)->setRange(4, 8);
        QCOMPARE(rangeOf(*axesNamed(*plot, "times")->axis(QCPAxis::atBottom)), QString("4,8"));
        (void)plot->toPixmap(600, 500);
        QVERIFY(elevations->rect().bottom() < axesNamed(*plot, "times")->rect().top());
        QCOMPARE(elevations->rect().left(), axesNamed(*plot, "times")->rect().left());
    }

    void withoutElevationsThereIsNoStrip()
    {
        drawPicks(*plot, twoShots(), {}, onPaper());
        QVERIFY(axesNamed(*plot, "elevations") == nullptr);
    }

    void chosenShotsAreBroughtOutAndOthersDimmed()
    {
        PickPlotOptions options = onPaper();
        options.chosenShots = {1};
        drawPicks(*plot, twoShots(), {}, options);
        const QCPGraph &dim = *graphNamed(*plot, "Shot 1 at 7 m");
        const QCPGraph &chosen = *graphNamed(*plot, "Shot 2 at 20 m");
        // A quarter of 01 27 55 on white: 255 - 216 / 4 is c9.
        QCOMPARE(dim.pen().color().name(), QString("#bfc9d4"));
        QCOMPARE(chosen.pen().color().name(), QString("#e55a14"));
        QVERIFY(chosen.pen().widthF() > dim.pen().widthF());
        QVERIFY(chosen.layer()->index() > dim.layer()->index());
    }

    void picksAreDrawnInTheColourOfTheirShot()
    {
        drawPicks(*plot, twoShots(), {}, onPaper());
        const QImage picture = pictureOf(*plot);
        const QCPAxisRect &times = *axesNamed(*plot, "times");
        QVERIFY(isNear(picture.pixelColor(pixelOf(times, 0, 12)), QColor(0x01, 0x27, 0x55), 12));
        QVERIFY(isNear(picture.pixelColor(pixelOf(times, 30, 15)), QColor(0xe5, 0x5a, 0x14), 12));
        QVERIFY(isNear(picture.pixelColor(pixelOf(times, 7.5, 8 - 2)), Qt::white, 12));
        QVERIFY(isNear(picture.pixelColor(pixelOf(times, 2, 22)), Qt::white, 12));
    }

    void onDarkPaperLinesAreLight()
    {
        PickPlotOptions options;
        options.palette.setColor(QPalette::Base, QColor(30, 30, 30));
        options.palette.setColor(QPalette::Text, QColor(240, 240, 240));
        drawPicks(*plot, twoShots(), {}, options);
        const QImage picture = pictureOf(*plot);
        const QCPAxisRect &times = *axesNamed(*plot, "times");
        QVERIFY(isNear(picture.pixelColor(pixelOf(times, 2, 22)), QColor(30, 30, 30), 12));
        QVERIFY(isNear(picture.pixelColor(pixelOf(times, 0, 12)), QColor(0xea, 0xed, 0xfe), 12));
        QCOMPARE(times.axis(QCPAxis::atLeft)->tickLabelColor(), QColor(240, 240, 240));
        QCOMPARE(times.axis(QCPAxis::atLeft)->labelColor(), QColor(240, 240, 240));
    }

    void findingsAreRingedAndReciprocalPairsJoined()
    {
        PickSurvey picks;
        addShot(picks, 1, 0, {{5, 10}, {10, 20}});
        addShot(picks, 2, 10, {{0, 26}, {5, 10}});
        drawPicks(*plot, picks, findingsIn(picks), onPaper());
        QCOMPARE(pointsOf(*plot, "Finding"), QStringList("0,26 10,20"));
        QCOMPARE(lineOfPlot(), QString("10,20 to 0,26"));
        const QCPScatterStyle ring = graphNamed(*plot, "Finding")->scatterStyle();
        QCOMPARE(ring.shape(), QCPScatterStyle::ssCircle);
        QCOMPARE(ring.brush().style(), Qt::NoBrush);

        PickPlotOptions options = onPaper();
        options.marksFindings = false;
        drawPicks(*plot, picks, findingsIn(picks), options);
        QCOMPARE(pointsOf(*plot, "Finding"), QStringList());
        QCOMPARE(lineOfPlot(), QString());

        options.chosenFinding = 0;
        drawPicks(*plot, picks, findingsIn(picks), options);
        QCOMPARE(pointsOf(*plot, "Chosen finding"), QStringList("0,26 10,20"));
        QVERIFY(graphNamed(*plot, "Chosen finding")->scatterStyle().size() > ring.size());
        QCOMPARE(lineOfPlot(), QString("10,20 to 0,26"));
    }

    void receiverThatWasNotPickedIsRingedAtATimeOf0()
    {
        PickSurvey picks;
        addShot(picks, 1, 0, {{5, 10}, {10, -1}, {15, 30}});
        PickPlotOptions options = onPaper();
        options.axes = {true, 500.0};
        drawPicks(*plot, picks, findingsIn(picks), options);
        QCOMPARE(pointsOf(*plot, "Finding"), QStringList("10,0"));
    }

    void neighboursOfAFindingAreInView()
    {
        PickSurvey picks;
        addShot(picks, 1, 0, {{10, 20}, {20, 30}, {30, 90}, {40, 50}, {100, 100}});
        addShot(picks, 2, 35, {{31, 4}});
        Finding outlier;
        outlier.kind = "outlier";
        outlier.picks = {{0, 2}};
        drawPicks(*plot, picks, {}, onPaper());
        showFinding(*plot, picks, outlier, onPaper());
        const QCPAxisRect &times = *axesNamed(*plot, "times");
        QCOMPARE(rangeOf(*times.axis(QCPAxis::atBottom)), QString("18,42"));
        QCOMPARE(rangeOf(*times.axis(QCPAxis::atLeft)), QString("15,105"));
    }

    void findingIsBroughtIntoView()
    {
        PickSurvey picks;
        addShot(picks, 1, 0, {{10, 20}, {50, 40}, {100, 100}});
        addShot(picks, 2, 10, {{0, 30}, {100, 90}});
        const std::vector<Finding> findings = findingsIn(picks);
        QCOMPARE(findings.size(), 1);
        const PickPlotOptions options = onPaper();
        drawPicks(*plot, picks, findings, options);
        showFinding(*plot, picks, findings.front(), options);
        const QCPAxisRect &times = *axesNamed(*plot, "times");
        QCOMPARE(rangeOf(*times.axis(QCPAxis::atBottom)), QString("-12,22"));
        QCOMPARE(rangeOf(*times.axis(QCPAxis::atLeft)), QString("5,45"));
        Finding ofTheFile;
        ofTheFile.kind = "units";
        showFinding(*plot, picks, ofTheFile, options);
        QCOMPARE(rangeOf(*times.axis(QCPAxis::atBottom)), QString("-3,103"));
    }

    void drawingAnewKeepsWhatIsInView()
    {
        drawPicks(*plot, twoShots(), {}, onPaper());
        axesNamed(*plot, "times")->axis(QCPAxis::atBottom)->setRange(3, 9);
        axesNamed(*plot, "times")->axis(QCPAxis::atLeft)->setRange(2, 8);
        drawPicks(*plot, twoShots(), {}, onPaper());
        QCOMPARE(rangeOf(*axesNamed(*plot, "times")->axis(QCPAxis::atBottom)), QString("3,9"));
        QCOMPARE(rangeOf(*axesNamed(*plot, "times")->axis(QCPAxis::atLeft)), QString("2,8"));
        QCOMPARE(curveNames(*plot).size(), 3);
        showAllPicks(*plot, twoShots(), onPaper());
        QCOMPARE(rangeOf(*axesNamed(*plot, "times")->axis(QCPAxis::atBottom)),
                 QString("-0.9,30.9"));
    }

    void pickIsFoundWithinEightPixels()
    {
        const PickSurvey picks = twoShots();
        PickPlotOptions options = onPaper();
        drawPicks(*plot, picks, {}, options);
        (void)pictureOf(*plot);
        const QPoint pick = pixelOf(*axesNamed(*plot, "times"), 10, 15);
        QCOMPARE(pickAt(*plot, picks, options, pick + QPoint(5, 5)), PickIndex({1, 1}));
        QVERIFY(!pickAt(*plot, picks, options, pick + QPoint(7, 7)));
        QCOMPARE(describePick(picks, {1, 1}),
                 QString("Shot 2 at 20 m\nReceiver at 10 m\n15 ms\nline.vs, line 22"));
        options.chosenShots = {0};
        QVERIFY(!pickAt(*plot, picks, options, pick));
    }

    void legendListsTheShots()
    {
        PickPlotOptions options = onPaper();
        QVERIFY(legendOf(options).isEmpty());
        options.legendColumns = 4;
        QCOMPARE(legendOf(options), QStringList({"Shot 1 at 7 m", "Shot 2 at 20 m"}));
    }

    void legendLeavesRoomForTheCurves()
    {
        PickSurvey picks;
        for (std::uint32_t shot = 1; shot <= 8; ++shot)
            addShot(picks, shot, 10.0 * shot, {{0, 8}, {90, 12}});
        QCOMPARE(legendColumnsIn({1200, 800}, picks), 8);
        QCOMPARE(legendColumnsIn({300, 320}, picks), 2); // four rows
        QCOMPARE(legendColumnsIn({300, 319}, picks), 0);
        QCOMPARE(legendColumnsIn({149, 800}, picks), 0);
    }

    void longTitleIsCutInTheMiddle()
    {
        PickSurvey picks = twoShots();
        picks.files = {std::string(200, 'x') + ".vs"};
        drawPicks(*plot, picks, {}, onPaper());
        fitTitle(*plot, 400);
        const QString shown = shownTitle(*plot);
        QVERIFY(shown.startsWith("xxx") && shown.contains(QChar(0x2026)) // an ellipsis
                && shown.endsWith("picks"));
        const QFont font = plot->findChild<QCPTextElement *>("title")->font();
        QVERIFY(QFontMetrics(font).horizontalAdvance(shown) <= 400);
        QCOMPARE(titleOf(*plot), QString(200, 'x') + ".vs: 2 shots, 8 picks");
    }

    void titleNamesTheFirstOfSeveralFiles()
    {
        PickSurvey picks = twoShots();
        addShot(picks, {0, 0, ""}, {"folder/other.xyz", 1}, {{{5, 0}, 0.01, 2}});
        QCOMPARE(titleOf(picks), QString("line.vs and 1 more: 3 shots, 9 picks"));
    }

    void surveyWithoutShotsIsDrawn()
    {
        drawPicks(*plot, {}, {}, onPaper());
        QCOMPARE(plot->graphCount(), 0);
        QCOMPARE(titleOf(*plot), QString());
    }

    void coloursOfNeighboursDifferInGrey_data()
    {
        QTest::addColumn<bool>("isPaperDark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    void coloursOfNeighboursDifferInGrey()
    {
        QFETCH(bool, isPaperDark);
        QPalette palette = paperPalette();
        if (isPaperDark) {
            palette.setColor(QPalette::Base, Qt::black);
            palette.setColor(QPalette::Text, Qt::white);
        }
        QSet<QRgb> different;
        for (std::size_t shot = 0; shot < shotColourCount; ++shot) {
            const int grey = qGray(colourOfShot(shot, palette).rgb());
            const int next = qGray(colourOfShot(shot + 1, palette).rgb());
            QVERIFY2(std::abs(grey - next) >= 30, qPrintable(QString::number(shot)));
            const int paper = isPaperDark ? 0 : 255;
            QVERIFY2(std::abs(grey - paper) >= 90, qPrintable(QString::number(shot)));
            different.insert(colourOfShot(shot, palette).rgb());
        }
        QCOMPARE(different.size(), 6);
        QCOMPARE(colourOfShot(6, palette), colourOfShot(0, palette));
    }

    void shotsOfOneColourHaveOtherMarks()
    {
        PickSurvey picks;
        for (std::uint32_t shot = 0; shot < 7; ++shot)
            addShot(picks, shot, 10.0 * shot, {{100, 50}});
        drawPicks(*plot, picks, {}, onPaper());
        QCOMPARE(graphNamed(*plot, "Shot 1 at 0 m")->pen().color(),
                 graphNamed(*plot, "Shot 7 at 60 m")->pen().color());
        QCOMPARE(graphNamed(*plot, "Shot 1 at 0 m")->scatterStyle().shape(),
                 QCPScatterStyle::ssDisc);
        QCOMPARE(graphNamed(*plot, "Shot 7 at 60 m")->scatterStyle().shape(),
                 QCPScatterStyle::ssSquare);
    }

private:
    /// The line that joins two picks: "10,20 to 0,26"; empty when there is none.
    QString lineOfPlot() const
    {
        for (int i = 0; i < plot->itemCount(); ++i)
            if (const auto *const line = qobject_cast<QCPItemLine *>(plot->item(i)))
                return QString("%1,%2 to %3,%4")
                    .arg(line->start->key())
                    .arg(line->start->value())
                    .arg(line->end->key())
                    .arg(line->end->value());
        return {};
    }

    QStringList legendOf(const PickPlotOptions &options)
    {
        drawPicks(*plot, twoShots(), {}, options);
        QStringList names;
        if (const auto *const legend = plot->findChild<QCPLegend *>())
            for (int i = 0; i < legend->itemCount(); ++i)
                names +=
                    qobject_cast<QCPPlottableLegendItem *>(legend->item(i))->plottable()->name();
        return names;
    }

    std::unique_ptr<QCustomPlot> plot;
};

template struct WindowTests<ViewPicksTest>;

#include "view_picks_test.moc"
