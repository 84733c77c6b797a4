// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/seg2_parser.h"

#include <bit>
#include <stdexcept>

std::string bytes(const std::string &text)
{
    const std::string digits = "0123456789ABCDEF";
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == ' ') {
            ++i;
        } else if (text[i] == '\'') {
            const std::size_t end = text.find('\'', i + 1);
            if (end == std::string::npos)
                throw std::invalid_argument("no closing quote: " + text);
            result += text.substr(i + 1, end - i - 1);
            i = end + 1;
        } else {
            const std::size_t high = digits.find(text[i]);
            const std::size_t low =
                i + 1 < text.size() ? digits.find(text[i + 1]) : std::string::npos;
            if (high == std::string::npos || low == std::string::npos)
                throw std::invalid_argument("no hexadecimal digits: " + text.substr(i));
            result += static_cast<char>(high * 16 + low);
            i += 2;
        }
    }
    return result;
}

namespace {

class Parser
{
public:
    Parser(const std::string &bytesOfFile, unsigned revisionOfFile)
        : file(bytesOfFile)
        , revision(revisionOfFile)
    {
    }

    ParsedSeg2 parse()
    {
        require(take(2) == 0x3A55, "the block id of a file");
        require(take(2) == revision, "the revision expected");
        const std::uint64_t pointersSize = take(2);
        const std::size_t traceCount = take(2);
        require(pointersSize == (4 * traceCount) % 65536, "4 bytes per trace pointer");
        takeTerminators();
        takeReserved(18);
        std::vector<std::uint64_t> pointers(traceCount);
        for (std::uint64_t &pointer : pointers)
            pointer = take(4);
        ParsedSeg2 result;
        result.strings = takeStrings();
        for (const std::uint64_t pointer : pointers) {
            require(pointer == position, "a pointer to the place behind the block before");
            result.traces.push_back(takeTrace());
        }
        require(position == file.size(), "the end of the file");
        return result;
    }

private:
    void require(bool holds, const std::string &what) const
    {
        if (!holds)
            throw std::runtime_error("near byte " + std::to_string(position) + ": not " + what);
    }

    std::uint64_t take(std::size_t size)
    {
        require(size <= file.size() - position, "as much as it should be");
        std::uint64_t value = 0;
        for (std::size_t i = size; i-- > 0;)
            value = value * 256 + static_cast<unsigned char>(file[position + i]);
        position += size;
        return value;
    }

    std::string takeText(std::size_t size)
    {
        require(size <= file.size() - position, "as much as it should be");
        position += size;
        return file.substr(position - size, size);
    }

    void takeBlanks(std::size_t size)
    {
        require(takeText(size) == std::string(size, ' '), "blanks");
    }

    void takeReserved(std::size_t size)
    {
        require(takeText(size) == std::string(size, filling), "nothing in what is reserved");
    }

    void takeTerminators()
    {
        const std::uint64_t size = take(1);
        const std::uint64_t first = take(1);
        const std::uint64_t second = take(1);
        require(size != 1 || static_cast<char>(second) == filling,
                "nothing for the second terminator");
        terminator = static_cast<char>(size == 1 ? first : first + second);
        require(takeText(3) == std::string("\x01\n") + filling,
                "a line feed for the line terminator");
    }

    std::vector<std::string> takeStrings()
    {
        std::vector<std::string> strings;
        std::string keyBefore;
        while (const std::size_t length = take(2)) {
            require(length >= 4, "a string of a blank and a terminator at least");
            const std::string text = takeText(length - 2);
            require(text.back() == terminator, "a string that ends in the terminator");
            require(text.find(' ') != std::string::npos, "a string with a blank");
            const std::string key = text.substr(0, text.find(' '));
            require(strings.empty() || (keyBefore != "NOTE" && (key == "NOTE" || keyBefore < key)),
                    "the order of the keys");
            keyBefore = key;
            strings.push_back(text.substr(0, text.size() - 1));
        }
        takeBlanks((4 - position % 4) % 4);
        return strings;
    }

    ParsedTrace takeTrace()
    {
        ParsedTrace trace;
        trace.position = position;
        require(take(2) == 0x4422, "the block id of a trace");
        const std::uint64_t descriptorSize = take(2);
        const std::uint64_t dataSize = take(4);
        trace.sampleCount = static_cast<std::uint32_t>(take(4));
        trace.formatCode = static_cast<std::uint8_t>(take(1));
        takeReserved(19);
        trace.strings = takeStrings();
        require(position == trace.position + descriptorSize, "the size of the descriptor block");
        const std::size_t sampleSize = sizeOfSample(trace.formatCode);
        require(trace.formatCode == 3 || dataSize == std::uint64_t(trace.sampleCount) * sampleSize,
                "the size of the data block");
        trace.data = takeText(dataSize);
        position -= trace.data.size();
        while (trace.formatCode != 3 && trace.samples.size() * sampleSize < dataSize)
            trace.samples.push_back(takeSample(trace.formatCode));
        position = trace.position + descriptorSize + dataSize;
        return trace;
    }

    static std::size_t sizeOfSample(std::uint8_t formatCode)
    {
        switch (formatCode) {
        case 1:
            return 2;
        case 2:
        case 4:
            return 4;
        case 5:
            return 8;
        default:
            return 0;
        }
    }

    double takeSample(std::uint8_t formatCode)
    {
        const std::uint64_t bits = take(sizeOfSample(formatCode));
        switch (formatCode) {
        case 1:
            return static_cast<std::int16_t>(bits);
        case 2:
            return static_cast<std::int32_t>(bits);
        case 4:
            return static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(bits)));
        default:
            return std::bit_cast<double>(bits);
        }
    }

    const std::string &file;
    unsigned revision;
    char filling = revision == 0 ? ' ' : '\0'; ///< of what is reserved
    std::size_t position = 0;
    char terminator = '\0';
};

} // namespace

ParsedSeg2 parseSeg2(const std::string &file, unsigned revision)
{
    return Parser(file, revision).parse();
}
