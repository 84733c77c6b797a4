// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_plot.h"

#include "field/exact_number.h"
#include "field/numbers.h"
#include "traveltime/text.h"
#include "view/plot_title.h"
#include "view/record_plottable.h"

#include <QFileInfo>

#include <cmath>
#include <utility>

namespace {

/// "shot 3 at 57.5 m, ".
std::string shotText(const RecordShot &shot)
{
    std::string text = "shot";
    if (shot.number)
        text += ' ' + std::to_string(*shot.number);
    if (shot.position)
        text += " at " + exactNumber(std::round(shot.position->x * 1000.0) / 1000.0) + " m";
    return shot.number || shot.position ? text + ", " : "";
}

std::string shotsText(const RecordData &record, const RecordPlotOptions &options)
{
    if (options.shot && *options.shot < record.shots.size())
        return shotText(record.shots[*options.shot]);
    if (record.shots.size() == 1)
        return shotText(record.shots.front());
    return record.shots.empty() ? "" : counted(record.shots.size(), "shot") + ", ";
}

std::string titleText(const RecordDrawing &drawing)
{
    const std::size_t chosen = chosenTraces(*drawing.record, drawing.options);
    const std::size_t drawn = drawing.layout.traces.size();
    std::size_t dead = 0;
    for (const PlacedTrace &trace : drawing.layout.traces)
        dead += drawing.record->traces[trace.trace].isDead ? 1 : 0;
    std::string title =
        QFileInfo(QString::fromStdString(drawing.record->path)).fileName().toStdString() + ": "
        + shotsText(*drawing.record, drawing.options) + counted(chosen, "trace");
    if (drawn < chosen)
        title += ", " + std::to_string(chosen - drawn)
                 + (drawing.layout.isByPosition ? " without a position" : " without an interval");
    if (dead > 0)
        title += ", " + std::to_string(dead) + " dead";
    return title;
}

/// In place of the one before.
void showTitle(QCustomPlot &plot, const QString &text, const QPalette &palette)
{
    QCPLayoutGrid *const layout = plot.plotLayout();
    if (layout->element(0, 0) == plot.axisRect())
        layout->insertRow(0);
    else
        layout->remove(layout->element(0, 0));
    addTitle(plot, text, palette);
}

void setUpPlaces(QCPAxis &axis, bool isByPosition)
{
    axis.setLabel(isByPosition ? "Position (m)" : "Trace");
    axis.setSubTicks(isByPosition);
    if (isByPosition) {
        axis.setTicker(QSharedPointer<QCPAxisTicker>::create());
        return;
    }
    // There are no halves of traces.
    const auto ticker = QSharedPointer<QCPAxisTickerFixed>::create();
    ticker->setTickStep(1.0);
    ticker->setScaleStrategy(QCPAxisTickerFixed::ssMultiples);
    axis.setTicker(ticker);
}

void setUpAxes(QCustomPlot &plot, const RecordDrawing &drawing)
{
    plot.setBackground(drawing.options.palette.color(QPalette::Base));
    plot.setLocale(QLocale::c());
    colourAxes(*plot.axisRect(), drawing.options.palette);
    plot.xAxis->grid()->setVisible(false);
    plot.yAxis->setLabel(drawing.layout.isInTime ? "Time (ms)" : "Sample");
    plot.yAxis->setRangeReversed(true);
    for (QCPAxis *const axis : {plot.xAxis, plot.yAxis}) {
        axis->setNumberFormat("gb");
        axis->setNumberPrecision(9);
    }
    setUpPlaces(*plot.xAxis, drawing.layout.isByPosition);
}

} // namespace

void drawRecord(QCustomPlot &plot, std::shared_ptr<const RecordData> record,
                const RecordPlotOptions &options)
{
    RecordPlottable *plottable = recordOn(plot);
    if (plottable == nullptr)
        plottable = new RecordPlottable(plot.xAxis, plot.yAxis);
    while (plot.graphCount() > 0)
        plot.removeGraph(0);
    plottable->setRecord(std::move(record), options);
    showTitle(plot, QString::fromStdString(titleText(plottable->drawing())), options.palette);
    setUpAxes(plot, plottable->drawing());
}

void showWholeRecord(QCustomPlot &plot)
{
    if (const RecordPlottable *record = recordOn(plot))
        record->rescaleAxes();
}
