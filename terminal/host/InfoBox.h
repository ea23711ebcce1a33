// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_INFOBOX_H
#define BRIMVALE_INFOBOX_H

#include "IInfobox.h"

#include <QObject>
#include <QPointer>
#include <QVector>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// The lines that the active plug-in shows beside the weight.
class InfoBox : public QObject, public IInfobox
{
    Q_OBJECT
    Q_DISABLE_COPY(InfoBox)

public:
    explicit InfoBox(HostCallLog& calls, QObject* parent = nullptr);

    // IInfobox
    /// Null pointers are left out.
    void SetItems(const QList<QObject*>& items) override;

    /// The lines in their order, without those that were destroyed.
    QList<QObject*> items() const;

    void clear();

signals:
    void itemsChanged();

private:
    void replace(const QList<QObject*>& items);

    HostCallLog& m_calls;
    QVector<QPointer<QObject>> m_items;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_INFOBOX_H
