// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/text.h"

#include <cstdlib>
#include <stdexcept>

namespace plain {

std::vector<std::string> tokenize(const std::string &line, const std::string &delimiters)
{
    std::vector<std::string> fields;
    std::size_t start = line.find_first_not_of(delimiters);
    std::size_t end = line.find_first_of(delimiters);
    while (start != std::string::npos || end != std::string::npos) {
        if (start == std::string::npos)
            throw std::out_of_range("invalid string position");
        fields.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(delimiters, end);
        end = line.find_first_of(delimiters, start);
    }
    return fields;
}

std::vector<std::string> tokenize(const std::string &line, const std::string &delimiters,
                                  std::size_t count)
{
    std::vector<std::string> fields = tokenize(line, delimiters);
    if (fields.size() < count)
        throw std::out_of_range("invalid vector subscript");
    return fields;
}

std::string nextLine(std::istream &stream)
{
    std::string line;
    std::getline(stream, line);
    return line;
}

void trimLeadingSpaces(std::string &line)
{
    while (!line.empty() && line.front() == ' ')
        line.erase(0, 1);
}

double number(const std::string &text)
{
    return std::atof(text.c_str());
}

std::int32_t integer(const std::string &text)
{
    return static_cast<std::int32_t>(std::strtoll(text.c_str(), nullptr, 10));
}

void requireHoldable(std::uint64_t count, std::uint64_t bytes)
{
    if (count > bytes + 10'000'000)
        throw std::length_error("vector too long");
    noteCount(count);
}

} // namespace plain
