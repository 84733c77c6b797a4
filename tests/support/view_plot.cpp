// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_plot.h"

#include <QStringList>

namespace {

QString number(double value)
{
    return QString::number(value, 'g', 6);
}

} // namespace

void addShot(PickSurvey &picks, std::uint32_t number, double x,
             const std::vector<std::pair<double, double>> &receivers, double elevation)
{
    std::vector<Pick> lines;
    for (const auto &[receiverX, milliseconds] : receivers)
        lines.push_back({{receiverX, elevation},
                         milliseconds / 1000.0,
                         10 * number + 1 + static_cast<std::uint32_t>(lines.size())});
    addShot(picks, {x, elevation, ""}, {"line.vs", 10 * number}, lines);
}

QStringList curveNames(const QCustomPlot &plot)
{
    QStringList names;
    for (int i = 0; i < plot.graphCount(); ++i)
        if (plot.graph(i)->name().startsWith("Shot "))
            names += plot.graph(i)->name();
    return names;
}

QStringList pointsOf(const QCustomPlot &plot, const QString &name)
{
    QStringList all;
    for (int i = 0; i < plot.graphCount(); ++i) {
        if (plot.graph(i)->name() != name)
            continue;
        QStringList points;
        for (const QCPGraphData &point : *plot.graph(i)->data())
            points += number(point.key) + ',' + number(point.value);
        all += points.join(' ');
    }
    return all;
}

QCPGraph *graphNamed(const QCustomPlot &plot, const QString &name)
{
    for (int i = 0; i < plot.graphCount(); ++i)
        if (plot.graph(i)->name() == name)
            return plot.graph(i);
    qFatal("no graph %s", qPrintable(name));
}

QCPAxisRect *axesNamed(const QCustomPlot &plot, const char *name)
{
    return plot.findChild<QCPAxisRect *>(name);
}

QPoint pixelOf(const QCPAxisRect &axes, double x, double y)
{
    return QPointF(axes.axis(QCPAxis::atBottom)->coordToPixel(x),
                   axes.axis(QCPAxis::atLeft)->coordToPixel(y))
        .toPoint();
}

QString shownTitle(const QCustomPlot &plot)
{
    const auto *const title = plot.findChild<QCPTextElement *>("title");
    return title == nullptr ? QString() : title->text();
}

QString rangeOf(const QCPAxis &axis)
{
    return number(axis.range().lower) + ',' + number(axis.range().upper);
}

bool isNear(const QColor &a, const QColor &b, int limit)
{
    return std::abs(a.red() - b.red()) < limit && std::abs(a.green() - b.green()) < limit
           && std::abs(a.blue() - b.blue()) < limit;
}
