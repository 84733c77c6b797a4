// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "app/convert2velarix_dialog.h"

#include <QApplication>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

/// Gives the null device to standard streams that were closed when the program was started: the
/// next file opened, be it an output or the connection to the display, would get their lines.
void openStandardStreams()
{
#ifndef _WIN32
    int descriptor = open("/dev/null", O_RDWR);
    while (descriptor >= STDIN_FILENO && descriptor <= STDERR_FILENO)
        descriptor = dup(descriptor);
    close(descriptor);
#endif
}

} // namespace

int main(int argc, char *argv[])
{
    openStandardStreams();
    QApplication application(argc, argv);
    Convert2VelarixDialog dialog;
    dialog.show();
    return QApplication::exec();
}
