// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <QSize>

#include <string>

class QCustomPlot;
struct ViewedFiles;

/// Whether a picture can be saved under this name: .png, .svg or .pdf, in any case.
bool isPicture(const std::string &path);

/// Saves what the plot shows as a picture of this size, in pixels or, of a PDF, in points, whole or
/// not at all. Its title becomes that of the file. Returns whether the report has no failure.
bool savePicture(QCustomPlot &plot, const std::string &path, const QSize &size, Report &report);

/// The same of files: of the record with its picks, or else of the survey, in the colours of paper.
/// Fails when there are several records.
bool savePicture(const ViewedFiles &files, const std::string &path, const QSize &size,
                 Report &report);
