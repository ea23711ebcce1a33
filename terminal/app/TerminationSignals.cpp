// SPDX-License-Identifier: BSD-3-Clause
#include "app/TerminationSignals.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Where the signal handler writes to; a handler may do little more.
volatile std::sig_atomic_t s_writeEnd = -1;

void handleSignal(int signalNumber)
{
    const int savedErrno = errno;
    const auto byte = static_cast<unsigned char>(signalNumber);
    // A full or closed pipe leaves nothing to be done.
    const ssize_t written = ::write(s_writeEnd, &byte, 1);
    static_cast<void>(written);
    errno = savedErrno;
}

void setHandler(void (*handler)(int), int flags)
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    for (const int signalNumber : {SIGINT, SIGTERM})
        sigaction(signalNumber, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(QObject* parent)
    : QObject(parent)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // The signals then end the process at once.
    m_readEnd = ends[0];
    s_writeEnd = ends[1];
    m_notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::onReadable);
    // With SA_RESETHAND the second signal has its usual effect.
    setHandler(handleSignal, SA_RESTART | static_cast<int>(SA_RESETHAND));
}

TerminationSignals::~TerminationSignals()
{
    if (m_readEnd < 0)
        return;
    setHandler(SIG_DFL, 0);
    delete m_notifier;
    close(m_readEnd);
    close(static_cast<int>(s_writeEnd));
    s_writeEnd = -1;
}

void TerminationSignals::onReadable()
{
    unsigned char byte = 0;
    if (read(m_readEnd, &byte, 1) != 1)
        return;
    m_received = byte;
    emit terminationRequested(m_received);
}

} // namespace Terminal
} // namespace Brimvale
