// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/report.h"
#include "batch/seismic_command.h"
#include "batch/traveltime_command.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <limits>

namespace {

/// What a format takes on the command line.
struct Format
{
    QString name;
    qsizetype mostFiles;
    QStringList options;
};

constexpr qsizetype anyNumber = std::numeric_limits<qsizetype>::max();

const std::array formats = {
    Format{"geogiga", 1, {"output"}},
    Format{"winsism", 1, {"output"}},
    Format{"seisimager", anyNumber, {"output"}},
    Format{"generic", anyNumber, {"output", "shot", "shots"}},
    Format{"su", anyNumber, {"echo"}},
    Format{"dolang", anyNumber, {"echo"}},
};

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
    "The exit status is 0 when the output was written whole, 1 when a conversion\n"
    "failed and 2 for wrong usage. A failed conversion leaves an older output as it\n"
    "was.";

std::vector<std::string> toStrings(const QStringList &texts)
{
    std::vector<std::string> strings;
    for (const QString &text : texts)
        strings.push_back(text.toStdString());
    return strings;
}

int runGenericFiles(const std::vector<std::string> &files,
                    const std::vector<std::string> &positions, const std::string &outputPath)
{
    if (files.size() != positions.size())
        return refuseUsage("one --shot is needed for each file");
    std::vector<GenericShot> shots;
    for (std::size_t i = 0; i < files.size(); ++i) {
        GenericShot &shot = shots.emplace_back(GenericShot{files[i]});
        if (!parsePosition(positions[i], ',', shot))
            return refuseUsage("--shot takes X,ELEVATION, not \"" + positions[i] + '"');
    }
    return runGeneric(shots, outputPath);
}

int run(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    const auto format = std::find_if(formats.begin(), formats.end(), [&](const Format &candidate) {
        return !arguments.isEmpty() && candidate.name == arguments.front();
    });
    if (format == formats.end())
        return refuseUsage(
            "a format is needed: geogiga, winsism, seisimager, generic, su or dolang");
    for (const QString option : {"output", "shot", "shots", "echo"})
        if (parser.isSet(option) && !format->options.contains(option))
            return refuseUsage((format->name + " takes no --" + option).toStdString());

    const std::vector<std::string> files = toStrings(arguments.mid(1));
    const std::string outputPath = parser.value("output").toStdString();
    if (format->options.contains("output")
        && (outputPath.empty() || parser.values("output").size() > 1))
        return refuseUsage("one output file is needed: -o FILE");
    if (parser.isSet("shots")) {
        if (!files.empty() || parser.isSet("shot") || parser.values("shots").size() > 1)
            return refuseUsage("--shots names all files and positions alone");
        return runGenericList(parser.value("shots").toStdString(), outputPath);
    }
    if (files.empty() || std::find(files.begin(), files.end(), "") != files.end())
        return refuseUsage("an input file is needed");
    if (arguments.size() - 1 > format->mostFiles)
        return refuseUsage((format->name + " takes one input file").toStdString());
    if (format->name == "generic")
        return runGenericFiles(files, toStrings(parser.values("shot")), outputPath);
    if (format->options.contains("output"))
        return runTraveltimes(format->name.toStdString(), files, outputPath);
    return runSeismic(format->name.toStdString(), files, parser.isSet("echo"));
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("convert2velarix-batch");
    QCoreApplication::setApplicationVersion(PROJECT_VERSION);

    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    const QCommandLineOption help({"h", "help"}, "Show this help.");
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOption({{"o", "output"}, "The OTTE file to write.", "file"});
    parser.addOption({"shot",
                      "Position of a generic file's shot; one for each file, in their order.",
                      "x,elevation"});
    parser.addOption(
        {"shots", "List of generic files with their shots, a line file;x;elevation each.", "file"});
    parser.addOption({"echo", "Write the progress of seismic conversions, every sample."});
    parser.addPositionalArgument("format", "geogiga, winsism, seisimager, generic, su or dolang");
    parser.addPositionalArgument("files", "The files to convert.", "[files...]");

    const QStringList arguments = QCoreApplication::arguments();
#ifndef _WIN32
    for (int i = 1; i < argc; ++i)
        if (arguments[i].toLocal8Bit() != argv[i])
            return refuseUsage("argument " + std::to_string(i) + " is not valid UTF-8");
#endif
    if (!parser.parse(arguments))
        return refuseUsage(parser.errorText().remove(QRegularExpression("\\.$")).toStdString());
    if (parser.isSet(help))
        parser.showHelp();
    if (parser.isSet(version))
        parser.showVersion();
    return run(parser);
}
