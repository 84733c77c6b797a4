// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/geogiga.h"

#include <cmath>
#include <locale>
#include <stdexcept>

namespace {

/// The file as it is read, with the current line cut into fields.
struct OpenFile
{
    std::ifstream stream;
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
    nextLine(file.stream, file.line, problem);
    return valueOf(keyword, value, file, problem);
}

/// The number of shots as the file writes it, decimals and all: cut to an integer, modulo 2^32.
std::uint32_t toShotCount(const std::string &text, Problem &problem)
{
    tell(problem, "number of shots \"" + text + '"');
    const double count = toDoubleOrThrow(text);
    problem.detail.clear();
    if (!std::isfinite(count))
        return 0;
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(std::fmod(count, 4294967296.0)));
}

bool readHeader(OpenFile &file, double &elevation, std::uint32_t &shotCount, Problem &problem)
{
    for (const char *keyword : {"TX_CURVE", "VERSION:"}) {
        nextLine(file.stream, file.line, problem);
        splitAt(" ", file, problem);
        if (!startsWith(keyword, file, problem))
            return false;
    }

    do {
        nextLine(file.stream, file.line, problem);
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

/// Extracts one value as `>>` does, counting the line ends in front of it.
template <typename Value>
void extract(std::istream &stream, Value &value, Problem &problem)
{
    const std::locale classic = stream.getloc();
    for (int next = stream.peek();
         next != std::char_traits<char>::eof() && std::isspace(static_cast<char>(next), classic);
         next = stream.peek()) {
        problem.line += next == '\n' ? 1 : 0;
        stream.ignore();
    }
    stream >> value;
}

/// Reads a block's rows: the positions overwrite the first entries of `receivers`, the times are
/// appended to `times`. From a row on that holds something else than numbers, values stay as the
/// row before left them.
void readRows(std::istream &stream, std::int32_t receiverCount, double elevation, Spread &receivers,
              std::vector<double> &times, Problem &problem)
{
    std::uint32_t receiverNumber = 0;
    double x = 0.0;
    double time = 0.0;
    std::uint32_t unused = 0;
    ++problem.line;
    for (std::int32_t i = 0; i < receiverCount; ++i) {
        extract(stream, receiverNumber, problem);
        extract(stream, x, problem);
        extract(stream, time, problem);
        extract(stream, unused, problem);
        if (!stream)
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
    if (stream)
        --problem.line; // the rest of the last row's line is read, and counted, as a line
}

/// The working receiver list, as long as the first block with receivers says.
void sizeOnce(Spread &receivers, std::int32_t receiverCount, Problem &problem)
{
    if (!receivers.empty() || receiverCount == 0)
        return;
    if (receiverCount < 0) {
        tell(problem, "number of receivers " + std::to_string(receiverCount));
        throw std::length_error("vector too long");
    }
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
    OpenFile file{openText(path), {}, {}};
    if (!file.stream) {
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
            nextLine(file.stream, file.line, problem);
        while (file.line == "\r");

        if (shotIndex > 0 && file.line.empty() && file.stream)
            tell(problem, "a shot's last receiver row must end in CR LF, this one ends in LF");

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
        sizeOnce(receivers, receiverCount, problem);

        nextLine(file.stream, file.line, problem); // the column heading
        ShotTraveltimes record{0, shotIndex, shot.x, elevation, {}};
        readRows(file.stream, receiverCount, elevation, receivers, record.times, problem);
        traveltimes.push_back(std::move(record));
    }
    spreads.push_back(std::move(receivers));
    return 0;
}
