// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/request.h"

#include <QCommandLineParser>

#include <optional>
#include <string>

// What the command lines of the command and of the window of pictures have in common. Each function
// that returns a text returns what is wrong, or nothing.

/// Looks for options that are given twice or lack their value, and for "-" as a file.
std::string wrongValuesOf(const QCommandLineParser &parser);

/// Adds --from, --times-in, --shots and --topography.
void addReadingOptions(QCommandLineParser &parser);

/// Fills the request from them.
std::string takeReadingOptions(const QCommandLineParser &parser, Request &request);

/// Sets `format` to what an option names, which `can` must hold for.
std::string takeFormat(const QCommandLineParser &parser, const QString &option,
                       bool (*can)(const Format &), const Format *&format);

/// Sets `value` to that of the word that an option gives.
template <typename Value>
std::string takeWord(const QCommandLineParser &parser, const QString &option, const QString &first,
                     Value firstValue, const QString &second, Value secondValue,
                     std::optional<Value> &value)
{
    if (!parser.isSet(option))
        return "";
    const QString word = parser.value(option);
    value = word == first ? firstValue : secondValue;
    return word == first || word == second
               ? ""
               : ("--" + option + " takes " + first + " or " + second + ", not \"" + word + '"')
                     .toStdString();
}
