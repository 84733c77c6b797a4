// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/faults.h"

#include <QProcess>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace {

/// What lets a thread pass by the permissions of files.
constexpr unsigned passingBy = 1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH;

/// Changes the capabilities that the thread has now and gives those that it had.
unsigned useCapabilities(unsigned taken, unsigned given)
{
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[_LINUX_CAPABILITY_U32S_3] = {};
    syscall(SYS_capget, &header, data);
    const unsigned before = data[0].effective;
    data[0].effective = (before & ~taken) | given;
    syscall(SYS_capset, &header, data);
    return before;
}

void feed(const std::string &path, const std::string &text)
{
    const int pipe = openReadPipe(path);
    fcntl(pipe, F_SETFL, 0);
    for (std::size_t done = 0; pipe >= 0 && done < text.size();) {
        const ssize_t size = write(pipe, text.data() + done, text.size() - done);
        if (size <= 0)
            break;
        done += static_cast<std::size_t>(size);
    }
    close(pipe);
}

} // namespace

int openReadPipe(const std::string &path)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    int pipe = -1;
    while (pipe < 0 && std::chrono::steady_clock::now() < end) {
        pipe = open(path.c_str(), O_WRONLY | O_NONBLOCK);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return pipe;
}

void asOrdinaryUser()
{
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
    prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
}

bool areHeldBack(const char *question, const std::string &path)
{
    QProcess process;
    process.setChildProcessModifier(asOrdinaryUser);
    process.start("test", {question, QString::fromStdString(path)});
    process.waitForFinished();
    return process.exitCode() == 1;
}

OrdinaryUser::OrdinaryUser()
    : heldBefore(useCapabilities(passingBy, 0) & passingBy)
{
}

OrdinaryUser::~OrdinaryUser()
{
    useCapabilities(0, heldBefore);
}

std::string memoryDevice(const TemporaryFolder &folder, unsigned minor, const std::string &inDev)
{
    const std::string path = folder.path("device");
    if (mknod(path.c_str(), S_IFCHR | 0600, makedev(1, minor)) != 0)
        return inDev;
    const int opened = open(path.c_str(), O_WRONLY);
    if (opened < 0) {
        std::filesystem::remove(path);
        return inDev;
    }
    close(opened);
    return path;
}

FedPipe::FedPipe(const std::string &path, const std::string &text)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::filesystem::remove(path);
    if (mkfifo(path.c_str(), 0600) == 0)
        writer = std::thread(feed, path, text);
}

FedPipe::~FedPipe()
{
    if (writer.joinable())
        writer.join();
}

long megabytesHeld()
{
    rusage self = {};
    rusage children = {};
    getrusage(RUSAGE_SELF, &self);
    getrusage(RUSAGE_CHILDREN, &children);
    return std::max(self.ru_maxrss, children.ru_maxrss) / 1024;
}

void limitMemory()
{
    const rlimit gigabyte = {1U << 30, 1U << 30};
    if (!isAddressSanitized)
        setrlimit(RLIMIT_AS, &gigabyte);
}
