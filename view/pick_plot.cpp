// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/pick_plot.h"

#include "field/exact_number.h"
#include "field/range.h"
#include "view/colours.h"
#include "view/plot_title.h"

#include <qcustomplot.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr char timesName[] = "times";
constexpr char chosenLayer[] = "chosen";

constexpr std::array shapes = {QCPScatterStyle::ssDisc, QCPScatterStyle::ssSquare,
                               QCPScatterStyle::ssTriangle, QCPScatterStyle::ssDiamond};

/// What is drawn, and where.
struct Drawing
{
    QCustomPlot &plot;
    const PickSurvey &picks;
    const PickPlotOptions &options;
    QCPAxisRect *times = nullptr;
};

/// The axes of the traveltime curves; nullptr before the first drawing.
QCPAxisRect *timesOf(const QCustomPlot &plot)
{
    return plot.findChild<QCPAxisRect *>(timesName);
}

bool isBroughtOut(std::size_t shot, const PickPlotOptions &options)
{
    return options.chosenShots.empty() || options.chosenShots.contains(shot);
}

QColor colourOf(std::size_t shot, const PickPlotOptions &options)
{
    const QColor colour = colourOfShot(shot, options.palette);
    return isBroughtOut(shot, options) ? colour : dimmed(colour, options.palette);
}

QCPScatterStyle filled(QCPScatterStyle::ScatterShape shape, const QColor &colour, double size)
{
    return {shape, QPen(colour), QBrush(colour), size};
}

/// Adds points without a line between them.
QCPGraph *addPoints(const QCPAxisRect &rect, const QString &name,
                    const std::vector<QPointF> &points, const QCPScatterStyle &style)
{
    QCPGraph *const graph =
        rect.parentPlot()->addGraph(rect.axis(QCPAxis::atBottom), rect.axis(QCPAxis::atLeft));
    graph->setName(name);
    graph->setLineStyle(QCPGraph::lsNone);
    graph->setScatterStyle(style);
    for (const QPointF &point : points)
        graph->addData(point.x(), point.y());
    return graph;
}

QCPAxisRect *addAxes(QCustomPlot &plot, const char *name, const QString &label,
                     const QPalette &palette)
{
    auto *const rect = new QCPAxisRect(&plot);
    rect->setObjectName(name);
    colourAxes(*rect, palette);
    rect->axis(QCPAxis::atLeft)->setLabel(label);
    plot.plotLayout()->addElement(plot.plotLayout()->rowCount(), 0, rect);
    return rect;
}

QString timeLabel(const PickAxes &axes)
{
    return axes.reductionVelocity
               ? "Time - offset / " + QString::fromStdString(exactNumber(*axes.reductionVelocity))
                     + " m/s (ms)"
               : QString("Time (ms)");
}

bool hasElevations(const PickSurvey &picks)
{
    const auto isRaised = [](const auto &position) { return position.elevation != 0.0; };
    const TraveltimeSurvey &survey = picks.survey;
    return std::any_of(survey.shots.begin(), survey.shots.end(), isRaised)
           || std::any_of(survey.spreads.begin(), survey.spreads.end(), [&](const Spread &spread) {
                  return std::any_of(spread.begin(), spread.end(), isRaised);
              });
}

/// Has both axes show the same.
void tie(QCPAxis *a, QCPAxis *b)
{
    const auto changed = qOverload<const QCPRange &>(&QCPAxis::rangeChanged);
    const auto setRange = qOverload<const QCPRange &>(&QCPAxis::setRange);
    QObject::connect(a, changed, b, setRange);
    QObject::connect(b, changed, a, setRange);
}

/// Draws the ground above the traveltime curves.
void drawElevations(const Drawing &drawing)
{
    const auto &[plot, picks, options, times] = drawing;
    QCPAxisRect *const rect = drawing.plot.findChild<QCPAxisRect *>("elevations");
    const QColor text = options.palette.color(QPalette::Text);
    Range range;
    std::vector<QPointF> receivers;
    for (const Spread &spread : picks.survey.spreads)
        for (const ReceiverPosition &receiver : spread)
            receivers.emplace_back(receiver.x, receiver.elevation);
    for (const QPointF &receiver : receivers)
        extend(range, receiver.y());
    addPoints(*rect, "Receivers", receivers, filled(QCPScatterStyle::ssDisc, text, 3))
        ->setLineStyle(QCPGraph::lsLine);
    plot.graph(plot.graphCount() - 1)->setPen(QPen(dimmed(text, options.palette)));
    for (std::size_t shot = 0; shot < picks.survey.shots.size(); ++shot) {
        const Shot &place = picks.survey.shots[shot];
        extend(range, place.elevation);
        addPoints(*rect, "Ground of " + nameOfShot(picks, shot), {{place.x, place.elevation}},
                  filled(QCPScatterStyle::ssTriangleInverted, colourOf(shot, options), 8));
    }
    const double margin = std::max(0.2 * (range.greatest - range.least), 0.5);
    rect->axis(QCPAxis::atLeft)->setRange(range.least - margin, range.greatest + margin);
    rect->axis(QCPAxis::atLeft)->ticker()->setTickCount(3);
    rect->axis(QCPAxis::atBottom)->setTickLabels(false);
    rect->setRangeDrag(Qt::Horizontal);
    rect->setRangeZoom(Qt::Horizontal);
    rect->setMinimumSize(100, 40);
    plot.plotLayout()->setRowStretchFactor(1, 0.25);
    auto *const margins = new QCPMarginGroup(&drawing.plot);
    rect->setMarginGroup(QCP::msLeft | QCP::msRight, margins);
    times->setMarginGroup(QCP::msLeft | QCP::msRight, margins);
    tie(times->axis(QCPAxis::atBottom), rect->axis(QCPAxis::atBottom));
}

void drawCurves(const Drawing &drawing, std::size_t shot)
{
    const PickPlotOptions &options = drawing.options;
    const QColor colour = colourOf(shot, options);
    const bool isChosen = options.chosenShots.contains(shot);
    const double size = drawing.picks.survey.shots.size() > 50 ? 4 : 6;
    for (const std::vector<QPointF> &curve : curvesOf(drawing.picks, shot, options.axes)) {
        QCPGraph *const graph =
            addPoints(*drawing.times, nameOfShot(drawing.picks, shot), curve,
                      filled(shapes[shot / shotColourCount % shapes.size()], colour, size));
        graph->setLineStyle(QCPGraph::lsLine);
        graph->setPen(QPen(colour, isChosen ? 2.5 : 1.3));
        if (isChosen)
            graph->setLayer(chosenLayer);
    }
}

void addLabel(const Drawing &drawing, double x, const QString &text, const QColor &colour)
{
    auto *const label = new QCPItemText(&drawing.plot);
    label->position->setAxisRect(drawing.times);
    label->position->setAxes(drawing.times->axis(QCPAxis::atBottom),
                             drawing.times->axis(QCPAxis::atLeft));
    label->setClipAxisRect(drawing.times);
    label->position->setCoords(x, 0.0);
    label->setPositionAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    label->setPadding({0, 0, 0, 6});
    label->setText(text);
    label->setColor(colour);
}

/// Marks the shots' places at a time of 0, and numbers them where there is room.
void drawPlaces(const Drawing &drawing)
{
    const auto &[plot, picks, options, times] = drawing;
    const std::vector<Shot> &shots = picks.survey.shots;
    if (options.axes.isByOffset) {
        addPoints(
            *times, "Shots", {{0.0, 0.0}},
            filled(QCPScatterStyle::ssTriangleInverted, options.palette.color(QPalette::Text), 9));
        return;
    }
    std::vector<std::size_t> order;
    for (std::size_t shot = 0; shot < shots.size(); ++shot) {
        order.push_back(shot);
        addPoints(*times, "Place of " + nameOfShot(picks, shot), {{shots[shot].x, 0.0}},
                  filled(QCPScatterStyle::ssTriangleInverted, colourOf(shot, options), 9));
    }
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return shots[a].x < shots[b].x; });
    const double room = order.empty() ? 0.0 : (shots[order.back()].x - shots[order[0]].x) / 30.0;
    double last = -std::numeric_limits<double>::infinity();
    for (const std::size_t shot : order) {
        if (shots[shot].x - last <= room)
            continue;
        last = shots[shot].x;
        addLabel(drawing, last, QString::number(shot + 1), colourOf(shot, options));
    }
}

/// Rings the picks of a finding, and joins both of reciprocal ones.
void drawFinding(const Drawing &drawing, const Finding &finding, bool isChosen)
{
    const QColor colour = colourOfFindings(drawing.options.palette);
    const QPen pen(colour, isChosen ? 3.0 : 1.5);
    const std::vector<QPointF> points = pointsOf(finding, drawing.picks, drawing.options.axes);
    addPoints(*drawing.times, isChosen ? "Chosen finding" : "Finding", points,
              {QCPScatterStyle::ssCircle, pen, Qt::NoBrush, isChosen ? 18.0 : 13.0})
        ->setLayer(chosenLayer);
    if (finding.kind != "reciprocal" || points.size() != 2)
        return;
    auto *const line = new QCPItemLine(&drawing.plot);
    for (QCPItemPosition *const end : {line->start, line->end}) {
        end->setAxisRect(drawing.times);
        end->setAxes(drawing.times->axis(QCPAxis::atBottom), drawing.times->axis(QCPAxis::atLeft));
        end->setCoords(points[end == line->start ? 0 : 1]);
    }
    line->setClipAxisRect(drawing.times);
    line->setPen(QPen(colour, isChosen ? 2.0 : 1.0, Qt::DashLine));
    line->setLayer(chosenLayer);
}

void drawFindings(const Drawing &drawing, const std::vector<Finding> &findings)
{
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const bool isChosen = drawing.options.chosenFinding == i;
        if (isChosen || drawing.options.marksFindings)
            drawFinding(drawing, findings[i], isChosen);
    }
}

/// The first graph of this name, which is there.
QCPGraph *graphNamed(const QCustomPlot &plot, const QString &name)
{
    int i = 0;
    while (plot.graph(i)->name() != name)
        ++i;
    return plot.graph(i);
}

void drawLegend(const Drawing &drawing)
{
    QCustomPlot &plot = drawing.plot;
    const std::size_t shots = drawing.picks.survey.shots.size();
    if (drawing.options.legendColumns == 0 || shots > mostInLegend)
        return;
    auto *const legend = new QCPLegend;
    const int row = plot.plotLayout()->rowCount();
    plot.plotLayout()->addElement(row, 0, legend);
    plot.plotLayout()->setRowStretchFactor(row, 0.001);
    legend->setLayer("legend");
    legend->setFillOrder(QCPLegend::foColumnsFirst);
    legend->setWrap(drawing.options.legendColumns);
    legend->setBorderPen(Qt::NoPen);
    legend->setBrush(Qt::NoBrush);
    legend->setTextColor(drawing.options.palette.color(QPalette::Text));
    for (std::size_t shot = 0; shot < shots; ++shot)
        graphNamed(plot, nameOfShot(drawing.picks, shot))->addToLegend(legend);
}

/// What all picks and, unless the axes are of offsets, all shots take up.
std::pair<Range, Range> extentOf(const PickSurvey &picks, const PickAxes &axes)
{
    Range x;
    Range y;
    extend(y, 0.0);
    for (std::size_t shot = 0; shot < picks.survey.shots.size(); ++shot) {
        extend(x, axes.isByOffset ? 0.0 : picks.survey.shots[shot].x);
        for (std::size_t i = 0; i < picks.survey.traveltimes[shot].times.size(); ++i) {
            const QPointF point = pointOf(picks, {shot, i}, axes);
            extend(x, point.x());
            extend(y, point.y());
        }
    }
    if (isEmpty(x))
        extend(x, 0.0);
    return {x, y};
}

double lengthOf(const Range &range)
{
    return range.greatest > range.least ? range.greatest - range.least : 1.0;
}

} // namespace

int legendColumnsIn(const QSize &picture, const PickSurvey &picks)
{
    constexpr int columnWidth = 150;
    constexpr int rowHeight = 20;
    const int columns = picture.width() / columnWidth;
    const int most = columns * (picture.height() / 4 / rowHeight);
    return picks.survey.shots.size() <= static_cast<std::size_t>(most) ? columns : 0;
}

void drawPicks(QCustomPlot &plot, const PickSurvey &picks, const std::vector<Finding> &findings,
               const PickPlotOptions &options)
{
    const QCPAxisRect *const before = timesOf(plot);
    const QCPRange x = before != nullptr ? before->axis(QCPAxis::atBottom)->range() : QCPRange();
    const QCPRange y = before != nullptr ? before->axis(QCPAxis::atLeft)->range() : QCPRange();
    const bool isFirst = before == nullptr;
    plot.clearPlottables();
    plot.clearItems();
    plot.plotLayout()->clear();
    plot.setLocale(QLocale::c());
    plot.setBackground(options.palette.color(QPalette::Base));
    if (plot.layer(chosenLayer) == nullptr)
        plot.addLayer(chosenLayer, plot.layer("main"));

    addTitle(plot, titleOf(picks), options.palette);
    const bool isRaised = !options.axes.isByOffset && hasElevations(picks);
    if (isRaised)
        addAxes(plot, "elevations", "Elevation (m)", options.palette);
    Drawing drawing{plot, picks, options,
                    addAxes(plot, timesName, timeLabel(options.axes), options.palette)};
    drawing.times->axis(QCPAxis::atLeft)->setRangeReversed(true);
    drawing.times->axis(QCPAxis::atBottom)
        ->setLabel(options.axes.isByOffset ? "Offset from the shot (m)"
                                           : "Position along the line (m)");
    if (isRaised)
        drawElevations(drawing);
    for (std::size_t shot = 0; shot < picks.survey.shots.size(); ++shot)
        drawCurves(drawing, shot);
    drawPlaces(drawing);
    drawFindings(drawing, findings);
    drawLegend(drawing);
    if (isFirst)
        return showAllPicks(plot, picks, options);
    drawing.times->axis(QCPAxis::atBottom)->setRange(x);
    drawing.times->axis(QCPAxis::atLeft)->setRange(y);
}

void showAllPicks(QCustomPlot &plot, const PickSurvey &picks, const PickPlotOptions &options)
{
    const auto [x, y] = extentOf(picks, options.axes);
    const QCPAxisRect &times = *timesOf(plot);
    times.axis(QCPAxis::atBottom)
        ->setRange(x.least - 0.03 * lengthOf(x), x.greatest + 0.03 * lengthOf(x));
    times.axis(QCPAxis::atLeft)
        ->setRange(y.least - 0.12 * lengthOf(y), y.greatest + 0.03 * lengthOf(y));
}

void showFinding(QCustomPlot &plot, const PickSurvey &picks, const Finding &finding,
                 const PickPlotOptions &options)
{
    const std::vector<QPointF> points = pointsOf(finding, picks, options.axes);
    if (points.empty())
        return showAllPicks(plot, picks, options);
    const auto [wholeX, wholeY] = extentOf(picks, options.axes);
    Range x;
    Range y;
    for (const QPointF &point : points) {
        extend(x, point.x());
        extend(y, point.y());
    }
    x.least -= 0.12 * lengthOf(wholeX);
    x.greatest += 0.12 * lengthOf(wholeX);
    for (const std::size_t shot : shotsOf(finding, picks))
        for (const std::vector<QPointF> &curve : curvesOf(picks, shot, options.axes))
            for (const QPointF &point : curve)
                if (point.x() >= x.least && point.x() <= x.greatest)
                    extend(y, point.y());
    const QCPAxisRect &times = *timesOf(plot);
    times.axis(QCPAxis::atBottom)->setRange(x.least, x.greatest);
    times.axis(QCPAxis::atLeft)
        ->setRange(y.least - 0.15 * lengthOf(wholeY), y.greatest + 0.15 * lengthOf(wholeY));
}

std::optional<PickIndex> pickAt(const QCustomPlot &plot, const PickSurvey &picks,
                                const PickPlotOptions &options, const QPoint &pixel)
{
    const QCPAxisRect *const times = timesOf(plot);
    if (times == nullptr || !times->rect().contains(pixel))
        return {};
    constexpr double near = 8.0;
    double least = near;
    std::optional<PickIndex> nearest;
    for (std::size_t shot = 0; shot < picks.survey.shots.size(); ++shot) {
        if (!isBroughtOut(shot, options))
            continue;
        for (std::size_t i = 0; i < picks.survey.traveltimes[shot].times.size(); ++i) {
            const QPointF point = pointOf(picks, {shot, i}, options.axes);
            const double distance =
                std::hypot(times->axis(QCPAxis::atBottom)->coordToPixel(point.x()) - pixel.x(),
                           times->axis(QCPAxis::atLeft)->coordToPixel(point.y()) - pixel.y());
            if (distance > least)
                continue;
            least = distance;
            nearest = {shot, i};
        }
    }
    return nearest;
}
