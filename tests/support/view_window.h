// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/support.h"
#include "tests/support/view_plot.h"
#include "tests/support/window.h"
#include "view/viewer_window.h"

#include <QListWidget>

#include <memory>

/// Two shots between and at receivers, without a finding.
inline const std::string cleanSurvey =
    "Line 7\n0 2\n7 4\n0 12\n5 4\n10 8\n20 20\n20 4\n0 30\n10 15\n20 0\n30 15\n";

/// Two shots whose times differ the other way round, 20 ms in line 5 and 26 ms in line 7.
inline const std::string reciprocalSurvey = "Line 8\n0 2\n0 2\n5 10\n10 20\n10 2\n0 26\n5 10\n";

/// Tests of the window of pictures, each with a window and a folder of its own.
class ViewWindowTests : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    void openWindow(const Request &reading = {});
    /// Writes a file into the folder; gives its full name.
    QString file(const std::string &name, const std::string &bytes) const;
    QString path(const QString &name) const;
    /// Writes files of these bytes and opens them.
    void open(const std::string &name, const std::string &bytes);

    /// Presses keys in the window; gives what watch() gives.
    QStringList press(const char *keys, const std::vector<Answer> &answers = {}) const;
    /// Puts files down on the window.
    bool drop(const QStringList &paths) const;

    /// The plot of the picks or the record, as it is on the screen now.
    QCustomPlot &plotOf(const char *page) const;
    QCustomPlot &picks() const;
    QCustomPlot &record() const;
    /// "picksPage", "recordPage" or "emptyPage".
    QString shownPage() const;
    QStringList tabs() const;
    QStringList findings() const;
    QStringList messages() const;
    /// "-0.9,30.9 -3.6,30.9", of the axes to the right and down.
    QString inView(const QCustomPlot &plot) const;

    std::unique_ptr<TemporaryFolder> folder;
    std::unique_ptr<ViewerWindow> window;
};
