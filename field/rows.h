// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/text_input.h"

// Rows of numbers without any other structure, as spreadsheets and people write them.

/// How the rows of a file are written.
struct RowStyle
{
    char delimiter = ' ';        ///< a blank stands for runs of blanks and tabs
    bool endsRows = true;        ///< every row ends in a delimiter, which then means nothing
    std::size_t mostNumbers = 0; ///< in a row; known where blanks and tabs separate them
};

/// Finds what separates the fields of a file, of which no line was read yet: ";" if there is one,
/// then blanks and tabs, unless they only go with commas, then commas.
RowStyle findStyle(const TextInput &file);

/// Goes to the next row and splits it. Where a delimiter ends it, its last field is empty. Before
/// the `first` row, lines of words without a number are headings, which are passed over with a
/// remark. False at the end of the file, which is no failure.
bool nextRow(const RowStyle &style, bool isFirst, TextInput &input, Report &report);
