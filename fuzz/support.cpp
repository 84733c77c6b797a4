// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"

#include "tests/support/seg2_parser.h"
#include "tests/support/small_records.h"

#include <array>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    for (const auto &entry : std::filesystem::directory_iterator(folder().path("")))
        std::filesystem::remove(entry.path());
    try {
        check(std::string(data, data + size));
    } catch (const TooSlow &) {
    }
    return 0;
}

void require(bool holds, const std::string &rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "BROKEN: %s\n", rule.c_str());
    std::abort();
}

void requireSame(const std::string &text, const std::string &expected, const std::string &rule)
{
    if (text != expected)
        require(false, rule + "\n--- expected\n" + expected + "\n--- but\n" + text);
}

const TemporaryFolder &folder()
{
    static const TemporaryFolder own;
    return own;
}

std::vector<Section> sections(const std::string &input)
{
    std::vector<Section> result;
    for (std::size_t position = 0; position < input.size();) {
        const std::size_t end = std::min(input.find('\n', position), input.size() - 1) + 1;
        const std::string line = input.substr(position, end - position);
        position = end;
        if (line[0] == '=') {
            std::string name = line.substr(1, line.find('\n') - 1);
            name.erase(0, name.find_first_not_of(' '));
            result.push_back({name, ""});
        } else {
            if (result.empty())
                result.emplace_back();
            result.back().bytes += line;
        }
    }
    return result;
}

std::string writeSection(const Section &section, const std::string &fileName)
{
    return section.name.ends_with("missing") ? folder().path(fileName)
                                             : folder().write(fileName, section.bytes);
}

namespace {

/// Catches what goes through a stream while it lives.
class Caught
{
public:
    explicit Caught(std::ostream &streamToCatch)
        : stream(streamToCatch)
        , before(streamToCatch.rdbuf(text.rdbuf()))
    {
    }
    ~Caught()
    {
        stream.rdbuf(before);
    }
    Caught(const Caught &) = delete;
    Caught &operator=(const Caught &) = delete;

    std::ostringstream text;

private:
    std::ostream &stream;
    std::streambuf *before;
};

std::string nameOf(const std::logic_error &error)
{
    static const std::set<std::string> known = {
        "out of range: invalid vector subscript", "out of range: invalid string position",
        "out of range: stod argument out of range", "invalid argument: invalid stod argument",
        "length error: vector too long"};
    std::string name = "another error: ";
    if (dynamic_cast<const std::out_of_range *>(&error) != nullptr)
        name = "out of range: ";
    else if (dynamic_cast<const std::invalid_argument *>(&error) != nullptr)
        name = "invalid argument: ";
    else if (dynamic_cast<const std::length_error *>(&error) != nullptr)
        name = "length error: ";
    name += error.what();
    require(known.contains(name), "only known errors leave a conversion: " + name);
    return name;
}

} // namespace

Outcome run(const std::function<std::int32_t(Problem &problem)> &call)
{
    Outcome outcome;
    const Caught output(std::cout);
    const Caught error(std::cerr);
    try {
        outcome.result = std::to_string(call(outcome.problem));
    } catch (const std::logic_error &known) {
        outcome.result = nameOf(known);
    }
    outcome.output = output.text.str();
    outcome.error = error.text.str();
    for (const auto &entry : std::filesystem::directory_iterator(folder().path("")))
        outcome.files[entry.path().filename()] = readFile(entry.path());
    return outcome;
}

void requireSame(const Outcome &first, const Outcome &again, const Outcome &untold)
{
    for (const Outcome *other : {&again, &untold}) {
        requireSame(other->result, first.result, "the same result each time");
        requireSame(other->output, first.output, "the same standard output each time");
        requireSame(other->error, first.error, "the same standard error each time");
        require(other->files == first.files, "the same files each time");
    }
    const Problem &problem = again.problem;
    requireSame(problem.file, first.problem.file, "the same file of a Problem each time");
    require(problem.line == first.problem.line, "the same line of a Problem each time");
    requireSame(problem.detail, first.problem.detail, "the same detail of a Problem each time");
    requireSame(problem.remark, first.problem.remark, "the same remark of a Problem each time");
    require(first.result == "0" || !first.problem.detail.empty(), "what failed is told");
    require(first.problem.detail.empty() || !first.problem.file.empty(), "a Problem has a file");
}

void limitCount(std::uint64_t count, std::uint64_t bytesHeld)
{
    if (count > bytesHeld + 10'000'000)
        throw std::length_error("vector too long");
    if (count > 2000)
        throw TooSlow();
}

std::string printed(double value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

std::string nextLine(std::istream &stream)
{
    std::string line;
    std::getline(stream, line);
    return line;
}

std::vector<std::string> fieldsOf(const std::string &line, const std::string &delimiters)
{
    std::vector<std::string> fields;
    std::size_t start = line.find_first_not_of(delimiters);
    std::size_t end = line.find_first_of(delimiters);
    while (start != std::string::npos || end != std::string::npos) {
        if (start > line.size())
            throw std::out_of_range("invalid string position");
        fields.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(delimiters, end);
        end = line.find_first_of(delimiters, start);
    }
    return fields;
}

std::vector<std::string> enoughFields(std::vector<std::string> fields, std::size_t expected)
{
    if (fields.size() < expected)
        throw std::out_of_range("invalid vector subscript");
    return fields;
}

std::uint32_t plainSpreadIndex(std::vector<Spread> &spreads, const Spread &receivers)
{
    for (std::uint32_t index = 0; index < spreads.size(); ++index) {
        bool same = !receivers.empty() && spreads[index].size() == receivers.size();
        for (std::size_t i = 0; same && i < receivers.size(); ++i)
            same = spreads[index][i].x == receivers[i].x
                   && spreads[index][i].elevation == receivers[i].elevation;
        if (same)
            return index;
    }
    spreads.push_back(receivers);
    return static_cast<std::uint32_t>(spreads.size() - 1);
}

namespace {

/// Takes an OTTE file apart, line by line.
class OtteReader
{
public:
    explicit OtteReader(const std::string &bytes)
        : text(bytes)
    {
    }

    bool atEnd() const
    {
        return position == text.size();
    }

    std::string line()
    {
        const std::size_t end = text.find('\n', position);
        require(end != std::string::npos, "every OTTE line is there and has its end");
        const std::string result = text.substr(position, end - position);
        position = end + 1;
        return result;
    }

    std::size_t count()
    {
        const std::string digits = line();
        require(!digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos
                    && (digits == "0" || digits[0] != '0'),
                "an OTTE count or index is a plain decimal: " + digits);
        return std::strtoull(digits.c_str(), nullptr, 10);
    }

    /// Each value with ";" behind it, as a stream prints it.
    std::vector<std::string> values()
    {
        std::vector<std::string> result;
        std::istringstream stream(line() + '\n');
        for (std::string value; std::getline(stream, value, ';') && value != "\n";) {
            requireSame(printed(std::strtod(value.c_str(), nullptr)), value,
                        "an OTTE value is printed as streams do");
            result.push_back(value);
        }
        return result;
    }

private:
    const std::string &text;
    std::size_t position = 0;
};

template <typename Entries, typename Value>
void requireValues(const std::vector<std::string> &values, const Entries &entries, Value value,
                   const std::string &what)
{
    require(values.size() == entries.size(), "an OTTE line has as many values as " + what);
    for (std::size_t i = 0; i < values.size(); ++i)
        requireSame(values[i], printed(value(entries[i])), "an OTTE line of " + what);
}

void checkOtte(const std::string &bytes, const TraveltimeSurvey &survey)
{
    const auto x = [](const auto &point) { return point.x; };
    const auto elevation = [](const auto &point) { return point.elevation; };
    OtteReader file(bytes);
    for (const char *line : {"otte", "1.0", "2"})
        requireSame(file.line(), line, "an OTTE header line");
    const std::size_t spreadCount = file.count();
    require(spreadCount == survey.spreads.size(), "as many OTTE spreads as were read");
    for (const Spread &spread : survey.spreads) {
        requireValues(file.values(), spread, x, "a spread's x");
        requireValues(file.values(), spread, elevation, "a spread's elevations");
    }
    requireValues(file.values(), survey.shots, x, "the shots' x");
    requireValues(file.values(), survey.shots, elevation, "the shots' elevations");
    for (const ShotTraveltimes &record : survey.traveltimes) {
        const std::size_t spreadIndex = file.count();
        require(spreadIndex < spreadCount, "a record's spread is one of the file's");
        require(spreadIndex == record.spreadIndex, "a record's spread is the one read");
        require(file.count() == record.shotIndex, "a record's shot is the one read");
        requireValues(
            file.values(), record.times, [](double time) { return time * 1000.0; },
            "a record's times");
    }
    require(file.atEnd(), "as many OTTE records as were read");
}

/// All that a survey holds, to the last bit.
std::string textOf(const TraveltimeSurvey &survey)
{
    std::ostringstream text;
    const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
    text << std::hex;
    for (const ShotTraveltimes &record : survey.traveltimes) {
        text << "record " << record.spreadIndex << ' ' << record.shotIndex << ' '
             << bits(record.shotX) << ' ' << bits(record.shotElevation) << ':';
        for (const double time : record.times)
            text << ' ' << bits(time);
        text << '\n';
    }
    for (const Spread &spread : survey.spreads) {
        text << "spread:";
        for (const ReceiverPosition &receiver : spread)
            text << ' ' << bits(receiver.x) << ' ' << bits(receiver.elevation);
        text << '\n';
    }
    for (const Shot &shot : survey.shots)
        text << "shot " << bits(shot.x) << ' ' << bits(shot.elevation) << ' ' << shot.name << '\n';
    return text.str();
}

} // namespace

void checkTraveltimes(const TraveltimeConversion &conversion)
{
    TraveltimeSurvey plain;
    const Outcome expected = run([&](Problem &) { return conversion.readPlainly(plain); });

    TraveltimeSurvey survey;
    const Outcome reading = run([&](Problem &) { return conversion.read(survey); });
    requireSame(reading.result, expected.result, "the reader's result");
    requireSame(reading.error, expected.error, "the reader's standard error");
    requireSame(textOf(survey), textOf(plain), "the survey that was read");

    const std::string output = folder().path("out.otte");
    const auto tell = [&](Problem &problem) { return conversion.convertAndTell(output, problem); };
    Outcome first = run(tell);
    requireSame(first.result, expected.result, "the driver's result");
    requireSame(first.error, expected.error, "the driver's standard error");
    require(first.files.contains("out.otte") == (first.result == "0"),
            "an OTTE file when the reading succeeded, and only then");
    if (first.result == "0")
        checkOtte(first.files["out.otte"], survey);
    else
        first.files["out.otte"] = "older";

    folder().write("out.otte", "older");
    const Outcome untold = run([&](Problem &) { return conversion.convert(output); });
    folder().write("out.otte", "older");
    requireSame(first, run(tell), untold);
}

void checkSeg2(const std::string &bytes, const std::vector<std::string> &strings,
               const std::vector<ExpectedTrace> &traces)
{
    ParsedSeg2 file;
    try {
        file = parseSeg2(bytes);
    } catch (const std::runtime_error &flaw) {
        require(false, std::string("a SEG2 file is without a flaw: ") + flaw.what());
    }
    require(file.strings == strings, "the strings of the SEG2 file");
    require(file.traces.size() == traces.size(), "as many SEG2 traces as there must be");
    for (std::size_t i = 0; i < traces.size(); ++i) {
        const ExpectedTrace &trace = traces[i];
        std::string data;
        for (const float sample : trace.samples)
            for (int shift = 0; shift < 32; shift += 8)
                data += static_cast<char>(std::bit_cast<std::uint32_t>(sample) >> shift & 255);
        const std::vector<std::string> traceStrings = {
            "DELAY " + printed(trace.delay),
            "DESCALING_FACTOR 1",
            "RECEIVER_LOCATION " + printed(trace.receiverX) + ' ' + printed(trace.receiverY) + ' '
                + printed(trace.receiverZ),
            "SAMPLE_INTERVAL " + printed(trace.interval),
            "SOURCE_LOCATION " + printed(trace.sourceX) + " 0 0",
            "STACK 1",
        };
        require(file.traces[i].strings == traceStrings, "the strings of a SEG2 trace");
        require(file.traces[i].formatCode == 4, "SEG2 samples are 32-bit floats");
        require(file.traces[i].sampleCount == trace.samples.size(), "a SEG2 trace's sample count");
        require(file.traces[i].data == data, "a SEG2 trace's samples");
    }
}

std::string listingOf(const std::vector<ExpectedTrace> &traces)
{
    std::ostringstream text;
    text << listingHeading;
    for (std::size_t i = 0; i < traces.size(); ++i)
        text << i + 1 << "    " << traces[i].samples.size() << "      "
             << static_cast<std::uint32_t>(traces[i].delay) << "     " << traces[i].interval
             << "     " << traces[i].receiverX << "      0      0\n";
    return text.str();
}
