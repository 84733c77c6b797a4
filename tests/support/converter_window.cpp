// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/converter_window.h"

#include <QTest>

void ConverterWindowTests::init()
{
    prepareTest();
    folder = std::make_unique<TemporaryFolder>();
    openWindow();
}

void ConverterWindowTests::cleanup()
{
    window.reset();
    folder.reset();
}

void ConverterWindowTests::openWindow()
{
    window = std::make_unique<Convert2VelarixDialog>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

QString ConverterWindowTests::path(const QString &name) const
{
    return text(folder->path(name.toStdString()));
}

QString ConverterWindowTests::file(const std::string &name, const std::string &bytes) const
{
    return text(folder->write(name, bytes));
}

QString ConverterWindowTests::written(const QString &name) const
{
    const std::string full = path(name).toStdString();
    return exists(full) ? text(readFile(full)) : "nothing";
}

QByteArray ConverterWindowTests::bytesOf(const char *name) const
{
    const std::string full = folder->path(name);
    return exists(full) ? bytesOf(readFile(full)) : "nothing";
}

QByteArray ConverterWindowTests::bytesOf(const std::string &bytes)
{
    return QByteArray::fromStdString(bytes).toPercentEncoding(" ");
}

void ConverterWindowTests::browse(const char *button, const QStringList &names,
                                  const QString &filter) const
{
    QCOMPARE(click(*window, button, {choose(names, filter)}), QStringList());
}

void ConverterWindowTests::chooseAs(const QStringList &choice, const QString &name) const
{
    if (choice.isEmpty())
        return;
    turnTo(*window, qPrintable(choice[0]));
    browse(qPrintable(choice[1]), {name}, choice[2]);
}

Outcome ConverterWindowTests::convert(const std::vector<Answer> &answers) const
{
    Outcome outcome;
    CapturedStreams streams;
    outcome.seen = click(*window, "convertButton", answers);
    streams.finish();
    outcome.output = text(streams.output);
    outcome.error = text(streams.error);
    return outcome;
}
