// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// A library to load before a program's own: its rename calls are counted from 1, and the
// environment says what happens at one of them. RENAME_CALL is that call's number; it fails with
// the error RENAME_ERROR, and so do all later ones if RENAME_ALL is set; or the program gets
// RENAME_SIGNAL right after it. With RENAME_NO_EXCHANGE two files cannot be exchanged, as on some
// file systems.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

int number(const char *name)
{
    const char *const text = std::getenv(name);
    return text == nullptr ? 0 : std::atoi(text);
}

int renameCounted(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags)
{
    static int calls = 0;
    const int call = ++calls;
    const bool isMeant = call == number("RENAME_CALL")
                         || (call > number("RENAME_CALL") && number("RENAME_ALL") != 0);
    if (isMeant && number("RENAME_ERROR") != 0) {
        errno = number("RENAME_ERROR");
        return -1;
    }
    if (flags != 0 && number("RENAME_NO_EXCHANGE") != 0) {
        errno = EINVAL;
        return -1;
    }
    const long result = syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags);
    if (isMeant && number("RENAME_SIGNAL") != 0)
        kill(getpid(), number("RENAME_SIGNAL"));
    return static_cast<int>(result);
}

} // namespace

extern "C" int rename(const char *from, const char *to) noexcept
{
    return renameCounted(AT_FDCWD, from, AT_FDCWD, to, 0);
}

extern "C" int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
                         unsigned flags) noexcept
{
    return renameCounted(fromFolder, from, toFolder, to, flags);
}
