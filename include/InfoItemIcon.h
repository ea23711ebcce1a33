// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_INFOITEMICON_H
#define BRIMVALE_INFOITEMICON_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

/// A value with its unit and a picture.
///
/// The screen can read the properties but not write them. A setter stores the value and emits the notify
/// signal only when the value changes.
class BRIMVALE_EXPORT InfoItemIcon : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(InfoItemIcon)
    Q_PROPERTY(QString value READ value NOTIFY valueChanged)
    Q_PROPERTY(QString unit READ unit NOTIFY unitChanged)
    Q_PROPERTY(QString image READ image NOTIFY imageChanged)

public:
    /// Stores each argument in the property of its name. `parent` owns the item.
    InfoItemIcon(QObject* parent, QString value, QString unit, QString image);
    ~InfoItemIcon() override;

    /// Returns the value.
    QString value() const;
    /// Sets the value.
    void setValue(QString value);

    /// Returns the unit of the value.
    QString unit() const;
    /// Sets the unit of the value.
    void setUnit(QString unit);

    /// Returns the path of the picture.
    QString image() const;
    /// Sets the path of the picture.
    void setImage(QString image);

signals:
    /// \name Changes of the properties
    /// Each is emitted after the value of its property was set, as the setter says.
    ///@{
    void valueChanged();
    void unitChanged();
    void imageChanged();
    ///@}

private:
    QString m_value;
    QString m_unit;
    QString m_image;
};

} // namespace Brimvale

#endif
