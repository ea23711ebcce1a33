// SPDX-License-Identifier: BSD-3-Clause
#include "app/QmlGuard.h"

#include "host/PluginGuard.h"

#include <QMetaObject>
#include <QPointer>
#include <QQmlEngine>

#include <algorithm>
#include <cstdint>
#include <dlfcn.h>
#include <link.h>
#include <utility>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Never destroyed: objects are called until the process has ended.
QmlGuard::Report& activeReport()
{
    static auto& report = *new QmlGuard::Report;
    return report;
}

/// The addresses of the library that an address lies in.
struct Range
{
    std::uintptr_t inside;
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;

    bool contains(std::uintptr_t address) const { return address >= begin && address < end; }
};

int findRange(dl_phdr_info* info, std::size_t, void* data)
{
    auto* const range = static_cast<Range*>(data);
    Range library{range->inside, UINTPTR_MAX, 0};
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const auto& segment = info->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD)
            continue;
        library.begin = std::min<std::uintptr_t>(library.begin, info->dlpi_addr + segment.p_vaddr);
        library.end =
            std::max<std::uintptr_t>(library.end, info->dlpi_addr + segment.p_vaddr + segment.p_memsz);
    }
    if (!library.contains(range->inside))
        return 0;
    *range = library;
    return 1;
}

bool isQmlEngine(const void* caller)
{
    static const Range engine = [] {
        Range range{reinterpret_cast<std::uintptr_t>(dlsym(RTLD_DEFAULT, "_ZN10QQmlEngineC1EP7QObject"))};
        dl_iterate_phdr(findRange, &range);
        return range;
    }();
    return engine.contains(reinterpret_cast<std::uintptr_t>(caller));
}

} // namespace

void QmlGuard::setReport(Report report)
{
    activeReport() = std::move(report);
}

} // namespace Terminal
} // namespace Brimvale

/// Stands before the operation of this name of Qt: whoever calls that from another library comes here first.
int QMetaObject::metacall(QObject* object, Call call, int index, void** arguments)
{
    using namespace Brimvale::Terminal;
    using Metacall = int (*)(QObject*, Call, int, void**);
    static const auto original =
        reinterpret_cast<Metacall>(dlsym(RTLD_NEXT, "_ZN11QMetaObject8metacallEP7QObjectNS_4CallEiPPv"));
    if (!activeReport() || !isQmlEngine(__builtin_return_address(0)))
        return original(object, call, index, arguments);
    const QPointer<QObject> guarded(object);
    int result = -1;
    const auto exception = exceptionOf([&] { result = original(object, call, index, arguments); });
    if (exception)
        activeReport()(guarded, *exception);
    return result;
}
