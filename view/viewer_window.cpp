// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/viewer_window.h"

#include "console/file_checks.h"
#include "field/reciprocal_picks.h"
#include "ui_viewer_window.h"
#include "view/work_beside.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QMimeData>
#include <qcustomplot.h>

#include <filesystem>

namespace {

QString nameOf(const std::string &path)
{
    return QFileInfo(QString::fromStdString(path)).fileName();
}

/// The name by which a file is open already, or else its own.
QString openName(const QString &path, const QStringList &open)
{
    for (const QString &other : open)
        if (path == other || isSameFile(path.toStdString(), other.toStdString()))
            return other;
    return path;
}

/// A finding in a line that names the file without its folder.
QString shortLineOf(Finding finding)
{
    finding.place.file = nameOf(finding.place.file).toStdString();
    return QString::fromStdString(lineOf(finding));
}

} // namespace

ViewerWindow::ViewerWindow(Request request, QWidget *parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui::ViewerWindow>())
    , reading(std::move(request))
{
    ui->setupUi(this);
    ui->splitter->setSizes({600, 130});
    ui->tabs->setDrawBase(false);
    ui->tabs->setExpanding(false);
    connect(ui->tabs, &QTabBar::currentChanged, this, &ViewerWindow::showPage);
    connect(ui->findingList, &QListWidget::itemSelectionChanged, this,
            &ViewerWindow::chooseFinding);
    connect(ui->showPanelsAction, &QAction::toggled, ui->panels, &QWidget::setVisible);
    connect(ui->quitAction, &QAction::triggered, this, &QWidget::close);
    connect(ui->picksPage, &PicksPage::pointedAt, this, [this](QString description) {
        ui->statusBar->showMessage(description.replace('\n', ", "));
    });
    fillRecentMenu();
    showFiles({});
}

ViewerWindow::~ViewerWindow() = default;

void ViewerWindow::openFiles(const QStringList &paths)
{
    if (paths.isEmpty() || isBusy)
        return;
    const QStringList open = openPaths();
    QStringList named;
    for (const QString &path : paths)
        named += openName(path, open);
    const bool isAnew = std::any_of(named.begin(), named.end(),
                                    [&](const QString &path) { return open.contains(path); });
    QStringList all = isAnew ? open + named : named;
    all.removeDuplicates();
    Request request = reading;
    for (const QString &path : all)
        request.files.push_back(path.toStdString());
    ViewedFiles next = isAnew ? ViewedFiles() : files;
    std::vector<Report> reports;
    const bool isRead =
        work(tr("Reading %n file(s)...", nullptr, static_cast<int>(all.size())),
             [&](const GoesOn &goesOn) { return readFiles(request, next, reports, goesOn); });
    if (!isRead)
        return addMessage(tr("Reading was given up."));
    showFiles(std::move(next));
    addMessages(reports);
    QStringList read;
    for (const QString &path : named)
        if (openPaths().contains(path))
            read += path;
    rememberFiles(read);
}

void ViewerWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls() && !isBusy)
        event->acceptProposedAction();
}

void ViewerWindow::dropEvent(QDropEvent *event)
{
    QStringList paths;
    for (const QUrl &url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths += url.toLocalFile();
    event->acceptProposedAction();
    openFiles(paths);
}

/// A window that reads is closed after its reading was given up.
void ViewerWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!isBusy);
}

/// Does a task beside the window, whose menus are not to be had meanwhile.
bool ViewerWindow::work(const QString &title, const std::function<bool(const GoesOn &goesOn)> &task)
{
    isBusy = true;
    ui->menuBar->setEnabled(false);
    const bool isDone = workBeside(*this, title, task);
    ui->menuBar->setEnabled(true);
    isBusy = false;
    return isDone;
}

void ViewerWindow::showFiles(ViewedFiles next)
{
    files = std::move(next);
    {
        const QSignalBlocker blocker(ui->tabs);
        const int page = ui->tabs->currentIndex();
        const QString shown = ui->tabs->tabText(page);
        while (ui->tabs->count() > 0)
            ui->tabs->removeTab(0);
        if (!files.pickPaths.empty())
            ui->tabs->addTab(tr("Picks"));
        for (const ViewedRecord &record : files.records)
            ui->tabs->addTab(nameOf(record.data->path).replace('&', "&&"));
        if (ui->tabs->tabText(page) == shown)
            ui->tabs->setCurrentIndex(page);
    }
    ui->tabs->setVisible(ui->tabs->count() > 1);
    ui->picksPage->show(files.picks, files.findings);
    ui->recordPage->showNone();
    showFindings();
    showPage(ui->tabs->currentIndex());
}

void ViewerWindow::showPage(int page)
{
    const ViewedRecord *const record = shownRecord();
    if (record != nullptr)
        ui->recordPage->show(record->data, files.picks);
    ui->pages->setCurrentWidget(page < 0            ? ui->emptyPage
                                : record != nullptr ? static_cast<QWidget *>(ui->recordPage)
                                                    : ui->picksPage);
    for (QAction *const action : {ui->convertAction, ui->savePictureAction, ui->copyPictureAction,
                                  ui->showAllAction, ui->reloadAction, ui->closeAction})
        action->setEnabled(page >= 0);
    ui->nextPageAction->setEnabled(ui->tabs->count() > 1);
    const QString shown = page < 0 ? QString() : ui->tabs->tabText(page).replace("&&", "&") + " - ";
    setWindowTitle(shown + tr("Convert2Velarix: pictures"));
}

/// Lists the findings of the picks, then those of each record.
void ViewerWindow::showFindings()
{
    const QSignalBlocker blocker(ui->findingList);
    ui->findingList->clear();
    for (const Finding &finding : files.findings)
        ui->findingList->addItem(shortLineOf(finding));
    for (const ViewedRecord &record : files.records)
        for (const Finding &finding : record.findings)
            ui->findingList->addItem(shortLineOf(finding));
    ui->panels->setTabText(0, tr("Findings (%1)").arg(ui->findingList->count()));
}

/// Shows the picks or the trace that the chosen finding is about.
void ViewerWindow::chooseFinding()
{
    const QModelIndexList chosen = ui->findingList->selectionModel()->selectedIndexes();
    if (chosen.isEmpty())
        return ui->picksPage->chooseFinding(std::nullopt);
    auto row = static_cast<std::size_t>(chosen.front().row());
    int tab = files.pickPaths.empty() ? -1 : 0;
    if (row < files.findings.size()) {
        ui->tabs->setCurrentIndex(tab);
        return ui->picksPage->chooseFinding(row);
    }
    row -= files.findings.size();
    for (const ViewedRecord &record : files.records) {
        ++tab;
        if (row < record.findings.size()) {
            ui->picksPage->chooseFinding(std::nullopt);
            ui->tabs->setCurrentIndex(tab);
            return ui->recordPage->showTrace(record.findings[row].trace);
        }
        row -= record.findings.size();
    }
}

const ViewedRecord *ViewerWindow::shownRecord() const
{
    const int record = ui->tabs->currentIndex() - (files.pickPaths.empty() ? 0 : 1);
    return record >= 0 ? &files.records[static_cast<std::size_t>(record)] : nullptr;
}

bool ViewerWindow::showsPicks() const
{
    return ui->tabs->currentIndex() == 0 && !files.pickPaths.empty();
}

QStringList ViewerWindow::openPaths() const
{
    QStringList paths;
    for (const std::string &path : files.pickPaths)
        paths += QString::fromStdString(path);
    for (const ViewedRecord &record : files.records)
        paths += QString::fromStdString(record.data->path);
    return paths;
}
