// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_INFOVALUEUNIT_H
#define BRIMVALE_INFOVALUEUNIT_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

/// A titled value with its unit, which can be hidden: a result field of a workflow screen.
///
/// The screen can read the properties but not write them. A setter stores the value and emits the notify
/// signal only when the value changes. The names of the property `isVisible`, its signal `visibleChanged()`
/// and its setter `setVisble()` do not match; existing screens and plug-ins use them as they are.
class BRIMVALE_EXPORT InfoValueUnit : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(InfoValueUnit)
    Q_PROPERTY(bool isVisible READ isVisible NOTIFY visibleChanged)
    Q_PROPERTY(QString info READ info NOTIFY infoChanged)
    Q_PROPERTY(QString value READ value NOTIFY valueChanged)
    Q_PROPERTY(QString unit READ unit NOTIFY unitChanged)

public:
    /// Stores each argument in the property of its name. `parent` owns the field.
    InfoValueUnit(QObject* parent, bool isVisible, QString info, QString value, QString unit);
    ~InfoValueUnit() override;

    /// Returns whether the field is shown.
    bool isVisible() const;
    /// Sets whether the field is shown.
    void setVisble(bool isVisible);

    /// Returns the title of the value.
    QString info() const;
    /// Sets the title of the value.
    void setInfo(QString info);

    /// Returns the value.
    QString value() const;
    /// Sets the value.
    void setValue(QString value);

    /// Returns the unit of the value.
    QString unit() const;
    /// Sets the unit of the value.
    void setUnit(QString unit);

signals:
    /// \name Changes of the properties
    /// Each is emitted after the value of its property was set, as the setter says.
    ///@{
    void visibleChanged();
    void infoChanged();
    void valueChanged();
    void unitChanged();
    ///@}

private:
    bool m_isVisible;
    QString m_info;
    QString m_value;
    QString m_unit;
};

} // namespace Brimvale

#endif
