// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/record_plot.h"
#include "view/viewed_files.h"

#include <QWidget>

#include <memory>

namespace Ui {
class RecordPage;
}

class QCustomPlot;

/// A record, with the picks that lie on it.
class RecordPage : public QWidget
{
    Q_OBJECT

public:
    explicit RecordPage(QWidget *parent = nullptr);
    ~RecordPage() override;

    /// Shows a record, all of it. The picks are not kept: they must live as long as they are shown.
    void show(const std::shared_ptr<const RecordData> &record, const PickSurvey &picks);
    /// Lets the record go, whose samples may fill the memory.
    void showNone();
    void showAll();
    /// Brings a trace, counted from 1, into view with those beside it, if it is drawn.
    void showTrace(std::size_t number);

    QCustomPlot &plot() const;
    /// Draws what is in view onto the plot of a picture.
    void drawPicture(QCustomPlot &picture) const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void fillShotBox();
    RecordPlotOptions options() const;
    void drawOnto(QCustomPlot &plot, const RecordPlotOptions &chosen) const;
    void draw();

    std::unique_ptr<Ui::RecordPage> ui;
    std::shared_ptr<const RecordData> shownRecord = {};
    const PickSurvey *shownPicks = nullptr;
};
