// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_page.h"

#include "field/exact_number.h"
#include "ui_record_page.h"
#include "view/colours.h"
#include "view/plot_view.h"
#include "view/record_layout.h"
#include "view/record_picks.h"

#include <QEvent>

#include <algorithm>
#include <cmath>

RecordPage::RecordPage(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::RecordPage>())
{
    ui->setupUi(this);
    makeMovable(*ui->plot);
    connect(ui->plot, &QCustomPlot::mouseDoubleClick, this, &RecordPage::showAll);
    const auto redraw = [this] { draw(); };
    const auto redrawAll = [this] {
        draw();
        showAll();
    };
    connect(ui->styleBox, &QComboBox::currentIndexChanged, this, redraw);
    connect(ui->gainBox, &QComboBox::currentIndexChanged, this, redraw);
    connect(ui->clippingSlider, &QSlider::valueChanged, this, redraw);
    connect(ui->spacingBox, &QComboBox::currentIndexChanged, this, redrawAll);
    connect(ui->shotBox, &QComboBox::currentIndexChanged, this, redrawAll);
    connect(ui->picksBox, &QCheckBox::toggled, this, redraw);
}

RecordPage::~RecordPage() = default;

void RecordPage::show(const std::shared_ptr<const RecordData> &record, const PickSurvey &picks)
{
    shownRecord = record;
    shownPicks = &picks;
    fillShotBox();
    draw();
    showAll();
}

void RecordPage::showNone()
{
    shownRecord.reset();
    ui->plot->clearPlottables();
}

void RecordPage::showAll()
{
    showWholeRecord(*ui->plot);
    ui->plot->replot(QCustomPlot::rpQueuedReplot);
}

void RecordPage::showTrace(std::size_t number)
{
    constexpr double tracesBeside = 10.0;
    const RecordLayout layout = layOut(*shownRecord, options());
    for (const PlacedTrace &trace : layout.traces) {
        if (trace.trace + 1 != number)
            continue;
        const double beside = tracesBeside * layout.spacing;
        ui->plot->xAxis->setRange(
            std::max(trace.place - beside, layout.places.least - layout.spacing),
            std::min(trace.place + beside, layout.places.greatest + layout.spacing));
    }
    ui->plot->replot(QCustomPlot::rpQueuedReplot);
}

QCustomPlot &RecordPage::plot() const
{
    return *ui->plot;
}

void RecordPage::drawPicture(QCustomPlot &picture) const
{
    RecordPlotOptions onPaper = options();
    onPaper.palette = paperPalette();
    drawOnto(picture, onPaper);
    copyRanges(*ui->plot, picture);
}

void RecordPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        draw();
}

void RecordPage::fillShotBox()
{
    const QSignalBlocker blocker(ui->shotBox);
    ui->shotBox->clear();
    ui->shotBox->addItem(tr("all"));
    for (std::size_t i = 0; i < shownRecord->shots.size(); ++i) {
        const RecordShot &shot = shownRecord->shots[i];
        QString name = QString::number(i + 1);
        if (shot.position)
            name += " at " + QString::fromStdString(exactNumber(shot.position->x)) + " m";
        ui->shotBox->addItem(name);
    }
    const bool areSeveral = shownRecord->shots.size() > 1;
    ui->shotBox->setVisible(areSeveral);
    ui->shotLabel->setVisible(areSeveral);
    ui->picksBox->setEnabled(!picksOn(*shownRecord, *shownPicks).empty());
}

RecordPlotOptions RecordPage::options() const
{
    RecordPlotOptions chosen;
    chosen.style = static_cast<RecordStyle>(ui->styleBox->currentIndex());
    chosen.gain = static_cast<RecordGain>(ui->gainBox->currentIndex());
    chosen.clipping = std::pow(10.0, -2.0 * ui->clippingSlider->value() / 100.0); // to 1 %
    chosen.spacing = static_cast<TraceSpacing>(ui->spacingBox->currentIndex());
    if (const int shot = ui->shotBox->currentIndex(); shot > 0)
        chosen.shot = static_cast<std::size_t>(shot - 1);
    chosen.palette = palette();
    return chosen;
}

void RecordPage::drawOnto(QCustomPlot &plot, const RecordPlotOptions &chosen) const
{
    drawRecord(plot, shownRecord, chosen);
    if (ui->picksBox->isChecked())
        drawRecordPicks(plot, picksOn(*shownRecord, *shownPicks), colourOfFindings(chosen.palette));
}

void RecordPage::draw()
{
    if (!shownRecord)
        return;
    drawOnto(*ui->plot, options());
    ui->plot->replot(QCustomPlot::rpQueuedReplot);
}
