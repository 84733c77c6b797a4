// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/seismic_unix.h"

#include "plain/listing.h"

#include <cstring>
#include <fstream>
#include <iostream>

namespace plain {

namespace {

struct Trace
{
    std::vector<double> samples;
    double sourceX = 0.0;
    double receiverX = 0.0;
    double sampleInterval = 0.0;
};

/// A number as it lies in the memory of a little-endian machine.
template <typename Number>
Number numberAt(const std::vector<char> &bytes, std::size_t offset)
{
    Number value = 0;
    std::memcpy(&value, &bytes.at(offset), sizeof value);
    return value;
}

std::vector<char> readBytes(const std::string &path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        std::cerr << "Error while loading " << path << std::endl;
        return {};
    }
    stream.seekg(0, std::ios::end);
    std::vector<char> bytes(static_cast<std::size_t>(stream.tellg()));
    stream.seekg(0);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

/// What coordinates are multiplied by: -1 divided by a negative scalar is 0, but for -1 itself.
float factorOf(int scalar)
{
    if (scalar > 0)
        return static_cast<float>(scalar);
    if (scalar < 0)
        return static_cast<float>(-1 / scalar);
    return 1.0F;
}

std::vector<Trace> readTraces(const std::string &path)
{
    std::cout << "opening su file " << path << std::endl;
    const std::vector<char> bytes = readBytes(path);
    constexpr std::size_t headerSize = 240;
    if (bytes.size() < headerSize)
        return {};
    const auto sampleCount = numberAt<std::uint16_t>(bytes, 114);
    const double intervalMilliseconds = numberAt<std::uint16_t>(bytes, 116) / 1000.0;
    const std::size_t traceSize = headerSize + std::size_t{4} * sampleCount;
    std::vector<Trace> traces;
    for (std::size_t offset = 0; offset + traceSize <= bytes.size(); offset += traceSize) {
        Trace trace;
        trace.sampleInterval = intervalMilliseconds / 1000.0;
        const float factor = factorOf(numberAt<std::int16_t>(bytes, offset + 70));
        trace.sourceX = static_cast<float>(numberAt<std::int32_t>(bytes, offset + 72)) * factor;
        trace.receiverX = static_cast<float>(numberAt<std::int32_t>(bytes, offset + 80)) * factor;
        trace.samples.resize(sampleCount);
        for (std::size_t i = 0; i + 1 < sampleCount; ++i) // the last one stays 0
            trace.samples[i] = numberAt<float>(bytes, offset + headerSize + 4 * i);
        traces.push_back(trace);
    }
    return traces;
}

} // namespace

int convertSeismicUnix(const std::string &path)
{
    const std::string base = path.substr(0, path.rfind('.'));
    const std::vector<Trace> traces = readTraces(path);
    std::vector<ListingTrace> lines;
    for (const Trace &trace : traces)
        lines.push_back({trace.samples.size(), 0, trace.sampleInterval, trace.receiverX});
    if (!writeListing(base + "_tmp", lines))
        return 1;
    std::optional<double> sourceX;
    if (!traces.empty())
        sourceX = traces[0].sourceX;
    convertListing(base + "_tmp", base + ".seg2", sourceX,
                   [&traces](std::size_t trace, std::size_t sample) {
                       return static_cast<float>(traces.at(trace).samples.at(sample));
                   });
    return 0;
}

} // namespace plain
