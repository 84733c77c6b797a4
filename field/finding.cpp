// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/finding.h"

std::string lineOf(const Finding &finding)
{
    return finding.place.file + ':'
           + (finding.place.line != 0 ? std::to_string(finding.place.line) + ':' : "")
           + (finding.trace != 0 ? " trace " + std::to_string(finding.trace) + ':' : "") + ' '
           + finding.text;
}
