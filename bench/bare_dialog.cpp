// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// What a window of the program's size costs at least: a dialog with one label, because any text
// makes Qt look for the fonts.

#include "bench/show_and_leave.h"

#include <QLabel>
#include <QVBoxLayout>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QDialog dialog;
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QLabel("Text"));
    dialog.resize(640, 480);
    showAndLeave(dialog);
}
