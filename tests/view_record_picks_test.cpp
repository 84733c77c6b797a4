// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_plot.h"
#include "tests/support/view_records.h"
#include "tests/support/window.h"
#include "view/colours.h"
#include "view/record_picks.h"
#include "view/record_plot.h"

#include <QTest>

namespace {

const QColor orange(213, 94, 0);

/// Traces at 0, 5 and 10 m of a shot at -2.5 m, and at 5 and 10 m of one at 20 m.
RecordData recordOfTwoShots()
{
    RecordData record =
        recordOf({drawnTraceAt(0, peakAndTrough()), drawnTraceAt(5, peakAndTrough()),
                  drawnTraceAt(10, peakAndTrough()), drawnTraceAt(5, peakAndTrough()),
                  drawnTraceAt(10, peakAndTrough())});
    record.shots = {{0, 3, 1, ReceiverPosition{-2.5, 0.0}}, {3, 2, 2, ReceiverPosition{20.0, 0.0}}};
    return record;
}

/// "trace record pick milliseconds", of each.
QStringList textsOf(const std::vector<RecordPick> &picks)
{
    QStringList texts;
    for (const RecordPick &pick : picks)
        texts += QString("%1 %2 %3 %4")
                     .arg(pick.trace)
                     .arg(pick.record)
                     .arg(pick.pick)
                     .arg(1000.0 * pick.time);
    return texts;
}

} // namespace

class ViewRecordPicksTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        prepareTest();
        plot = std::make_unique<QCustomPlot>();
        plot->resize(600, 400);
    }

    void shotsAndReceiversAreMatchedByTheirPlaces()
    {
        PickSurvey picks;
        addShot(picks, 1, 20, {{10, 8}, {0, 30}, {5, 20}}, 215.0); // whatever the elevation
        addShot(picks, 2, 19, {{10, 9}});                          // no shot of the record
        addShot(picks, 3, -2.5, {{5, 12}, {7, 13}, {0, 4}});
        QCOMPARE(textsOf(picksOn(recordOfTwoShots(), picks)),
                 (QStringList{"0 2 2 4", "1 2 0 12", "3 0 2 20", "4 0 0 8"}));
    }

    void placesAreTheSameToACentimetre()
    {
        PickSurvey picks;
        addShot(picks, 1, -2.49, {{5.01, 1}, {4.99, 2}, {10.02, 3}});
        addShot(picks, 2, -2.48, {{5, 4}});
        QCOMPARE(textsOf(picksOn(recordOfTwoShots(), picks)), (QStringList{"1 0 0 1", "1 0 1 2"}));
    }

    void allShotsAndTracesAtOnePlaceMatch()
    {
        RecordData record = recordOfTwoShots();
        record.shots[1].position->x = -2.5;
        PickSurvey picks;
        addShot(picks, 1, -2.5, {{10, 1}});
        addShot(picks, 2, -2.5, {{10, 2}});
        QCOMPARE(textsOf(picksOn(record, picks)),
                 (QStringList{"2 0 0 1", "2 1 0 2", "4 0 0 1", "4 1 0 2"}));
    }

    void withoutPositionsNothingMatches()
    {
        RecordData record = recordOfTwoShots();
        PickSurvey picks;
        QVERIFY(picksOn(record, picks).empty());
        addShot(picks, 1, -2.5, {{10, 1}});
        QCOMPARE(picksOn(record, picks).size(), 1U);
        record.traces[2].receiver = {};
        QVERIFY(picksOn(record, picks).empty());
        record = recordOfTwoShots();
        record.shots[0].position = {};
        QVERIFY(picksOn(record, picks).empty());
    }

    void marksAreOnTheirTracesAtTheirTimes()
    {
        draw(RecordStyle::density, TraceSpacing::byNumber, {});
        QCOMPARE(pointsOf(*plot, "Picks"), QStringList{"1,25 2,50 5,75"});
        QCOMPARE(colourAt(1, 25), orange);
        QCOMPARE(colourAt(2, 50), orange);
        QCOMPARE(colourAt(5, 75), orange);
        QVERIFY(colourAt(1, 30) != orange);
        QVERIFY(colourAt(3, 50) != orange);
    }

    void marksFollowTheTraces()
    {
        draw(RecordStyle::wiggles, TraceSpacing::byPosition, 0);
        QCOMPARE(pointsOf(*plot, "Picks"), QStringList{"0,25 5,50"});
        QCOMPARE(colourAt(5, 50), orange);
        draw(RecordStyle::wiggles, TraceSpacing::byNumber, 1);
        QCOMPARE(pointsOf(*plot, "Picks"), QStringList{"5,75"});
    }

    void marksAreReplacedAndGoWithTheirRecord()
    {
        draw(RecordStyle::wiggles, TraceSpacing::byNumber, {});
        drawRecordPicks(*plot, picksOn(recordOfTwoShots(), {}), orange);
        QCOMPARE(plot->graphCount(), 1);
        QCOMPARE(pointsOf(*plot, "Picks"), QStringList{""});
        drawRecord(*plot, shared(recordOfTwoShots()), {});
        QCOMPARE(plot->graphCount(), 0);
    }

    void samplesWithoutTimesHaveNoMarks()
    {
        RecordData record = recordOfTwoShots();
        for (DrawnTrace &trace : record.traces)
            trace.sampleInterval = 0.0;
        drawRecord(*plot, shared(record), {});
        drawRecordPicks(*plot, picksOn(record, survey()), orange);
        QCOMPARE(plot->graphCount(), 0);
        QCustomPlot empty;
        drawRecordPicks(empty, picksOn(record, survey()), orange);
        QCOMPARE(empty.graphCount(), 0);
    }

private:
    static PickSurvey survey()
    {
        PickSurvey picks;
        addShot(picks, 1, -2.5, {{0, 25}, {5, 50}});
        addShot(picks, 2, 20, {{10, 75}});
        return picks;
    }

    void draw(RecordStyle style, TraceSpacing spacing, std::optional<std::size_t> shot)
    {
        RecordPlotOptions options;
        options.style = style;
        options.spacing = spacing;
        options.shot = shot;
        options.palette = paperPalette();
        drawRecord(*plot, shared(recordOfTwoShots()), options);
        drawRecordPicks(*plot, picksOn(recordOfTwoShots(), survey()), orange);
        showWholeRecord(*plot);
        picture = plot->toPixmap(600, 400).toImage();
    }

    QColor colourAt(double place, double time) const
    {
        return picture.pixelColor(pixelOf(*plot->axisRect(), place, time));
    }

    std::unique_ptr<QCustomPlot> plot;
    QImage picture;
};

template struct WindowTests<ViewRecordPicksTest>;

#include "view_record_picks_test.moc"
