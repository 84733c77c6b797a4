// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/plot_title.h"

#include "view/colours.h"

#include <qcustomplot.h>

namespace {

constexpr char titleName[] = "title";
constexpr char wholeTitle[] = "wholeTitle";

} // namespace

void addTitle(QCustomPlot &plot, const QString &text, const QPalette &palette)
{
    QFont font = plot.font();
    font.setBold(true);
    auto *const title = new QCPTextElement(&plot, "", font);
    title->setObjectName(titleName);
    title->setProperty(wholeTitle, text);
    title->setTextColor(palette.color(QPalette::Text));
    title->setMargins({6, 6, 6, 0});
    plot.plotLayout()->addElement(0, 0, title);
    QObject::connect(&plot, &QCustomPlot::beforeReplot, title,
                     [&plot] { fitTitle(plot, plot.viewport().width()); });
    fitTitle(plot, plot.viewport().width());
}

void fitTitle(QCustomPlot &plot, int width)
{
    constexpr int margins = 24;
    if (auto *const title = plot.findChild<QCPTextElement *>(titleName))
        title->setText(QFontMetrics(title->font())
                           .elidedText(titleOf(plot), Qt::ElideMiddle, width - margins));
}

QString titleOf(const QCustomPlot &plot)
{
    const auto *const title = plot.findChild<QCPTextElement *>(titleName);
    return title != nullptr ? title->property(wholeTitle).toString() : QString();
}

void colourAxes(QCPAxisRect &rect, const QPalette &palette)
{
    const QColor text = palette.color(QPalette::Text);
    for (QCPAxis *const axis : rect.axes()) {
        for (const auto set : {&QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen})
            (axis->*set)(QPen(text));
        axis->setLabelColor(text);
        axis->setTickLabelColor(text);
        axis->grid()->setPen(QPen(dimmed(text, palette), 0, Qt::DotLine));
        axis->grid()->setZeroLinePen(QPen(dimmed(text, palette)));
    }
}
