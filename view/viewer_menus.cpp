// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// The menus of the window.

#include "console/messages.h"
#include "field/conversion.h"
#include "ui_viewer_window.h"
#include "view/plot_title.h"
#include "view/saved_picture.h"
#include "view/viewer_window.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>
#include <qcustomplot.h>

namespace {

constexpr char recentKey[] = "recentFiles";
constexpr int mostRecent = 9;

QSettings settings()
{
    return QSettings("Convert2Velarix", "convert2velarix-view");
}

/// "SeisImager traveltimes (*.vs)".
QString filterOf(const Format &format)
{
    QStringList patterns;
    for (const std::string &extension : format.extensions)
        patterns += "*." + QString::fromStdString(extension);
    return QString::fromStdString(format.title) + " (" + patterns.join(' ') + ')';
}

/// `path` with the filter's first extension, unless it has one.
QString withExtension(const QString &path, const QString &filter)
{
    if (path.isEmpty() || !QFileInfo(path).suffix().isEmpty())
        return path;
    return path + QRegularExpression("\\.[a-z0-9]+").match(filter).captured();
}

/// Asks for the name of a file to write; it has an extension of the filter if it was typed without
/// one. Empty when there is none, or when another file is to be kept.
QString askForOutput(QWidget &window, const QString &title, const QString &filters, QString &filter)
{
    const QString typed = QFileDialog::getSaveFileName(&window, title, "", filters, &filter);
    const QString path = withExtension(typed, filter);
    // The dialog has asked about the name that was typed.
    const bool isKept =
        path != typed && QFileInfo::exists(path)
        && QMessageBox::question(&window, title,
                                 QObject::tr("%1 already exists.\nDo you want to replace it?")
                                     .arg(QFileInfo(path).fileName()))
               != QMessageBox::Yes;
    return isKept ? QString() : path;
}

} // namespace

void ViewerWindow::on_openAction_triggered()
{
    openFiles(QFileDialog::getOpenFileNames(this, tr("Open Files")));
}

void ViewerWindow::on_reloadAction_triggered()
{
    openFiles(openPaths());
}

void ViewerWindow::on_closeAction_triggered()
{
    ui->messages->clear();
    ui->panels->setTabText(1, tr("Messages"));
    showFiles({});
}

void ViewerWindow::on_convertAction_triggered()
{
    QStringList filters;
    std::vector<const Format *> targets;
    for (const Format &format : formats()) {
        if (showsPicks() ? format.writePicks == nullptr : !format.writesRecords)
            continue;
        filters += filterOf(format);
        targets.push_back(&format);
    }
    QString filter;
    const QString output = askForOutput(*this, tr("Convert To"), filters.join(";;"), filter);
    if (output.isEmpty())
        return;
    const Format *target = formatWrittenTo(output.toStdString());
    if (std::find(targets.begin(), targets.end(), target) == targets.end())
        target = targets[static_cast<std::size_t>(std::max(filters.indexOf(filter), qsizetype{0}))];
    convert(*target, output.toStdString());
}

/// Converts the picks, or the record that is shown.
void ViewerWindow::convert(const Format &format, const std::string &output)
{
    Request request = reading;
    request.output = output;
    request.files = showsPicks() ? files.pickPaths : std::vector{shownRecord()->data->path};
    if (!showsPicks())
        request.shotList = request.topography = "";
    std::vector<Report> reports;
    int status = conversionFailed;
    work(tr("Converting..."), [&](const GoesOn &) { // which is not given up
        status = convertFiles(request, format, [&](const Report &report, const std::string &) {
            reports.push_back(report);
            return report.failure ? conversionFailed : converted;
        });
        return status == converted;
    });
    addMessages(reports);
    if (status == converted)
        addMessage(tr("%1 is written.").arg(QString::fromStdString(output)));
}

void ViewerWindow::on_savePictureAction_triggered()
{
    QString filter;
    const QString path =
        askForOutput(*this, tr("Save Picture"), "PNG (*.png);;SVG (*.svg);;PDF (*.pdf)", filter);
    if (path.isEmpty())
        return;
    Report report;
    if (!isPicture(path.toStdString()))
        fail(report, {path.toStdString()}, "a picture is .png, .svg or .pdf");
    else if (savePicture(*picture(pictureSize()), path.toStdString(), pictureSize(), report))
        addMessage(tr("%1 is written.").arg(path));
    addMessages({report});
}

void ViewerWindow::on_copyPictureAction_triggered()
{
    const QSize size = pictureSize();
    QGuiApplication::clipboard()->setImage(
        picture(size)->toPixmap(size.width(), size.height()).toImage());
    ui->statusBar->showMessage(tr("The picture is in the clipboard."));
}

void ViewerWindow::on_showAllAction_triggered()
{
    if (showsPicks())
        ui->picksPage->showAll();
    else
        ui->recordPage->showAll();
}

void ViewerWindow::on_nextPageAction_triggered()
{
    ui->tabs->setCurrentIndex((ui->tabs->currentIndex() + 1) % ui->tabs->count());
}

/// What is shown, on paper.
std::unique_ptr<QCustomPlot> ViewerWindow::picture(const QSize &size) const
{
    auto plot = std::make_unique<QCustomPlot>();
    if (showsPicks())
        ui->picksPage->drawPicture(*plot, size);
    else
        ui->recordPage->drawPicture(*plot);
    fitTitle(*plot, size.width());
    return plot;
}

/// That of the plot in the window.
QSize ViewerWindow::pictureSize() const
{
    return (showsPicks() ? ui->picksPage->plot() : ui->recordPage->plot()).size();
}

void ViewerWindow::addMessages(const std::vector<Report> &reports)
{
    for (const Report &report : reports)
        for (const std::string &line : messagesOf(report))
            addMessage(QString::fromStdString(line));
}

void ViewerWindow::addMessage(const QString &message)
{
    ui->messages->appendPlainText(message);
    ui->panels->setTabText(1, tr("Messages (%1)").arg(ui->messages->blockCount()));
    ui->panels->setCurrentWidget(ui->messages);
    ui->showPanelsAction->setChecked(true);
}

void ViewerWindow::rememberFiles(const QStringList &paths)
{
    QSettings stored = settings();
    QStringList recent;
    for (const QString &path : paths)
        recent += QFileInfo(path).absoluteFilePath();
    recent += stored.value(recentKey).toStringList();
    recent.removeDuplicates();
    stored.setValue(recentKey, recent.mid(0, mostRecent));
    fillRecentMenu();
}

void ViewerWindow::fillRecentMenu()
{
    ui->recentMenu->clear();
    const QStringList recent = settings().value(recentKey).toStringList();
    for (qsizetype i = 0; i < recent.size(); ++i) {
        const QString &path = recent[i];
        QAction *const action = ui->recentMenu->addAction(
            QString("&%1 %2").arg(i + 1).arg(QString(path).replace('&', "&&")));
        action->setShortcut(QKeySequence(QString("Ctrl+%1").arg(i + 1)));
        connect(action, &QAction::triggered, this, [this, path] { openFiles({path}); });
    }
    ui->recentMenu->setEnabled(!recent.isEmpty());
}
