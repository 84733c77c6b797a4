// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/otte_writer.h"

#include "traveltime/project_files.h"
#include "traveltime/text.h"

#include <fstream>
#include <functional>

namespace {

template <typename Entries, typename Value>
void writeValues(std::ostream &stream, const Entries &entries, Value value)
{
    std::string line;
    for (const auto &entry : entries) {
        appendNumber(line, std::invoke(value, entry));
        line += ';';
    }
    stream << line << '\n';
}

} // namespace

std::int32_t writeOtteFile(std::string path, const std::vector<ShotTraveltimes> &traveltimes,
                           const std::vector<Spread> &spreads, const std::vector<Shot> &shots)
{
    Problem untold;
    return writeOtteFile(path, traveltimes, spreads, shots, untold);
}

std::int32_t writeOtteFile(const std::string &path, const std::vector<ShotTraveltimes> &traveltimes,
                           const std::vector<Spread> &spreads, const std::vector<Shot> &shots,
                           Problem &problem)
{
    std::ofstream stream(path);
    if (!stream) {
        tellSystemError(problem, path);
        return 1;
    }

    stream << "otte\n1.0\n2\n" << spreads.size() << '\n';
    for (const Spread &spread : spreads) {
        writeValues(stream, spread, &ReceiverPosition::x);
        writeValues(stream, spread, &ReceiverPosition::elevation);
    }
    writeValues(stream, shots, &Shot::x);
    writeValues(stream, shots, &Shot::elevation);
    for (const ShotTraveltimes &record : traveltimes) {
        stream << record.spreadIndex << '\n' << record.shotIndex << '\n';
        writeValues(stream, record.times, [](double seconds) { return seconds * 1000.0; });
    }

    stream.close();
    if (!stream)
        tellSystemError(problem, path);
    return 0;
}
