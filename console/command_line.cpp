// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "console/command_line.h"

#include <QCoreApplication>

std::string parseArguments([[maybe_unused]] int argc, [[maybe_unused]] char *argv[],
                           const char *description, void (*addOptions)(QCommandLineParser &),
                           QCommandLineParser &parser)
{
    parser.setApplicationDescription(description);
    const QCommandLineOption help({"h", "help"}, "Show this help.");
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    addOptions(parser);

    const QStringList arguments = QCoreApplication::arguments();
#ifndef _WIN32
    for (int i = 1; i < argc; ++i)
        if (arguments[i].toLocal8Bit() != argv[i])
            return "argument " + std::to_string(i) + " is not valid UTF-8";
#endif
    if (!parser.parse(arguments)) {
        QString reason = parser.errorText();
        if (reason.endsWith('.'))
            reason.chop(1);
        return reason.toStdString();
    }
    if (parser.isSet(help))
        parser.showHelp();
    if (parser.isSet(version))
        parser.showVersion();
    return "";
}
