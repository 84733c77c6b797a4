// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/otte.h"

#include <fstream>

namespace plain {

bool writeOtte(const std::string &path, const Survey &survey)
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

} // namespace plain
