// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/convert2velarix_dialog.h"
#include "tests/support/support.h"
#include "tests/support/window.h"

#include <memory>

/// What "Convert" showed and wrote to the standard streams.
struct Outcome
{
    QStringList seen;
    QString output;
    QString error;
};

/// Tests of the converter window, each with a window and a folder of its own.
class ConverterWindowTests : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    /// Replaces the window by a new one, as after a start of the program.
    void openWindow();

    /// The full name of a file of the folder.
    QString path(const QString &name) const;
    /// Writes a file into the folder, by default of one generic receiver line; gives its full name.
    QString file(const std::string &name, const std::string &bytes = "0;100;0.001\n") const;

    /// What a file of the folder holds, "nothing" when there is none.
    QString written(const QString &name) const;
    /// The same, for files that are no text.
    QByteArray bytesOf(const char *name) const;
    static QByteArray bytesOf(const std::string &bytes);

    /// Chooses files with a button of the window.
    void browse(const char *button, const QStringList &names, const QString &filter) const;
    /// Chooses a file by page, button and filter; none when these are empty.
    void chooseAs(const QStringList &choice, const QString &name) const;

    Outcome convert(const std::vector<Answer> &answers = {}) const;

    std::unique_ptr<TemporaryFolder> folder;
    std::unique_ptr<Convert2VelarixDialog> window;
};
