// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "app/convert2velarix_dialog.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    Convert2VelarixDialog dialog;
    dialog.show();
    return QApplication::exec();
}
