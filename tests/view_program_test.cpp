// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_window.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

/// main() of the program itself, renamed where it is compiled for this test.
int viewMain(int argc, char *argv[]);

namespace {

QStringList seen; ///< of the program's window

void look()
{
    for (QWidget *const widget : QApplication::topLevelWidgets()) {
        if (qobject_cast<ViewerWindow *>(widget) == nullptr)
            continue;
        seen += widget->windowTitle();
        seen += shownTitle(*named<QCustomPlot>(*named<QWidget>(*widget, "picksPage"), "plot"));
        widget->close();
    }
}

void lookLater()
{
    QTimer::singleShot(500, look);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(lookLater)

class ViewProgramTest : public QObject
{
    Q_OBJECT

private slots:
    void windowOpensWithTheFilesNamed()
    {
        const std::string path = folder.write("line.vs", cleanSurvey);
        QCOMPARE(run({path}), 0);
        QCOMPARE(seen,
                 QStringList({"Picks - Convert2Velarix: pictures", "line.vs: 2 shots, 8 picks"}));
    }

    void windowOpensWithoutFiles()
    {
        QCOMPARE(run({}), 0);
        QCOMPARE(seen, QStringList({"Convert2Velarix: pictures", ""}));
    }

    void optionsOfReadingHoldInTheWindow()
    {
        const std::string path = folder.write("shot.txt", "0;0;1\n5;0;4\n");
        const std::string list = folder.write("shots.txt", "shot.txt;2.5;0\n");
        QCOMPARE(run({path, "--shots", list, "--times-in", "ms"}), 0);
        QCOMPARE(seen.back(), QString("shot.txt: 1 shot, 2 picks"));
    }

private:
    static int run(const std::vector<std::string> &arguments)
    {
        std::vector<std::string> words = {"convert2velarix-view"};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::vector<char *> pointers;
        for (std::string &word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
        seen.clear();
        return viewMain(static_cast<int>(words.size()), pointers.data());
    }

    TemporaryFolder folder;
};

int main(int argc, char *argv[])
{
    const TemporaryFolder home;
    qputenv("HOME", QByteArray::fromStdString(home.path("")));
    ViewProgramTest tests;
    return QTest::qExec(&tests, argc - 1, argv + 1); // the first argument names this file
}

#include "view_program_test.moc"
