// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/support.h"

#include <string>
#include <thread>

/// Root is not held back by permissions; a program started after this is, as any other user's.
void asOrdinaryUser();

/// Whether the permissions of the path hold an ordinary user back from what `test` is asked.
bool areHeldBack(const char *question, const std::string &path);

/// The same for the thread that makes it, while it lives.
class OrdinaryUser
{
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    unsigned heldBefore = 0;
};

/// A device of the kernel's memory devices in the folder, so that no test can harm the one in /dev;
/// that one where devices cannot be made, which is where it cannot be harmed.
std::string memoryDevice(const TemporaryFolder &folder, unsigned minor, const std::string &inDev);

/// Opens a pipe for writing, without blocking, as soon as it is read. Less than 0 when nobody reads
/// it within a minute.
int openReadPipe(const std::string &path);

/// A named pipe that a writer feeds with a text, as soon as somebody reads it, and closes.
class FedPipe
{
public:
    FedPipe(const std::string &path, const std::string &text);
    ~FedPipe();
    FedPipe(const FedPipe &) = delete;
    FedPipe &operator=(const FedPipe &) = delete;

private:
    std::thread writer;
};

/// The most memory, in megabytes, that this process ever held, or one that it started and waited
/// for.
long megabytesHeld();

/// Whether an address sanitizer, which holds on to memory, watches this process.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool isAddressSanitized = true;
#elif defined(__has_feature)
inline constexpr bool isAddressSanitized = __has_feature(address_sanitizer);
#else
inline constexpr bool isAddressSanitized = false;
#endif

/// In a new process, before its program: no more than a gigabyte of memory, so that a program that
/// takes it all takes nobody else's. Not under an address sanitizer, which needs far more
/// addresses.
void limitMemory();
