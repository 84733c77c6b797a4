// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/pick_plot.h"

#include <QWidget>

#include <memory>

namespace Ui {
class PicksPage;
}

class QCustomPlot;

/// The traveltime curves of a survey, beside the list of its shots.
class PicksPage : public QWidget
{
    Q_OBJECT

public:
    explicit PicksPage(QWidget *parent = nullptr);
    ~PicksPage() override;

    /// Shows a survey, all of it, with what was found in it. It is not kept: it must live as long
    /// as it is shown.
    void show(const PickSurvey &picks, const std::vector<Finding> &findings);
    /// Rings the picks of a finding and brings them into view; without one nothing is ringed so.
    void chooseFinding(std::optional<std::size_t> finding);
    void showAll();

    QCustomPlot &plot() const;
    /// Draws what is in view onto the plot of a picture of this size.
    void drawPicture(QCustomPlot &picture, const QSize &size) const;

signals:
    /// Describes the pick that the mouse points at; empty when there is none.
    void pointedAt(const QString &description);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fillShotList();
    void takeOptions();
    void draw();
    void pointAt(const QPoint &pixel);

    std::unique_ptr<Ui::PicksPage> ui;
    const PickSurvey *shownPicks = nullptr;
    const std::vector<Finding> *shownFindings = nullptr;
    PickPlotOptions options = {};
};
