// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/report.h"

#include <QFileInfo>

#include <exception>
#include <iostream>

bool attempt(const std::function<std::int32_t()> &conversion, Problem &problem)
{
    bool wentWell = false;
    std::cerr.setstate(std::ios::badbit);
    try {
        wentWell = conversion() == 0;
    } catch (const std::exception &error) {
        problem.detail = error.what() + (problem.detail.empty() ? "" : ": " + problem.detail);
    }
    std::cerr.clear();
    if (!wentWell)
        tell(problem, "not converted");
    return problem.detail.empty();
}

void report(const Problem &problem)
{
    const std::string &text = problem.detail.empty() ? problem.remark : problem.detail;
    if (text.empty())
        return;
    std::cerr << problem.file << ':';
    if (problem.line != 0)
        std::cerr << problem.line << ':';
    std::cerr << ' ' << text << '\n';
}

bool isReadable(const std::string &path, Problem &problem)
{
    const QFileInfo file(QString::fromStdString(path));
    problem.file = path;
    if (!file.exists())
        tell(problem, "no such file");
    else if (file.isDir())
        tell(problem, "this is a folder");
    else if (!file.isReadable())
        tell(problem, "no permission to read this file");
    return problem.detail.empty();
}

int refuseUsage(const std::string &reason)
{
    std::cerr << "convert2velarix-batch: " << reason << "; --help tells more\n";
    return wrongUsage;
}
