// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/records.h"
#include "plain/listing.h"
#include "seg2/listing.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace {

constexpr std::uint32_t samplesHeld = 16; // of every trace

/// Samples that tell the traces apart.
float sampleAt(std::size_t trace, std::size_t sample)
{
    if (sample >= samplesHeld)
        throw std::out_of_range("invalid vector subscript");
    return static_cast<float>(trace) + static_cast<float>(sample) / 64.0F;
}

std::uint32_t available(std::size_t, std::uint32_t count)
{
    return std::min(count, samplesHeld);
}

std::vector<float> read(std::size_t trace, std::uint32_t count)
{
    std::vector<float> samples;
    for (std::uint32_t i = 0; i < available(trace, count); ++i)
        samples.push_back(sampleAt(trace, i));
    return samples;
}

/// With and without a trace that the source's position comes from.
void checkListing(const std::string &path, std::optional<double> sourceX)
{
    const std::string seg2Path = folder().path("line.seg2");
    const Outcome plain = run([&] {
        plain::convertListing(path, seg2Path, sourceX, sampleAt);
        return 0;
    });
    requireSoundSeg2(plain.files.at("line.seg2"));

    std::ostringstream progress;
    Outcome outcome = runInner([&](Report &report) {
        progress.str("");
        report.place = {path};
        convertListing(path, seg2Path, sourceX, {available, read}, &progress, report);
        return !report.failure;
    });
    outcome.output = progress.str();
    requireSame(outcome, plain, "listing");
}

} // namespace

void check(const std::string &input)
{
    const std::string path = folder().write("line_tmp", input);
    checkListing(path, -2.5);
    checkListing(path, {});
}
