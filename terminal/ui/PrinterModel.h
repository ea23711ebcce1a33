// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTERMODEL_H
#define BRIMVALE_PRINTERMODEL_H

#include <QObject>
#include <QString>
#include <QVariantList>

namespace Brimvale
{
namespace Terminal
{

class PaperRoll;
class PrintQueue;

/// The printer as the bench shows it: its state, its faults, the print-outs that wait, and the paper.
class PrinterModel : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(PrinterModel)

    /// Which printer it is, for people; empty: there is none.
    Q_PROPERTY(QString description READ description NOTIFY changed)
    /// What it does, for people: "Ready".
    Q_PROPERTY(QString stateText READ stateText NOTIFY changed)
    /// Whether something must be done before it prints on.
    Q_PROPERTY(bool needsHelp READ needsHelp NOTIFY changed)
    /// The fault that is tried out: one of faults().
    Q_PROPERTY(QString fault READ fault WRITE setFault NOTIFY changed)
    /// Whether what is printed appears on paper().
    Q_PROPERTY(bool printsOnRoll READ printsOnRoll NOTIFY changed)
    /// The print-outs that are not printed, the next one first: id (text), title, detail (what state it is in, and why)
    /// and failed.
    Q_PROPERTY(QVariantList prints READ prints NOTIFY changed)
    Q_PROPERTY(int failedCount READ failedCount NOTIFY changed)
    Q_PROPERTY(QObject* paper READ paper CONSTANT)

public:
    /// @param queue, paper not owned, must outlive the model.
    PrinterModel(PrintQueue& queue, PaperRoll& paper, QObject* parent = nullptr);

    /// "ok", "paper out", "offline" and "slow".
    static QStringList faults();
    /// The words of state(): "ready", "printing", "stopped", "paper out", "offline" and "none".
    static QStringList states();

    QString description() const;
    /// What it does: "none" where there is no printer; "paper out" and "offline" as its fault is; "stopped" while a
    /// print-out has failed; "printing"; otherwise "ready".
    QString state() const;
    QString stateText() const;
    bool needsHelp() const;
    QString fault() const;
    /// Anything that is none of faults() changes nothing.
    void setFault(const QString& fault);
    bool printsOnRoll() const;
    QVariantList prints() const;
    int failedCount() const;
    QObject* paper() const;

    Q_INVOKABLE void repeat(const QString& id);
    Q_INVOKABLE void remove(const QString& id);
    Q_INVOKABLE void repeatAll();

public slots:
    /// Tells that the texts are in another language now.
    void retranslate() { emit changed(); }

signals:
    void changed();

private:
    PrintQueue& m_queue;
    PaperRoll& m_paper;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PRINTERMODEL_H
