// SPDX-License-Identifier: BSD-3-Clause
#include "protocol/Protocol.h"

#include "ITrigger.h"
#include "host/Notices.h"
#include "host/PluginGuard.h"
#include "host/ProtocolPool.h"
#include "host/System.h"
#include "print/PrintJob.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

namespace
{

ProtocolChoice defaultChoice()
{
    ProtocolChoice choice;
    choice.trigger = Protocol::printKeyUid();
    return choice;
}

QObject* objectOf(ITrigger* trigger)
{
    return dynamic_cast<QObject*>(trigger);
}

} // namespace

QString Protocol::printKeyUid()
{
    return QStringLiteral("terminal.printKey");
}

Protocol::Protocol(const Environment& environment, const QString& owner, bool localTime, QObject* parent)
    : QObject(parent)
    , m_environment(environment)
    , m_owner(owner)
    , m_terminalItems(environment.clock, localTime)
    , m_loadChange(new LoadChangeTrigger(environment.weighing, environment.scale, this))
    , m_printer([this] { return offeredItems(); })
    , m_layout(PrintJob::DefaultLayout)
{
    connect(&m_environment.pool, &ProtocolPool::changed, this, &Protocol::onPoolChanged);
    connect(m_loadChange, &LoadChangeTrigger::notifyTriggered, this, &Protocol::onTriggered);
    m_choice = ProtocolChoice::load(m_environment.parameters, m_owner, m_application, defaultChoice());
    followTriggers();
}

Protocol::~Protocol() = default;

void Protocol::setOutput(IFormat& format, Output output)
{
    m_format = &format;
    m_output = std::move(output);
}

void Protocol::setApplication(const QString& identifier, ApplicationType type, const QString& name)
{
    m_applicationName = name;
    m_applicationType = type;
    if (m_application != identifier) {
        m_application = identifier;
        m_requested = false;
        m_due = false;
        m_choice = ProtocolChoice::load(m_environment.parameters, m_owner, m_application, defaultChoice());
    }
    followTriggers();
    emit changed();
}

void Protocol::setChoice(const ProtocolChoice& choice)
{
    if (m_choice == choice) {
        return;
    }
    m_choice = choice;
    QString error;
    if (!m_choice.store(m_environment.parameters, m_owner, m_application, &error)) {
        m_environment.notices.post(NoticeSeverity::Warning, error);
    }
    followTriggers();
    emit changed();
}

void Protocol::setChosen(const QString& uid, bool chosen)
{
    ProtocolChoice choice = m_choice;
    choice.items.removeAll(uid);
    if (chosen) {
        choice.items.append(uid);
    }
    setChoice(choice);
}

QVector<ProtocolEntry> Protocol::entries() const
{
    QStringList faults;
    QVector<ProtocolEntry> entries;
    const ProtocolItems items = m_printer.collect(m_choice.type, m_choice.part, &faults);
    for (const auto& item : items) {
        ProtocolEntry entry;
        entry.uid = item->getUId();
        entry.name = item->getName();
        entry.category = item->getCategory();
        entry.section = entry.category;
        if (m_choice.part == ProtocolPart::Whole) {
            const ProtocolPart part =
                item->areas() == ProtocolAreas(ProtocolArea::Header) ? ProtocolPart::Header
                : item->areas() == ProtocolAreas(ProtocolArea::Body) ? ProtocolPart::Body
                                                                     : ProtocolPart::Footer;
            entry.section = nameOf(part);
            if (!entry.category.isEmpty()) {
                entry.section += QStringLiteral(": ") + entry.category;
            }
        }
        entry.chosen = m_choice.items.contains(entry.uid);
        entries.append(entry);
    }
    for (const QString& fault : qAsConst(faults)) {
        m_environment.notices.postPluginFault(fault);
    }
    return entries;
}

QVector<ProtocolTriggerEntry> Protocol::triggers() const
{
    QVector<ProtocolTriggerEntry> entries{{printKeyUid(), tr("Print key")}};
    const QList<ITrigger*> available = availableTriggers();
    for (ITrigger* const trigger : available) {
        const auto exception = exceptionOf([&] { entries.append({trigger->getUId(), trigger->getName()}); });
        if (exception) {
            m_environment.notices.postPluginFault(
                tr("A trigger of the application could not be asked: %1").arg(*exception));
        }
    }
    return entries;
}

QString Protocol::nameOf(ProtocolType type)
{
    switch (type) {
    case ProtocolType::Measurement:
        return tr("Single weighing");
    case ProtocolType::Series:
        return tr("Series");
    case ProtocolType::Summary:
        return tr("Summary");
    case ProtocolType::Calibration:
        return tr("Calibration");
    case ProtocolType::Workflow:
        return tr("Guided procedure");
    }
    return QString();
}

QString Protocol::nameOf(ProtocolPart part)
{
    switch (part) {
    case ProtocolPart::Whole:
        return tr("Everything");
    case ProtocolPart::Header:
        return tr("Header");
    case ProtocolPart::Body:
        return tr("Values");
    case ProtocolPart::Footer:
        return tr("Footer");
    case ProtocolPart::Sics:
        return tr("SICS answer");
    }
    return QString();
}

bool Protocol::isStartedByPrintKey() const
{
    return m_choice.trigger == printKeyUid() && !m_choice.items.isEmpty();
}

void Protocol::requestByPrintKey()
{
    m_requested = isStartedByPrintKey();
}

void Protocol::onTransferred()
{
    if (m_requested) {
        m_requested = false;
        setDue();
    }
}

void Protocol::onPrintReported()
{
    if (isStartedByPrintKey()) {
        setDue();
    }
}

void Protocol::setDue()
{
    if (m_due) {
        return;
    }
    m_due = true;
    // A plug-in that does not tell of the end of its transfer prints all the same.
    QTimer::singleShot(0, this, &Protocol::onTransferFinished);
}

void Protocol::onTransferFinished()
{
    if (m_due) {
        m_due = false;
        print();
    }
}

bool Protocol::print()
{
    if (m_printing) {
        return refuse(tr("a protocol is being printed already."));
    }
    if (m_format == nullptr || !m_output) {
        return refuse(tr("there is no printer."));
    }
    if (m_choice.items.isEmpty()) {
        return refuse(tr("no items are chosen for it. Choose them in the protocol menu."));
    }
    m_printing = true;
    QStringList faults;
    ProtocolItems items = m_printer.collect(m_choice.type, m_choice.part, &faults);
    items.erase(std::remove_if(items.begin(), items.end(),
                               [this](const auto& item) { return !m_choice.items.contains(item->getUId()); }),
                items.end());
    QString failure;
    if (!faults.isEmpty()) {
        failure = faults.first();
    }
    const bool sics = m_choice.part == ProtocolPart::Sics;
    PrintJob job(m_applicationName, m_layout, sics ? PrintFormat::Sics : PrintFormat::Paper);
    if (failure.isEmpty() && !items.empty()) {
        const ProtocolFormatScope scope(m_environment.system,
                                        sics ? QStringLiteral("sics") : QStringLiteral("text"));
        failure = m_printer.print(items, job, *m_format);
    }
    m_printing = false;
    if (!failure.isEmpty()) {
        m_environment.notices.post(NoticeSeverity::Error, tr("Nothing was printed: %1").arg(failure));
        return false;
    }
    if (items.empty()) {
        return refuse(
            tr("none of the chosen items is offered for \"%1\", \"%2\". Choose others in the protocol "
               "menu.")
                .arg(nameOf(m_choice.type), nameOf(m_choice.part)));
    }
    if (job.isEmpty()) {
        return refuse(tr("the chosen items are empty."));
    }
    QString error;
    return m_output(job, &error) || refuse(error);
}

bool Protocol::refuse(const QString& why)
{
    m_environment.notices.post(NoticeSeverity::Warning, tr("The protocol was not printed: %1").arg(why));
    return false;
}

void Protocol::onTriggered(const QString& uid)
{
    if (uid != m_choice.trigger) {
        return;
    }
    // What was fired is asked again: only the chosen and running one starts a protocol.
    const QList<ITrigger*> available = availableTriggers();
    for (ITrigger* const trigger : available) {
        bool starts = false;
        bool valueAvailable = false;
        QString name;
        const auto exception = exceptionOf([&] {
            starts = trigger->getUId() == uid && trigger->isRunning() && trigger->Check();
            if (starts) {
                name = trigger->getName();
                valueAvailable = trigger->isValueAvailable();
            }
        });
        if (exception) {
            m_environment.notices.postPluginFault(
                tr("A trigger of the application failed: %1").arg(*exception));
            continue;
        }
        if (!starts) {
            continue;
        }
        if (valueAvailable) {
            print();
        } else {
            refuse(tr("\"%1\" has no value yet.").arg(name));
        }
        return;
    }
}

QList<IPrintableItem*> Protocol::offeredItems() const
{
    return m_environment.pool.items() + m_terminalItems.items();
}

QList<ITrigger*> Protocol::offeredTriggers() const
{
    return QList<ITrigger*>{m_loadChange} + m_environment.pool.triggers();
}

QList<ITrigger*> Protocol::availableTriggers() const
{
    const ProtocolArea area = m_choice.part == ProtocolPart::Header   ? ProtocolArea::Header
                              : m_choice.part == ProtocolPart::Footer ? ProtocolArea::Footer
                              : m_choice.part == ProtocolPart::Sics   ? ProtocolArea::Sics
                                                                      : ProtocolArea::Body;
    QList<ITrigger*> available;
    const QList<ITrigger*> offered = offeredTriggers();
    for (ITrigger* const trigger : offered) {
        bool isAvailable = false;
        const auto exception =
            exceptionOf([&] { isAvailable = trigger->isAvailableIn(area, m_applicationType); });
        if (exception) {
            m_environment.notices.postPluginFault(
                tr("A trigger of the application could not be asked: %1").arg(*exception));
        } else if (isAvailable) {
            available.append(trigger);
        }
    }
    return available;
}

QString Protocol::uidOf(const ITrigger* trigger) const
{
    QString uid;
    exceptionOf([&] { uid = trigger->getUId(); }); // one without a uid cannot be chosen
    return uid;
}

void Protocol::onPoolChanged()
{
    followTriggers();
    emit changed();
}

/// Listens to the offered triggers, and has the chosen one run and no other.
void Protocol::followTriggers()
{
    QVector<QPointer<QObject>> followed;
    const QList<ITrigger*> offered = m_environment.pool.triggers();
    for (ITrigger* const trigger : offered) {
        QObject* const object = objectOf(trigger);
        if (object == nullptr || object->metaObject()->indexOfSignal("notifyTriggered(QString)") < 0) {
            continue;
        }
        if (!m_followed.contains(object)) {
            connect(object, SIGNAL(notifyTriggered(QString)), this, SLOT(onTriggered(QString)));
        }
        followed.append(object);
    }
    for (const QPointer<QObject>& object : qAsConst(m_followed)) {
        if (object && !followed.contains(object)) {
            disconnect(object, nullptr, this, nullptr);
        }
    }
    m_followed = followed;

    ITrigger* chosen = nullptr;
    const QList<ITrigger*> available = availableTriggers();
    for (ITrigger* const trigger : available) {
        if (uidOf(trigger) == m_choice.trigger) {
            chosen = trigger;
            break;
        }
    }
    QObject* const object = chosen != nullptr ? objectOf(chosen) : nullptr;
    if (m_running == object) {
        return;
    }
    QObject* const previous = m_running;
    m_running = object;
    const auto exception = exceptionOf([&] {
        // A trigger need not name its interface to Qt, so qobject_cast would miss it.
        if (auto* const trigger = dynamic_cast<ITrigger*>(previous)) { // clazy:exclude=unneeded-cast
            trigger->setRunning(false);
        }
        if (chosen != nullptr) {
            chosen->setRunning(true);
        }
    });
    if (exception) {
        m_environment.notices.postPluginFault(tr("A trigger of the application failed: %1").arg(*exception));
    }
}

} // namespace Terminal
} // namespace Brimvale
