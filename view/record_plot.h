// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/record_data.h"

#include <QPalette>

#include <cstddef>
#include <memory>
#include <optional>

class QCustomPlot;

enum class RecordStyle {
    automatic, ///< wiggles of up to mostWiggles traces, a density of more
    wiggles,   ///< with filled peaks
    density    ///< in grey
};

/// What an amplitude is divided by: the largest of its trace or of all traces that are drawn, or
/// three times the root mean square of a window around it.
enum class RecordGain {
    byTrace,
    byRecord,
    automatic
};

enum class TraceSpacing {
    byNumber,  ///< counted from 1
    byPosition ///< along the line; by number where the record has no positions
};

inline constexpr std::size_t mostWiggles = 300;

/// How a record is drawn.
struct RecordPlotOptions
{
    RecordStyle style = RecordStyle::automatic;
    RecordGain gain = RecordGain::byTrace;
    double gainWindow = 100.0; ///< milliseconds, of RecordGain::automatic
    /// What remains of an amplitude, as a fraction of what the gain divides by, is cut off beyond
    /// this; from above 0 to 1. Amplitudes that reach it are drawn as large as can be.
    double clipping = 1.0;
    TraceSpacing spacing = TraceSpacing::byNumber;
    std::optional<std::size_t> shot = {}; ///< the only one of RecordData::shots that is drawn
    QPalette palette = {};                ///< its base and text are the colours of the plot
};

/// Draws a record onto a plot that shows nothing but records, in place of the one before. What of
/// the axes is in view stays: see showWholeRecord(). The caller replots.
void drawRecord(QCustomPlot &plot, std::shared_ptr<const RecordData> record,
                const RecordPlotOptions &options);

/// Brings all of the record that is drawn into view.
void showWholeRecord(QCustomPlot &plot);
