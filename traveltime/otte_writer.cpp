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

/// writeOtteFile with a report.
bool write(const std::string &path, const std::vector<ShotTraveltimes> &traveltimes,
           const std::vector<Spread> &spreads, const std::vector<Shot> &shots, Report &report)
{
    std::ofstream stream(path);
    if (!stream)
        return failInSystem(report, path);

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
        failInSystem(report, path, Window::goesOn);
    return !report.failure;
}

} // namespace

std::int32_t writeOtteFile(std::string path, const std::vector<ShotTraveltimes> &traveltimes,
                           const std::vector<Spread> &spreads, const std::vector<Shot> &shots)
{
    Report report = windowReport();
    write(path, traveltimes, spreads, shots, report);
    return finish(report);
}

bool writeOtte(const std::string &path, const TraveltimeSurvey &survey, Report &report)
{
    return write(path, survey.traveltimes, survey.spreads, survey.shots, report);
}

std::int32_t convertToOtte(const std::function<void(TraveltimeSurvey &, Report &)> &read,
                           const std::string &outputPath)
{
    TraveltimeSurvey survey;
    Report report = windowReport();
    read(survey, report);
    if (report.result == 0 && !report.error)
        writeOtte(outputPath, survey, report);
    return finish(report);
}
