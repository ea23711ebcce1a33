// SPDX-License-Identifier: BSD-3-Clause
#include "InfoboxListItem.h"

namespace Brimvale
{

InfoboxListItem::InfoboxListItem(QObject* parent, const QString& itemGroupTitle,
                                 const QString& itemValueTitle, const QString& itemValue,
                                 bool isGroupTitleBold, bool isItemValueRightAligned, bool isItemValueInvalid)
    : QObject(parent)
    , m_itemGroupTitle(itemGroupTitle)
    , m_itemValueTitle(itemValueTitle)
    , m_itemValue(itemValue)
    , m_isGroupTitleBold(isGroupTitleBold)
    , m_isItemValueRightAligned(isItemValueRightAligned)
    , m_isItemValueInvalid(isItemValueInvalid)
{
}

InfoboxListItem::~InfoboxListItem() = default;

QString InfoboxListItem::itemGroupTitle() const
{
    return m_itemGroupTitle;
}

void InfoboxListItem::setItemGroupTitle(QString itemGroupTitle)
{
    if (m_itemGroupTitle == itemGroupTitle) {
        return;
    }
    m_itemGroupTitle = itemGroupTitle;
    emit itemGroupTitleChanged();
}

QString InfoboxListItem::itemValueTitle() const
{
    return m_itemValueTitle;
}

void InfoboxListItem::setItemValueTitle(QString itemValueTitle)
{
    if (m_itemValueTitle == itemValueTitle) {
        return;
    }
    m_itemValueTitle = itemValueTitle;
    emit itemGroupTitleChanged();
}

QString InfoboxListItem::itemValue() const
{
    return m_itemValue;
}

void InfoboxListItem::setItemValue(QString itemValue)
{
    if (m_itemValue == itemValue) {
        return;
    }
    m_itemValue = itemValue;
    emit itemValueChanged();
}

bool InfoboxListItem::isGroupTitleBold() const
{
    return m_isGroupTitleBold;
}

void InfoboxListItem::setIsGroupTitleBold(bool isGroupTitleBold)
{
    if (m_isGroupTitleBold == isGroupTitleBold) {
        return;
    }
    m_isGroupTitleBold = isGroupTitleBold;
    emit isGroupTitleBoldChanged();
}

bool InfoboxListItem::isItemValueRightAligned() const
{
    return m_isItemValueRightAligned;
}

void InfoboxListItem::setIsItemValueRightAligned(bool isItemValueRightAligned)
{
    if (m_isItemValueRightAligned == isItemValueRightAligned) {
        return;
    }
    m_isItemValueRightAligned = isItemValueRightAligned;
    emit isItemValueRightAlignedChanged();
}

bool InfoboxListItem::isItemValueInvalid() const
{
    return m_isItemValueInvalid;
}

void InfoboxListItem::setIsItemValueInvalid(bool isItemValueInvalid)
{
    if (m_isItemValueInvalid == isItemValueInvalid) {
        return;
    }
    m_isItemValueInvalid = isItemValueInvalid;
    emit isItemValueInvalidChanged();
}

} // namespace Brimvale
