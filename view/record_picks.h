// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"
#include "view/record_data.h"

#include <QColor>

#include <cstddef>
#include <vector>

class QCustomPlot;

/// A pick that belongs to a trace of a record: shot and receiver are at the same place, to a
/// centimetre along the line.
struct RecordPick
{
    std::size_t trace = 0;  ///< of the record, from 0
    std::size_t record = 0; ///< of the survey
    std::size_t pick = 0;   ///< of the survey's record
    double time = 0.0;      ///< seconds
};

/// The picks that lie on a record, in the order of its traces.
std::vector<RecordPick> picksOn(const RecordData &record, const PickSurvey &picks);

/// Marks the picks on the record that is drawn on the plot, in place of those before, as points of
/// its only graph; those of traces that are not drawn are left out, and all of them where the
/// record does not say its times. drawRecord() takes the marks away. The caller replots.
void drawRecordPicks(QCustomPlot &plot, const std::vector<RecordPick> &picks, const QColor &colour);
