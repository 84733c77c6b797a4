// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <QToolBox>

#include <sys/stat.h>

#include <iostream>

/// main() of the program itself, renamed where it is compiled for this test.
int applicationMain(int argc, char *argv[]);

namespace {

QString userAction; ///< of this program, run as the program itself

struct Farewell
{
    ~Farewell()
    {
        std::cout << ", static objects destroyed" << std::flush;
    }
};

void look()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    QWidget *const window = windows.value(0);
    std::cout << "windows " << windows.size() << ", " << window->metaObject()->className()
              << ", page " << named<QToolBox>(*window, "toolBox")->currentIndex() << ", ";
    if (window->isModal() || window->parent() != nullptr || !window->isVisible())
        std::cout << "no free window, ";
    if (!QCoreApplication::organizationName().isEmpty()
        || QCoreApplication::applicationName() != "application_tests"
        || !QCoreApplication::applicationVersion().isEmpty() || !QApplication::windowIcon().isNull()
        || !QApplication::quitOnLastWindowClosed())
        std::cout << "application not plain, ";
    window->close();
}

/// The standard streams that are the null device, as bits.
int nullStreams()
{
    int streams = 0;
    struct stat nullDevice;
    struct stat stream;
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        if (stat("/dev/null", &nullDevice) == 0 && fstat(descriptor, &stream) == 0
            && S_ISCHR(stream.st_mode) && stream.st_rdev == nullDevice.st_rdev)
            streams |= 1 << descriptor;
    }
    return streams;
}

void act()
{
    QWidget *const window = QApplication::topLevelWidgets().value(0);
    if (userAction == "look")
        look();
    std::cout << "not flushed";
    QObject::connect(qobject_cast<QDialog *>(window), &QDialog::finished,
                     [] { std::cout << ", window closed"; });
    if (userAction == "quit")
        QTest::mouseClick(named<QAbstractButton>(*window, "quitButton"), Qt::LeftButton);
    else if (userAction == "Esc")
        QTest::keyClick(window, Qt::Key_Escape);
    else if (userAction == "close")
        window->close();
    else if (userAction == "exit 7")
        QCoreApplication::exit(7);
    else if (userAction == "streams")
        QCoreApplication::exit(nullStreams());
}

} // namespace

class ApplicationTest : public QObject
{
    Q_OBJECT

private slots:
    void quitEndsTheProgramAtOnce()
    {
        QCOMPARE(runProgram("quit"), "exit 0: not flushed, static objects destroyed");
    }

    void closingTheWindowEndsTheProgram_data()
    {
        QTest::addColumn<QString>("action");
        for (const char *action : {"Esc", "close"})
            QTest::newRow(action) << action;
    }

    void closingTheWindowEndsTheProgram()
    {
        QFETCH(QString, action);
        QCOMPARE(runProgram(action),
                 "exit 0: not flushed, window closed, main returned 0, static objects destroyed");
    }

    void programReturnsWhatItsEventLoopReturned()
    {
        QCOMPARE(runProgram("exit 7"),
                 "exit 7: not flushed, main returned 7, static objects destroyed");
    }

    void programShowsOneModelessWindowAndSetsNothingElse()
    {
        QCOMPARE(runProgram("look"),
                 "exit 0: windows 1, Convert2VelarixDialog, page 0, not flushed, main returned 0, "
                 "static objects destroyed");
    }

    void applicationGetsTheCommandLine()
    {
        QCOMPARE(runProgram("Esc", {"-platform", "offscreen"}),
                 "exit 0: not flushed, window closed, main returned 0, static objects destroyed");
    }

    void programHasNoOptionsOfItsOwn()
    {
        QCOMPARE(runProgram("look", {"--help", "--version", "line.vs"}),
                 "exit 0: windows 1, Convert2VelarixDialog, page 0, not flushed, main returned 0, "
                 "static objects destroyed");
    }

    void streamsClosedAtTheStartAreTheNullDevice_data()
    {
        QTest::addColumn<int>("nullStreams");
        QTest::newRow("") << 0;
        QTest::newRow("<&-") << 1;
        QTest::newRow(">&-") << 2;
        QTest::newRow("2>&-") << 4;
        QTest::newRow("<&- 2>&-") << 5;
        QTest::newRow("<&- >&- 2>&-") << 7;
    }

    void streamsClosedAtTheStartAreTheNullDevice()
    {
        QFETCH(int, nullStreams);
        QProcess program;
        program.start("sh", {"-c", QString("exec \"$0\" streams ") + QTest::currentDataTag(),
                             QCoreApplication::applicationFilePath()});
        QVERIFY(program.waitForFinished(20000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), nullStreams);
    }

    void programFileStartsAndWaitsForTheUser()
    {
        QProcess program;
        program.start(CONVERT2VELARIX_PROGRAM, {"--help"});
        QVERIFY(program.waitForStarted());
        QVERIFY(!program.waitForFinished(1000));
        QCOMPARE(program.readAllStandardOutput(), "");
        program.kill();
        QVERIFY(program.waitForFinished());
    }

private:
    /// Runs this program again as the program itself with one action of its user, and tells how it
    /// ended and what it wrote.
    static QString runProgram(const QString &action, const QStringList &arguments = {})
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        if (arguments.contains("-platform")) {
            for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
                environment.remove(name);
        }
        // "Quit" ends the program where it stands: what a leak checker would find is no leak.
        if (action == "quit")
            environment.insert("ASAN_OPTIONS",
                               environment.value("ASAN_OPTIONS") + ":detect_leaks=0");
        program.setProcessEnvironment(environment);
        program.start(QCoreApplication::applicationFilePath(), QStringList(action) + arguments);
        if (!program.waitForFinished(20000)) {
            program.kill();
            program.waitForFinished();
            return "does not end";
        }
        if (program.exitStatus() != QProcess::NormalExit)
            return "crashed";
        return QString("exit %1: ").arg(program.exitCode())
               + QString::fromUtf8(program.readAllStandardOutput());
    }
};

int main(int argc, char *argv[])
{
    const QStringList actions = {"quit", "Esc", "close", "exit 7", "look", "streams"};
    if (argc > 1 && actions.contains(argv[1])) {
        static const Farewell farewell;
        userAction = argv[1];
        qAddPreRoutine([] { QTimer::singleShot(100, act); });
        const int result = applicationMain(argc, argv);
        std::cout << ", main returned " << result;
        return result;
    }
    return runNamedTests(argc, argv);
}

template struct WindowTests<ApplicationTest>;

#include "application_test.moc"
