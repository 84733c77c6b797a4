// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// view_speed: the processor time that a plot of 1,200 by 800 pixels takes to show a record: all of
// it, moved by a few pixels as by a mouse, and enlarged. QT_QPA_PLATFORM=offscreen does without a
// display.

#include "view/record_plot.h"

#include <QApplication>
#include <qcustomplot.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

/// Noise with an arrival that is later from trace to trace, 0.25 ms from sample to sample.
std::shared_ptr<const RecordData> recordOf(std::size_t traces, std::size_t samples)
{
    auto record = std::make_shared<RecordData>();
    record->shots.push_back({0, traces});
    std::uint32_t random = 1;
    for (std::size_t i = 0; i < traces; ++i) {
        DrawnTrace trace;
        trace.sampleInterval = 0.00025;
        trace.largest = 1.0F;
        trace.samples.resize(samples);
        const std::size_t arrival = samples / 10 + i * (samples / 2) / traces;
        for (std::size_t k = 0; k < samples; ++k) {
            random = random * 1664525U + 1013904223U;
            const double time = (static_cast<double>(k) - static_cast<double>(arrival)) / 40.0;
            const double wavelet = (1.0 - 2.0 * time * time) * std::exp(-time * time);
            trace.samples[k] =
                static_cast<float>(0.9 * wavelet + 0.1 * (random / 4294967296.0 - 0.5));
        }
        record->traces.push_back(std::move(trace));
    }
    return record;
}

/// Milliseconds.
double processorTime()
{
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

double replotTime(QCustomPlot &plot)
{
    const double start = processorTime();
    plot.replot(QCustomPlot::rpImmediateRefresh);
    return processorTime() - start;
}

/// The median of ten replots, each after the plot was moved by three pixels.
double moveTime(QCustomPlot &plot)
{
    std::vector<double> times;
    for (int i = 0; i < 10; ++i) {
        for (QCPAxis *axis : {plot.xAxis, plot.yAxis})
            axis->moveRange(3.0 * axis->range().size() / plot.axisRect()->width());
        times.push_back(replotTime(plot));
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void measure(const std::string &name, const std::shared_ptr<const RecordData> &record,
             const RecordPlotOptions &options)
{
    QCustomPlot plot;
    plot.resize(1200, 800);
    plot.show();
    plot.replot();
    const double start = processorTime();
    drawRecord(plot, record, options);
    showWholeRecord(plot);
    const double preparing = processorTime() - start;
    const double whole = replotTime(plot);
    const double again = replotTime(plot);
    const double moved = moveTime(plot);
    plot.xAxis->scaleRange(0.85);
    plot.yAxis->scaleRange(0.85);
    const double zoomed = replotTime(plot);
    std::cout << name << ": prepared " << preparing << " ms, drawn " << whole << " ms, again "
              << again << " ms, moved " << moved << " ms, enlarged " << zoomed << " ms\n";
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    RecordPlotOptions automaticGain;
    automaticGain.gain = RecordGain::automatic;
    const auto small = recordOf(48, 4000);
    measure("48 x 4,000, by trace", small, {});
    measure("48 x 4,000, automatic gain", small, automaticGain);
    measure("48 x 4,000, density", small, {RecordStyle::density});
    measure("300 x 4,000, by trace", recordOf(300, 4000), {});
    const auto large = recordOf(10000, 5000);
    measure("10,000 x 5,000, by trace", large, {});
    measure("10,000 x 5,000, automatic gain", large, automaticGain);
    return 0;
}
