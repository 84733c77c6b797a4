// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <sys/mount.h>

/// A folder with a file system of its own, of some kilobytes.
class SmallFileSystem
{
public:
    SmallFileSystem(const std::string &path, int kilobytes)
        : folder(path)
    {
        std::filesystem::create_directory(folder);
        const std::string size = "size=" + std::to_string(kilobytes) + 'k';
        isMounted = mount("tmpfs", folder.c_str(), "tmpfs", 0, size.c_str()) == 0;
    }
    ~SmallFileSystem()
    {
        if (isMounted)
            umount2(folder.c_str(), MNT_DETACH);
    }
    SmallFileSystem(const SmallFileSystem &) = delete;
    SmallFileSystem &operator=(const SmallFileSystem &) = delete;

    bool isMounted = false; ///< otherwise errno says why not

private:
    std::string folder;
};
