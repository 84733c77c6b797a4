// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// What a window of the program's size costs at least.

#include "bench/show_and_leave.h"

#include <QVBoxLayout>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QDialog dialog;
    dialog.setLayout(new QVBoxLayout);
    dialog.resize(640, 480);
    showAndLeave(dialog);
}
