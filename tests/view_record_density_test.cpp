// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_records.h"
#include "view/record_density.h"
#include "view/record_wiggles.h"

#include <gtest/gtest.h>

namespace {

using Shades = std::vector<std::uint8_t>;

RecordDrawing drawingOf(const std::vector<DrawnTrace> &traces)
{
    return makeDrawing(shared(recordOf(traces)), {});
}

/// Columns of `width` traces from `firstColumn` widths on, rows of `height` ms.
Shades shadesOf(const RecordDrawing &drawing, const DensityGrid &grid)
{
    RecordDensity density;
    showGrid(density, drawing, grid);
    return density.shades;
}

TEST(ViewRecordDensity, APixelShowsTheStrongestOfItsSamples)
{
    // Columns from 0 to 4 and 4 to 8, rows of 2 ms; the largest is 4.
    const RecordDrawing drawing =
        drawingOf({drawnTrace({1.0F, 2.0F, -4.0F, 1.0F}), drawnTrace({0.0F, -2.0F, 4.0F, 4.0F}),
                   drawnTrace({0.0F, 0.0F, 0.0F, 4.0F}), drawnTrace({-4.0F, 0.0F, 0.0F, 2.0F})});
    const DensityGrid grid = {4.0, 2.0, 0.0, 0.0, 2, 3};
    const Shades shades = shadesOf(drawing, grid);
    ASSERT_EQ(shades.size(), 6U);
    EXPECT_EQ(std::abs(shades[0] - 128), 63); // 2 and -2 of 4: both are halves
    EXPECT_EQ(shades[1], 254);                // the last of the strongest, 4
    EXPECT_EQ(shades[2], noShade);
    EXPECT_EQ(shades[3], 2); // -4
    EXPECT_EQ(shades[4], 191);
    EXPECT_EQ(shades[5], noShade);
}

TEST(ViewRecordDensity, WideTracesAndLongSamplesFillTheirPixels)
{
    // Columns of a quarter of a trace, rows of half a millisecond, from trace 0.5 and -1 ms on.
    const RecordDrawing drawing = drawingOf({drawnTrace({4.0F, -4.0F}), drawnTrace({2.0F, 4.0F})});
    const Shades shades = shadesOf(drawing, {0.25, 0.5, 2.0, -2.0, 8, 8});
    const Shades first = {0, 254, 254, 2, 2, 0, 0, 0};
    const Shades second = {0, 191, 191, 254, 254, 0, 0, 0};
    for (std::size_t column = 0; column < 8; ++column) {
        const Shades rows(shades.begin() + static_cast<std::ptrdiff_t>(8 * column),
                          shades.begin() + static_cast<std::ptrdiff_t>(8 * column + 8));
        EXPECT_EQ(rows, column < 4 ? first : second) << column;
    }
}

TEST(ViewRecordDensity, DeadTracesAreWeakerThanAll)
{
    DrawnTrace dead = drawnTrace({5.0F, 5.0F, 5.0F});
    dead.isDead = true;
    const RecordDrawing drawing = drawingOf({dead, drawnTrace({0.0F, notANumber, 1.0F})});
    EXPECT_EQ(shadesOf(drawing, {4.0, 1.0, 0.0, 0.0, 1, 4}),
              (Shades{middleShade, deadShade, greatestShade, noShade}));
}

TEST(ViewRecordDensity, AGridThatMovesKeepsItsPixels)
{
    std::vector<DrawnTrace> traces;
    for (int i = 0; i < 40; ++i) {
        std::vector<float> samples;
        for (int k = 0; k < 60; ++k)
            samples.push_back(static_cast<float>((i * 37 + k * 53) % 101 - 50));
        traces.push_back(drawnTrace(samples));
    }
    const RecordDrawing drawing = drawingOf(traces);
    const DensityGrid start = {1.5, 2.0, 5.0, 8.0, 12, 10};
    for (const double right : {-20.0, -3.0, 0.0, 1.0, 11.0, 30.0}) {
        for (const double down : {-15.0, -2.0, 0.0, 3.0, 9.0, 40.0}) {
            RecordDensity density;
            showGrid(density, drawing, start);
            DensityGrid moved = start;
            moved.firstColumn += right;
            moved.firstRow += down;
            showGrid(density, drawing, moved);
            EXPECT_EQ(density.shades, shadesOf(drawing, moved)) << right << ' ' << down;
        }
    }
    // Of another size all of it is new.
    RecordDensity density;
    showGrid(density, drawing, start);
    DensityGrid enlarged = start;
    enlarged.columnWidth = 0.75;
    showGrid(density, drawing, enlarged);
    EXPECT_EQ(density.shades, shadesOf(drawing, enlarged));
}

TEST(ViewRecordDensity, AGridThatMovesLooksAtNewPixelsAlone)
{
    RecordDensity density;
    const DensityGrid grid = {1.0, 1.0, 1.0, 0.0, 4, 4};
    showGrid(density, drawingOf(std::vector(8, drawnTrace({1.0F, 1.0F, 1.0F, 0.0F}))), grid);
    // Another drawing: what was kept is seen.
    const RecordDrawing other = drawingOf(std::vector(8, drawnTrace({-1.0F, -1.0F, -1.0F, 0.0F})));
    DensityGrid moved = grid;
    moved.firstColumn = 2.0;
    showGrid(density, other, moved);
    EXPECT_EQ(density.shades,
              (Shades{254, 254, 254, 128, 254, 254, 254, 128, 254, 254, 254, 128, 2, 2, 2, 128}));
}

TEST(ViewRecordDensity, EdgesAreAtMultiplesOfAPixel)
{
    const DensityGrid grid = gridOver(2.6, -3.0, 0.5, 2.0, 10, 20, {});
    EXPECT_EQ(grid.firstColumn, 5.0);
    EXPECT_EQ(grid.firstRow, -2.0);
    EXPECT_EQ(grid.columns, 10U);
    EXPECT_EQ(grid.rows, 20U);
    // A size that differs by its last digits alone stays as it was.
    EXPECT_EQ(gridOver(2.6, 0.0, 0.5 + 1e-12, 2.0, 10, 20, grid).columnWidth, 0.5);
    EXPECT_EQ(gridOver(2.6, 0.0, 0.51, 2.0, 10, 20, grid).columnWidth, 0.51);
}

/// "x,y x,y".
std::string textOf(const QPolygonF &polygon)
{
    QStringList points;
    for (const QPointF &point : polygon)
        points += QString("%1,%2").arg(point.x()).arg(point.y());
    return points.join(' ').toStdString();
}

std::vector<std::string> peaksOf(const QPolygonF &line)
{
    std::vector<QPolygonF> peaks;
    addPeaks(line, peaks);
    std::vector<std::string> texts;
    for (const QPolygonF &peak : peaks)
        texts.push_back(textOf(peak));
    return texts;
}

TEST(ViewRecordWiggles, PeaksBeginAndEndOnTheAxis)
{
    using Texts = std::vector<std::string>;
    EXPECT_EQ(peaksOf({{-1, 0}, {1, 2}, {-1, 4}}), (Texts{"0,1 1,2 0,3"}));
    EXPECT_EQ(peaksOf({{1, 0}, {1, 1}}), (Texts{"0,0 1,0 1,1 0,1"}));
    EXPECT_EQ(peaksOf({{0, 0}, {1, 1}, {0, 2}, {2, 3}, {-2, 5}}),
              (Texts{"0,0 1,1 0,2", "0,2 2,3 0,4"}));
    EXPECT_EQ(peaksOf({{-1, 0}, {0, 1}, {-2, 2}}), Texts{});
    EXPECT_EQ(peaksOf({}), Texts{});
}

TEST(ViewRecordWiggles, SamplesApartArePointsAndThoseCloseTogetherRows)
{
    const RecordDrawing drawing = drawingOf({drawnTrace(
        {0.0F, 1.0F, -2.0F, 4.0F, notANumber, 2.0F, 2.0F, 2.0F, 0.0F, -4.0F, 1.0F, 1.0F})});
    const Wiggle samples = wiggleOf(drawing, 0, {1.5, 0.5, 10});
    // In view from 1.5 to 6.5 ms, with a sample more at each end.
    ASSERT_EQ(samples.lines.size(), 2U);
    EXPECT_EQ(textOf(samples.lines[0]), "0.25,1 -0.5,2 1,3");
    EXPECT_EQ(textOf(samples.lines[1]), "0.5,5 0.5,6 0.5,7");
    const Wiggle rows = wiggleOf(drawing, 0, {0.0, 4.0, 4});
    ASSERT_EQ(rows.lines.size(), 1U);
    EXPECT_EQ(textOf(rows.lines[0]), "-0.5,2 1,2 0.5,6 -1,10 0.25,10");
    EXPECT_EQ(rows.peaks.size(), 2U);
}

} // namespace
