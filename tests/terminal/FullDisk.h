// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FULLDISK_H
#define BRIMVALE_FULLDISK_H

#include <csignal>
#include <sys/resource.h>

/// While it exists no file of the process can become larger than @p bytes: as on a disk that is full, the write that
/// would do so writes a part, and the next one fails.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before;
};

#endif // BRIMVALE_FULLDISK_H
