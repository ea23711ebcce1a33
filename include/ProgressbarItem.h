// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROGRESSBARITEM_H
#define BRIMVALE_PROGRESSBARITEM_H

#include "SharedLibsGlobal.h"

#include <QObject>

namespace Brimvale
{

/// One step mark of a `Progressbar`.
class BRIMVALE_EXPORT ProgressbarItem : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ProgressbarItem)
    Q_PROPERTY(bool isDone READ isDone NOTIFY isDoneChanged)

public:
    /// `parent` owns the mark.
    ProgressbarItem(QObject* parent, bool isDone);
    ~ProgressbarItem() override;

    /// Whether the step is done.
    bool isDone() const;

    /// Marks the step as done or not; emits `isDoneChanged()` on change.
    void setIsDone(bool isDone);

signals:
    /// \name Changes of the properties
    /// Each is emitted after the value of its property was set, as the setter says.
    ///@{
    void isDoneChanged();
    ///@}

private:
    bool m_isDone;
};

} // namespace Brimvale

#endif
