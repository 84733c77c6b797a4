// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "console/command_line.h"
#include "console/messages.h"
#include "field/arguments.h"
#include "view/saved_picture.h"
#include "view/viewed_files.h"
#include "view/viewer_window.h"

#include <QApplication>
#include <QRegularExpression>
#include <QSize>

namespace {

constexpr char description[] =
    "Shows what convert2velarix-field reads: first-break picks as traveltime curves,\n"
    "and seismic records with their picks on them.\n"
    "\n"
    "  convert2velarix-view [FILE...]\n"
    "  convert2velarix-view FILE... -o PICTURE [--size WxH]\n"
    "\n"
    "The first form opens a window. The second saves a picture, .png, .svg or .pdf,\n"
    "and needs no display. All picks become one survey; a record is drawn with the\n"
    "picks that belong to it.\n"
    "\n"
    "The exit status is 0 when all went well, 1 when a file was refused or could not\n"
    "be written, and 2 for wrong usage. What fails leaves older outputs as they were.";

/// What the command line asks for.
struct Arguments
{
    Request request = {};
    QSize size = {1200, 800}; ///< of the picture
};

/// Takes --size; returns what is wrong with it.
std::string takeSize(const QCommandLineParser &parser, QSize &size)
{
    if (!parser.isSet("size"))
        return "";
    if (!parser.isSet("output"))
        return "--size is for pictures: -o PICTURE";
    const QString value = parser.value("size");
    const QRegularExpressionMatch match =
        QRegularExpression("^([0-9]{3,4})x([0-9]{3,4})$").match(value);
    size = {match.captured(1).toInt(), match.captured(2).toInt()};
    return match.hasMatch() && size.width() >= 200 && size.height() >= 200
               ? ""
               : "--size takes WIDTHxHEIGHT, each from 200 to 9999, not \"" + value.toStdString()
                     + '"';
}

/// Takes all arguments; returns what is wrong with one.
std::string takeArguments(const QCommandLineParser &parser, Arguments &arguments)
{
    Request &request = arguments.request;
    for (const QString &file : parser.positionalArguments())
        request.files.push_back(file.toStdString());
    request.output = parser.value("output").toStdString();
    for (const std::string &reason : {wrongValuesOf(parser), takeReadingOptions(parser, request),
                                      takeSize(parser, arguments.size)})
        if (!reason.empty())
            return reason;
    if (parser.positionalArguments().contains(""))
        return "a file has no name";
    if (request.output.empty())
        return "";
    if (request.files.empty())
        return "an input file is needed";
    return isPicture(request.output) ? ""
                                     : "a picture is .png, .svg or .pdf, not " + request.output;
}

void addOptions(QCommandLineParser &parser)
{
    parser.addOption({{"o", "output"}, "The picture to save.", "PICTURE"});
    parser.addOption({"size", "Of the picture, in pixels; otherwise 1200x800.", "WxH"});
    addReadingOptions(parser);
    parser.addPositionalArgument("files", "The files to show.", "[files...]");
}

/// Parses the command line; returns the exit status when that is all there is to do.
std::optional<int> parse(int argc, char *argv[], Arguments &arguments)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("convert2velarix-view");
    QCoreApplication::setApplicationVersion(PROJECT_VERSION);
    QCommandLineParser parser;
    std::string reason = parseArguments(argc, argv, description, addOptions, parser);
    if (reason.empty())
        reason = takeArguments(parser, arguments);
    return reason.empty() ? std::optional<int>() : refuseUsage(reason);
}

int savePicture(const Arguments &arguments)
{
    ViewedFiles files;
    std::vector<Report> reports;
    readFiles(arguments.request, files, reports, [](double) { return true; });
    int status = converted;
    for (const Report &report : reports)
        status = std::max(status, conclude(report, false, ""));
    if (status != converted)
        return status;
    Report report;
    savePicture(files, arguments.request.output, arguments.size, report);
    return conclude(report, false, "");
}

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &) { }

} // namespace

int main(int argc, char *argv[])
{
    Arguments arguments;
    if (const std::optional<int> status = parse(argc, argv, arguments))
        return *status;
    if (!arguments.request.output.empty()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(dropMessage); // what Qt says of a system without a display
    }
    const QApplication application(argc, argv);
    if (!arguments.request.output.empty())
        return savePicture(arguments);
    QStringList paths;
    for (const std::string &path : std::exchange(arguments.request.files, {}))
        paths += QString::fromStdString(path);
    ViewerWindow window(arguments.request);
    window.show();
    window.openFiles(paths);
    return QApplication::exec();
}
