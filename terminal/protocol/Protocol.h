// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOL_H
#define BRIMVALE_PROTOCOL_H

#include "ApplicationType.h"
#include "protocol/LoadChangeTrigger.h"
#include "protocol/ProtocolChoice.h"
#include "protocol/ProtocolPrinter.h"
#include "protocol/TerminalItems.h"

#include <QObject>
#include <QPointer>
#include <QVector>

#include <functional>

namespace Brimvale
{

class IFormat;
class ITrigger;

namespace Terminal
{

class Clock;
class Notices;
class PrintJob;
class ProtocolPool;
class Scale;
class StoredParameters;
class System;
class Weighing;

/// A print item as it is offered to the person.
struct ProtocolEntry
{
    QString uid;
    QString name;
    QString category;
    QString section; ///< Category, and where the whole print-out is shown also its part.
    bool chosen = false;
};

/// A trigger as it is offered to the person.
struct ProtocolTriggerEntry
{
    QString uid;
    QString name;
};

/// The protocol of the active application: what the person chose for it, and its printing.
///
/// The items and triggers are those of the active plug-in, which come from the pool, and the terminal's own. The choice
/// is kept for each application by itself, and stored. Exactly one trigger starts the protocol: the print key (after
/// the transfer of the measurement that it asked for), a change of the load, or a trigger of the plug-in.
class Protocol : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Protocol)

public:
    /// The uid of the print key among the triggers.
    static QString printKeyUid();

    /// What the protocol works with; nothing is owned, everything must outlive it.
    struct Environment
    {
        Notices& notices;
        ProtocolPool& pool;
        StoredParameters& parameters;
        System& system;
        Weighing& weighing;
        const Scale& scale;
        const Clock& clock;
    };

    /// Takes a finished print-out over. Returns false when it does not; @p error then tells why.
    using Output = std::function<bool(const PrintJob& job, QString* error)>;

    /// @param owner     whose choice is stored.
    /// @param localTime see TerminalItems.
    Protocol(const Environment& environment, const QString& owner, bool localTime, QObject* parent = nullptr);
    ~Protocol() override;

    /// Where print-outs go and what lays them out (not owned, must outlive the object).
    void setOutput(IFormat& format, Output output);
    /// Columns of the paper; initially those of a PrintJob.
    int layout() const { return m_layout; }
    void setLayout(int columns) { m_layout = columns; }

    TerminalItems& terminalItems() { return m_terminalItems; }

    /// Another application is active; an empty identifier: none, the terminal weighs by itself. Its stored choice is in
    /// force from now on.
    void setApplication(const QString& identifier, ApplicationType type, const QString& name);
    QString application() const { return m_application; }

    const ProtocolChoice& choice() const { return m_choice; }
    /// Replaces the choice and stores it.
    void setChoice(const ProtocolChoice& choice);
    void setChosen(const QString& uid, bool chosen);

    /// The items that can be chosen: those that are enabled for the chosen type and available in the chosen part, in
    /// the order in which they are printed.
    QVector<ProtocolEntry> entries() const;
    /// The triggers that can be chosen for the chosen part.
    QVector<ProtocolTriggerEntry> triggers() const;

    /// The translated names.
    static QString nameOf(ProtocolType type);
    static QString nameOf(ProtocolPart part);

    // Triggers.

    /// The print key asks for a transfer: the next one starts the protocol.
    void requestByPrintKey();
    /// The print key has been answered. An application that transfers only later, such as when the weight is stable,
    /// tells then that its transfer was asked for (onPrintReported()); one that has refused has nothing left to do.
    void endRequest() { m_requested = false; }
    /// A measurement has been transferred.
    void onTransferred();
    /// The application reports the transfer that it carries out as one that the print key asked for.
    void onPrintReported();
    /// Everything that belongs to a transfer has been told: prints what the print key asked for.
    void onTransferFinished();

    /// Prints the protocol at once. Returns false after a notice that says why not.
    bool print();

signals:
    /// Choice, items or triggers may have changed.
    void changed();

private slots:
    void onTriggered(const QString& uid);

private:
    QList<IPrintableItem*> offeredItems() const;
    QList<ITrigger*> offeredTriggers() const;
    QList<ITrigger*> availableTriggers() const;
    QString uidOf(const ITrigger* trigger) const;
    void onPoolChanged();
    void followTriggers();
    bool isStartedByPrintKey() const;
    void setDue();
    bool refuse(const QString& why);

    Environment m_environment;
    const QString m_owner;
    TerminalItems m_terminalItems;
    LoadChangeTrigger* const m_loadChange;
    ProtocolPrinter m_printer;
    IFormat* m_format = nullptr;
    Output m_output;
    int m_layout;

    QString m_application;
    QString m_applicationName;
    ApplicationType m_applicationType = ApplicationType::Weighing;
    ProtocolChoice m_choice;
    QVector<QPointer<QObject>> m_followed; ///< Triggers that this object listens to.
    QPointer<QObject> m_running;           ///< The trigger that was told to run.
    bool m_requested = false; ///< The print key is being pressed, and nothing was transferred yet.
    bool m_due = false;       ///< Transferred, and not printed yet.
    bool m_printing = false;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOL_H
