// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/support.h"
#include "tests/support/view_window.h"
#include "view/viewed_files.h"
#include "view/work_beside.h"

#include <QElapsedTimer>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <stdexcept>

class ViewReadingTest : public ViewWindowTests
{
    Q_OBJECT

private slots:
    void workSaysWhetherItIsDone()
    {
        for (const bool isDone : {false, true})
            QCOMPARE(workBeside(*window, "Working...", [&](const GoesOn &) { return isDone; }),
                     isDone);
    }

    void workThatThrowsIsNotDone()
    {
        QVERIFY(!workBeside(*window, "Working...",
                            [](const GoesOn &) -> bool { throw std::runtime_error("memory"); }));
    }

    void longWorkShowsHowFarItIsAndCanBeGivenUp()
    {
        QString shown;
        QTimer looking;
        connect(&looking, &QTimer::timeout, this, [&] {
            auto *const dialog = window->findChild<QProgressDialog *>();
            if (dialog == nullptr || !dialog->isVisible() || dialog->value() == 0)
                return;
            shown = dialog->labelText() + ' '
                    + QString::number(dialog->value() * 100 / dialog->maximum()) + " %";
            QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
        });
        looking.start(20);
        bool wasToldToEnd = false;
        const bool isDone = workBeside(*window, "Working...", [&](const GoesOn &goesOn) {
            while (goesOn(0.5))
                QThread::msleep(5);
            wasToldToEnd = true;
            return true;
        });
        QVERIFY(!isDone);
        QVERIFY(wasToldToEnd);
        QCOMPARE(shown, QString("Working... 49 %"));
    }

    void shortWorkShowsNothing()
    {
        bool isSeen = false;
        QTimer looking;
        connect(&looking, &QTimer::timeout, this, [&] {
            const auto *const dialog = window->findChild<QProgressDialog *>();
            isSeen = isSeen || (dialog != nullptr && dialog->isVisible());
        });
        looking.start(1);
        QVERIFY(workBeside(*window, "Working...", [](const GoesOn &goesOn) {
            QThread::msleep(50);
            return goesOn(1.0);
        }));
        QVERIFY(!isSeen);
    }

    void readingIsGivenUpBetweenFiles()
    {
        ViewedFiles files;
        std::vector<Report> reports;
        Request request;
        request.files = {folder->write("a.vs", cleanSurvey)};
        QVERIFY(readFiles(request, files, reports, [](double) { return true; }));
        QCOMPARE(files.picks.survey.shots.size(), 2);

        request.files = {folder->write("b.vs", cleanSurvey), folder->write("c.vs", cleanSurvey)};
        std::vector<double> fractions;
        QVERIFY(!readFiles(request, files, reports, [&](double fraction) {
            fractions.push_back(fraction);
            return false;
        }));
        QCOMPARE(fractions, std::vector{0.5}); // after the first of two files of one size
        QCOMPARE(files.picks.survey.shots.size(), 2);
        QCOMPARE(files.pickPaths.size(), 1);
    }

    void progressGoesTo1()
    {
        ViewedFiles files;
        std::vector<Report> reports;
        Request request;
        request.files = {folder->write("a.vs", cleanSurvey), folder->path("none.vs")};
        double last = 0.0;
        QVERIFY(readFiles(request, files, reports, [&](double fraction) {
            Q_ASSERT(fraction >= last);
            last = fraction;
            return true;
        }));
        QCOMPARE(last, 1.0);
    }
};

template struct WindowTests<ViewReadingTest>;

#include "view_reading_test.moc"
