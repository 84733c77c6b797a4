// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"

#include "seg2/dolang_conversion.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace {

using Files = std::map<std::string, std::string>;

/// What the conversion must leave.
struct Expected
{
    std::string result = "0";
    std::string error;
    std::map<char, std::vector<ExpectedTrace>> tracesOf; ///< by the kind's letter
};

/// Thrown for a file that is not in the set.
struct Missing
{
};

const std::string &bytesOf(const Files &files, const std::string &name)
{
    if (!files.contains(name))
        throw Missing();
    return files.at(name);
}

std::int64_t nextNumber(std::istream &stream)
{
    return std::strtoll(nextLine(stream).c_str(), nullptr, 10);
}

std::vector<ExpectedTrace> readKind(const Files &files, const std::string &letter)
{
    std::istringstream header(bytesOf(files, letter + "DT"));
    std::string line = nextLine(header);
    while (line.starts_with('"'))
        line = nextLine(header);
    const auto channelCount = static_cast<std::uint32_t>(std::strtoll(line.c_str(), nullptr, 10));
    nextLine(header);
    nextLine(header);
    const auto delay = static_cast<std::uint32_t>(nextNumber(header));
    const auto sampleCount = static_cast<std::uint32_t>(nextNumber(header));
    const auto rate = static_cast<std::uint32_t>(nextNumber(header));

    std::vector<ExpectedTrace> traces;
    std::uint64_t bytesRead = 0;
    for (std::uint32_t channel = 1; traces.size() < channelCount; ++channel) {
        const std::string &bytes =
            bytesOf(files, letter + (channel < 10 ? "0" : "") + std::to_string(channel));
        bytesRead += bytes.size();
        limitCount(std::uint64_t{sampleCount} * channel, bytesRead);
        std::istringstream stream(bytes);
        ExpectedTrace trace{{}, static_cast<double>(delay), 1.0 / rate};
        for (std::uint32_t i = 0; i < sampleCount; ++i)
            trace.samples.push_back(
                static_cast<float>(static_cast<std::int32_t>(nextNumber(stream))));
        traces.push_back(trace);
    }
    return traces;
}

Expected readPlainly(const Files &files)
{
    Expected expected;
    for (const char letter : {'A', 'C', 'R'}) {
        try {
            expected.tracesOf[letter] = readKind(files, {letter});
        } catch (const Missing &) {
            expected.error = std::string("Error in reading file LINE.") + letter + "DT\n";
            return expected;
        } catch (const std::length_error &error) {
            expected.result = std::string("length error: ") + error.what();
            return expected;
        }
    }
    return expected;
}

/// The names of a set's files: "ADT", "A01", "R100".
bool isOfSet(const std::string &name)
{
    if (name.size() < 3 || name.size() > 9 || std::string("ACR").find(name[0]) == std::string::npos)
        return false;
    return name.substr(1) == "DT" || name.find_first_not_of("0123456789", 1) == std::string::npos;
}

/// The traces that are read back from the listing: an interval that is infinite there is none, and
/// the last value read.
std::vector<ExpectedTrace> readBack(std::vector<ExpectedTrace> traces)
{
    if (!traces.empty() && traces[0].interval > 1.0) {
        traces.resize(1);
        traces[0].interval = 0.0;
    }
    return traces;
}

std::int32_t convertKinds(Problem &problem)
{
    for (const DolangKind &kind : dolangKinds) {
        const bool goesOn = convertDolangKind("LINE", kind, kind.listingName,
                                              std::string("LINE") + kind.seg2Ending, problem);
        require(goesOn || !problem.detail.empty(), "what ends the conversion is told");
        if (!goesOn)
            break;
    }
    return 0;
}

} // namespace

// A section is a file of the set, named without its "LINE.".
void check(const std::string &input)
{
    Files files;
    for (const Section &section : sections(input))
        if (isOfSet(section.name))
            files[section.name] = section.bytes;
    const Expected expected = readPlainly(files);

    for (const auto &[name, bytes] : files)
        folder().write("LINE." + name, bytes);
    const auto tell = [](Problem &problem) {
        const WorkingFolder working(folder().path(""));
        return convertKinds(problem);
    };
    const Outcome first = run(tell);
    const Outcome untold = run([](Problem &) {
        const WorkingFolder working(folder().path(""));
        convertDolangToSeg2("LINE");
        return 0;
    });
    requireSame(first, run(tell), untold);

    requireSame(first.result, expected.result, "the conversion's result");
    requireSame(first.error, expected.error, "the conversion's standard error");
    for (const char letter : {'A', 'C', 'R'}) {
        const std::string listing = std::string("tmp_") + letter + "DT";
        const std::string seg2 = std::string("LINE_") + letter + "DT_dolang.seg2";
        const auto traces = expected.tracesOf.find(letter);
        const bool isDone = traces != expected.tracesOf.end();
        require(first.files.contains(listing) == isDone, "a listing of each kind converted");
        require(first.files.contains(seg2) == isDone, "a SEG2 file of each kind converted");
        if (!isDone)
            continue;
        requireSame(first.files.at(listing), listingOf(traces->second), "the listing");
        checkSeg2(first.files.at(seg2), {"TRACE_SORT AS_ACQUIRED", "UNITS METERS"},
                  readBack(traces->second));
    }
}
