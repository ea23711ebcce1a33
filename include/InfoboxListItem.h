// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_INFOBOXLISTITEM_H
#define BRIMVALE_INFOBOXLISTITEM_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

/// One line of the info box: a group title, a value title and a value.
///
/// The screen can read the properties but not write them. A setter stores the value and emits the notify
/// signal only when the value changes. One setter is different: see `setItemValueTitle()`.
class BRIMVALE_EXPORT InfoboxListItem : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(InfoboxListItem)
    Q_PROPERTY(QString itemGroupTitle READ itemGroupTitle NOTIFY itemGroupTitleChanged)
    Q_PROPERTY(QString itemValueTitle READ itemValueTitle NOTIFY itemValueTitleChanged)
    Q_PROPERTY(QString itemValue READ itemValue NOTIFY itemValueChanged)
    Q_PROPERTY(bool isGroupTitleBold READ isGroupTitleBold NOTIFY isGroupTitleBoldChanged)
    Q_PROPERTY(
        bool isItemValueRightAligned READ isItemValueRightAligned NOTIFY isItemValueRightAlignedChanged)
    Q_PROPERTY(bool isItemValueInvalid READ isItemValueInvalid NOTIFY isItemValueInvalidChanged)

public:
    /// Stores each argument in the property of its name. `parent` owns the item.
    InfoboxListItem(QObject* parent, const QString& itemGroupTitle, const QString& itemValueTitle,
                    const QString& itemValue, bool isGroupTitleBold, bool isItemValueRightAligned,
                    bool isItemValueInvalid);
    ~InfoboxListItem() override;

    /// Returns the title of the group that begins with this line; empty within a group.
    QString itemGroupTitle() const;
    /// Sets the title of the group that begins with this line; empty within a group.
    void setItemGroupTitle(QString itemGroupTitle);

    /// Returns the title of the value.
    QString itemValueTitle() const;
    /// Sets the title of the value. A change emits `itemGroupTitleChanged()`: `itemValueTitleChanged()` is
    /// declared for the property but never emitted, which existing screens rely on.
    void setItemValueTitle(QString itemValueTitle);

    /// Returns the value with its unit.
    QString itemValue() const;
    /// Sets the value with its unit.
    void setItemValue(QString itemValue);

    /// Returns whether the group title is bold.
    bool isGroupTitleBold() const;
    /// Sets whether the group title is bold.
    void setIsGroupTitleBold(bool isGroupTitleBold);

    /// Returns whether the value stands at the right.
    bool isItemValueRightAligned() const;
    /// Sets whether the value stands at the right.
    void setIsItemValueRightAligned(bool isItemValueRightAligned);

    /// Returns whether the value is marked as invalid.
    bool isItemValueInvalid() const;
    /// Sets whether the value is marked as invalid.
    void setIsItemValueInvalid(bool isItemValueInvalid);

signals:
    /// \name Changes of the properties
    /// Each is emitted after the value of its property was set, as the setter says.
    ///@{
    void itemGroupTitleChanged();
    void itemValueTitleChanged();
    void itemValueChanged();
    void isGroupTitleBoldChanged();
    void isItemValueRightAlignedChanged();
    void isItemValueInvalidChanged();
    ///@}

private:
    QString m_itemGroupTitle;
    QString m_itemValueTitle;
    QString m_itemValue;
    bool m_isGroupTitleBold;
    bool m_isItemValueRightAligned;
    bool m_isItemValueInvalid;
};

} // namespace Brimvale

#endif
