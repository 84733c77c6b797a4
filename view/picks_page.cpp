// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/picks_page.h"

#include "ui_picks_page.h"
#include "view/colours.h"
#include "view/plot_title.h"
#include "view/plot_view.h"

#include <QMouseEvent>
#include <QToolTip>

PicksPage::PicksPage(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::PicksPage>())
{
    ui->setupUi(this);
    ui->splitter->setStretchFactor(0, 1);
    ui->splitter->setStretchFactor(1, 0);
    ui->splitter->setSizes({1000, 190});
    makeMovable(*ui->plot);
    ui->plot->installEventFilter(this);
    ui->velocityBox->setLocale(QLocale::c());
    connect(ui->plot, &QCustomPlot::mouseDoubleClick, this, &PicksPage::showAll);
    connect(ui->shotList, &QListWidget::itemSelectionChanged, this, [this] {
        takeOptions();
        draw();
    });
    const auto redrawAll = [this] {
        takeOptions();
        draw();
        showAll();
    };
    connect(ui->offsetBox, &QCheckBox::toggled, this, redrawAll);
    connect(ui->reducedBox, &QCheckBox::toggled, this, redrawAll);
    connect(ui->velocityBox, &QDoubleSpinBox::valueChanged, this, [this, redrawAll] {
        if (ui->reducedBox->isChecked())
            redrawAll();
    });
    connect(ui->findingsBox, &QCheckBox::toggled, this, [this] {
        takeOptions();
        draw();
    });
    takeOptions();
}

PicksPage::~PicksPage() = default;

void PicksPage::show(const PickSurvey &picks, const std::vector<Finding> &findings)
{
    shownPicks = &picks;
    shownFindings = &findings;
    options.chosenFinding.reset();
    fillShotList();
    takeOptions();
    draw();
    showAll();
}

void PicksPage::chooseFinding(std::optional<std::size_t> finding)
{
    options.chosenFinding = finding;
    if (shownPicks == nullptr)
        return;
    draw();
    if (finding)
        showFinding(*ui->plot, *shownPicks, shownFindings->at(*finding), options);
}

void PicksPage::showAll()
{
    if (shownPicks == nullptr)
        return;
    showAllPicks(*ui->plot, *shownPicks, options);
    ui->plot->replot(QCustomPlot::rpQueuedReplot);
}

QCustomPlot &PicksPage::plot() const
{
    return *ui->plot;
}

void PicksPage::drawPicture(QCustomPlot &picture, const QSize &size) const
{
    PickPlotOptions onPaper = options;
    onPaper.palette = paperPalette();
    onPaper.legendColumns = legendColumnsIn(size, *shownPicks);
    drawPicks(picture, *shownPicks, *shownFindings, onPaper);
    copyRanges(*ui->plot, picture);
}

bool PicksPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseMove)
        pointAt(static_cast<QMouseEvent *>(event)->position().toPoint());
    else if (event->type() == QEvent::Leave)
        emit pointedAt("");
    return QWidget::eventFilter(watched, event);
}

void PicksPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || shownPicks == nullptr)
        return;
    fillShotList();
    takeOptions();
    draw();
}

/// Lists the shots, each in its colour; the chosen ones stay chosen.
void PicksPage::fillShotList()
{
    const QSignalBlocker blocker(ui->shotList);
    QList<bool> chosen;
    for (int i = 0; i < ui->shotList->count(); ++i)
        chosen += ui->shotList->item(i)->isSelected();
    ui->shotList->clear();
    for (std::size_t shot = 0; shot < shownPicks->survey.shots.size(); ++shot) {
        QPixmap colour(12, 12);
        colour.fill(colourOfShot(shot, palette()));
        auto *const item = new QListWidgetItem(colour, nameOfShot(*shownPicks, shot), ui->shotList);
        item->setToolTip(describeShot(*shownPicks, shot));
        item->setSelected(chosen.size() == static_cast<int>(shownPicks->survey.shots.size())
                          && chosen[static_cast<int>(shot)]);
    }
}

void PicksPage::takeOptions()
{
    options.axes = {ui->offsetBox->isChecked(), ui->reducedBox->isChecked()
                                                    ? std::optional(ui->velocityBox->value())
                                                    : std::nullopt};
    options.marksFindings = ui->findingsBox->isChecked();
    options.palette = palette();
    options.chosenShots.clear();
    for (const QModelIndex &index : ui->shotList->selectionModel()->selectedIndexes())
        options.chosenShots.insert(static_cast<std::size_t>(index.row()));
}

void PicksPage::draw()
{
    if (shownPicks == nullptr)
        return;
    drawPicks(*ui->plot, *shownPicks, *shownFindings, options);
    ui->plot->replot(QCustomPlot::rpQueuedReplot);
}

void PicksPage::pointAt(const QPoint &pixel)
{
    if (shownPicks == nullptr)
        return;
    const std::optional<PickIndex> pick = pickAt(*ui->plot, *shownPicks, options, pixel);
    const QString description = pick ? describePick(*shownPicks, *pick) : QString();
    if (pick)
        QToolTip::showText(ui->plot->mapToGlobal(pixel), description, ui->plot);
    else
        QToolTip::hideText();
    emit pointedAt(description);
}
