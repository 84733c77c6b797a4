// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/work_beside.h"

#include <QEventLoop>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <memory>

bool workBeside(QWidget &window, const QString &title,
                const std::function<bool(const GoesOn &goesOn)> &work)
{
    constexpr int steps = 1000;
    constexpr int often = 30; // milliseconds
    std::atomic<double> done = 0.0;
    std::atomic<bool> isGivenUp = false;
    bool isDone = false;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            isDone = work([&](double fraction) {
                done = fraction;
                return !isGivenUp;
            });
        } catch (const std::exception &) {
            isDone = false; // of memory, most likely
        }
    }));
    QProgressDialog dialog(title, QObject::tr("Give Up"), 0, steps, &window);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setMinimumDuration(500);
    dialog.setAutoReset(false);
    dialog.setAutoClose(false);
    dialog.setValue(0);
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &dialog, [&] {
        if (dialog.wasCanceled())
            isGivenUp = true;
        else
            dialog.setValue(static_cast<int>(done * (steps - 1)));
    });
    QObject::connect(&dialog, &QProgressDialog::canceled, &loop, [&] { isGivenUp = true; });
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    timer.start(often);
    thread->start();
    loop.exec();
    thread->wait();
    return isDone && !isGivenUp;
}
