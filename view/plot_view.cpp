// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/plot_view.h"

#include <qcustomplot.h>

void makeMovable(QCustomPlot &plot)
{
    plot.setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    plot.setNoAntialiasingOnDrag(true);
    plot.setMouseTracking(true);
    QObject::connect(&plot, &QCustomPlot::beforeReplot, &plot,
                     [&plot] { plot.setBufferDevicePixelRatio(plot.devicePixelRatioF()); });
}

void copyRanges(const QCustomPlot &from, QCustomPlot &to)
{
    for (int i = 0; i < from.axisRectCount(); ++i)
        for (const QCPAxis::AxisType type : {QCPAxis::atBottom, QCPAxis::atLeft})
            to.axisRect(i)->axis(type)->setRange(from.axisRect(i)->axis(type)->range());
}
