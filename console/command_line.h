// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCommandLineParser>

#include <string>

/// Parses the process's arguments with the options that `addOptions` adds after --help and
/// --version, which are answered here and end the process. Returns what is wrong with the
/// arguments, or nothing.
std::string parseArguments(int argc, char *argv[], const char *description,
                           void (*addOptions)(QCommandLineParser &), QCommandLineParser &parser);
