// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// What a window of the program's size costs at least: empty or, given a text, with a label, for
// which Qt looks for the fonts first.

#include "bench/show_and_leave.h"

#include <QLabel>
#include <QVBoxLayout>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QDialog dialog;
    auto *layout = new QVBoxLayout(&dialog);
    if (argc > 1)
        layout->addWidget(new QLabel(argv[1]));
    dialog.resize(640, 480);
    showAndLeave(dialog);
}
