// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/arguments.h"

#include <vector>

namespace {

/// The names of the formats that `can` do something: "otte, sgt or csv".
template <typename Can>
std::string namesOf(Can can)
{
    std::vector<std::string> names;
    for (const Format &format : formats())
        if (can(format))
            names.push_back(format.name);
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 == names.size() ? " or " : ", ") + names[i];
    return text;
}

bool canRead(const Format &format)
{
    return format.readPicks != nullptr || format.readRecord != nullptr;
}

} // namespace

std::string wrongValuesOf(const QCommandLineParser &parser)
{
    QStringList values = parser.positionalArguments();
    for (const QString &option : parser.optionNames()) {
        const QString name = option == "o" ? "output" : option;
        if (parser.values(name).size() > 1)
            return ("--" + name + " is given twice").toStdString();
        if (parser.values(name).contains(""))
            return ("--" + name + " needs a value").toStdString();
        values += parser.values(name);
    }
    return values.contains("-")
               ? "standard input and output are not taken: name a file instead of \"-\""
               : "";
}

void addReadingOptions(QCommandLineParser &parser)
{
    parser.addOption({"from", "Format of files whose content could be of two.", "format"});
    parser.addOption({"times-in", "Unit of times in generic and Geogiga files, s or ms.", "unit"});
    parser.addOption(
        {"shots", "Shot positions of generic files, a line file;x;elevation each.", "file"});
    parser.addOption(
        {"topography", "Take all elevations from this file, a line x;elevation each.", "file"});
}

std::string takeReadingOptions(const QCommandLineParser &parser, Request &request)
{
    request.shotList = parser.value("shots").toStdString();
    request.topography = parser.value("topography").toStdString();
    const std::string reason = takeFormat(parser, "from", canRead, request.from);
    return !reason.empty() ? reason
                           : takeWord(parser, "times-in", "s", TimeUnit::seconds, "ms",
                                      TimeUnit::milliseconds, request.timesIn);
}

std::string takeFormat(const QCommandLineParser &parser, const QString &option,
                       bool (*can)(const Format &), const Format *&format)
{
    if (!parser.isSet(option))
        return "";
    const std::string name = parser.value(option).toStdString();
    format = formatNamed(name);
    return format != nullptr && can(*format)
               ? ""
               : "--" + option.toStdString() + " takes " + namesOf(can) + ", not \"" + name + '"';
}
