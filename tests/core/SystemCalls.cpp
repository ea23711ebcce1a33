// SPDX-License-Identifier: BSD-3-Clause
#include "SystemCalls.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#define INTERPOSED extern "C" __attribute__((visibility("default")))

namespace SystemCalls
{

namespace
{

const Watch* watch = nullptr;
bool isWatchRunning = false;
std::size_t largestStep = 0;

bool fails(const Call& call)
{
    if (watch == nullptr || isWatchRunning) {
        return false;
    }
    isWatchRunning = true;
    const int error = (*watch)(call);
    isWatchRunning = false;
    errno = error;
    return error != 0;
}

std::size_t step(std::size_t bytes)
{
    return largestStep == 0 ? bytes : std::min(bytes, largestStep);
}

template <typename Function>
Function* original(Function*, const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool hasMode(int flags)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

int openAs(const char* name, const char* path, int flags, mode_t mode)
{
    if (fails({"open", path, -1, flags})) {
        return -1;
    }
    using Open = int(const char*, int, ...);
    return original<Open>(nullptr, name)(path, flags, mode);
}

} // namespace

Watching::Watching(Watch watch)
    : m_watch(std::move(watch))
{
    SystemCalls::watch = &m_watch;
}

Watching::~Watching()
{
    SystemCalls::watch = nullptr;
}

void setLargestStep(std::size_t bytes)
{
    largestStep = bytes;
}

} // namespace SystemCalls

using namespace SystemCalls;

INTERPOSED int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = hasMode(flags) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openAs("open", path, flags, mode);
}

INTERPOSED int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = hasMode(flags) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openAs("open64", path, flags, mode);
}

INTERPOSED int mkostemp(char* path, int flags)
{
    return fails({"mkostemp", path, -1, flags}) ? -1 : original(&::mkostemp, "mkostemp")(path, flags);
}

INTERPOSED int mkostemp64(char* path, int flags)
{
    return fails({"mkostemp", path, -1, flags}) ? -1 : original(&::mkostemp64, "mkostemp64")(path, flags);
}

INTERPOSED ssize_t write(int descriptor, const void* bytes, std::size_t count)
{
    return fails({"write", nullptr, descriptor, 0})
               ? -1
               : original(&::write, "write")(descriptor, bytes, step(count));
}

INTERPOSED ssize_t read(int descriptor, void* bytes, std::size_t count)
{
    return fails({"read", nullptr, descriptor, 0}) ? -1 : original(&::read, "read")(descriptor, bytes, count);
}

INTERPOSED ssize_t copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset,
                                   std::size_t count, unsigned flags)
{
    return fails({"copy_file_range", nullptr, to, 0}) ? -1
                                                      : original(&::copy_file_range, "copy_file_range")(
                                                          from, fromOffset, to, toOffset, step(count), flags);
}

INTERPOSED int fchmod(int descriptor, mode_t mode) noexcept
{
    return fails({"fchmod", nullptr, descriptor, 0}) ? -1 : original(&::fchmod, "fchmod")(descriptor, mode);
}

INTERPOSED int fsync(int descriptor)
{
    return fails({"fsync", nullptr, descriptor, 0}) ? -1 : original(&::fsync, "fsync")(descriptor);
}

INTERPOSED int fdatasync(int descriptor)
{
    return fails({"fdatasync", nullptr, descriptor, 0}) ? -1
                                                        : original(&::fdatasync, "fdatasync")(descriptor);
}

INTERPOSED int linkat(int fromDirectory, const char* from, int toDirectory, const char* to,
                      int flags) noexcept
{
    return fails({"linkat", to, -1, flags})
               ? -1
               : original(&::linkat, "linkat")(fromDirectory, from, toDirectory, to, flags);
}

INTERPOSED int link(const char* from, const char* to) noexcept
{
    return fails({"link", to, -1, 0}) ? -1 : original(&::link, "link")(from, to);
}

INTERPOSED int rename(const char* from, const char* to) noexcept
{
    return fails({"rename", to, -1, 0}) ? -1 : original(&::rename, "rename")(from, to);
}

INTERPOSED int renameat2(int fromDirectory, const char* from, int toDirectory, const char* to,
                         unsigned flags) noexcept
{
    return fails({"renameat2", to, -1, 0})
               ? -1
               : original(&::renameat2, "renameat2")(fromDirectory, from, toDirectory, to, flags);
}

INTERPOSED int unlink(const char* path) noexcept
{
    return fails({"unlink", path, -1, 0}) ? -1 : original(&::unlink, "unlink")(path);
}

INTERPOSED int mkdir(const char* path, mode_t mode) noexcept
{
    return fails({"mkdir", path, -1, 0}) ? -1 : original(&::mkdir, "mkdir")(path, mode);
}

INTERPOSED int close(int descriptor)
{
    return fails({"close", nullptr, descriptor, 0}) ? -1 : original(&::close, "close")(descriptor);
}
