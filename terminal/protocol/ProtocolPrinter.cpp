// SPDX-License-Identifier: BSD-3-Clause
#include "protocol/ProtocolPrinter.h"

#include "CategorySort.h"
#include "host/PluginGuard.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

ProtocolPrinter::ProtocolPrinter(Source source)
    : m_source(std::move(source))
{
}

ProtocolItems ProtocolPrinter::collect(ProtocolType type, ProtocolPart part, QStringList* faults) const
{
    CategorySort sorter;
    ProtocolItems collected;
    QSet<IPrintableItem*> taken;
    const QList<IPrintableItem*> offered = m_source();
    const QVector<ProtocolAreas> areas = areasOf(part);
    for (const ProtocolAreas area : areas) {
        ProtocolItems found;
        // Kept for the next area it would be freed too, by clear().
        QList<IPrintableItem*> list; // clazy:exclude=container-inside-loop
        for (IPrintableItem* const item : offered) {
            if (taken.contains(item) || !m_source().contains(item)) {
                continue;
            }
            const auto exception = exceptionOf([&] {
                if (item->isEnabled(type) && item->isAvailableIn(area)) {
                    found.push_back(std::make_unique<ProtocolItem>(item, area));
                    list.append(found.back().get());
                    taken.insert(item);
                }
            });
            if (exception) {
                taken.insert(item);
                faults->append(tr("A print item of the application could not be asked: %1").arg(*exception));
            }
        }
        const QList<IPrintableItem*> sorted = sorter.SortByCategory(list);
        for (IPrintableItem* const entry : sorted) {
            const auto owner = std::find_if(found.begin(), found.end(),
                                            [entry](const auto& item) { return item.get() == entry; });
            collected.push_back(std::move(*owner));
        }
    }
    return collected;
}

QString ProtocolPrinter::print(const ProtocolItems& items, IPrinter& printer, IFormat& format) const
{
    for (const auto& item : items) {
        QString failure = failureOf(*item, [&item] {
            item->setValue();
            return true;
        });
        if (!failure.isEmpty()) {
            return failure;
        }
    }
    for (const auto& item : items) {
        QString failure = failureOf(*item, [&] { return item->Print(&printer, &format); });
        if (!failure.isEmpty()) {
            return failure;
        }
    }
    return QString();
}

bool ProtocolPrinter::isOffered(const ProtocolItem& item) const
{
    return m_source().contains(item.item());
}

QString ProtocolPrinter::failureOf(const ProtocolItem& item, const std::function<bool()>& step) const
{
    if (!isOffered(item)) {
        return tr("\"%1\" was withdrawn while the protocol was printed.").arg(item.getName());
    }
    bool done = false;
    if (const auto exception = exceptionOf([&] { done = step(); })) {
        return tr("\"%1\" failed: %2").arg(item.getName(), *exception);
    }
    return done ? QString() : tr("\"%1\" could not be printed.").arg(item.getName());
}

} // namespace Terminal
} // namespace Brimvale
