// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QProxyStyle>
#include <QStringList>
#include <QTranslator>

#include <functional>
#include <string>
#include <vector>

/// Runs Qt tests with an application whose home is an empty folder and whose file dialogs are Qt's
/// own. A test function that takes longer than a minute ends the program.
int runWindowTests(QObject *tests, int argc, char *argv[]);

/// Runs the tests of one class.
using RunTests = int(int argc, char *argv[]);

/// Runs the tests of the file that the first argument names without its "_test.cpp", for instance
/// view_records those of ViewRecordsTest. The other arguments are for Qt.
int runNamedTests(int argc, char *argv[]);

/// Adds to what runNamedTests() knows; returns true.
bool addTests(const QMetaObject &tests, RunTests *run);

/// Instantiated, adds a class of tests to those.
template <typename Tests>
struct WindowTests
{
    static int run(int argc, char *argv[])
    {
        Tests tests;
        return runWindowTests(&tests, argc, argv);
    }
    static inline const bool isAdded = addTests(Tests::staticMetaObject, run);
};

/// For init(): a slot without its button fails the test, and the log is kept clean of what Qt's
/// windowless platform says about itself.
void prepareTest();

/// The child of `parent` with that name, which must be there.
template <typename Widget>
Widget *named(const QObject &parent, const char *name)
{
    Widget *const found = parent.findChild<Widget *>(QLatin1String(name));
    if (found == nullptr)
        qFatal("no %s", name);
    return found;
}

/// What the user does in a modal window; it must close the window in the end.
using Answer = std::function<void(QDialog &)>;

/// Runs `action`, which opens modal windows, and returns what was to be seen, line by line: message
/// boxes, what answers note(), and whatever went wrong (a window without an answer, an answer
/// without a window, a window that stays open). A message box with OK alone is confirmed; every
/// other window gets the next answer.
[[nodiscard]] QStringList watch(const std::function<void()> &action,
                                const std::vector<Answer> &answers = {});

/// watch() for a click with the mouse on a button of the window.
[[nodiscard]] QStringList click(const QWidget &window, const char *button,
                                const std::vector<Answer> &answers = {});

/// Adds a line to what watch() returns.
void note(const QString &line);

/// What watch() returns for the message boxes of the converter window.
inline const QString conversionDone =
    "Information of Convert2VelarixDialog: Info: Conversion done [OK]";
inline const QString formatNotRecognized =
    "Warning of Convert2VelarixDialog: Warning: Ops... Input format not recognized [OK]";
inline const QString conversionNotCompleted =
    "Warning of Convert2VelarixDialog: Warning: Ops... Conversion not completed [OK]";

/// Turns the tool box of the converter window to a page, by a click on its tab.
void turnTo(const QWidget &window, const char *page);

/// The text of a line edit, label or button.
QString textOf(const QWidget &window, const char *name);

/// Replaces the text of a line edit by typing.
void type(const QWidget &window, const char *edit, const QString &typed);

/// Clicks into the square of a check box.
void tick(const QWidget &window, const char *box);

/// The answer that chooses files in a file dialog, by typing their full names, after choosing the
/// filter there unless it is empty. What the dialog then hands out goes to `chosen`.
Answer choose(const QStringList &names, const QString &filter = {}, QStringList *chosen = nullptr);

/// The answer that notes what a file dialog shows, and cancels.
Answer lookAround();

/// The answer that cancels.
Answer cancel();

/// The answer that clicks a button of a message box.
Answer press(QMessageBox::StandardButton button);

/// The answer that notes what a shot-position dialog shows, as "file: x, elevation", replaces it
/// and accepts.
Answer placeShot(const QString &x, const QString &elevation);

/// The answer that notes the same and cancels.
Answer refuseShot();

/// A style that leaves much room, margins of 23 and gaps of 29, wherever a form says nothing.
class WideStyle : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
};

/// While it lives, puts every text that is asked for in one context into angle brackets.
class MarkingTranslator : public QTranslator
{
public:
    explicit MarkingTranslator(const char *context);
    ~MarkingTranslator() override;
    bool isEmpty() const override
    {
        return false;
    }
    QString translate(const char *context, const char *source, const char *disambiguation,
                      int count) const override;

private:
    const char *wanted;
};

/// Bytes in UTF-8 as a text.
QString text(const std::string &bytes);
