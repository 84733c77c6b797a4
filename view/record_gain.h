// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/record_layout.h"

#include <cstddef>
#include <span>
#include <vector>

/// What turns the samples of a trace into amplitudes.
struct TraceGain
{
    float factor = 0.0F;        ///< of the samples, or of what a window makes of them
    bool hasWindow = false;     ///< samples are divided by the root mean square of theirs
    std::size_t halfWindow = 0; ///< in samples, on each side
};

/// A record with all that its drawing takes.
struct RecordDrawing
{
    std::shared_ptr<const RecordData> record = {};
    RecordPlotOptions options = {};
    RecordLayout layout = {};
    std::vector<TraceGain> gains = {}; ///< of each trace of the layout
};

RecordDrawing makeDrawing(std::shared_ptr<const RecordData> record,
                          const RecordPlotOptions &options);

/// The amplitudes of the samples from `first` to before `end`: from -1 to 1, where 1 is drawn as
/// large as can be; NaN for samples that are none.
void findAmplitudes(std::span<const float> samples, const TraceGain &gain, std::size_t first,
                    std::size_t end, std::vector<float> &amplitudes);
