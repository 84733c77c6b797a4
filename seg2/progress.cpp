// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/progress.h"

#include <cstdio>
#include <iostream>
#ifdef _WIN32
#include <io.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

bool outputIsRead()
{
    if (!std::cout)
        return false;
#ifdef _WIN32
    return _fileno(stdout) >= 0;
#else
    struct stat output;
    struct stat nullDevice;
    if (fstat(STDOUT_FILENO, &output) != 0)
        return false;
    return !S_ISCHR(output.st_mode) || stat("/dev/null", &nullDevice) != 0
           || output.st_rdev != nullDevice.st_rdev;
#endif
}

} // namespace

std::ostream *standardProgress()
{
    return outputIsRead() ? &std::cout : nullptr;
}
