// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SELECTLISTITEM_H
#define BRIMVALE_SELECTLISTITEM_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

/// An entry of a selection list.
///
/// The screen can read the properties but not write them. A setter stores the value and emits the notify
/// signal only when the value changes. Unlike other models an entry can be assigned: it takes over the values of
/// another.
class BRIMVALE_EXPORT SelectListItem : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name NOTIFY nameChanged)
    Q_PROPERTY(QString date READ date NOTIFY dateChanged)
    Q_PROPERTY(QString additionalInformation READ additionalInformation NOTIFY additionalInformationChanged)
    Q_PROPERTY(bool selected READ selected NOTIFY selectedChanged)
    Q_PROPERTY(bool isProtected READ isProtected NOTIFY isProtectedChanged)

public:
    /// Makes an entry of empty texts and sort key -1, neither selected nor protected. `parent` owns the
    /// entry.
    explicit SelectListItem(QObject* parent);
    /// Stores each argument in the member of its name. `parent` owns the entry.
    SelectListItem(QObject* parent, QString name, QString date, long long dateSort,
                   QString additionalInformation, bool selected, bool isProtected);
    ~SelectListItem() override;

    /// Copies the six values and emits nothing; parent and identity stay. Assigning an entry to itself does
    /// nothing.
    SelectListItem& operator=(const SelectListItem& other);

    /// Returns the name of the entry.
    QString name() const;
    /// Sets the name of the entry.
    void setName(QString name);

    /// Returns the date of the entry as it is shown.
    QString date() const;
    /// Sets the date of the entry as it is shown.
    void setDate(QString date);

    /// Returns the sort key that goes with the date.
    long long dateSort() const;
    /// Sets the sort key; it is no property, and nothing is emitted.
    void setDateSort(long long dateSort);

    /// Returns further information on the entry.
    QString additionalInformation() const;
    /// Sets further information on the entry.
    void setAdditionalInformation(QString additionalInformation);

    /// Returns whether the entry is selected.
    bool selected() const;
    /// Sets whether the entry is selected.
    void setSelected(bool selected);

    /// Returns whether the entry is protected against changes.
    bool isProtected() const;
    /// Sets whether the entry is protected against changes.
    void setProtected(bool isProtected);

signals:
    /// \name Changes of the properties
    /// Each is emitted after the value of its property was set, as the setter says.
    ///@{
    void nameChanged();
    void dateChanged();
    void additionalInformationChanged();
    void selectedChanged();
    void isProtectedChanged();
    ///@}

private:
    QString m_name;
    QString m_date;
    long long m_dateSort;
    QString m_additionalInformation;
    bool m_selected;
    bool m_isProtected;
};

} // namespace Brimvale

#endif
