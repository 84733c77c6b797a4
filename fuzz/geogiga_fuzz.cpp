// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"

#include "readers/geogiga.h"
#include "traveltime/drivers.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace {

std::uint32_t shotCountOf(const std::string &text)
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

struct KeywordMissing
{
};

std::vector<std::string> fieldsAfter(const std::string &line, const std::string &delimiter,
                                     const std::string &keyword)
{
    const std::vector<std::string> fields = fieldsOf(line, delimiter);
    if (fields.empty() || fields[0] != keyword)
        throw KeywordMissing();
    return fields;
}

std::string valueAfter(const std::string &line, const std::string &keyword)
{
    return enoughFields(fieldsAfter(line, ":", keyword), 2)[1];
}

void readBlock(std::istringstream &stream, std::size_t fileSize, double elevation,
               std::uint32_t shotIndex, Spread &receivers, TraveltimeSurvey &survey)
{
    std::string line = nextLine(stream);
    while (line == "\r")
        line = nextLine(stream);
    const std::string name = valueAfter(line, "SEISMIC_DATA_FILE_NAME");
    const double shotX = std::atof(valueAfter(nextLine(stream), "SHOT_LOCATION").c_str());
    survey.shots.push_back({shotX, elevation, name});
    const std::string count = valueAfter(nextLine(stream), "NUMBER_OF_RECEIVERS");
    const auto receiverCount = static_cast<std::int32_t>(std::strtoll(count.c_str(), nullptr, 10));
    if (receivers.empty() && receiverCount != 0) {
        limitCount(static_cast<std::uint64_t>(receiverCount), fileSize);
        receivers.resize(static_cast<std::size_t>(receiverCount));
    }
    nextLine(stream);

    ShotTraveltimes record{0, shotIndex, shotX, elevation, {}};
    unsigned first = 0;
    unsigned last = 0;
    double x = 0.0;
    double time = 0.0;
    for (std::int32_t i = 0; i < receiverCount; ++i) {
        stream >> first >> x >> time >> last;
        if (static_cast<std::size_t>(i) >= receivers.size())
            throw std::out_of_range("invalid vector subscript");
        receivers[static_cast<std::size_t>(i)] = {x, elevation};
        record.times.push_back(time);
    }
    survey.traveltimes.push_back(record);
}

void readPlainly(const std::string &text, TraveltimeSurvey &survey)
{
    std::istringstream stream(text);
    fieldsAfter(nextLine(stream), " ", "TX_CURVE");
    fieldsAfter(nextLine(stream), " ", "VERSION:");
    std::string line = nextLine(stream);
    for (auto fields = fieldsOf(line, ":"); !fields.empty() && fields[0] == "INFO";
         fields = fieldsOf(line, ":"))
        line = nextLine(stream);
    const double elevation = std::atof(valueAfter(line, "ELEVATION").c_str());
    const std::uint32_t shotCount =
        shotCountOf(valueAfter(nextLine(stream), "TOTAL_NUMBER_OF_SHOTS"));
    Spread receivers;
    for (std::uint32_t shot = 0; shot < shotCount; ++shot)
        readBlock(stream, text.size(), elevation, shot, receivers, survey);
    survey.spreads.push_back(receivers);
}

} // namespace

void check(const std::string &text)
{
    const std::string path = folder().write("line.txt", text);
    checkTraveltimes({
        [&](const std::string &output) { return convertGeogiga(path, output); },
        [&](const std::string &output, Problem &problem) {
            return convertGeogiga(path, output, problem);
        },
        [&](TraveltimeSurvey &survey) {
            return readGeogigaTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
        },
        [&](TraveltimeSurvey &survey) {
            try {
                readPlainly(text, survey);
                return 0;
            } catch (const KeywordMissing &) {
                return 1;
            }
        },
    });
}
