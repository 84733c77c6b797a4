// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/saved_picture.h"

#include "console/whole_file.h"
#include "view/colours.h"
#include "view/pick_plot.h"
#include "view/plot_title.h"
#include "view/record_picks.h"
#include "view/record_plot.h"
#include "view/viewed_files.h"

#include <qcustomplot.h>

#include <QBuffer>
#include <QFileInfo>
#include <QSvgGenerator>

namespace {

QString endingOf(const std::string &path)
{
    return QFileInfo(QString::fromStdString(path)).suffix().toLower();
}

bool savePng(QCustomPlot &plot, const QString &path, const QSize &size)
{
    QImage image = plot.toPixmap(size.width(), size.height()).toImage();
    image.setText("Title", titleOf(plot));
    image.setText("Software", QCoreApplication::applicationName());
    return image.save(path, "PNG");
}

/// The size of a whole picture is in millimetres there, which rounds to another one in pixels.
void putSize(QByteArray &svg, const QSize &size)
{
    const qsizetype first = svg.indexOf("width=");
    const qsizetype end = svg.indexOf("viewBox", first);
    svg.replace(
        first, end - first,
        QString("width=\"%1\" height=\"%2\"\n ").arg(size.width()).arg(size.height()).toLatin1());
}

bool saveSvg(QCustomPlot &plot, const QString &path, const QSize &size)
{
    constexpr int dotsPerInch = 96; // as programs that show SVG count
    QByteArray svg;
    QBuffer buffer(&svg);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(dotsPerInch);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setTitle(titleOf(plot).toHtmlEscaped());
    QCPPainter painter;
    painter.begin(&generator);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    plot.toPainter(&painter, size.width(), size.height());
    painter.end();
    putSize(svg, size);
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(svg) == svg.size() && file.flush();
}

/// Draws the record with its picks, or else the survey.
bool draw(QCustomPlot &plot, const ViewedFiles &files, const QSize &size, Report &report)
{
    if (files.records.size() > 1)
        return fail(report, {files.records[1].data->path},
                    "a picture has one record: give the others pictures of their own");
    if (files.records.empty()) {
        PickPlotOptions options;
        options.palette = paperPalette();
        options.legendColumns = legendColumnsIn(size, files.picks);
        drawPicks(plot, files.picks, files.findings, options);
        return true;
    }
    const std::shared_ptr<const RecordData> &record = files.records.front().data;
    RecordPlotOptions options;
    options.palette = paperPalette();
    drawRecord(plot, record, options);
    const std::vector<RecordPick> picks = picksOn(*record, files.picks);
    if (picks.empty() && !files.pickPaths.empty())
        remark(report, RemarkKind::geometry, {record->path},
               "none of the picks lies on it: their shots or receivers are elsewhere");
    drawRecordPicks(plot, picks, colourOfFindings(options.palette));
    showWholeRecord(plot);
    return true;
}

} // namespace

bool isPicture(const std::string &path)
{
    return QStringList{"png", "svg", "pdf"}.contains(endingOf(path));
}

bool savePicture(QCustomPlot &plot, const std::string &path, const QSize &size, Report &report)
{
    const QString ending = endingOf(path);
    fitTitle(plot, size.width());
    return writeWhole(
        {path},
        [&](const std::vector<std::string> &parts) {
            const QString part = QString::fromStdString(parts.front());
            const bool isSaved =
                ending == "png" ? savePng(plot, part, size)
                : ending == "svg"
                    ? saveSvg(plot, part, size)
                    : plot.savePdf(part, size.width(), size.height(), QCP::epAllowCosmetic,
                                   QCoreApplication::applicationName(), titleOf(plot));
            return isSaved || fail(report, {path}, "the picture cannot be written");
        },
        report);
}

bool savePicture(const ViewedFiles &files, const std::string &path, const QSize &size,
                 Report &report)
{
    QCustomPlot plot;
    return draw(plot, files, size, report) && savePicture(plot, path, size, report);
}
