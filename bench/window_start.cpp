// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// The program up to its window.

#include "app/convert2velarix_dialog.h"
#include "bench/show_and_leave.h"

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    Convert2VelarixDialog dialog;
    showAndLeave(dialog);
}
