// SPDX-License-Identifier: BSD-3-Clause
#include "host/RunningCode.h"

#include <QFile>
#include <QObject>

#include <atomic>
#include <cstring>
#include <dlfcn.h>

namespace Brimvale
{
namespace Terminal
{
namespace
{

// Written by the thread of the event loop alone.
std::atomic<const char*> s_what{nullptr};
std::atomic<const void*> s_code{nullptr};
std::atomic<quint32> s_beat{0};
std::atomic<bool> s_idle{false};

void execute(const char* what, const void* code)
{
    s_what.store(what, std::memory_order_relaxed);
    s_code.store(code, std::memory_order_relaxed);
    s_beat.store(s_beat.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
}

} // namespace

RunningCode::RunningCode(const char* what, const void* code)
    : m_outerWhat(s_what.load(std::memory_order_relaxed))
    , m_outerCode(s_code.load(std::memory_order_relaxed))
{
    execute(what, code);
}

RunningCode::~RunningCode()
{
    execute(m_outerWhat, m_outerCode);
}

RunningCode::State RunningCode::state()
{
    State state;
    state.what = s_what.load(std::memory_order_relaxed);
    state.code = s_code.load(std::memory_order_relaxed);
    state.beat = s_beat.load(std::memory_order_relaxed);
    state.idle = s_idle.load(std::memory_order_relaxed);
    return state;
}

void RunningCode::setIdle(bool idle)
{
    s_idle.store(idle, std::memory_order_relaxed);
    s_beat.store(s_beat.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
}

const void* codeOf(const QObject* object)
{
    const void* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(object), sizeof table);
    return table;
}

QString libraryOf(const void* code)
{
    Dl_info info;
    return code != nullptr && dladdr(code, &info) != 0 ? QFile::decodeName(info.dli_fname) : QString();
}

} // namespace Terminal
} // namespace Brimvale
