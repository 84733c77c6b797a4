// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/record_density.h"
#include "view/record_rows.h"

#include <qcustomplot.h>

#include <memory>
#include <optional>

/// A record on a plot: places to the right, time downwards.
class RecordPlottable : public QCPAbstractPlottable
{
public:
    RecordPlottable(QCPAxis *placeAxis, QCPAxis *timeAxis);

    void setRecord(std::shared_ptr<const RecordData> record, const RecordPlotOptions &options);
    const RecordDrawing &drawing() const;
    /// How the traces in view are drawn: never RecordStyle::automatic.
    RecordStyle styleInView() const;
    /// The place of a trace of the record, from 0, if it is drawn.
    std::optional<double> placeOf(std::size_t trace) const;

    double selectTest(const QPointF &position, bool onlySelectable,
                      QVariant *details = nullptr) const override;
    QCPRange getKeyRange(bool &isFound, QCP::SignDomain domain = QCP::sdBoth) const override;
    QCPRange getValueRange(bool &isFound, QCP::SignDomain domain = QCP::sdBoth,
                           const QCPRange &keys = {}) const override;

protected:
    void draw(QCPPainter *painter) override;
    void drawLegendIcon(QCPPainter *painter, const QRectF &area) const override;

private:
    void drawDensity(QCPPainter *painter);
    void drawWiggles(QCPPainter *painter) const;
    void drawWiggle(QCPPainter *painter, std::size_t index, const PixelRows &rows) const;

    RecordDrawing shown = {};
    RecordDensity density = {};
    std::vector<std::optional<double>> places = {}; ///< of each trace of the record
};

/// The record on a plot; nullptr before drawRecord().
RecordPlottable *recordOn(const QCustomPlot &plot);
