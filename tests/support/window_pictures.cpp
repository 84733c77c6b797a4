// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// Uses the converter as the guide says and takes pictures of its windows:
//     window_pictures PICTURES_FOLDER
// The folder that $HOME names holds line.vs and shot1.txt of the samples.

#include "tests/support/filters.h"
#include "tests/support/window.h"

#include "app/convert2velarix_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QTest>

namespace {

QString atHome(const QString &file)
{
    return QDir::home().filePath(file);
}

void take(QWidget &window, const QString &picture)
{
    QTest::qWait(100);
    if (!window.grab().save(picture))
        qFatal("%s cannot be written", qPrintable(picture));
}

/// Takes a picture of every message box.
class BoxPictures : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (auto *const box = qobject_cast<QMessageBox *>(object);
            box != nullptr && event->type() == QEvent::Show)
            box->grab().save("window_done.png");
        return false;
    }
};

/// Chooses the filter and the file, and takes the picture before it accepts them.
void chooseLine(QDialog &window)
{
    auto *const dialog = qobject_cast<QFileDialog *>(&window);
    if (dialog == nullptr)
        return note("no file dialog");
    dialog->selectNameFilter(seisImager);
    QTest::qWait(500); // until the folder is listed
    type(window, "fileNameEdit", "line.vs");
    take(window, "window_filter.png");
    choose({atHome("line.vs")}, seisImager)(window);
}

void placeFirstShot(QDialog &window)
{
    type(window, "lineEdit", "-5");
    type(window, "lineEdit_2", "212.15");
    take(window, "window_shot.png");
    window.accept();
}

/// Converts a SeisImager file; returns what was to be seen.
QStringList convertSeisImager(Convert2VelarixDialog &window)
{
    turnTo(window, "page");
    const QStringList seen = click(window, "browseInputButton", {chooseLine});
    type(window, "outputEdit", atHome("line.otte"));
    take(window, "window.png");
    return seen + click(window, "convertButton");
}

/// Converts a generic file, for whose shot the window asks.
QStringList convertGeneric(Convert2VelarixDialog &window)
{
    turnTo(window, "page_3");
    const QStringList seen =
        click(window, "browseInputButton_3", {choose({atHome("shot1.txt")}, generic)});
    type(window, "outputGenTxt", atHome("shot1.otte"));
    return seen + click(window, "convertButton", {placeFirstShot});
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    if (argc != 2 || !QDir::setCurrent(argv[1]))
        qFatal("window_pictures PICTURES_FOLDER");
    BoxPictures boxes(&application);
    application.installEventFilter(&boxes);
    Convert2VelarixDialog window;
    window.show();
    const QStringList seen = convertSeisImager(window) + convertGeneric(window);
    if (seen != QStringList{conversionDone, conversionDone})
        qFatal("%s", qPrintable(seen.join('\n')));
}
