// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QApplication>
#include <QDialog>
#include <QWindow>

#include <cstdlib>

/// Shows a dialog and ends the process, without cleaning up, as soon as it stands painted on the
/// screen: the time that the process took is the time that a user waits for the window.
[[noreturn]] inline void showAndLeave(QDialog &dialog)
{
    dialog.show();
    while (!dialog.windowHandle()->isExposed())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::_Exit(0);
}
