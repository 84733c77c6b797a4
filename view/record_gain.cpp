// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_gain.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

/// Amplitudes of three times their root mean square are rare in a signal of any shape.
constexpr double windowedLargest = 3.0;

/// 0 for a signal that has no amplitude.
float inverse(double largest)
{
    constexpr double most = std::numeric_limits<float>::max();
    return largest > 0.0 ? static_cast<float>(std::min(1.0 / largest, most)) : 0.0F;
}

TraceGain gainOf(const DrawnTrace &trace, const PlacedTrace &place, float largestOfAll,
                 const RecordPlotOptions &options)
{
    if (options.gain == RecordGain::automatic) {
        const double half = std::round(options.gainWindow / 2.0 / place.timeStep);
        const auto most = static_cast<double>(trace.samples.size());
        return {inverse(windowedLargest * options.clipping), true,
                static_cast<std::size_t>(std::clamp(half, 0.0, most))};
    }
    const float largest =
        options.gain == RecordGain::byTrace || trace.isDead ? trace.largest : largestOfAll;
    return {inverse(double{largest} * options.clipping)};
}

/// Samples and the sum of their squares.
struct SquareSum
{
    double sum = 0.0;
    std::size_t count = 0;
};

void add(SquareSum &squares, float sample)
{
    if (std::isnan(sample))
        return;
    squares.sum += double{sample} * sample;
    ++squares.count;
}

SquareSum sumOf(std::span<const float> samples)
{
    SquareSum squares;
    for (const float sample : samples)
        add(squares, sample);
    return squares;
}

/// Takes away the sample that was before a window, of which the sum then is. Beside a square that
/// was far larger, the digits of the others are lost: they are added anew.
void leaveOut(SquareSum &squares, float sample, std::span<const float> window)
{
    constexpr double farLarger = 1e8;
    if (std::isnan(sample))
        return;
    const double square = double{sample} * sample;
    squares.sum -= square;
    --squares.count;
    if (square > farLarger * squares.sum)
        squares = sumOf(window);
}

/// The sample divided by the root mean square.
float divided(float sample, const SquareSum &squares)
{
    if (!(squares.sum > 0.0))
        return sample; // 0, or no number
    return static_cast<float>(sample / std::sqrt(squares.sum / static_cast<double>(squares.count)));
}

void divideByWindows(std::span<const float> samples, std::size_t half, std::size_t first,
                     std::size_t end, std::vector<float> &quotients)
{
    const std::size_t start = first - std::min(first, half);
    SquareSum squares =
        sumOf(samples.subspan(start, std::min(first + half, samples.size()) - start));
    for (std::size_t i = first; i < end; ++i) {
        if (i + half < samples.size())
            add(squares, samples[i + half]);
        if (i > first && i > half) {
            const std::size_t left = i - half;
            leaveOut(squares, samples[left - 1],
                     samples.subspan(left, std::min(i + half + 1, samples.size()) - left));
        }
        quotients.push_back(divided(samples[i], squares));
    }
}

} // namespace

RecordDrawing makeDrawing(std::shared_ptr<const RecordData> record,
                          const RecordPlotOptions &options)
{
    RecordDrawing drawing{std::move(record), options};
    const std::vector<DrawnTrace> &traces = drawing.record->traces;
    drawing.layout = layOut(*drawing.record, options);
    float largest = 0.0F;
    for (const PlacedTrace &place : drawing.layout.traces)
        if (!traces[place.trace].isDead)
            largest = std::max(largest, traces[place.trace].largest);
    for (const PlacedTrace &place : drawing.layout.traces)
        drawing.gains.push_back(gainOf(traces[place.trace], place, largest, options));
    return drawing;
}

void findAmplitudes(std::span<const float> samples, const TraceGain &gain, std::size_t first,
                    std::size_t end, std::vector<float> &amplitudes)
{
    amplitudes.clear();
    if (gain.hasWindow)
        divideByWindows(samples, gain.halfWindow, first, end, amplitudes);
    else
        amplitudes.assign(samples.begin() + static_cast<std::ptrdiff_t>(first),
                          samples.begin() + static_cast<std::ptrdiff_t>(end));
    for (float &amplitude : amplitudes)
        amplitude = std::clamp(amplitude * gain.factor, -1.0F, 1.0F);
}
