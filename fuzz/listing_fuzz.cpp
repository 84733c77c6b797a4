// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"

#include "seg2/listing.h"

#include <algorithm>
#include <optional>
#include <set>
#include <sstream>

namespace {

constexpr double sourceX = -2.5;
constexpr std::uint32_t samplesHeld = 16; // of every trace

/// Samples that tell the traces apart.
std::vector<float> samplesOf(std::size_t trace, std::uint32_t count)
{
    std::vector<float> samples(std::min(count, samplesHeld));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<float>(trace) + static_cast<float>(i) / 64.0F;
    return samples;
}

/// What the SEG2 file must hold; nothing when a trace asks for more samples than there are.
struct Expected
{
    std::vector<std::string> strings;
    std::vector<ExpectedTrace> traces;
};

std::vector<std::string> readStrings(std::istream &listing)
{
    std::map<std::string, std::string> byKey;
    for (int pair = 0; pair < 2; ++pair) {
        std::string key;
        std::string value;
        listing >> key >> value;
        byKey[key] = value;
    }
    std::vector<std::string> strings;
    for (const auto &[key, value] : byKey)
        if (key != "NOTE")
            strings.push_back(key + ' ' + value);
    if (byKey.contains("NOTE"))
        strings.push_back("NOTE " + byKey["NOTE"]);
    return strings;
}

std::optional<Expected> readPlainly(const std::string &text)
{
    std::istringstream listing(text);
    Expected expected{readStrings(listing), {}};
    std::string word;
    do
        word.clear();
    while (listing >> word && word != "Z");
    int number = 0;
    while (listing >> number) {
        std::uint32_t count = 0;
        ExpectedTrace trace;
        listing >> count >> trace.delay >> trace.interval >> trace.receiverX >> trace.receiverY
            >> trace.receiverZ;
        if (count > samplesHeld)
            return {};
        trace.samples = samplesOf(expected.traces.size(), count);
        trace.sourceX = sourceX;
        expected.traces.push_back(trace);
    }
    return expected;
}

} // namespace

void check(const std::string &text)
{
    const std::string path = folder().write("line_tmp", text);
    const std::string seg2Path = folder().path("line.seg2");
    const auto convert = [&](std::optional<double> x) {
        return run([&](Problem &problem) {
            return convertListing(path, seg2Path, x, samplesOf, problem) ? 0 : 1;
        });
    };
    const Outcome first = convert(sourceX);
    const Outcome again = convert(sourceX);
    requireSame(first, again, again);

    const std::optional<Expected> expected = readPlainly(text);
    const std::string &seg2 = first.files.at("line.seg2");
    requireSame(first.result, expected ? "0" : "1", "a listing converts unless it asks for more");
    require(first.error.ends_with("EXCEPTION!\n") == !expected, "\"EXCEPTION!\" for a failure");
    if (expected)
        checkSeg2(seg2, expected->strings, expected->traces);
    else
        requireSame(seg2, "", "an empty SEG2 file for a failure");

    const Outcome without = convert({});
    requireSame(without.result, "1", "without a source nothing converts");
    require(without.error.ends_with("EXCEPTION!\n"), "\"EXCEPTION!\" without a source");
    requireSame(without.files.at("line.seg2"), "", "an empty SEG2 file without a source");
    require(!without.problem.detail.empty(), "a missing source is told");
}
