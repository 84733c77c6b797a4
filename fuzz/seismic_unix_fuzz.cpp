// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"

#include "seg2/su_conversion.h"

#include <bit>
#include <sstream>

namespace {

/// A little-endian number of the file; 0 behind its end.
std::uint32_t numberAt(const std::string &bytes, std::size_t offset, std::size_t size)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size && offset + size <= bytes.size(); ++i)
        number |= std::uint32_t{static_cast<unsigned char>(bytes[offset + i])} << 8 * i;
    return number;
}

/// A float that went through a double: what is no number, and told by an error, is so quietly.
float sampleOf(std::uint32_t bits)
{
    const bool isNan = (bits & 0x7fffffff) > 0x7f800000;
    return std::bit_cast<float>(isNan ? bits | 0x00400000 : bits);
}

std::vector<ExpectedTrace> readPlainly(const std::string &bytes)
{
    const std::uint32_t sampleCount = numberAt(bytes, 114, 2);
    const double interval = numberAt(bytes, 116, 2) / 1000.0 / 1000.0;
    const std::size_t size = 240 + 4 * sampleCount;
    std::vector<ExpectedTrace> traces;
    for (std::size_t start = 0; start + size <= bytes.size(); start += size) {
        const int scalar = static_cast<std::int16_t>(numberAt(bytes, start + 70, 2));
        const auto scaled = [&](std::size_t offset) {
            const auto value = static_cast<std::int32_t>(numberAt(bytes, start + offset, 4));
            const int factor = scalar == 0 ? 1 : scalar > 0 ? scalar : scalar == -1 ? 1 : 0;
            return static_cast<float>(value) * static_cast<float>(factor);
        };
        ExpectedTrace trace{std::vector<float>(sampleCount), 0.0, interval, scaled(80)};
        trace.sourceX = traces.empty() ? scaled(72) : traces[0].sourceX;
        for (std::size_t i = 0; i + 1 < sampleCount; ++i)
            trace.samples[i] = sampleOf(numberAt(bytes, start + 240 + 4 * i, 4));
        traces.push_back(trace);
    }
    return traces;
}

std::string progressOf(const std::vector<ExpectedTrace> &traces)
{
    std::ostringstream text;
    for (std::size_t i = 0; i < traces.size(); ++i) {
        text << "TraceINDEX : " << i << '\n';
        for (const float sample : traces[i].samples)
            text << sample << '\n';
    }
    return text.str();
}

} // namespace

void check(const std::string &bytes)
{
    const std::string path = folder().write("line.su", bytes);
    const auto tell = [&](Problem &problem) {
        return convertSuToSeg2(path, folder().path("line_tmp"), folder().path("line.seg2"),
                               problem);
    };
    const Outcome first = run(tell);
    const Outcome untold = run([&](Problem &) { return convertSuToSeg2(path); });
    requireSame(first, run(tell), untold);

    const std::vector<ExpectedTrace> traces = readPlainly(bytes);
    requireSame(first.result, "0", "a Seismic Unix file ends with 0");
    requireSame(first.error, traces.empty() ? "EXCEPTION!\n" : "", "\"EXCEPTION!\" for no traces");
    require(!traces.empty() || !first.problem.detail.empty(), "a file without traces is told");
    const std::string opening = "opening su file " + path + '\n';
    if (first.output != opening) // without a standard output to print them to
        requireSame(first.output, opening + progressOf(traces), "the samples are printed");
    requireSame(first.files.at("line_tmp"), listingOf(traces), "the listing");
    if (traces.empty())
        requireSame(first.files.at("line.seg2"), "", "an empty SEG2 file for no traces");
    else
        checkSeg2(first.files.at("line.seg2"), {"TRACE_SORT AS_ACQUIRED", "UNITS METERS"}, traces);
}
