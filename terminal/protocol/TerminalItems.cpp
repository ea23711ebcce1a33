// SPDX-License-Identifier: BSD-3-Clause
#include "protocol/TerminalItems.h"

#include "CategorySort.h"
#include "IFormat.h"
#include "IPrinter.h"
#include "PrintableItemBase.h"
#include "clock/Clock.h"

#include <QDateTime>

#include <functional>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

namespace
{

/// A name and a value that is read when the snapshot is taken.
class TerminalItem : public PrintableItemBase
{
public:
    using Text = std::function<QString()>;

    TerminalItem(QObject* parent, const char* uid, int rank, Text name, Text value)
        : PrintableItemBase(parent)
        , m_name(std::move(name))
        , m_value(std::move(value))
    {
        setUid(QLatin1String(uid));
        setRank(rank);
        setEnable(ProtocolType::Measurement | ProtocolType::Series | ProtocolType::Summary
                  | ProtocolType::Calibration | ProtocolType::Workflow);
        setProtocolArea(ProtocolArea::Header | ProtocolArea::Body | ProtocolArea::Footer);
    }

    QString getName() const override { return m_name(); }

    void setValue() override { m_snapshot = m_value(); }

    bool Print(IPrinter* printer, IFormat* format) override
    {
        const int layout = printer->GetPrintLayout();
        return printer->PrintLine(format->FormatDescriptionText(layout, m_name(), m_snapshot));
    }

private:
    const Text m_name;
    const Text m_value;
    QString m_snapshot;
};

QString orDash(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("-") : text;
}

} // namespace

TerminalItems::TerminalItems(const Clock& clock, bool localTime)
    : m_clock(clock)
    , m_localTime(localTime)
{
    const auto now = [this] {
        const QDateTime time = m_clock.dateTime();
        return m_localTime ? time.toLocalTime() : time;
    };
    const auto add = [this](const char* uid, int rank, TerminalItem::Text name, TerminalItem::Text value) {
        m_items.append(new TerminalItem(&m_owner, uid, rank, std::move(name), std::move(value)));
    };
    add(
        "terminal.date", CategorySort::general, [] { return tr("Date"); },
        [this, now] {
            const bool german = m_language == QLatin1String("de");
            return now().toString(german ? QStringLiteral("dd.MM.yyyy") : QStringLiteral("yyyy-MM-dd"));
        });
    add(
        "terminal.time", CategorySort::general, [] { return tr("Time"); },
        [now] { return now().toString(QStringLiteral("HH:mm:ss")); });
    add(
        "terminal.user", CategorySort::general, [] { return tr("Operator"); },
        [this] { return orDash(m_operatorName); });
    add(
        "terminal.serial", CategorySort::device, [] { return tr("Serial number"); },
        [this] { return orDash(m_serialNumber); });
}

} // namespace Terminal
} // namespace Brimvale
