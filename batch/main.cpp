// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/clear_vector_registers.h"
#include "batch/request.h"
#include "batch/seismic_command.h"
#include "batch/traveltime_command.h"
#include "console/command_line.h"
#include "console/file_checks.h"
#include "console/messages.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <limits>

namespace {

struct Format
{
    QString name;
    qsizetype mostFiles;
    QStringList options;
    int (*run)(const Request &request);
};

constexpr qsizetype anyNumber = std::numeric_limits<qsizetype>::max();

const std::array formats = {
    Format{"geogiga", 1, {"output", "strict"}, runGeogiga},
    Format{"winsism", 1, {"output", "strict"}, runWinsism},
    Format{"seisimager", anyNumber, {"output", "strict"}, runSeisImager},
    Format{"generic", anyNumber, {"output", "strict", "shot", "shots"}, runGeneric},
    Format{"su", anyNumber, {"echo", "strict"}, runSeismicUnix},
    Format{"dolang", anyNumber, {"echo", "strict"}, runDolang},
};

constexpr char formatNames[] = "geogiga, winsism, seisimager, generic, su or dolang";

constexpr char description[] =
    "Converts first-break traveltimes into one OTTE file, and seismic records into\n"
    "SEG2 files.\n"
    "\n"
    "  convert2velarix-batch geogiga LINE.txt -o LINE.otte\n"
    "  convert2velarix-batch winsism LINE.xyz -o LINE.otte\n"
    "  convert2velarix-batch seisimager A.vs [B.vs ...] -o LINE.otte\n"
    "  convert2velarix-batch generic S1.txt ... --shot X,ELEVATION ... -o LINE.otte\n"
    "  convert2velarix-batch generic --shots SHOTS.txt -o LINE.otte\n"
    "  convert2velarix-batch su [--echo] LINE.su [MORE.su ...]\n"
    "  convert2velarix-batch dolang [--echo] LINE.ADT [MORE.ADT ...]\n"
    "\n"
    "The exit status is 0 when all outputs were written whole, 1 when a conversion\n"
    "failed and 2 for wrong usage. A failed conversion leaves older outputs as they\n"
    "were.";

void addOptions(QCommandLineParser &parser)
{
    parser.addOption({{"o", "output"}, "The OTTE file to write.", "file"});
    parser.addOption({"shot",
                      "Position of a generic file's shot; one for each file, in their order.",
                      "x,elevation"});
    parser.addOption(
        {"shots", "List of generic files with their shots, a line file;x;elevation each.", "file"});
    parser.addOption({"strict", "Make nothing of an input that there is a remark on."});
    parser.addOption({"echo", "Write the progress of seismic conversions, every sample."});
    parser.addPositionalArgument("format", formatNames);
    parser.addPositionalArgument("files", "The files to convert.", "[files...]");
}

std::vector<std::string> toStrings(const QStringList &texts)
{
    std::vector<std::string> strings;
    for (const QString &text : texts)
        strings.push_back(text.toStdString());
    return strings;
}

/// Says what is wrong with the word that should be a format.
int refuseFormat(const QString &word)
{
    const std::string quoted = '"' + word.toStdString() + '"';
    const QString lower = word.toLower();
    for (const Format &format : formats)
        if (format.name == lower)
            return refuseUsage(quoted + " is no format: write " + lower.toStdString());
    if (isThere(word.toStdString()))
        return refuseUsage("a format is needed before " + quoted + ": " + formatNames);
    return refuseUsage(quoted + " is no format: the formats are " + formatNames);
}

/// What is wrong with the request; empty when nothing is.
QString wrongUsageOf(const Format &format, const QCommandLineParser &parser)
{
    const QStringList files = parser.positionalArguments().mid(1);
    const QStringList outputs = parser.values("output");
    for (const QString option : {"output", "strict", "shot", "shots", "echo"})
        if (parser.isSet(option) && !format.options.contains(option))
            return format.name + " takes no --" + option;
    if ((files + outputs + parser.values("shots")).contains("-"))
        return "standard input and output are not taken: name a file instead of \"-\"";
    if (format.options.contains("output") && (outputs.size() != 1 || outputs.front().isEmpty()))
        return "one output file is needed: -o FILE";
    if (parser.isSet("shots")) {
        if (!files.isEmpty() || parser.isSet("shot") || parser.values("shots").size() > 1)
            return "--shots names all files and positions alone";
    } else if (files.isEmpty() || files.contains("")) {
        return "an input file is needed";
    }
    if (files.size() > format.mostFiles)
        return format.name + " takes one input file";
    return "";
}

int run(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        return refuseUsage(std::string("a format is needed: ") + formatNames);
    const auto format = std::find_if(formats.begin(), formats.end(), [&](const Format &candidate) {
        return candidate.name == arguments.front();
    });
    if (format == formats.end())
        return refuseFormat(arguments.front());
    const QString reason = wrongUsageOf(*format, parser);
    if (!reason.isEmpty())
        return refuseUsage(reason.toStdString());

    Request request;
    request.files = toStrings(arguments.mid(1));
    request.output = parser.value("output").toStdString();
    request.shotPositions = toStrings(parser.values("shot"));
    request.shotList = parser.value("shots").toStdString();
    request.isStrict = parser.isSet("strict");
    request.isEchoed = parser.isSet("echo");
    clearVectorRegisters(); // now that Qt is done with the words
    return format->run(request);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("convert2velarix-batch");
    QCoreApplication::setApplicationVersion(PROJECT_VERSION);

    QCommandLineParser parser;
    const std::string reason = parseArguments(argc, argv, description, addOptions, parser);
    return reason.empty() ? run(parser) : refuseUsage(reason);
}
