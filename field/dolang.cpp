// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/dolang.h"

#include "field/numbers.h"
#include "field/text_input.h"
#include "field/trace_tally.h"
#include "traveltime/text.h"

#include <cmath>
#include <filesystem>
#include <vector>

namespace {

/// The names of a set's files.
struct DolangNames
{
    std::string header = {};
    std::string channels = {}; ///< followed by the channel's number, of two digits at least
    bool isChannel = false;    ///< it was a channel file that was named
};

/// None when the name is neither that of a header nor that of a channel file.
std::optional<DolangNames> namesFrom(const std::string &path)
{
    const std::size_t dot = path.find_last_of("./");
    if (dot == std::string::npos || path[dot] != '.' || path.size() < dot + 4)
        return std::nullopt;
    const std::string kind = path.substr(dot + 1, 1);
    const std::string rest = path.substr(dot + 2);
    if (!sameWord(kind, "a") && !sameWord(kind, "c") && !sameWord(kind, "r"))
        return std::nullopt;
    const std::string base = path.substr(0, dot + 2);
    if (sameWord(rest, "dt"))
        return DolangNames{path, base};
    if (rest.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    const bool isCapital = kind[0] >= 'A' && kind[0] <= 'Z';
    return DolangNames{base + (isCapital ? "DT" : "dt"), base, true};
}

std::string channelPath(const DolangNames &names, std::size_t channel)
{
    return names.channels + (channel < 10 ? "0" : "") + std::to_string(channel);
}

struct DolangHeader
{
    std::size_t channelCount = 0;
    double delay = 0.0; ///< seconds
    std::size_t sampleCount = 0;
    double samplingRate = 0.0; ///< samples per second
    std::string notes = {};
};

void addNote(std::string_view line, std::string &notes)
{
    if (line.starts_with('"'))
        line.remove_prefix(1);
    if (line.ends_with('"'))
        line.remove_suffix(1);
    if (!line.empty())
        notes.append(notes.empty() ? "" : "\n").append(line);
}

bool nextValue(TextInput &input, const char *name, Report &report)
{
    return nextLine(input, report) || fail(report, std::string("the file ends before ") + name);
}

bool nextNote(TextInput &input, DolangHeader &header, Report &report)
{
    const bool isThere = nextValue(input, "the two lines after the number of channels", report);
    addNote(input.line, header.notes);
    return isThere;
}

bool nextCount(TextInput &input, const char *name, std::size_t &count, Report &report)
{
    return nextValue(input, name, report) && readCount(input.line, name, count, input, report)
           && (count > 0 || fail(report, std::string(name) + " is 0"));
}

bool nextNumber(TextInput &input, const char *name, double &number, Report &report)
{
    return nextValue(input, name, report) && readNumber(input.line, name, number, input, report);
}

bool readHeader(const std::string &path, DolangHeader &header, Report &report)
{
    constexpr char channels[] = "the number of channels";
    TextInput input;
    if (!loadInput(path, input, report) || !nextValue(input, channels, report))
        return false;
    while (input.line.starts_with('"')) {
        addNote(input.line, header.notes);
        if (!nextValue(input, channels, report))
            return false;
    }
    if (!readCount(input.line, channels, header.channelCount, input, report))
        return false;
    if (header.channelCount == 0)
        return fail(report, std::string(channels) + " is 0");
    for (int note = 0; note < 2; ++note)
        if (!nextNote(input, header, report))
            return false;
    if (!nextNumber(input, "the delay in seconds", header.delay, report)
        || !nextCount(input, "the number of samples of a channel", header.sampleCount, report)
        || !nextNumber(input, "the number of samples per second", header.samplingRate, report))
        return false;
    if (header.samplingRate <= 0.0)
        return fail(report, "the number of samples per second is not above 0");
    while (nextLine(input, report))
        addNote(input.line, header.notes);
    return endNumbers(input, report);
}

/// Reads a channel's samples as floats; `rounding` counts samples that no float holds.
bool readChannel(const std::string &path, const DolangHeader &header, std::size_t channel,
                 std::vector<float> &samples, TraceTally &rounding, Report &report)
{
    TextInput input;
    if (!loadInput(path, input, report))
        return false;
    samples.clear();
    while (samples.size() < header.sampleCount) {
        double sample = 0.0;
        if (!nextLine(input, report))
            return fail(report, "the file ends after " + grouped(samples.size()) + " of "
                                    + counted(header.sampleCount, "sample"));
        if (!readNumber(input.line, "a sample", sample, input, report))
            return false;
        samples.push_back(static_cast<float>(sample));
        if (std::isinf(samples.back()))
            return fail(report, "a sample of " + shortest(sample)
                                    + ": 3.4028235e+38 is the largest that is read");
        if (shortest(samples.back()) != shortest(sample))
            countTrace(rounding, channel, [&] {
                return "samples become 32-bit floats: " + shortest(sample) + " becomes "
                       + shortest(samples.back());
            });
    }
    while (nextLine(input, report))
        if (!input.line.empty())
            return fail(report, "a line after the " + counted(header.sampleCount, "sample")
                                    + " of a channel");
    return endNumbers(input, report);
}

bool readChannels(const DolangNames &names, const DolangHeader &header, const TakeTrace &take,
                  Report &report)
{
    RecordFile file;
    file.traceCount = header.channelCount;
    file.format = "dolang";
    file.knownBy = "its name and its header";
    if (!header.notes.empty())
        file.strings["NOTE"] = header.notes;
    TraceTally rounding;
    bool goesOn = true;
    for (std::size_t channel = 1; goesOn && channel <= header.channelCount; ++channel) {
        const std::string path = channelPath(names, channel);
        std::vector<float> samples;
        if (!readChannel(path, header, channel, samples, rounding, report))
            return false;
        report.place = {path};
        RecordTrace trace;
        trace.samples = std::move(samples);
        trace.sampleInterval = 1.0 / header.samplingRate;
        trace.delay = header.delay;
        trace.channelNumber = static_cast<std::int32_t>(channel);
        file.fractionRead = static_cast<double>(channel) / static_cast<double>(header.channelCount);
        goesOn = take(file, trace);
    }
    report.place = {names.header};
    remarkOn(rounding, RemarkKind::samples, report);
    return !report.failure;
}

} // namespace

std::string recogniseDolang(const std::string &, const std::string &path)
{
    const auto names = namesFrom(path);
    std::error_code ignored;
    if (!names || !std::filesystem::exists(names->header, ignored))
        return "";
    if (names->isChannel)
        return "its name, that of a channel of " + names->header;
    Report report;
    DolangHeader header;
    const bool isHeader = readHeader(path, header, report);
    if (!isHeader && !std::filesystem::exists(channelPath(*names, 1), ignored))
        return "";
    return "its name and its header";
}

bool readDolang(const std::string &path, const TakeTrace &take, Report &report)
{
    report.place = {path};
    const auto names = namesFrom(path);
    if (!names)
        return fail(report, "the name of a Dolang header ends in .ADT, .CDT or .RDT: the channels "
                            "are found by it");
    if (names->isChannel)
        return fail(report, "this is one channel of a set: name its header, " + names->header);
    DolangHeader header;
    return readHeader(path, header, report) && readChannels(*names, header, take, report);
}
