// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>

/// What went wrong in a conversion, and where: told beside a function's result, and beside the text
/// of an exception, which both say less. Functions that take one fill `line` as they read and
/// `detail` when something is wrong.
struct Problem
{
    std::string file = {};   ///< as the caller named it
    std::size_t line = 0;    ///< counted from 1; 0 where no line can be named
    std::string detail = {}; ///< empty while nothing is wrong
    std::string remark = {}; ///< what the user should know although nothing is wrong
};

/// Tells what is wrong, unless something was wrong before.
void tell(Problem &problem, const std::string &detail);

/// The same for a file that the system refused to open or to write: its reason is in errno.
void tellSystemError(Problem &problem, const std::string &path);

/// For inputs read one after another: keeps the first that something is wrong with or, while
/// nothing is, the first with a remark.
void keepFirst(Problem &kept, const Problem &met);
