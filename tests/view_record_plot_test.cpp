// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_plot.h"
#include "tests/support/view_records.h"
#include "tests/support/window.h"
#include "view/colours.h"
#include "view/plot_title.h"
#include "view/record_colours.h"
#include "view/record_plot.h"
#include "view/record_plottable.h"

#include <QTest>

namespace {

RecordPlotOptions drawnAs(RecordStyle style)
{
    RecordPlotOptions options;
    options.style = style;
    options.palette = paperPalette();
    return options;
}

QPalette darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(20, 20, 20));
    palette.setColor(QPalette::Text, QColor(230, 230, 230));
    return palette;
}

const QColor white(255, 255, 255);
const QColor black(0, 0, 0);
const QColor middleGrey(128, 128, 128);

} // namespace

class ViewRecordPlotTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        prepareTest();
        plot = std::make_unique<QCustomPlot>();
        plot->resize(600, 400);
    }

    void wigglesHaveFilledPeaks()
    {
        draw(recordOf({drawnTrace(peakAndTrough()), drawnTrace(peakAndTrough(-1.0F))}),
             drawnAs(RecordStyle::wiggles));
        QCOMPARE(colourAt(1.4, 50), black); // 0.8 of the spacing is the largest
        QCOMPARE(colourAt(1.9, 50), white);
        QCOMPARE(colourAt(0.8, 50), white);
        QCOMPARE(colourAt(0.8, 75), white); // a trough is not filled
        QCOMPARE(colourAt(1.2, 75), white);
        QCOMPARE(colourAt(1.4, 30), white);
        QCOMPARE(colourAt(2.2, 75), black);
        QCOMPARE(colourAt(2.2, 50), white);
        // Its line is there.
        QVERIFY(hasDarkPixel(0.6, 75));
        QVERIFY(hasDarkPixel(1.2, 50));
        QVERIFY(hasDarkPixel(1.0, 20));
        QVERIFY(!hasDarkPixel(1.5, 20));
    }

    void densityIsDarkWhereTheAmplitudeIs()
    {
        draw(recordOf({drawnTrace(peakAndTrough()), drawnTrace(peakAndTrough(-1.0F))}),
             drawnAs(RecordStyle::density));
        QCOMPARE(colourAt(1.0, 50), black);
        QCOMPARE(colourAt(0.6, 50), black);
        QCOMPARE(colourAt(1.4, 50), black);
        QCOMPARE(colourAt(1.6, 50), white);
        QVERIFY(isNear(colourAt(1.0, 20), middleGrey, 4));
        QVERIFY(isNear(colourAt(1.0, 75), QColor(191, 191, 191), 4)); // half a trough
        QVERIFY(isNear(colourAt(2.0, 75), QColor(64, 64, 64), 4));
    }

    void clippingDarkens()
    {
        RecordPlotOptions options = drawnAs(RecordStyle::density);
        options.clipping = 0.5;
        draw(recordOf({drawnTrace(peakAndTrough())}), options);
        QCOMPARE(colourAt(1.0, 50), black);
        QCOMPARE(colourAt(1.0, 75), white);
        options = drawnAs(RecordStyle::wiggles);
        draw(recordOf({drawnTrace(peakAndTrough(-1.0F))}), options);
        QCOMPARE(colourAt(1.5, 75), white); // half a peak
        options.clipping = 0.5;
        draw(recordOf({drawnTrace(peakAndTrough(-1.0F))}), options);
        QCOMPARE(colourAt(1.5, 75), black);
    }

    void gainByRecordKeepsRelations()
    {
        const RecordData record =
            recordOf({drawnTrace(peakAndTrough()), drawnTrace(peakAndTrough(10.0F))});
        RecordPlotOptions options = drawnAs(RecordStyle::density);
        draw(record, options);
        QCOMPARE(colourAt(1.0, 50), black);
        options.gain = RecordGain::byRecord;
        draw(record, options);
        QVERIFY(isNear(colourAt(1.0, 50), QColor(115, 115, 115), 4)); // a tenth
        QCOMPARE(colourAt(2.0, 50), black);
    }

    void darkThemesAreReadable()
    {
        for (const RecordStyle style : {RecordStyle::wiggles, RecordStyle::density}) {
            RecordPlotOptions options = drawnAs(style);
            options.palette = darkPalette();
            draw(recordOf({drawnTrace(peakAndTrough())}), options);
            QCOMPARE(colourAt(1.3, 50), QColor(230, 230, 230));
            QCOMPARE(picture.pixelColor(2, 2), QColor(20, 20, 20));
            QCOMPARE(plot->xAxis->labelColor(), QColor(230, 230, 230));
        }
    }

    void deadTracesHaveAColourOfTheirOwn()
    {
        DrawnTrace dead = drawnTrace(peakAndTrough());
        dead.isDead = true;
        const RecordData record = recordOf({drawnTrace(peakAndTrough()), dead});
        draw(record, drawnAs(RecordStyle::density));
        QCOMPARE(colourAt(2.0, 20), deadColour());
        QCOMPARE(colourAt(2.0, 50), deadColour());
        draw(record, drawnAs(RecordStyle::wiggles));
        QCOMPARE(colourAt(2.4, 50), deadColour());
        QCOMPARE(colourAt(1.4, 50), black);
        QCOMPARE(titleOf(*plot), "line.su: 2 traces, 1 dead");
    }

    void samplesThatAreNoNumbersAreGaps()
    {
        std::vector<float> samples = peakAndTrough();
        std::fill_n(samples.begin() + 45, 11, notANumber);
        const RecordData record = recordOf({drawnTrace(samples)});
        draw(record, drawnAs(RecordStyle::density));
        QCOMPARE(colourAt(1.0, 50), white);
        QCOMPARE(colourAt(1.0, 42), black);
        QCOMPARE(colourAt(1.0, 58), black);
        draw(record, drawnAs(RecordStyle::wiggles));
        QVERIFY(!hasDarkPixel(1.0, 50));
        QVERIFY(!hasDarkPixel(1.4, 50));
        QCOMPARE(colourAt(1.4, 42), black);
        QCOMPARE(colourAt(1.4, 58), black);
    }

    void tracesBeginAtTheirDelays()
    {
        RecordData record = recordOf({drawnTrace(peakAndTrough()), drawnTrace(peakAndTrough())});
        record.traces[1].delay = 0.05;
        for (const RecordStyle style : {RecordStyle::wiggles, RecordStyle::density}) {
            draw(record, drawnAs(style));
            QCOMPARE(rangeOf(*plot->yAxis), "0,150");
            QVERIFY(plot->yAxis->rangeReversed());
            QCOMPARE(colourAt(1.2, 50), black);
            QCOMPARE(colourAt(2.2, 100), black);
            QCOMPARE(colourAt(2.2, 40), white); // before it begins
            QCOMPARE(colourAt(1.2, 120), white);
        }
    }

    void tracesAreByNumberOrByPosition()
    {
        const RecordData record =
            recordOf({drawnTraceAt(30, peakAndTrough()), drawnTraceAt(10, peakAndTrough(-1.0F)),
                      drawnTraceAt(20, peakAndTrough(-1.0F))});
        RecordPlotOptions options = drawnAs(RecordStyle::density);
        draw(record, options);
        QCOMPARE(plot->xAxis->label(), "Trace");
        QCOMPARE(plot->yAxis->label(), "Time (ms)");
        QCOMPARE(rangeOf(*plot->xAxis), "0.5,3.5");
        QCOMPARE(rangeOf(*plot->yAxis), "0,100");
        QCOMPARE(colourAt(1, 50), black);
        QCOMPARE(colourAt(3, 50), white);
        options.spacing = TraceSpacing::byPosition;
        draw(record, options);
        QCOMPARE(plot->xAxis->label(), "Position (m)");
        QCOMPARE(rangeOf(*plot->xAxis), "5,35");
        QCOMPARE(colourAt(30, 50), black);
        QCOMPARE(colourAt(10, 50), white);
        options.style = RecordStyle::wiggles;
        draw(record, options);
        QCOMPARE(rangeOf(*plot->xAxis), "1.5,38.5"); // 0.85 of the spacing beside them
        QCOMPARE(colourAt(34, 50), black);
        options.spacing = TraceSpacing::byNumber;
        draw(record, options);
        QCOMPARE(plot->xAxis->label(), "Trace");
    }

    void tracesAtOnePlaceLieOnEachOther()
    {
        RecordPlotOptions options = drawnAs(RecordStyle::density);
        options.spacing = TraceSpacing::byPosition;
        std::vector<float> early(101, 0.0F);
        std::fill_n(early.begin() + 10, 11, 1.0F);
        draw(recordOf({drawnTraceAt(5, early), drawnTraceAt(5, peakAndTrough())}), options);
        QCOMPARE(rangeOf(*plot->xAxis), "4.5,5.5");
        QCOMPARE(colourAt(5, 15), black);
        QCOMPARE(colourAt(5, 50), black);
        QVERIFY(isNear(colourAt(5, 30), middleGrey, 4));
    }

    void manyTracesAreADensityUntilFewAreInView()
    {
        const std::vector<DrawnTrace> many(301, drawnTrace({1.0F, -1.0F}));
        draw(recordOf({many.begin(), many.end() - 1}), drawnAs(RecordStyle::automatic));
        QCOMPARE(recordOn(*plot)->styleInView(), RecordStyle::wiggles);
        draw(recordOf(many), drawnAs(RecordStyle::automatic));
        QCOMPARE(recordOn(*plot)->styleInView(), RecordStyle::density);
        plot->xAxis->setRange(50, 100);
        QCOMPARE(recordOn(*plot)->styleInView(), RecordStyle::wiggles);
        QCOMPARE(plot->plottableCount(), 1);
    }

    void denseScreensShowMore()
    {
        // Two traces a pixel: of these the stronger one, the peak, is seen.
        std::vector<DrawnTrace> traces;
        for (int i = 0; i < 2000; ++i)
            traces.push_back(drawnTrace(i % 2 == 0
                                            ? std::vector<float>{1.0F, 1.0F, 1.0F, 0.5F}
                                            : std::vector<float>{-0.9F, -0.9F, -0.9F, 1.0F}));
        RecordPlotOptions options = drawnAs(RecordStyle::density);
        draw(recordOf(traces), options);
        plot->xAxis->setRange(0.5, 0.5 + 2.0 * plot->axisRect()->width());
        const auto lightPixels = [this](double scale) {
            const QImage image = plot->toPixmap(600, 400, scale).toImage();
            const int y = static_cast<int>(scale * plot->yAxis->coordToPixel(1.0));
            int count = 0;
            for (int x = 0; x < plot->axisRect()->width() - 20; ++x) {
                const double left = scale * (plot->axisRect()->left() + 10);
                count += image.pixelColor(static_cast<int>(left) + x, y).lightness() > 200 ? 1 : 0;
            }
            return count;
        };
        QCOMPARE(lightPixels(1.0), 0);
        QVERIFY(lightPixels(2.0) > 200);
    }

    void titlesSayWhatIsDrawn()
    {
        RecordData record = recordOf({drawnTraceAt(0, {1.0F, 2.0F}), drawnTraceAt(5, {1.0F, 2.0F}),
                                      drawnTrace({1.0F, 2.0F})});
        draw(record, {});
        QCOMPARE(titleOf(*plot), "line.su: 3 traces");
        record.shots = {{0, 3, 7, ReceiverPosition{-2.5, 0.0}}};
        RecordPlotOptions options;
        options.spacing = TraceSpacing::byPosition;
        draw(record, options);
        QCOMPARE(titleOf(*plot), "line.su: shot 7 at -2.5 m, 3 traces, 1 without a position");
        record.shots = {{0, 1, 7}, {1, 2, {}, ReceiverPosition{40.0001, 0.0}}};
        record.traces[2].sampleInterval = 0.0;
        draw(record, {});
        QCOMPARE(titleOf(*plot), "line.su: 2 shots, 3 traces, 1 without an interval");
        options.spacing = TraceSpacing::byNumber;
        options.shot = 0;
        draw(record, options);
        QCOMPARE(titleOf(*plot), "line.su: shot 7, 1 trace");
        options.shot = 1;
        draw(record, options);
        QCOMPARE(titleOf(*plot), "line.su: shot at 40 m, 2 traces, 1 without an interval");
        QCOMPARE(plot->plotLayout()->elementCount(), 2); // the title and the axes
    }

    void oneTraceAndOneSampleAndNoneAreDrawn()
    {
        for (const RecordStyle style : {RecordStyle::wiggles, RecordStyle::density}) {
            draw(recordOf({drawnTrace({3.0F})}), drawnAs(style));
            QCOMPARE(rangeOf(*plot->yAxis), "-0.5,0.5");
            QCOMPARE(titleOf(*plot), "line.su: 1 trace");
            draw(recordOf({drawnTrace({})}), drawnAs(style));
            QCOMPARE(titleOf(*plot), "line.su: 1 trace");
            draw(recordOf({}), drawnAs(style));
            QCOMPARE(titleOf(*plot), "line.su: 0 traces");
            QVERIFY(!hasDarkPixelInside());
        }
        draw(recordOf({drawnTrace({3.0F})}), drawnAs(RecordStyle::density));
        QCOMPARE(colourAt(1.0, 0.2), black);
    }

    void samplesWithoutTimesAreCounted()
    {
        DrawnTrace trace = drawnTrace(peakAndTrough());
        trace.sampleInterval = 0.0;
        draw(recordOf({trace}), drawnAs(RecordStyle::density));
        QCOMPARE(plot->yAxis->label(), "Sample");
        QCOMPARE(rangeOf(*plot->yAxis), "1,101");
        QCOMPARE(colourAt(1.0, 51), black);
    }

    void otherOptionsLeaveTheViewAlone()
    {
        const auto record = shared(recordOf({drawnTrace(peakAndTrough())}));
        draw(*record, drawnAs(RecordStyle::wiggles));
        plot->xAxis->setRange(1.0, 1.5);
        plot->yAxis->setRange(20.0, 60.0);
        drawRecord(*plot, record, drawnAs(RecordStyle::density));
        QCOMPARE(rangeOf(*plot->xAxis), "1,1.5");
        QCOMPARE(rangeOf(*plot->yAxis), "20,60");
        showWholeRecord(*plot);
        QCOMPARE(rangeOf(*plot->xAxis), "0.5,1.5");
        QCOMPARE(rangeOf(*plot->yAxis), "0,100");
    }

    void numbersHaveAPointWhateverTheLocale()
    {
        plot->setLocale(QLocale("de_DE"));
        draw(recordOf({drawnTrace({1.0F, 2.0F})}), {});
        plot->yAxis->setRange(0.1, 0.3);
        plot->replot();
        QVERIFY(plot->yAxis->tickVectorLabels().contains("0.15"));
    }

    void ticksAreWholeTracesOrPlacesToTheCentimetre()
    {
        RecordPlotOptions options;
        draw(recordOf({drawnTraceAt(180081.25, peakAndTrough())}), options);
        QCOMPARE(plot->xAxis->tickVectorLabels().join(' ').trimmed(), "1");
        options.spacing = TraceSpacing::byPosition;
        draw(recordOf({drawnTraceAt(180081.25, peakAndTrough())}), options);
        plot->xAxis->setRange(180081.21, 180081.27);
        plot->replot();
        QVERIFY(plot->xAxis->tickVectorLabels().contains("180081.24"));
    }

private:
    void draw(const RecordData &record, const RecordPlotOptions &options)
    {
        drawRecord(*plot, shared(record), options);
        showWholeRecord(*plot);
        picture = plot->toPixmap(600, 400).toImage();
    }

    QColor colourAt(double place, double time) const
    {
        return picture.pixelColor(pixelOf(*plot->axisRect(), place, time));
    }

    /// Whether a line is within two pixels.
    bool hasDarkPixel(double place, double time) const
    {
        const QPoint middle = pixelOf(*plot->axisRect(), place, time);
        for (int x = -2; x <= 2; ++x)
            if (picture.pixelColor(middle + QPoint(x, 0)).lightness() < 160)
                return true;
        return false;
    }

    /// Away from the axes and their ticks.
    bool hasDarkPixelInside() const
    {
        const QRect inside = plot->axisRect()->rect().adjusted(20, 20, -20, -20);
        for (int x = inside.left(); x < inside.right(); ++x)
            for (int y = inside.top(); y < inside.bottom(); ++y)
                if (picture.pixelColor(x, y).lightness() < 100)
                    return true;
        return false;
    }

    std::unique_ptr<QCustomPlot> plot;
    QImage picture;
};

template struct WindowTests<ViewRecordPlotTest>;

#include "view_record_plot_test.moc"
