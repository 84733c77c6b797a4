// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/csv_picks.h"
#include "fuzz/field_picks.h"
#include "fuzz/support.h"

void check(const std::string &input)
{
    checkReader(readCsvPicks, "csv", input);
}
