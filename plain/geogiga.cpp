// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/geogiga.h"

#include "plain/text.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace plain {

namespace {

bool startsWith(const std::string &line, const std::string &delimiters, const std::string &word)
{
    const std::vector<std::string> fields = tokenize(line, delimiters);
    return !fields.empty() && fields[0] == word;
}

/// Puts the field after `keyword` into `value`.
bool readValue(const std::string &line, const std::string &keyword, std::string &value)
{
    if (!startsWith(line, ":", keyword))
        return false;
    value = tokenize(line, ":", 2)[1];
    return true;
}

/// Cut to an integer, modulo 2^32; 0 for what is infinite or not a number.
std::uint32_t readShotCount(const std::string &text)
{
    char *end = nullptr;
    errno = 0;
    const double count = std::strtod(text.c_str(), &end);
    if (end == text.c_str())
        throw std::invalid_argument("invalid stod argument");
    if (errno == ERANGE)
        throw std::out_of_range("stod argument out of range");
    const double low = std::fmod(std::trunc(count), 4294967296.0);
    return std::isfinite(low) ? static_cast<std::uint32_t>(std::llround(low)) : 0;
}

void readRows(std::istream &stream, std::int32_t receiverCount, double elevation, Spread &receivers,
              std::vector<double> &times)
{
    unsigned int receiverNumber = 0;
    unsigned int channel = 0;
    double x = 0.0;
    double time = 0.0;
    for (std::int32_t i = 0; i < receiverCount; ++i) {
        stream >> receiverNumber >> x >> time >> channel;
        if (static_cast<std::size_t>(i) >= receivers.size())
            throw std::out_of_range("invalid vector subscript");
        receivers[static_cast<std::size_t>(i)] = {x, elevation};
        times.push_back(time);
    }
}

bool readShot(std::istream &stream, std::uint32_t shotIndex, std::uint64_t fileSize,
              double elevation, Spread &receivers, Survey &survey)
{
    std::string line = nextLine(stream);
    while (line == "\r")
        line = nextLine(stream);
    Shot shot{0.0, elevation};
    std::string value;
    if (!readValue(line, "SEISMIC_DATA_FILE_NAME", shot.name)
        || !readValue(nextLine(stream), "SHOT_LOCATION", value))
        return false;
    shot.x = number(value);
    survey.shots.push_back(shot);
    if (!readValue(nextLine(stream), "NUMBER_OF_RECEIVERS", value))
        return false;
    const std::int32_t receiverCount = integer(value);
    if (receivers.empty() && receiverCount != 0) {
        requireHoldable(static_cast<std::uint64_t>(receiverCount), fileSize);
        receivers = Spread(static_cast<std::size_t>(receiverCount));
    }
    nextLine(stream); // the heading of the columns

    Record record{0, shotIndex, shot.x, elevation};
    readRows(stream, receiverCount, elevation, receivers, record.times);
    survey.records.push_back(record);
    return true;
}

} // namespace

bool readGeogiga(const std::string &path, Survey &survey)
{
    std::ifstream stream(path);
    if (!stream || !startsWith(nextLine(stream), " ", "TX_CURVE")
        || !startsWith(nextLine(stream), " ", "VERSION:"))
        return false;
    std::string line = nextLine(stream);
    while (startsWith(line, ":", "INFO"))
        line = nextLine(stream);
    std::string value;
    if (!readValue(line, "ELEVATION", value))
        return false;
    const double elevation = number(value);
    if (!readValue(nextLine(stream), "TOTAL_NUMBER_OF_SHOTS", value))
        return false;
    const std::uint32_t shotCount = readShotCount(value);
    const std::uint64_t fileSize = std::filesystem::file_size(path);
    Spread receivers;
    for (std::uint32_t shot = 0; shot < shotCount; ++shot) {
        if (!readShot(stream, shot, fileSize, elevation, receivers, survey))
            return false;
    }
    survey.spreads.push_back(receivers);
    return true;
}

} // namespace plain
