// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "console/command_line.h"
#include "console/messages.h"
#include "field/arguments.h"
#include "field/check_command.h"
#include "field/convert_command.h"
#include "field/formats_command.h"
#include "field/info_command.h"
#include "field/request.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Command
{
    QString name;
    bool takesFiles;
    QStringList options;
    int (*run)(const Request &request);
};

const std::array commands = {
    Command{"info", true, {"json", "from", "times-in", "shots"}, runInfo},
    Command{"check", true, {"json", "strict", "tolerance", "from", "times-in", "shots"}, runCheck},
    Command{"convert",
            true,
            {"output", "to", "from", "times-in", "shots", "topography", "byte-order", "millivolts",
             "strict"},
            runConvert},
    Command{"formats", false, {}, runFormats},
};

constexpr char commandNames[] = "info, check, convert or formats";

constexpr char description[] =
    "Reads what was meant in first-break picks and seismic records, checks it, and\n"
    "converts it in every direction that makes sense.\n"
    "\n"
    "  convert2velarix-field info FILE... [--json]\n"
    "  convert2velarix-field check FILE... [--json] [--strict] [--tolerance MS]\n"
    "  convert2velarix-field convert FILE... -o OUT [options]\n"
    "  convert2velarix-field formats\n"
    "\n"
    "The format of a file is found by its content. All picks become one survey; of\n"
    "several records each becomes a file in the folder OUT.\n"
    "\n"
    "The exit status is 0 when all went well, 1 when a file was refused or could not\n"
    "be written, or with --strict when there was a finding or a remark, and 2 for\n"
    "wrong usage. What fails leaves older outputs as they were.";

void addOptions(QCommandLineParser &parser)
{
    parser.addOption({{"o", "output"}, "The file to write; of several records, a folder.", "OUT"});
    parser.addOption({"to", "Format to write; otherwise the extension of OUT decides.", "format"});
    addReadingOptions(parser);
    parser.addOption({"byte-order",
                      "Of Seismic Unix output, little or big; otherwise this machine's.", "order"});
    parser.addOption({"millivolts", "Write samples times their factor to Seismic Unix."});
    parser.addOption(
        {"tolerance", "By how many milliseconds reciprocal picks may differ: 2.", "MS"});
    parser.addOption({"strict", "Fail when there is a finding, or a remark on an input."});
    parser.addOption({"json", "Write one JSON object to the standard output."});
    parser.addPositionalArgument("command", commandNames);
    parser.addPositionalArgument("files", "The files to read.", "[files...]");
}

bool canWrite(const Format &format)
{
    return format.writePicks != nullptr || format.writesRecords;
}

std::string takeTolerance(const QCommandLineParser &parser, double &tolerance)
{
    if (!parser.isSet("tolerance"))
        return "";
    bool isNumber = false;
    tolerance = parser.value("tolerance").toDouble(&isNumber);
    return isNumber && std::isfinite(tolerance) && tolerance >= 0.0
               ? ""
               : "--tolerance takes milliseconds, not \"" + parser.value("tolerance").toStdString()
                     + '"';
}

/// What is wrong with the use of a command; empty when nothing is.
std::string wrongUsageOf(const Command &command, const QCommandLineParser &parser)
{
    const QStringList files = parser.positionalArguments().mid(1);
    for (const QString &option : parser.optionNames()) {
        const QString name = option == "o" ? "output" : option;
        if (!command.options.contains(name))
            return (command.name + " takes no --" + name).toStdString();
    }
    if (std::string reason = wrongValuesOf(parser); !reason.empty())
        return reason;
    if (!command.takesFiles && !files.isEmpty())
        return command.name.toStdString() + " takes no files";
    if (command.takesFiles && (files.isEmpty() || files.contains("")))
        return "an input file is needed";
    if (command.options.contains("output") && !parser.isSet("output"))
        return "an output is needed: -o OUT";
    return "";
}

/// Fills the request from the options; returns what is wrong with one.
std::string takeOptions(const QCommandLineParser &parser, Request &request)
{
    for (const QString &file : parser.positionalArguments().mid(1))
        request.files.push_back(file.toStdString());
    request.output = parser.value("output").toStdString();
    request.isInMillivolts = parser.isSet("millivolts");
    request.isStrict = parser.isSet("strict");
    request.isJson = parser.isSet("json");
    for (const std::string &reason :
         {takeReadingOptions(parser, request), takeFormat(parser, "to", canWrite, request.to),
          takeWord(parser, "byte-order", "little", ByteOrder::littleEndian, "big",
                   ByteOrder::bigEndian, request.byteOrder),
          takeTolerance(parser, request.tolerance)})
        if (!reason.empty())
            return reason;
    return "";
}

int run(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        return refuseUsage(std::string("a command is needed: ") + commandNames);
    const auto command =
        std::find_if(commands.begin(), commands.end(),
                     [&](const Command &candidate) { return candidate.name == arguments.front(); });
    if (command == commands.end())
        return refuseUsage('"' + arguments.front().toStdString()
                           + "\" is no command: the commands are " + commandNames);
    Request request;
    std::string reason = wrongUsageOf(*command, parser);
    if (reason.empty())
        reason = takeOptions(parser, request);
    return reason.empty() ? command->run(request) : refuseUsage(reason);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("convert2velarix-field");
    QCoreApplication::setApplicationVersion(PROJECT_VERSION);

    QCommandLineParser parser;
    const std::string reason = parseArguments(argc, argv, description, addOptions, parser);
    return reason.empty() ? run(parser) : refuseUsage(reason);
}
