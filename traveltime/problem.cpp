// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/problem.h"

#include <cerrno>
#include <system_error>

void tell(Problem &problem, const std::string &detail)
{
    if (problem.detail.empty())
        problem.detail = detail;
}

void tellSystemError(Problem &problem, const std::string &path)
{
    const std::string reason = std::generic_category().message(errno);
    if (problem.detail.empty())
        problem = {path, 0, reason, problem.remark};
}

void keepFirst(Problem &kept, const Problem &met)
{
    if (kept.detail.empty() && (kept.remark.empty() || !met.detail.empty()))
        kept = met;
}
