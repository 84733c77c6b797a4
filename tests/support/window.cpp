// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/window.h"

#include "tests/support/support.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolBox>

#include <clocale>
#include <map>

namespace {

constexpr int longestWait = 15000; ///< milliseconds, for one window to close

QString described(const QMessageBox &box)
{
    const QMetaEnum icons = QMetaEnum::fromType<QMessageBox::Icon>();
    QStringList buttons;
    for (const QAbstractButton *button : box.buttons())
        buttons += button->text().remove(u'&');
    return QString("%1 of %2: %3: %4 [%5]")
        .arg(icons.valueToKey(box.icon()),
             box.parent() == nullptr ? "nothing" : box.parent()->objectName(), box.windowTitle(),
             box.text(), buttons.join(", "));
}

/// Looks for modal windows while an action runs. A window that an answer is working in may open
/// others, so looking goes on during an answer.
class Watcher : public QObject
{
public:
    explicit Watcher(const std::vector<Answer> &given)
        : answers(given)
    {
        lookLater();
    }

    const std::vector<Answer> &answers;
    std::size_t used = 0;
    QStringList seen;

private:
    void lookLater()
    {
        QTimer::singleShot(5, this, &Watcher::look);
    }

    void look()
    {
        lookLater();
        auto *const window = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (window == nullptr)
            return;
        if (window == answered) {
            if (sinceAnswer.elapsed() > longestWait)
                giveUp(*window, "stays open");
            return;
        }
        answered = window;
        sinceAnswer.start();
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box != nullptr)
            seen += described(*box);
        if (box != nullptr && box->standardButtons() == QMessageBox::Ok)
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        else if (used < answers.size())
            answers[used++](*window);
        else
            giveUp(*window, "has no answer");
    }

    void giveUp(QDialog &window, const char *why)
    {
        seen += QString("%1 \"%2\" %3")
                    .arg(window.metaObject()->className(), window.windowTitle(), why);
        window.reject();
    }

    QPointer<QDialog> answered;
    QElapsedTimer sinceAnswer;
};

Watcher *watcher = nullptr;

/// The list of a file dialog's filters shows runs of blanks as one.
void chooseFilter(const QFileDialog &dialog, const QString &filter)
{
    auto *const filters = named<QComboBox>(dialog, "fileTypeCombo");
    QTest::keyClick(filters, Qt::Key_Home);
    for (int i = 0; i < filters->count() && filters->currentText() != filter.simplified(); ++i)
        QTest::keyClick(filters, Qt::Key_Down);
    if (filters->currentText() != filter.simplified())
        note("no filter " + filter);
}

void noteShot(const QDialog &window)
{
    if (window.objectName() != "SetShotPositionDialog")
        note("no shot-position dialog");
    note(QString("%1: %2, %3")
             .arg(textOf(window, "fileNameLabel"), textOf(window, "lineEdit"),
                  textOf(window, "lineEdit_2")));
}

QtMessageHandler passOn = nullptr;

void dropPlatformRemarks(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message != "This plugin does not support propagateSizeHints()"
        && message != "This plugin does not support raise()")
        passOn(type, context, message);
}

std::map<QString, RunTests *> &allTests()
{
    static std::map<QString, RunTests *> tests;
    return tests;
}

} // namespace

bool addTests(const QMetaObject &tests, RunTests *run)
{
    return allTests().emplace(QString(tests.className()).toLower(), run).second;
}

int runNamedTests(int argc, char *argv[])
{
    const QString name = argc > 1 ? argv[1] : "";
    const auto found = allTests().find(QString(name).remove('_') + "test");
    if (found == allTests().end())
        qFatal("%s_test.cpp holds no test of this program.", qPrintable(name));
    argv[1] = argv[0];
    return found->second(argc - 1, argv + 1);
}

int runWindowTests(QObject *tests, int argc, char *argv[])
{
    const TemporaryFolder home;
    qputenv("HOME", QByteArray::fromStdString(home.path("")));
    qunsetenv("XDG_CONFIG_HOME");
    qputenv("QTEST_FUNCTION_TIMEOUT", "60000");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    if (qEnvironmentVariableIsSet("EXPECTED_DECIMAL_POINT")
        && qgetenv("EXPECTED_DECIMAL_POINT") != std::localeconv()->decimal_point)
        qFatal("The locale of this run is not installed.");
    return QTest::qExec(tests, argc, argv);
}

void prepareTest()
{
    QTest::failOnWarning(QRegularExpression("connectSlotsByName"));
    if (passOn == nullptr)
        passOn = qInstallMessageHandler(dropPlatformRemarks);
}

QStringList watch(const std::function<void()> &action, const std::vector<Answer> &answers)
{
    Watcher here(answers);
    watcher = &here;
    action();
    watcher = nullptr;
    for (std::size_t i = here.used; i < answers.size(); ++i)
        here.seen += QString("no window for answer %1").arg(i + 1);
    return here.seen;
}

QStringList click(const QWidget &window, const char *button, const std::vector<Answer> &answers)
{
    return watch([&] { QTest::mouseClick(named<QAbstractButton>(window, button), Qt::LeftButton); },
                 answers);
}

void note(const QString &line)
{
    watcher->seen += line;
}

void turnTo(const QWidget &window, const char *page)
{
    auto *const box = named<QToolBox>(window, "toolBox");
    const QString title = box->itemText(box->indexOf(named<QWidget>(window, page)));
    for (QAbstractButton *tab : box->findChildren<QAbstractButton *>()) {
        if (tab->text() == title)
            QTest::mouseClick(tab, Qt::LeftButton);
    }
    QVERIFY(named<QWidget>(window, page)->isVisible());
}

QString textOf(const QWidget &window, const char *name)
{
    return named<QWidget>(window, name)->property("text").toString();
}

void type(const QWidget &window, const char *edit, const QString &typed)
{
    auto *const line = named<QLineEdit>(window, edit);
    line->selectAll();
    line->insert(typed);
}

void tick(const QWidget &window, const char *box)
{
    auto *const square = named<QAbstractButton>(window, box);
    QTest::mouseClick(square, Qt::LeftButton, {}, {5, square->height() / 2});
}

Answer choose(const QStringList &names, const QString &filter, QStringList *chosen)
{
    return [=](QDialog &window) {
        auto *const dialog = qobject_cast<QFileDialog *>(&window);
        if (dialog == nullptr)
            return note("no file dialog");
        if (!filter.isEmpty())
            chooseFilter(*dialog, filter);
        named<QLineEdit>(window, "fileNameEdit")
            ->setText(names.size() == 1 ? names[0] : '"' + names.join("\" \"") + '"');
        window.accept();
        if (chosen != nullptr)
            *chosen = dialog->selectedFiles();
    };
}

Answer lookAround()
{
    return [](QDialog &window) {
        auto *const dialog = qobject_cast<QFileDialog *>(&window);
        if (dialog == nullptr)
            return note("no file dialog");
        const QFileDialog::FileMode mode = dialog->fileMode();
        note("caption: " + dialog->windowTitle());
        note(QString("mode: ")
             + (dialog->acceptMode() == QFileDialog::AcceptSave ? "save " : "open ")
             + (mode == QFileDialog::ExistingFiles  ? "several"
                : mode == QFileDialog::ExistingFile ? "one"
                : mode == QFileDialog::AnyFile      ? "any"
                                                    : "another"));
        note("filters: " + dialog->nameFilters().join(";;"));
        note("filter: " + dialog->selectedNameFilter());
        if (dialog->directory() != QDir(QDir::homePath()))
            note("folder: " + dialog->directory().path());
        if (dialog->parent() == nullptr
            || dialog->parent()->objectName() != "Convert2VelarixDialog")
            note("another parent");
        if (dialog->options() != QFileDialog::Options())
            note("options");
        if (!dialog->defaultSuffix().isEmpty())
            note("suffix: " + dialog->defaultSuffix());
        window.reject();
    };
}

Answer cancel()
{
    return [](QDialog &window) { window.reject(); };
}

Answer press(QMessageBox::StandardButton button)
{
    return [=](QDialog &window) {
        if (auto *const box = qobject_cast<QMessageBox *>(&window))
            QTest::mouseClick(box->button(button), Qt::LeftButton);
        else
            note("no message box");
    };
}

Answer placeShot(const QString &x, const QString &elevation)
{
    return [=](QDialog &window) {
        noteShot(window);
        type(window, "lineEdit", x);
        type(window, "lineEdit_2", elevation);
        QTest::keyClick(named<QLineEdit>(window, "lineEdit_2"), Qt::Key_Return);
    };
}

Answer refuseShot()
{
    return [](QDialog &window) {
        noteShot(window);
        QTest::keyClick(&window, Qt::Key_Escape);
    };
}

int WideStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                           const QWidget *widget) const
{
    switch (metric) {
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return 23;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return 29;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

MarkingTranslator::MarkingTranslator(const char *context)
    : wanted(context)
{
    QCoreApplication::installTranslator(this);
}

MarkingTranslator::~MarkingTranslator()
{
    QCoreApplication::removeTranslator(this);
}

QString MarkingTranslator::translate(const char *context, const char *source, const char *,
                                     int) const
{
    return qstrcmp(context, wanted) == 0 ? QString("<%1>").arg(source) : QString();
}

QString text(const std::string &bytes)
{
    return QString::fromStdString(bytes);
}
