// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/su_findings.h"

#include "traveltime/text.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

/// Counts a trace; `text` is asked for the first one's.
template <typename Text>
void count(SuLoss &loss, std::size_t trace, Text text)
{
    if (++loss.traceCount > 1)
        return;
    loss.firstTrace = trace;
    loss.text = text();
}

void remarkOn(const SuLoss &loss, RemarkKind kind, Report &report)
{
    if (loss.traceCount == 0)
        return;
    const std::string others =
        loss.traceCount == 1 ? "" : " and " + std::to_string(loss.traceCount - 1) + " more";
    remark(report, kind,
           "trace " + std::to_string(loss.firstTrace + 1) + others + ": " + loss.text);
}

/// Where the source is, in metres, decimals included.
double sourceOf(const SuHeader &header)
{
    const double scalar = header.coordinateScalar;
    if (scalar < 0.0)
        return header.sourceX / -scalar;
    return scalar == 0.0 ? header.sourceX : header.sourceX * scalar;
}

std::string inDigits(double value)
{
    std::string text;
    appendNumber(text, value);
    return text;
}

/// How well a file fits one byte order.
enum class Fit {
    none,
    size,
    repeatedHeader
};

Fit fitOf(const QByteArray &beginning, std::size_t size, QSysInfo::Endian byteOrder)
{
    const char *const counts = beginning.constData() + suSampleCountOffset;
    const auto sampleCount = numberFrom<quint16>(counts, byteOrder);
    if (sampleCount == 0)
        return Fit::none;
    const std::size_t traceSize = suTraceSize(sampleCount);
    if (traceSize + suHeaderSize <= static_cast<std::size_t>(beginning.size())
        && std::equal(counts, counts + 4, counts + traceSize))
        return Fit::repeatedHeader;
    return size % traceSize == 0 ? Fit::size : Fit::none;
}

/// Whether the trace identification code, which is small, has its zeros in front.
bool hasBigEndianCode(const QByteArray &beginning)
{
    return beginning[28] == 0 && beginning[29] != 0;
}

bool isSeg2(const QByteArray &beginning)
{
    return beginning.startsWith("\x55\x3A") || beginning.startsWith("\x3A\x55");
}

/// Whether there is a text of 3,200 bytes, in EBCDIC or ASCII, before a format code.
bool isSegY(const QByteArray &beginning)
{
    constexpr int formatCodeOffset = 3224;
    if (beginning.size() < formatCodeOffset + 2)
        return false;
    const auto code = qFromBigEndian<quint16>(beginning.constData() + formatCodeOffset);
    return (beginning[0] == 'C' || beginning[0] == '\xC3') && code >= 1 && code <= 16;
}

} // namespace

void takeHeader(SuFindings &findings, std::size_t trace, const SuHeader &header)
{
    if (!findings.first)
        findings.first = header;
    const SuHeader &first = *findings.first;
    if (header.coordinateScalar < -1)
        count(findings.scalars, trace, [&] {
            return "the coordinate scalar " + std::to_string(header.coordinateScalar)
                   + " makes the positions 0; give them in whole metres, with the scalar 1";
        });
    if (sourceOf(header) != sourceOf(first) || header.sourceY != first.sourceY)
        count(findings.sources, trace, [&] {
            return "the source is at " + inDigits(sourceOf(header)) + ", that of trace 1 at "
                   + inDigits(sourceOf(first)) + ", which is written for all; split the record";
        });
    if (header.delay != 0)
        count(findings.delays, trace,
              [&] { return "the delay of " + std::to_string(header.delay) + " ms becomes 0"; });
    if (header.receiverElevation != 0 || header.sourceElevation != 0)
        count(findings.elevations, trace, [] { return "the elevations become 0"; });
    if (header.receiverY != 0 || header.sourceY != 0)
        count(findings.ys, trace, [] { return "the y coordinates become 0"; });
    if (header.sampleCount != first.sampleCount)
        count(findings.sampleCounts, trace, [&] {
            return counted(header.sampleCount, "sample") + ", but trace 1 has "
                   + std::to_string(first.sampleCount) + ", and all are read like it";
        });
    if (header.sampleInterval != first.sampleInterval)
        count(findings.intervals, trace, [&] {
            return "an interval of " + std::to_string(header.sampleInterval)
                   + " microseconds, but trace 1 has " + std::to_string(first.sampleInterval)
                   + ", which is written for all";
        });
}

bool areFinite(const std::vector<float> &samples)
{
    // The largest exponent is carried into the place of the sign. Without an end in the middle, so
    // that many samples are looked at together.
    std::uint32_t carried = 0;
    for (const float sample : samples)
        carried |= (std::bit_cast<std::uint32_t>(sample) & 0x7fffffff) + 0x00800000;
    return (carried & 0x80000000) == 0;
}

void takeOddSamples(SuFindings &findings, std::size_t trace, const std::vector<float> &samples)
{
    if (trace < findings.tracesChecked)
        return;
    findings.tracesChecked = trace + 1;
    const auto isOdd = [](float sample) { return !std::isfinite(sample); };
    const auto first = std::find_if(samples.begin(), samples.end(), isOdd) - samples.begin();
    count(findings.samples, trace,
          [&] { return "sample " + std::to_string(first + 1) + " is not a finite number"; });
}

void remarkOnHeaders(const SuFindings &findings, std::size_t bytesLeft, Report &report)
{
    for (const SuLoss *loss : {&findings.scalars, &findings.sources, &findings.delays,
                               &findings.elevations, &findings.ys})
        remarkOn(*loss, RemarkKind::geometry, report);
    remarkOn(findings.sampleCounts, RemarkKind::samples, report);
    remarkOn(findings.intervals, RemarkKind::samples, report);
    if (findings.first && findings.first->sampleInterval == 0)
        remark(report, RemarkKind::samples, "trace 1: the sample interval is 0");
    if (bytesLeft > 0)
        remark(report, RemarkKind::notRead,
               counted(bytesLeft, "byte") + " after the last whole trace: not read");
}

void remarkOnSamples(const SuFindings &findings, Report &report)
{
    remarkOn(findings.samples, RemarkKind::samples, report);
}

std::string anotherFormat(const QByteArray &beginning, std::size_t size)
{
    if (static_cast<std::size_t>(beginning.size()) < suHeaderSize)
        return "";
    const Fit little = fitOf(beginning, size, QSysInfo::LittleEndian);
    const Fit big = fitOf(beginning, size, QSysInfo::BigEndian);
    if (little == Fit::none && isSeg2(beginning))
        return "this is a SEG2 file, no Seismic Unix file: it needs no conversion";
    if (little == Fit::none && isSegY(beginning))
        return "this is a SEG-Y file: save it as Seismic Unix, little-endian";
    if (big < little || big == Fit::none || (big == little && !hasBigEndianCode(beginning)))
        return "";
    const std::size_t traceSize =
        suTraceSize(qFromBigEndian<quint16>(beginning.constData() + suSampleCountOffset));
    return "the file is big-endian (" + counted(size / traceSize, "trace") + " of "
           + std::to_string(traceSize)
           + " bytes): swap the bytes of every number first, as docs/formats/seismic_unix.md shows";
}
