// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_plottable.h"

#include "view/record_colours.h"
#include "view/record_wiggles.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// The part of its spacing that a trace's largest amplitude takes on either side.
constexpr double largestExcursion = 0.8;

/// Pixels of what is painted on for each one of the plot: more than one on dense screens and in
/// enlarged pictures, and twice as many in drawings of lines, which may be enlarged later.
double pixelScale(const QCPPainter &painter)
{
    if (painter.modes().testFlag(QCPPainter::pmVectorized))
        return 2.0;
    return std::clamp(painter.deviceTransform().m11(), 1.0, 8.0);
}

QCPRange rangeOf(const Range &range, double margin, bool &isFound)
{
    isFound = !isEmpty(range);
    return isFound ? QCPRange(range.least - margin, range.greatest + margin) : QCPRange();
}

/// The traces of a layout that may reach into view, from the first to before the last.
std::pair<std::size_t, std::size_t> tracesIn(const QCPRange &view, const RecordLayout &layout)
{
    const auto before = [](const PlacedTrace &trace, double place) { return trace.place < place; };
    const auto find = [&](double place) {
        const auto found =
            std::lower_bound(layout.traces.begin(), layout.traces.end(), place, before);
        return static_cast<std::size_t>(found - layout.traces.begin());
    };
    return {find(view.lower - layout.spacing), find(view.upper + layout.spacing)};
}

/// The rows of pixels of an axis of time.
PixelRows rowsOf(const QCPAxis &axis, double height, double scale)
{
    const double rows = std::max(1.0, std::ceil(height * scale));
    return {axis.range().lower, axis.range().size() / (height * scale),
            static_cast<std::size_t>(rows)};
}

} // namespace

RecordPlottable::RecordPlottable(QCPAxis *placeAxis, QCPAxis *timeAxis)
    : QCPAbstractPlottable(placeAxis, timeAxis)
{
    setSelectable(QCP::stNone);
}

void RecordPlottable::setRecord(std::shared_ptr<const RecordData> record,
                                const RecordPlotOptions &options)
{
    shown = makeDrawing(std::move(record), options);
    density = {};
    places.assign(shown.record->traces.size(), {});
    for (const PlacedTrace &trace : shown.layout.traces)
        places[trace.trace] = trace.place;
}

const RecordDrawing &RecordPlottable::drawing() const
{
    return shown;
}

RecordStyle RecordPlottable::styleInView() const
{
    if (shown.options.style != RecordStyle::automatic)
        return shown.options.style;
    const auto [first, end] = tracesIn(mKeyAxis->range(), shown.layout);
    return end - first > mostWiggles ? RecordStyle::density : RecordStyle::wiggles;
}

std::optional<double> RecordPlottable::placeOf(std::size_t trace) const
{
    return trace < places.size() ? places[trace] : std::nullopt;
}

double RecordPlottable::selectTest(const QPointF & /*position*/, bool /*onlySelectable*/,
                                   QVariant * /*details*/) const
{
    return -1.0;
}

QCPRange RecordPlottable::getKeyRange(bool &isFound, QCP::SignDomain /*domain*/) const
{
    const bool isDense = shown.options.style == RecordStyle::density
                         || (shown.options.style == RecordStyle::automatic
                             && shown.layout.traces.size() > mostWiggles);
    return rangeOf(shown.layout.places, shown.layout.spacing * (isDense ? 0.5 : 0.85), isFound);
}

QCPRange RecordPlottable::getValueRange(bool &isFound, QCP::SignDomain /*domain*/,
                                        const QCPRange & /*keys*/) const
{
    const Range &times = shown.layout.times;
    // A single sample has no duration.
    return rangeOf(times, times.least < times.greatest ? 0.0 : 0.5, isFound);
}

void RecordPlottable::draw(QCPPainter *painter)
{
    if (!shown.record || shown.layout.traces.empty() || clipRect().isEmpty())
        return;
    if (styleInView() == RecordStyle::density)
        drawDensity(painter);
    else
        drawWiggles(painter);
}

void RecordPlottable::drawLegendIcon(QCPPainter *painter, const QRectF &area) const
{
    painter->fillRect(area, shown.options.palette.color(QPalette::Text));
}

void RecordPlottable::drawDensity(QCPPainter *painter)
{
    const QRectF area = clipRect();
    const double scale = pixelScale(*painter);
    const QCPRange view = mKeyAxis->range();
    const PixelRows rows = rowsOf(*mValueAxis, area.height(), scale);
    const double columns = std::ceil(area.width() * scale);
    // One column and one row more, as the first ones may begin outside of the plot.
    const DensityGrid grid =
        gridOver(view.lower, rows.start, view.size() / (area.width() * scale), rows.step,
                 static_cast<std::size_t>(columns) + 1, rows.count + 1, density.grid);
    showGrid(density, shown, grid);
    const auto pixels = [](double distance, double step) { return std::round(distance / step); };
    const double left = pixels(grid.firstColumn * grid.columnWidth - view.lower, grid.columnWidth);
    const double top = pixels(grid.firstRow * grid.rowHeight - rows.start, grid.rowHeight);
    const QImage image = imageOf(density, shown.options.palette);
    painter->drawImage(QRectF(area.left() + left / scale, area.top() + top / scale,
                              image.width() / scale, image.height() / scale),
                       image);
}

void RecordPlottable::drawWiggles(QCPPainter *painter) const
{
    const PixelRows rows = rowsOf(*mValueAxis, clipRect().height(), pixelScale(*painter));
    const auto [first, end] = tracesIn(mKeyAxis->range(), shown.layout);
    for (std::size_t index = first; index < end; ++index)
        drawWiggle(painter, index, rows);
}

void RecordPlottable::drawWiggle(QCPPainter *painter, std::size_t index,
                                 const PixelRows &rows) const
{
    const PlacedTrace &trace = shown.layout.traces[index];
    const bool isDead = shown.record->traces[trace.trace].isDead;
    const QColor colour = isDead ? deadColour() : shown.options.palette.color(QPalette::Text);
    const double excursion = largestExcursion * shown.layout.spacing;
    const auto toPixels = [&](QPolygonF &polygon) {
        for (QPointF &point : polygon)
            point = coordsToPixels(trace.place + excursion * point.x(), point.y());
    };
    Wiggle wiggle = wiggleOf(shown, index, rows);
    applyFillAntialiasingHint(painter);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour);
    for (QPolygonF &peak : wiggle.peaks) {
        toPixels(peak);
        painter->drawPolygon(peak);
    }
    applyDefaultAntialiasingHint(painter);
    painter->setPen(QPen(colour, isDead ? 2.0 : 1.0, isDead ? Qt::DashLine : Qt::SolidLine));
    painter->setBrush(Qt::NoBrush);
    for (QPolygonF &line : wiggle.lines) {
        toPixels(line);
        painter->drawPolyline(line);
    }
}

RecordPlottable *recordOn(const QCustomPlot &plot)
{
    for (int i = 0; i < plot.plottableCount(); ++i)
        if (auto *record =
                dynamic_cast<RecordPlottable *>(const_cast<QCustomPlot &>(plot).plottable(i)))
            return record;
    return nullptr;
}
