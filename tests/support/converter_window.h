// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/convert2velarix_dialog.h"
#include "tests/support/support.h"
#include "tests/support/window.h"

#include <QTest>

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
protected:
    /// To be called by init().
    void openWindow()
    {
        prepareTest();
        folder = std::make_unique<TemporaryFolder>();
        window = std::make_unique<Convert2VelarixDialog>();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    /// To be called by cleanup().
    void closeWindow()
    {
        window.reset();
        folder.reset();
    }

    QString path(const QString &name) const
    {
        return text(folder->path(name.toStdString()));
    }

    QString file(const std::string &name, const std::string &bytes) const
    {
        return text(folder->write(name, bytes));
    }

    /// What a file of the folder holds, "nothing" when there is none.
    QString written(const QString &name) const
    {
        const std::string full = path(name).toStdString();
        return exists(full) ? text(readFile(full)) : "nothing";
    }

    /// The same, for files that are no text.
    static QByteArray bytesOf(const std::string &bytes)
    {
        return QByteArray::fromStdString(bytes).toPercentEncoding(" ");
    }
    QByteArray bytesOf(const char *name) const
    {
        const std::string full = folder->path(name);
        return exists(full) ? bytesOf(readFile(full)) : "nothing";
    }

    void browse(const char *button, const QStringList &names, const QString &filter) const
    {
        QCOMPARE(click(*window, button, {choose(names, filter)}), QStringList());
    }

    Outcome convert(const std::vector<Answer> &answers = {}) const
    {
        Outcome outcome;
        CapturedStreams streams;
        outcome.seen = click(*window, "convertButton", answers);
        streams.finish();
        outcome.output = text(streams.output);
        outcome.error = text(streams.error);
        return outcome;
    }

    std::unique_ptr<TemporaryFolder> folder;
    std::unique_ptr<Convert2VelarixDialog> window;
};
