// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "seg2/su_header.h"
#include "traveltime/report.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <QByteArray>

// What the conversion of a Seismic Unix file loses, found as its traces pass: one remark on each
// kind of loss, with the first trace that has it and the number of others.

/// The traces that have something in common.
struct SuLoss
{
    std::size_t traceCount = 0;
    std::size_t firstTrace = 0; ///< counted from 0, as traces are below
    std::string text = {};      ///< about the first of them
};

/// What was found in the traces that have passed.
struct SuFindings
{
    std::optional<SuHeader> first = {}; ///< header
    SuLoss scalars = {};
    SuLoss sources = {};
    SuLoss delays = {};
    SuLoss elevations = {};
    SuLoss ys = {};
    SuLoss sampleCounts = {};
    SuLoss intervals = {};
    SuLoss samples = {};           ///< not finite
    std::size_t tracesChecked = 0; ///< traces before this one count no more for `samples`
};

/// Takes a trace's header; the traces come in their order.
void takeHeader(SuFindings &findings, std::size_t trace, const SuHeader &header);

/// Whether no sample is infinite or a NaN.
bool areFinite(const std::vector<float> &samples);

/// Takes samples of a trace that are not all finite. A trace that is read again counts no more.
void takeOddSamples(SuFindings &findings, std::size_t trace, const std::vector<float> &samples);

/// Remarks on what the headers say. `bytesLeft` are those after the last whole trace.
void remarkOnHeaders(const SuFindings &findings, std::size_t bytesLeft, Report &report);

/// Remarks on samples that are not finite.
void remarkOnSamples(const SuFindings &findings, Report &report);

/// The bytes of a file that anotherFormat can use.
inline constexpr std::size_t suBeginningSize = suTraceSize(65535) + suHeaderSize;

/// Says what a file of `size` bytes that begins with `beginning` is, if it is not a little-endian
/// Seismic Unix file; empty if it can be one. What counts most, for either byte order, is a second
/// header that repeats the number of samples and the interval of the first, as ends may be damaged;
/// then a size that is a whole number of traces.
std::string anotherFormat(const QByteArray &beginning, std::size_t size);
