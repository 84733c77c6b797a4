// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/viewed_files.h"

#include <QMainWindow>

#include <memory>

namespace Ui {
class ViewerWindow;
}

class QCustomPlot;

/// Shows files of picks as one survey, each record, and what is found in them.
class ViewerWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// `reading` says how files are read; those that it names are not opened.
    explicit ViewerWindow(Request reading, QWidget *parent = nullptr);
    ~ViewerWindow() override;

    /// Opens files beside those that are shown. Those that cannot be read leave a message.
    void openFiles(const QStringList &paths);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private slots:
    void on_openAction_triggered();
    void on_reloadAction_triggered();
    void on_closeAction_triggered();
    void on_convertAction_triggered();
    void on_savePictureAction_triggered();
    void on_copyPictureAction_triggered();
    void on_showAllAction_triggered();
    void on_nextPageAction_triggered();

private:
    bool work(const QString &title, const std::function<bool(const GoesOn &goesOn)> &task);
    void showFiles(ViewedFiles next);
    void showPage(int page);
    void showFindings();
    void chooseFinding();
    void addMessages(const std::vector<Report> &reports);
    void addMessage(const QString &message);
    void rememberFiles(const QStringList &paths);
    void fillRecentMenu();
    QStringList openPaths() const;
    const ViewedRecord *shownRecord() const;
    bool showsPicks() const;
    std::unique_ptr<QCustomPlot> picture(const QSize &size) const;
    QSize pictureSize() const;
    void convert(const Format &format, const std::string &output);

    std::unique_ptr<Ui::ViewerWindow> ui;
    Request reading;
    ViewedFiles files = {};
    bool isBusy = false;
};
