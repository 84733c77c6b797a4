// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/text_input.h"

#include <cstddef>
#include <string>
#include <vector>

// The blocks of the unified data format: a count, a comment that names the columns, rows.

/// A column of a block.
struct Column
{
    std::string name = {}; ///< in lower case
    int power = 0;         ///< of ten, which makes metres or seconds of its numbers
    bool isPercent = false;
};

/// What a block holds and which columns it can have.
struct BlockKind
{
    const char *noun = "";                 ///< what a row is
    const char *example = "";              ///< a comment that names columns
    std::vector<const char *> needed = {}; ///< the comment that names them has these
    std::vector<const char *> known = {};
    bool takesOthers = false; ///< it may have others
};

/// A block's count and columns.
struct Block
{
    const char *noun = "";
    std::size_t countLine = 0;
    std::size_t count = 0;
    std::vector<Column> columns = {};
    std::string names = {}; ///< of the columns, for messages
};

/// A file that is read, and whether its current line is still to be read.
struct SgtInput
{
    TextInput input = {};
    bool isPending = false;
};

/// Goes to the next row and splits it, less the comment at its end; false at the end of the file,
/// which is no failure.
bool nextRow(SgtInput &file, Report &report);

/// Reads a block's count and the comments after it, of which the last that names columns counts.
bool readBlock(const BlockKind &kind, Block &block, SgtInput &file, Report &report);

/// Fails unless a comment named the block's columns; remarks on those that are not known.
bool requireColumns(const BlockKind &kind, const Block &block, Report &report);

/// Goes to a row of the block, counted from 0, which must be there and have all columns.
bool nextRow(std::size_t row, const Block &block, SgtInput &file, Report &report);

/// The index of a column, or the number of columns.
std::size_t find(const char *name, const std::vector<Column> &columns);
bool has(const char *name, const std::vector<Column> &columns);

/// Reads a number of the current row, in metres or seconds.
bool readCell(std::size_t column, const char *name, double &value, const Block &block,
              SgtInput &file, Report &report);
