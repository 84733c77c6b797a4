// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/geogiga.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace {

/// The file as it is read, with the current line cut into fields.
struct OpenFile
{
    TextFile text;
    std::string line;
    std::vector<std::string> fields;
};

void splitAt(const std::string &delimiters, OpenFile &file, Problem &problem)
{
    splitLine(file.line, file.fields, delimiters, problem);
}

bool startsWith(const std::string &keyword, const OpenFile &file, Problem &problem)
{
    if (!file.fields.empty() && file.fields.front() == keyword)
        return true;
    const bool hasReturn = !file.fields.empty() && file.fields.front() == keyword + '\r';
    tell(problem, '"' + keyword + "\" expected" + (hasReturn ? ", then LF and not CR LF" : ""));
    return false;
}

/// Gives the value behind the keyword of the current line; false when it is not `keyword`.
bool valueOf(const std::string &keyword, std::string &value, OpenFile &file, Problem &problem)
{
    splitAt(":", file, problem);
    if (!startsWith(keyword, file, problem))
        return false;
    requireFields(file.fields, 2, problem);
    value = file.fields[1];
    return true;
}

bool nextValue(const std::string &keyword, std::string &value, OpenFile &file, Problem &problem)
{
    nextLine(file.text, file.line, problem);
    return valueOf(keyword, value, file, problem);
}

/// The number of shots as the file writes it, decimals and all: cut to an integer, modulo 2^32, so
/// that -1 is 4294967295; 0 when it is infinite or not a number.
std::uint32_t toShotCount(const std::string &text, Problem &problem)
{
    try {
        const double count = std::fmod(toDoubleOrThrow(text), 4294967296.0);
        return std::isfinite(count) ? static_cast<std::uint32_t>(static_cast<std::int64_t>(count))
                                    : 0;
    } catch (const std::logic_error &) {
        tell(problem, "number of shots \"" + text + '"');
        throw;
    }
}

bool readHeader(OpenFile &file, double &elevation, std::uint32_t &shotCount, Problem &problem)
{
    for (const char *keyword : {"TX_CURVE", "VERSION:"}) {
        nextLine(file.text, file.line, problem);
        splitAt(" ", file, problem);
        if (!startsWith(keyword, file, problem))
            return false;
    }

    do {
        nextLine(file.text, file.line, problem);
        splitAt(":", file, problem);
    } while (!file.fields.empty() && file.fields.front() == "INFO");

    std::string value;
    if (!valueOf("ELEVATION", value, file, problem))
        return false;
    elevation = toDouble(value);
    if (!nextValue("TOTAL_NUMBER_OF_SHOTS", value, file, problem))
        return false;
    shotCount = toShotCount(value, problem);
    return true;
}

/// The decimal number that is the whole of `word`; false for all else that a stream may take.
template <typename Number>
bool parseQuickly(std::string_view word, Number &number)
{
    const char *const last = word.data() + word.size();
    Number parsed = 0;
    const auto [end, error] = std::from_chars(word.data(), last, parsed);
    if (error != std::errc() || end != last)
        return false;
    number = parsed;
    return true;
}

bool isWhiteSpace(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

/// The end of the longest text from `at` on that a stream may take for one number. For an integer
/// it may stop before: "12.5" is then 12, and ".5" comes next.
std::size_t endOfNumber(const std::string &text, std::size_t at)
{
    const auto isAt = [&](char character) { return at < text.size() && text[at] == character; };
    const auto skipDigits = [&] {
        while (at < text.size() && text[at] >= '0' && text[at] <= '9')
            ++at;
    };
    if (isAt('+') || isAt('-'))
        ++at;
    skipDigits();
    if (isAt('.'))
        ++at;
    skipDigits();
    if (isAt('e') || isAt('E')) {
        ++at;
        if (isAt('+') || isAt('-'))
            ++at;
        skipDigits();
    }
    return at;
}

/// Extracts one number as `>>` does, counting the line ends in front of it: a word that begins with
/// no number gives 0, the end of the file leaves `number` as it was, and after either nothing more
/// is extracted.
template <typename Number>
void extract(TextFile &file, Number &number, Problem &problem)
{
    if (file.failed)
        return;
    std::size_t begin = file.position;
    for (; begin < file.text.size() && isWhiteSpace(file.text[begin]); ++begin)
        problem.line += file.text[begin] == '\n' ? 1 : 0;
    file.failed = begin == file.text.size();
    if (file.failed)
        return;
    const std::size_t end = std::max(endOfNumber(file.text, begin), begin + 1);
    const std::string_view word(&file.text[begin], end - begin);
    file.position = end;
    if (parseQuickly(word, number))
        return;
    std::istringstream stream{std::string(word)};
    stream >> number;
    file.failed = stream.fail();
    if (!stream.eof() && !stream.fail())
        file.position = begin + static_cast<std::size_t>(stream.tellg());
}

/// Reads a block's rows: the positions overwrite the first entries of `receivers`, the times are
/// appended to `times`. From a row on that holds something else than numbers, values stay as the
/// row before left them.
void readRows(TextFile &file, std::int32_t receiverCount, double elevation, Spread &receivers,
              std::vector<double> &times, Problem &problem)
{
    std::uint32_t receiverNumber = 0;
    double x = 0.0;
    double time = 0.0;
    std::uint32_t unused = 0;
    problem.line += file.failed ? 0 : 1;
    for (std::int32_t i = 0; i < receiverCount; ++i) {
        extract(file, receiverNumber, problem);
        extract(file, x, problem);
        extract(file, time, problem);
        extract(file, unused, problem);
        if (file.failed && problem.detail.empty())
            tell(problem, "receiver row " + std::to_string(i + 1) + " of "
                              + std::to_string(receiverCount) + " is not four numbers");
        if (static_cast<std::size_t>(i) >= receivers.size()) {
            tell(problem, counted(static_cast<std::size_t>(receiverCount), "receiver") + " after "
                              + std::to_string(receivers.size()) + " in the first shot");
            throw std::out_of_range("invalid vector subscript");
        }
        receivers[static_cast<std::size_t>(i)] = {x, elevation};
        times.push_back(time);
    }
    if (!file.failed)
        --problem.line; // the rest of the last row's line is read, and counted, as a line
}

/// The working receiver list, as long as the first block with receivers says.
void sizeOnce(Spread &receivers, std::int32_t receiverCount, std::size_t fileSize, Problem &problem)
{
    if (!receivers.empty() || receiverCount == 0)
        return;
    if (receiverCount < 0) {
        tell(problem, "number of receivers " + std::to_string(receiverCount));
        throw std::length_error("vector too long");
    }
    requireHoldable(static_cast<std::uint64_t>(receiverCount), fileSize, problem);
    receivers.resize(static_cast<std::size_t>(receiverCount));
}

} // namespace

std::int32_t readGeogigaTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, std::vector<Shot> &shots)
{
    Problem untold;
    return readGeogigaTraveltimes(path, traveltimes, spreads, shots, untold);
}

std::int32_t readGeogigaTraveltimes(const std::string &path,
                                    std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, std::vector<Shot> &shots,
                                    Problem &problem)
{
    OpenFile file{loadText(path, problem), {}, {}};
    if (!file.text.isOpen) {
        tell(problem, "the file cannot be opened");
        return 1;
    }

    double elevation = 0.0;
    std::uint32_t shotCount = 0;
    if (!readHeader(file, elevation, shotCount, problem))
        return 1;

    if (shotCount == 0)
        problem.remark = "there are no shots in this file";
    Spread receivers;
    for (std::uint32_t shotIndex = 0; shotIndex < shotCount; ++shotIndex) {
        // What the last row of the block before left of its line comes first.
        do
            nextLine(file.text, file.line, problem);
        while (file.line == "\r");

        if (shotIndex > 0 && file.line.empty() && !file.text.failed)
            tell(problem, "a carriage return or the next shot expected: do the rows end in CR LF?");

        Shot shot{0.0, elevation, ""};
        std::string value;
        if (!valueOf("SEISMIC_DATA_FILE_NAME", shot.name, file, problem)
            || !nextValue("SHOT_LOCATION", value, file, problem))
            return 1;
        shot.x = toDouble(value);
        shots.push_back(shot);

        if (!nextValue("NUMBER_OF_RECEIVERS", value, file, problem))
            return 1;
        const std::int32_t receiverCount = toInt(value);
        // The number of spreads, not of receivers; none stand there before a first file.
        if (!spreads.empty() && spreads.size() != static_cast<std::size_t>(receiverCount)) {
            tell(problem, counted(spreads.size(), "spread") + " read before");
            return 1;
        }
        sizeOnce(receivers, receiverCount, file.text.text.size(), problem);

        nextLine(file.text, file.line, problem); // the column heading
        ShotTraveltimes record{0, shotIndex, shot.x, elevation, {}};
        readRows(file.text, receiverCount, elevation, receivers, record.times, problem);
        traveltimes.push_back(std::move(record));
    }
    spreads.push_back(std::move(receivers));
    return 0;
}
