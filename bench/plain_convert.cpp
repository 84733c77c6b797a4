// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// Every conversion once more, written as one would write it first: streams, std::endl, vectors of
// strings, the standard library alone. bench/compare holds our command against it. It shares no
// code with the program, so that equal outputs say something about both.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// Survey

struct Receiver
{
    double x = 0.0;
    double elevation = 0.0;
};

using Spread = std::vector<Receiver>;

struct Shot
{
    double x = 0.0;
    double elevation = 0.0;
    std::string name = {};
};

struct Record
{
    std::uint32_t spreadIndex = 0;
    std::uint32_t shotIndex = 0;
    std::vector<double> times = {};
};

struct Survey
{
    std::vector<Record> records;
    std::vector<Spread> spreads;
    std::vector<Shot> shots;
};

bool sameSpread(const Spread &a, const Spread &b)
{
    if (a.empty() || a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].x != b[i].x || a[i].elevation != b[i].elevation)
            return false;
    }
    return true;
}

std::uint32_t findOrAddSpread(std::vector<Spread> &spreads, const Spread &receivers)
{
    for (std::size_t i = 0; i < spreads.size(); ++i) {
        if (sameSpread(spreads[i], receivers))
            return static_cast<std::uint32_t>(i);
    }
    spreads.push_back(receivers);
    return static_cast<std::uint32_t>(spreads.size() - 1);
}

bool writeOtteFile(const std::string &path, const Survey &survey)
{
    std::ofstream stream(path);
    if (!stream)
        return false;
    stream << "otte" << std::endl << "1.0" << std::endl << 2 << std::endl;
    stream << survey.spreads.size() << std::endl;
    for (const Spread &spread : survey.spreads) {
        for (const Receiver &receiver : spread)
            stream << receiver.x << ";";
        stream << std::endl;
        for (const Receiver &receiver : spread)
            stream << receiver.elevation << ";";
        stream << std::endl;
    }
    for (const Shot &shot : survey.shots)
        stream << shot.x << ";";
    stream << std::endl;
    for (const Shot &shot : survey.shots)
        stream << shot.elevation << ";";
    stream << std::endl;
    for (const Record &record : survey.records) {
        stream << record.spreadIndex << std::endl << record.shotIndex << std::endl;
        for (const double time : record.times)
            stream << time * 1000.0 << ";";
        stream << std::endl;
    }
    return true;
}

// Text

/// The runs of characters between delimiters. A line that begins with a delimiter has a field more
/// in front, all that follows its first delimiters.
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

int integer(const std::string &text)
{
    return std::atoi(text.c_str());
}

// Readers; each returns false for a file that it refuses.

bool readGeneric(const std::string &path, std::uint32_t shotIndex, Survey &survey)
{
    std::ifstream stream(path);
    Spread receivers;
    std::vector<double> times;
    std::string line;
    while (std::getline(stream, line)) {
        trimLeadingSpaces(line);
        const std::vector<std::string> fields = tokenize(line, ";");
        receivers.push_back({number(fields.at(0)), number(fields.at(1))});
        times.push_back(number(fields.at(2)));
    }
    survey.records.push_back({findOrAddSpread(survey.spreads, receivers), shotIndex, times});
    return true;
}

bool readSeisImager(const std::string &path, Survey &survey)
{
    std::ifstream stream(path);
    if (!stream)
        return false;
    tokenize(nextLine(stream), " ");
    const int shotCount = integer(tokenize(nextLine(stream), " ").at(1));
    for (int shot = 0; shot < shotCount; ++shot) {
        const std::vector<std::string> shotFields = tokenize(nextLine(stream), " ");
        survey.shots.push_back({number(shotFields.at(0)), 0.0});
        const auto receiverCount = static_cast<std::uint32_t>(integer(shotFields.at(1)));
        Spread receivers;
        std::vector<double> times;
        for (std::uint32_t i = 0; i < receiverCount; ++i) {
            const std::vector<std::string> fields = tokenize(nextLine(stream), " ");
            receivers.push_back({number(fields.at(0)), 0.0});
            times.push_back(number(fields.at(1)) / 1000.0);
        }
        survey.records.push_back(
            {findOrAddSpread(survey.spreads, receivers), static_cast<std::uint32_t>(shot), times});
    }
    return true;
}

/// Puts the field behind `keyword` into `value`.
bool geogigaValue(const std::string &line, const std::string &keyword, std::string &value)
{
    const std::vector<std::string> fields = tokenize(line, ":");
    if (fields.empty() || fields[0] != keyword)
        return false;
    value = fields.at(1);
    return true;
}

bool startsWith(const std::string &line, const std::string &delimiters, const std::string &word)
{
    const std::vector<std::string> fields = tokenize(line, delimiters);
    return !fields.empty() && fields[0] == word;
}

bool readGeogigaShot(std::istream &stream, std::uint32_t shotIndex, double elevation,
                     Spread &receivers, Survey &survey)
{
    std::string line = nextLine(stream);
    while (line == "\r")
        line = nextLine(stream);
    Shot shot{0.0, elevation};
    std::string value;
    if (!geogigaValue(line, "SEISMIC_DATA_FILE_NAME", shot.name)
        || !geogigaValue(nextLine(stream), "SHOT_LOCATION", value))
        return false;
    shot.x = number(value);
    survey.shots.push_back(shot);
    if (!geogigaValue(nextLine(stream), "NUMBER_OF_RECEIVERS", value))
        return false;
    const int receiverCount = integer(value);
    if (receivers.empty())
        receivers = Spread(static_cast<std::size_t>(receiverCount));
    nextLine(stream); // the heading of the columns

    Record record{0, shotIndex};
    unsigned int receiverNumber = 0;
    unsigned int channel = 0;
    double x = 0.0;
    double time = 0.0;
    for (int i = 0; i < receiverCount; ++i) {
        stream >> receiverNumber >> x >> time >> channel;
        receivers.at(static_cast<std::size_t>(i)) = {x, elevation};
        record.times.push_back(time);
    }
    survey.records.push_back(record);
    return true;
}

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
    if (!geogigaValue(line, "ELEVATION", value))
        return false;
    const double elevation = number(value);
    if (!geogigaValue(nextLine(stream), "TOTAL_NUMBER_OF_SHOTS", value))
        return false;
    const auto shotCount = static_cast<std::uint32_t>(std::stod(value));
    Spread receivers;
    for (std::uint32_t shot = 0; shot < shotCount; ++shot) {
        if (!readGeogigaShot(stream, shot, elevation, receivers, survey))
            return false;
    }
    survey.spreads.push_back(receivers);
    return true;
}

std::string cleanLine(std::istream &stream)
{
    std::string line = nextLine(stream);
    if (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
        line.pop_back();
    trimLeadingSpaces(line);
    return line;
}

bool refuse(const std::string &message, const std::string &heading)
{
    std::cerr << message << heading << std::endl;
    return false;
}

struct WinsismSection
{
    std::string heading;
    std::vector<std::string> numbers;
    std::vector<std::string> values;
};

bool readWinsismSection(std::istream &stream, const std::string &expected, WinsismSection &section)
{
    section.heading = cleanLine(stream);
    if (section.heading != expected)
        return refuse("Invalid header : ", section.heading);
    section.numbers = tokenize(cleanLine(stream), " ");
    section.values = tokenize(cleanLine(stream), " ");
    if (section.numbers.size() != section.values.size())
        return refuse("Invalid match : ", section.heading);
    return true;
}

std::uint32_t identifier(const std::string &text)
{
    return static_cast<std::uint32_t>(integer(text));
}

bool readWinsism(const std::string &path, Survey &survey)
{
    std::ifstream stream(path);
    if (!stream)
        return refuse("Cannot open file ", path);
    WinsismSection section;

    std::map<std::uint32_t, Shot> shots;
    if (!readWinsismSection(stream, "Shot number, Shot elevation", section))
        return false;
    for (std::size_t i = 0; i < section.numbers.size(); ++i)
        shots[identifier(section.numbers[i])].elevation = number(section.values[i]);
    if (!readWinsismSection(stream, "Shot number, Shot distance", section))
        return false;
    if (section.numbers.size() != shots.size())
        return refuse("Invalid shot ids : ", section.heading);
    for (std::size_t i = 0; i < section.numbers.size(); ++i) {
        if (shots.count(identifier(section.numbers[i])) == 0)
            return refuse("Invalid shot ids : ", section.heading);
        shots[identifier(section.numbers[i])].x = number(section.values[i]);
    }
    for (const auto &[shotNumber, shot] : shots)
        survey.shots.push_back(shot);

    std::map<std::uint32_t, Receiver> receivers;
    if (!readWinsismSection(stream, "Receiver number, receiver distance", section))
        return false;
    for (std::size_t i = 0; i < section.numbers.size(); ++i)
        receivers[identifier(section.numbers[i])].x = number(section.values[i]);
    if (!readWinsismSection(stream, "Receiver number, receiver elevation", section))
        return false;
    if (section.numbers.size() != receivers.size())
        return refuse("Invalid phone list : ", section.heading);
    for (std::size_t i = 0; i < section.numbers.size(); ++i) {
        if (receivers.count(identifier(section.numbers[i])) == 0)
            return refuse("Invalid phone ids : ", section.heading);
        receivers[identifier(section.numbers[i])].elevation = number(section.values[i]);
    }
    Spread spread;
    for (const auto &[receiverNumber, receiver] : receivers)
        spread.push_back(receiver);

    const std::string heading = cleanLine(stream);
    if (heading != "FBP times")
        return refuse("Invalid header : ", heading);
    for (std::size_t i = 0; i < survey.shots.size(); ++i) {
        const std::vector<std::string> fields = tokenize(cleanLine(stream), " ");
        if (fields.size() != survey.spreads.size())
            return refuse("Invalid times : ", heading);
        Record record{0, static_cast<std::uint32_t>(i)};
        for (const std::string &field : fields)
            record.times.push_back(number(field) / 1000.0);
        survey.records.push_back(record);
    }
    survey.spreads.push_back(spread);
    return true;
}

// SEG2

struct Seg2Trace
{
    std::uint32_t sampleCount = 0;
    std::map<std::string, std::string> strings = {};
    std::vector<float> samples = {};
};

struct Seg2File
{
    std::uint16_t traceCount = 0;
    std::vector<std::uint32_t> tracePointers;
    std::map<std::string, std::string> strings;
    std::vector<Seg2Trace> traces;
};

struct Seg2TraceHeader
{
    std::uint32_t sampleCount = 0;
    double delay = 0.0;
    double sampleInterval = 0.0;
    double receiverX = 0.0;
    double receiverY = 0.0;
    double receiverZ = 0.0;
    double sourceX = 0.0;
};

std::string text(double value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

std::string text(double x, double y, double z)
{
    std::ostringstream stream;
    stream << x << " " << y << " " << z;
    return stream.str();
}

Seg2Trace buildTrace(const Seg2TraceHeader &header, const std::vector<float> &samples)
{
    Seg2Trace trace;
    trace.sampleCount = header.sampleCount;
    trace.strings["DELAY"] = text(header.delay);
    trace.strings["DESCALING_FACTOR"] = text(1.0);
    trace.strings["RECEIVER_LOCATION"] = text(header.receiverX, header.receiverY, header.receiverZ);
    trace.strings["SAMPLE_INTERVAL"] = text(header.sampleInterval);
    trace.strings["STACK"] = "1";
    trace.strings["SOURCE_LOCATION"] = text(header.sourceX, 0.0, 0.0);
    trace.samples = samples;
    return trace;
}

/// Writes a number as it lies in the memory of a little-endian machine.
template <typename Number>
void put(std::ostream &stream, Number value)
{
    stream.write(reinterpret_cast<const char *>(&value), sizeof value);
}

void putStrings(std::ostream &stream, const std::map<std::string, std::string> &strings)
{
    for (const auto &[key, value] : strings) {
        const std::string entry = key + " " + value + '\0';
        put(stream, static_cast<std::uint16_t>(entry.size() + 2));
        stream << entry;
    }
    put(stream, std::uint16_t{0});
    while (stream.tellp() % 4 != 0)
        stream << ' ';
}

std::uint32_t putTrace(std::ostream &stream, const Seg2Trace &trace)
{
    stream.seekp(0, std::ios::end);
    const std::streamoff start = stream.tellp();
    put(stream, std::uint16_t{0x4422});
    put(stream, std::uint16_t{0});
    put(stream, static_cast<std::uint32_t>(4 * trace.sampleCount));
    put(stream, trace.sampleCount);
    put(stream, std::uint8_t{4});
    stream << std::string(19, ' ');
    putStrings(stream, trace.strings);

    const std::streamoff dataStart = stream.tellp();
    const auto descriptorSize = static_cast<std::uint16_t>(dataStart - start);
    stream.seekp(start + 2);
    put(stream, descriptorSize);
    stream.seekp(dataStart);
    stream.write(reinterpret_cast<const char *>(trace.samples.data()),
                 static_cast<std::streamsize>(trace.samples.size() * sizeof(float)));
    stream.flush();

    const std::streamoff end = stream.tellp();
    stream.seekp(start + 4);
    put(stream, static_cast<std::uint32_t>(end - descriptorSize - start));
    stream.seekp(end);
    return static_cast<std::uint32_t>(start);
}

void putFile(std::ostream &stream, Seg2File &file)
{
    put(stream, std::uint16_t{0x3A55});
    put(stream, std::uint16_t{0});
    put(stream, std::uint16_t{0});
    put(stream, file.traceCount);
    stream << '\1' << '\0' << ' ' << '\1' << '\n' << ' ' << std::string(18, ' ');
    for (std::uint16_t i = 0; i < file.traceCount; ++i)
        put(stream, std::uint32_t{0});
    stream.flush();
    const std::streamoff pointersEnd = stream.tellp();
    stream.seekp(4);
    put(stream, static_cast<std::uint16_t>(pointersEnd - 32));
    stream.seekp(pointersEnd);
    putStrings(stream, file.strings);
    for (std::size_t i = 0; i < file.traces.size(); ++i)
        file.tracePointers.at(i) = putTrace(stream, file.traces[i]);
    stream.seekp(32);
    for (const std::uint32_t pointer : file.tracePointers)
        put(stream, pointer);
}

// The listing between a seismic record and its SEG2 file

void writeListingHeading(std::ostream &stream)
{
    stream << "TRACE_SORT   AS_ACQUIRED" << std::endl;
    stream << "UNITS\t\tMETERS" << std::endl;
    stream << std::endl;
    stream << "                  Time    Sample" << std::endl;
    stream << "Trace   No. of    Delay   Interval       Receiver Location" << std::endl;
    stream << "No.     Samples   (s)     (s)        X           Y         Z" << std::endl;
}

void writeListingLine(std::ostream &stream, std::size_t traceNumber, std::size_t sampleCount,
                      std::uint32_t delay, double interval, double receiverX)
{
    stream << traceNumber << "    " << sampleCount << "      " << delay << "     " << interval
           << "     " << receiverX << "      " << 0 << "      " << 0 << std::endl;
}

/// `sampleAt(trace, sample)` gives a sample and throws when there is none.
template <typename SampleAt>
void convertListing(const std::string &listingPath, const std::string &seg2Path, double sourceX,
                    SampleAt sampleAt)
{
    std::ifstream listing(listingPath);
    std::ofstream stream(seg2Path, std::ios::binary);
    Seg2File file;
    for (int i = 0; i < 2; ++i) {
        std::string keyword;
        std::string value;
        listing >> keyword >> value;
        file.strings[keyword] = value;
    }
    std::string word;
    while (word != "Z" && listing >> word) { }

    int traceNumber = 0;
    std::size_t index = 0;
    while (listing >> traceNumber) {
        Seg2TraceHeader header;
        listing >> header.sampleCount >> header.delay >> header.sampleInterval >> header.receiverX
            >> header.receiverY >> header.receiverZ;
        header.sourceX = sourceX;
        std::cout << "TraceINDEX : " << index << std::endl;
        std::vector<float> samples;
        for (std::uint32_t i = 0; i < header.sampleCount; ++i) {
            const float sample = sampleAt(index, i);
            std::cout << sample << std::endl;
            samples.push_back(sample);
        }
        file.traces.push_back(buildTrace(header, samples));
        file.tracePointers.push_back(0);
        ++file.traceCount;
        ++index;
    }
    putFile(stream, file);
}

// Seismic Unix

struct SuTrace
{
    std::vector<double> samples;
    double sourceX = 0.0;
    double receiverX = 0.0;
    double sampleInterval = 0.0;
};

template <typename Number>
Number numberAt(const std::vector<char> &bytes, std::size_t offset)
{
    Number value = 0;
    std::memcpy(&value, &bytes.at(offset), sizeof value);
    return value;
}

std::vector<char> readBytes(const std::string &path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        throw std::runtime_error("Error while loading " + path);
    stream.seekg(0, std::ios::end);
    std::vector<char> bytes(static_cast<std::size_t>(stream.tellg()));
    stream.seekg(0);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

std::vector<SuTrace> readSuFile(const std::string &path)
{
    std::cout << "opening su file " << path << std::endl;
    const std::vector<char> bytes = readBytes(path);
    const auto sampleCount = numberAt<std::uint16_t>(bytes, 114);
    const double intervalMilliseconds = numberAt<std::uint16_t>(bytes, 116) / 1000.0;
    const std::size_t traceSize = std::size_t{240} + std::size_t{4} * sampleCount;
    std::vector<SuTrace> traces;
    for (std::size_t offset = 0; offset + traceSize <= bytes.size(); offset += traceSize) {
        SuTrace trace;
        trace.sampleInterval = intervalMilliseconds / 1000.0;
        const int scalar = numberAt<std::int16_t>(bytes, offset + 70);
        float factor = 1.0F;
        if (scalar > 0)
            factor = static_cast<float>(scalar);
        else if (scalar < 0)
            factor = static_cast<float>(-1 / scalar);
        trace.sourceX = static_cast<float>(numberAt<std::int32_t>(bytes, offset + 72)) * factor;
        trace.receiverX = static_cast<float>(numberAt<std::int32_t>(bytes, offset + 80)) * factor;
        trace.samples.resize(sampleCount);
        for (std::size_t i = 0; i + 1 < sampleCount; ++i)
            trace.samples[i] = numberAt<float>(bytes, offset + 240 + 4 * i);
        traces.push_back(trace);
    }
    return traces;
}

void convertSu(const std::string &path)
{
    const std::string base = path.substr(0, path.rfind('.'));
    const std::vector<SuTrace> traces = readSuFile(path);
    std::ofstream listing(base + "_tmp");
    writeListingHeading(listing);
    for (std::size_t i = 0; i < traces.size(); ++i)
        writeListingLine(listing, i + 1, traces[i].samples.size(), 0, traces[i].sampleInterval,
                         traces[i].receiverX);
    listing.close();
    convertListing(base + "_tmp", base + ".seg2", traces.at(0).sourceX,
                   [&traces](std::size_t trace, std::size_t sample) {
                       return static_cast<float>(traces.at(trace).samples.at(sample));
                   });
}

// Dolang

std::ifstream openDolang(const std::string &path, const std::string &headerPath)
{
    std::ifstream stream(path);
    if (!stream)
        throw std::runtime_error("Error in reading file " + headerPath);
    return stream;
}

void convertDolangKind(const std::string &base, const std::string &kind)
{
    const std::string headerPath = base + "." + kind + "DT";
    std::ifstream header = openDolang(headerPath, headerPath);
    std::string line = nextLine(header);
    while (!line.empty() && line[0] == '"')
        line = nextLine(header);
    const auto channelCount = static_cast<std::uint32_t>(integer(line));
    nextLine(header);
    nextLine(header);
    const auto delay = static_cast<std::uint32_t>(integer(nextLine(header)));
    const auto sampleCount = static_cast<std::uint32_t>(integer(nextLine(header)));
    const auto samplingRate = static_cast<std::uint32_t>(integer(nextLine(header)));

    std::vector<std::int32_t> samples;
    for (std::uint32_t channel = 1; channel <= channelCount; ++channel) {
        std::ostringstream path;
        path << base << "." << kind << std::setw(2) << std::setfill('0') << channel;
        std::ifstream stream = openDolang(path.str(), headerPath);
        for (std::uint32_t i = 0; i < sampleCount; ++i)
            samples.push_back(integer(nextLine(stream)));
    }

    std::ofstream listing("tmp_" + kind + "DT");
    writeListingHeading(listing);
    for (std::uint32_t channel = 1; channel <= channelCount; ++channel)
        writeListingLine(listing, channel, sampleCount, delay, 1.0 / samplingRate, 0.0);
    listing.close();
    convertListing("tmp_" + kind + "DT", base + "_" + kind + "DT_dolang.seg2", 0.0,
                   [&samples, sampleCount](std::size_t trace, std::size_t sample) {
                       return static_cast<float>(samples.at(trace * sampleCount + sample));
                   });
}

// Commands

bool readGenericList(const std::string &listPath, Survey &survey)
{
    std::ifstream list(listPath);
    std::string line;
    while (std::getline(list, line)) {
        const std::vector<std::string> fields = tokenize(line, ";");
        const std::string path =
            std::filesystem::path(listPath).replace_filename(fields.at(0)).string();
        survey.shots.push_back({number(fields.at(1)), number(fields.at(2)), path});
        if (!readGeneric(path, static_cast<std::uint32_t>(survey.records.size()), survey))
            return false;
    }
    return true;
}

bool readSurvey(const std::string &format, const std::vector<std::string> &inputs, Survey &survey)
{
    if (format == "geogiga")
        return readGeogiga(inputs.at(0), survey);
    if (format == "winsism")
        return readWinsism(inputs.at(0), survey);
    if (format == "generic")
        return readGenericList(inputs.at(0), survey);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        if (!readSeisImager(inputs[i], survey))
            return false;
        if (inputs.size() > 1 && i < survey.records.size())
            survey.records[i].shotIndex = static_cast<std::uint32_t>(i);
    }
    return true;
}

bool convert(const std::string &format, std::vector<std::string> arguments)
{
    if (format == "su") {
        convertSu(arguments.at(0));
        return true;
    }
    if (format == "dolang") {
        for (const char *kind : {"A", "C", "R"})
            convertDolangKind(arguments.at(0), kind);
        return true;
    }
    const std::string output = arguments.at(arguments.size() - 1);
    arguments.pop_back();
    Survey survey;
    return readSurvey(format, arguments, survey) && writeOtteFile(output, survey);
}

} // namespace

int main(int argc, char *argv[])
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    try {
        if (convert(arguments.at(0), {arguments.begin() + 1, arguments.end()}))
            return 0;
        std::cerr << "not converted" << std::endl;
    } catch (const std::exception &error) {
        std::cerr << error.what() << std::endl;
    }
    return 1;
}
