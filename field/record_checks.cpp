// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/record_checks.h"

#include "field/numbers.h"
#include "field/samples.h"
#include "field/window_losses.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t mostFindings = 10; // of a kind that each trace may have

Finding findingOf(const char *kind, std::size_t trace, const std::string &text)
{
    Finding finding;
    finding.kind = kind;
    finding.trace = trace;
    finding.text = text;
    return finding;
}

/// Finds something in the trace that was counted last.
void find(RecordChecks &checks, std::size_t &count, const char *kind, const std::string &text)
{
    if (++count <= mostFindings)
        checks.findings.push_back(findingOf(kind, checks.traceCount, text));
}

/// The least difference of neighbours that are not equal.
template <typename Sample>
double stepOf(const std::vector<Sample> &samples)
{
    double step = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < samples.size(); ++i)
        if (samples[i] != samples[i - 1])
            step = std::min(step, std::abs(double(samples[i]) - double(samples[i - 1])));
    return step;
}

/// Whether the samples stay at `level` as no peak does. Beside a peak that is flat because samples
/// come in steps they fall off by a few steps.
template <typename Sample>
bool staysAt(const std::vector<Sample> &samples, Sample level, double step)
{
    constexpr std::ptrdiff_t mostOfPeak = 2;
    constexpr double mostSteps = 4.0;
    const auto isFar = [&](Sample sample) {
        return std::abs(double(sample) - double(level)) > mostSteps * step;
    };
    for (auto end = samples.begin();;) {
        const auto begin = std::find(end, samples.end(), level);
        if (begin == samples.end())
            return false;
        end = std::find_if(begin, samples.end(), [&](Sample sample) { return sample != level; });
        if (end - begin > mostOfPeak && begin != samples.begin() && end != samples.end()
            && isFar(*(begin - 1)) && isFar(*end))
            return true;
    }
}

template <typename Sample>
std::optional<double> clippingLevelOf(const std::vector<Sample> &samples)
{
    if (samples.empty())
        return std::nullopt;
    const auto [least, largest] = std::minmax_element(samples.begin(), samples.end());
    const double step = stepOf(samples);
    for (const Sample level : {*largest, *least})
        if (level != Sample{} && staysAt(samples, level, step))
            return static_cast<double>(level);
    return std::nullopt;
}

/// The first sample that is not finite, counted from 1; 0 when there is none.
std::size_t firstOdd(const Samples &samples)
{
    const auto isOdd = [](auto sample) { return !std::isfinite(static_cast<double>(sample)); };
    return std::visit(
        [&](const auto &values) -> std::size_t {
            const auto found = std::find_if(values.begin(), values.end(), isOdd);
            return found == values.end() ? 0 : static_cast<std::size_t>(found - values.begin()) + 1;
        },
        samples);
}

void checkSamples(RecordChecks &checks, const RecordTrace &trace)
{
    if (const std::size_t odd = firstOdd(trace.samples); odd > 0)
        find(checks, checks.oddTraces, "notFinite",
             "sample " + grouped(odd)
                 + " is not a finite number: programs stop there or show nothing");
    else if (trace.isDead || hasEqualSamples(trace.samples))
        find(checks, checks.deadTraces, "dead",
             trace.isDead ? "marked as dead: leave it out" : "dead: all samples are equal");
    else if (const auto level = clippingLevel(trace.samples))
        find(checks, checks.clippedTraces, "clipped",
             "clipped at " + shortest(*level) + ": larger amplitudes were cut off");
}

void checkCounts(RecordChecks &checks, const RecordTrace &trace)
{
    const std::size_t number = checks.traceCount;
    const std::size_t sampleCount = sampleCountOf(trace.samples);
    if (number == 1) {
        checks.firstSampleCount = sampleCount;
        checks.firstInterval = trace.sampleInterval;
    }
    if (sampleCount != checks.firstSampleCount)
        countTrace(checks.sampleCounts, number, [&] {
            return counted(sampleCount, "sample") + ", but trace 1 has "
                   + std::to_string(checks.firstSampleCount)
                   + ": many programs take all traces for alike";
        });
    if (trace.sampleInterval != checks.firstInterval)
        countTrace(checks.intervals, number, [&] {
            return "an interval of " + shortest(trace.sampleInterval) + " s, but trace 1 has "
                   + shortest(checks.firstInterval) + " s: many programs take all traces for alike";
        });
    if (trace.sampleInterval == 0.0)
        countTrace(checks.noInterval, number,
                   [] { return "the sample interval is 0: no time can be read off"; });
}

void checkGeometry(RecordChecks &checks, const RecordTrace &trace)
{
    const std::size_t number = checks.traceCount;
    const auto add = [](std::set<Location> &locations, const Location &location) {
        if (locations.size() < 2)
            locations.insert(location);
    };
    add(checks.sources, trace.source.value_or(Location{}));
    add(checks.receivers, trace.receiver.value_or(Location{}));
    if (!trace.source || !trace.receiver)
        countTrace(checks.noLocation, number, [&] {
            return std::string("no position of the ")
                   + (trace.source     ? "receiver"
                      : trace.receiver ? "source"
                                       : "source and receiver")
                   + " is given";
        });
    if (trace.hasAngles)
        countTrace(checks.angles, number, [] { return "positions are angles, not metres"; });
}

void addFinding(std::vector<Finding> &findings, const char *kind, const TraceTally &tally)
{
    if (tally.traceCount == 0)
        return;
    const std::string others =
        tally.traceCount == 1 ? "" : " (and " + std::to_string(tally.traceCount - 1) + " more)";
    findings.push_back(findingOf(kind, tally.firstTrace, tally.text + others));
}

void addRest(std::vector<Finding> &findings, const char *kind, std::size_t count)
{
    if (count > mostFindings)
        findings.push_back(
            findingOf(kind, 0, "the same in " + counted(count - mostFindings, "more trace")));
}

/// What the record lacks to place its traces.
std::string missingGeometry(const RecordChecks &checks)
{
    const bool hasOneSource = checks.sources.size() == 1;
    const bool hasOneReceiver = checks.receivers.size() == 1;
    if (checks.noLocation.traceCount > 0 || !hasOneSource || !hasOneReceiver)
        return "";
    if (*checks.sources.begin() == Location{} && *checks.receivers.begin() == Location{})
        return "no positions: every source and receiver is at 0";
    if (checks.traceCount == 1)
        return "";
    return "all " + counted(checks.traceCount, "trace")
           + " have the same source and receiver position";
}

} // namespace

std::optional<double> clippingLevel(const Samples &samples)
{
    return std::visit([](const auto &values) { return clippingLevelOf(values); }, samples);
}

void checkTrace(RecordChecks &checks, const RecordFile &file, const RecordTrace &trace)
{
    if (++checks.traceCount == 1)
        checks.format = file.format;
    checkSamples(checks, trace);
    checkCounts(checks, trace);
    checkGeometry(checks, trace);
}

std::vector<Finding> finishChecks(const RecordChecks &checks, const std::string &path)
{
    std::vector<Finding> findings = checks.findings;
    addRest(findings, "notFinite", checks.oddTraces);
    addRest(findings, "dead", checks.deadTraces);
    addRest(findings, "clipped", checks.clippedTraces);
    addFinding(findings, "sampleCount", checks.sampleCounts);
    addFinding(findings, "sampleInterval", checks.intervals);
    addFinding(findings, "noInterval", checks.noInterval);
    addFinding(findings, "noGeometry", checks.noLocation);
    if (const std::string missing = missingGeometry(checks); !missing.empty())
        findings.push_back(findingOf("noGeometry", 0, missing));
    addFinding(findings, "angles", checks.angles);
    for (Finding &finding : findings)
        finding.place = {path};
    for (const Finding &loss : windowLosses(checks.format, path))
        findings.push_back(loss);
    return findings;
}
