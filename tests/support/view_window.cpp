// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSettings>
#include <QStackedWidget>
#include <QTabBar>
#include <QTest>

void ViewWindowTests::init()
{
    prepareTest();
    folder = std::make_unique<TemporaryFolder>();
    QSettings("Convert2Velarix", "convert2velarix-view").clear();
    openWindow();
}

void ViewWindowTests::cleanup()
{
    window.reset();
    folder.reset();
}

void ViewWindowTests::openWindow(const Request &reading)
{
    window = std::make_unique<ViewerWindow>(reading);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

QString ViewWindowTests::file(const std::string &name, const std::string &bytes) const
{
    return text(folder->write(name, bytes));
}

QString ViewWindowTests::path(const QString &name) const
{
    return text(folder->path(name.toStdString()));
}

void ViewWindowTests::open(const std::string &name, const std::string &bytes)
{
    window->openFiles({file(name, bytes)});
}

QStringList ViewWindowTests::press(const char *keys, const std::vector<Answer> &answers) const
{
    window->activateWindow(); // which nobody does after a dialog on a platform without windows
    if (!QTest::qWaitForWindowActive(window.get()))
        return {"the window is not active"};
    return watch([&] { QTest::keySequence(window.get(), QKeySequence(keys)); }, answers);
}

bool ViewWindowTests::drop(const QStringList &paths) const
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls += QUrl::fromLocalFile(path);
    data.setUrls(urls);
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(window.get(), &enter);
    QDropEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    if (enter.isAccepted())
        QApplication::sendEvent(window.get(), &event);
    return enter.isAccepted();
}

QCustomPlot &ViewWindowTests::plotOf(const char *page) const
{
    auto *const plot = named<QCustomPlot>(*named<QWidget>(*window, page), "plot");
    plot->replot();
    return *plot;
}

QCustomPlot &ViewWindowTests::picks() const
{
    return plotOf("picksPage");
}

QCustomPlot &ViewWindowTests::record() const
{
    return plotOf("recordPage");
}

QString ViewWindowTests::shownPage() const
{
    return named<QStackedWidget>(*window, "pages")->currentWidget()->objectName();
}

QStringList ViewWindowTests::tabs() const
{
    const auto *const bar = named<QTabBar>(*window, "tabs");
    QStringList names;
    for (int i = 0; i < bar->count(); ++i)
        names += (i == bar->currentIndex() ? "*" : "") + bar->tabText(i);
    return names;
}

QStringList ViewWindowTests::findings() const
{
    const auto *const list = named<QListWidget>(*window, "findingList");
    QStringList lines;
    for (int i = 0; i < list->count(); ++i)
        lines += list->item(i)->text();
    return lines;
}

QStringList ViewWindowTests::messages() const
{
    const QString lines = named<QPlainTextEdit>(*window, "messages")->toPlainText();
    return lines.isEmpty() ? QStringList() : lines.split('\n');
}

QString ViewWindowTests::inView(const QCustomPlot &plot) const
{
    QCPAxisRect *const axes = plot.axisRect(plot.axisRectCount() - 1);
    return rangeOf(*axes->axis(QCPAxis::atBottom)) + ' ' + rangeOf(*axes->axis(QCPAxis::atLeft));
}
