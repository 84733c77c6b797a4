// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_records.h"
#include "view/record_gain.h"
#include "view/record_rows.h"

#include <gtest/gtest.h>

namespace {

using Floats = std::vector<float>;

/// The amplitudes of all samples of a trace of the layout.
Floats amplitudesOf(const RecordDrawing &drawing, std::size_t index)
{
    const Floats &samples = drawing.record->traces[drawing.layout.traces[index].trace].samples;
    Floats amplitudes;
    findAmplitudes(samples, drawing.gains[index], 0, samples.size(), amplitudes);
    return amplitudes;
}

Floats amplitudesOf(const Floats &samples, const RecordPlotOptions &options)
{
    return amplitudesOf(makeDrawing(shared(recordOf({drawnTrace(samples)})), options), 0);
}

RecordPlotOptions withWindow(double milliseconds)
{
    RecordPlotOptions options;
    options.gain = RecordGain::automatic;
    options.gainWindow = milliseconds;
    return options;
}

/// Compares to six digits; NaN is NaN.
void expectNear(const Floats &amplitudes, const Floats &expected)
{
    ASSERT_EQ(amplitudes.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (std::isnan(expected[i])) {
            EXPECT_TRUE(std::isnan(amplitudes[i])) << i;
        } else {
            EXPECT_NEAR(amplitudes[i], expected[i], 1e-6F) << i;
        }
    }
}

TEST(ViewRecordGain, ByTraceTheLargestIsOne)
{
    EXPECT_EQ(amplitudesOf({1.0F, -4.0F, 2.0F}, {}), (Floats{0.25F, -1.0F, 0.5F}));
    EXPECT_EQ(amplitudesOf({0.0F, 0.0F}, {}), (Floats{0.0F, 0.0F}));
    expectNear(amplitudesOf({notANumber, -2.0F, 1.0F}, {}), {notANumber, -1.0F, 0.5F});
}

TEST(ViewRecordGain, ClippingEnlargesAndCutsOff)
{
    RecordPlotOptions options;
    options.clipping = 0.5;
    EXPECT_EQ(amplitudesOf({1.0F, -4.0F, 2.0F, 3.0F}, options), (Floats{0.5F, -1.0F, 1.0F, 1.0F}));
    options.clipping = 0.25;
    EXPECT_EQ(amplitudesOf({1.0F, -4.0F, 0.5F}, options), (Floats{1.0F, -1.0F, 0.5F}));
}

TEST(ViewRecordGain, ByRecordTheLargestOfAllLiveTracesIsOne)
{
    DrawnTrace dead = drawnTrace({100.0F, 50.0F});
    dead.isDead = true;
    RecordData record = recordOf({drawnTrace({1.0F, -4.0F}), drawnTrace({8.0F, 2.0F}), dead});
    record.shots = {{0, 1}, {1, 2}};
    RecordPlotOptions options;
    options.gain = RecordGain::byRecord;
    const RecordDrawing all = makeDrawing(shared(record), options);
    EXPECT_EQ(amplitudesOf(all, 0), (Floats{0.125F, -0.5F}));
    EXPECT_EQ(amplitudesOf(all, 1), (Floats{1.0F, 0.25F}));
    EXPECT_EQ(amplitudesOf(all, 2), (Floats{1.0F, 0.5F})); // its own, so that it stays in place
    options.shot = 0;                                      // the other shot is not drawn
    EXPECT_EQ(amplitudesOf(makeDrawing(shared(record), options), 0), (Floats{0.25F, -1.0F}));
}

TEST(ViewRecordGain, AutomaticGainDividesByThreeTimesTheMeanOfItsWindow)
{
    // Windows of 2 ms: a sample and its neighbours. The third's: the root of (9 + 9 + 0) / 3.
    expectNear(amplitudesOf({3.0F, 3.0F, 3.0F, 0.0F, 0.0F, 2.0F}, withWindow(2.0)),
               {1.0F / 3.0F, 1.0F / 3.0F, 0.4082483F, 0.0F, 0.0F, 0.4714045F});
    // Of 0 ms: the sample alone.
    expectNear(amplitudesOf({5.0F, -7.0F}, withWindow(0.0)), {1.0F / 3.0F, -1.0F / 3.0F});
    // Longer than the trace: the root of (1 + 4 + 4) / 3.
    expectNear(amplitudesOf({1.0F, -2.0F, 2.0F}, withWindow(1000.0)),
               {0.1924501F, -0.3849002F, 0.3849002F});
}

TEST(ViewRecordGain, AutomaticGainForgetsWhatItsWindowHasPassed)
{
    expectNear(amplitudesOf({1e9F, 0.0F, 0.0F, 1e-3F, 1e-3F, 1e-3F}, withWindow(2.0)),
               {0.4714045F, 0.0F, 0.0F, 0.4082483F, 1.0F / 3.0F, 1.0F / 3.0F});
}

TEST(ViewRecordGain, AutomaticGainPassesOverSamplesThatAreNone)
{
    expectNear(amplitudesOf({notANumber, 2.0F, 2.0F, 2.0F, notANumber}, withWindow(2.0)),
               {notANumber, 1.0F / 3.0F, 1.0F / 3.0F, 1.0F / 3.0F, notANumber});
}

TEST(ViewRecordGain, APartOfATraceHasTheAmplitudesOfTheWhole)
{
    const Floats samples = {5.0F, -1.0F, 4.0F, 2.0F, -3.0F, 1.0F, 6.0F};
    for (const double window : {0.0, 2.0, 4.0, 20.0}) {
        const RecordDrawing drawing =
            makeDrawing(shared(recordOf({drawnTrace(samples)})), withWindow(window));
        const Floats whole = amplitudesOf(drawing, 0);
        for (std::size_t first = 0; first < samples.size(); ++first) {
            Floats part;
            findAmplitudes(samples, drawing.gains[0], first, samples.size(), part);
            expectNear(part,
                       Floats(whole.begin() + static_cast<std::ptrdiff_t>(first), whole.end()));
        }
    }
}

TEST(ViewRecordRows, EachHasTheLeastAndTheGreatestAmplitude)
{
    const RecordDrawing drawing = makeDrawing(
        shared(recordOf({drawnTrace({1.0F, -4.0F, 2.0F, 3.0F, notANumber, notANumber, -2.0F})})),
        {});
    std::vector<RowRange> rows;
    Floats amplitudes;
    reduceToRows(drawing, 0, {0.0, 2.0, 5}, rows, amplitudes);
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0].least, -1.0F);
    EXPECT_EQ(rows[0].greatest, 0.25F);
    EXPECT_EQ(rows[1].least, 0.5F);
    EXPECT_EQ(rows[1].greatest, 0.75F);
    EXPECT_TRUE(isEmpty(rows[2]));
    EXPECT_EQ(rows[3].least, -0.5F);
    EXPECT_EQ(rows[3].greatest, -0.5F);
    EXPECT_TRUE(isEmpty(rows[4]));
    // Rows that begin before the trace, and within it.
    reduceToRows(drawing, 0, {-4.0, 2.0, 3}, rows, amplitudes);
    EXPECT_TRUE(isEmpty(rows[1]));
    EXPECT_EQ(rows[2].least, -1.0F);
    reduceToRows(drawing, 0, {3.0, 1.0, 1}, rows, amplitudes);
    EXPECT_EQ(rows[0].least, 0.75F);
}

} // namespace
