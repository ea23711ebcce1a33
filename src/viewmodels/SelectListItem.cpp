// SPDX-License-Identifier: BSD-3-Clause
#include "SelectListItem.h"

namespace Brimvale
{

SelectListItem::SelectListItem(QObject* parent)
    : QObject(parent)
    , m_dateSort(-1)
    , m_selected(false)
    , m_isProtected(false)
{
}

SelectListItem::SelectListItem(QObject* parent, QString name, QString date, long long dateSort,
                               QString additionalInformation, bool selected, bool isProtected)
    : QObject(parent)
    , m_name(name)
    , m_date(date)
    , m_dateSort(dateSort)
    , m_additionalInformation(additionalInformation)
    , m_selected(selected)
    , m_isProtected(isProtected)
{
}

SelectListItem::~SelectListItem() = default;

SelectListItem& SelectListItem::operator=(const SelectListItem& other)
{
    if (this == &other) {
        return *this;
    }
    m_name = other.m_name;
    m_date = other.m_date;
    m_dateSort = other.m_dateSort;
    m_additionalInformation = other.m_additionalInformation;
    m_selected = other.m_selected;
    m_isProtected = other.m_isProtected;
    return *this;
}

QString SelectListItem::name() const
{
    return m_name;
}

void SelectListItem::setName(QString name)
{
    if (m_name == name) {
        return;
    }
    m_name = name;
    emit nameChanged();
}

QString SelectListItem::date() const
{
    return m_date;
}

void SelectListItem::setDate(QString date)
{
    if (m_date == date) {
        return;
    }
    m_date = date;
    emit dateChanged();
}

long long SelectListItem::dateSort() const
{
    return m_dateSort;
}

void SelectListItem::setDateSort(long long dateSort)
{
    m_dateSort = dateSort;
}

QString SelectListItem::additionalInformation() const
{
    return m_additionalInformation;
}

void SelectListItem::setAdditionalInformation(QString additionalInformation)
{
    if (m_additionalInformation == additionalInformation) {
        return;
    }
    m_additionalInformation = additionalInformation;
    emit additionalInformationChanged();
}

bool SelectListItem::selected() const
{
    return m_selected;
}

void SelectListItem::setSelected(bool selected)
{
    if (m_selected == selected) {
        return;
    }
    m_selected = selected;
    emit selectedChanged();
}

bool SelectListItem::isProtected() const
{
    return m_isProtected;
}

void SelectListItem::setProtected(bool isProtected)
{
    if (m_isProtected == isProtected) {
        return;
    }
    m_isProtected = isProtected;
    emit isProtectedChanged();
}

} // namespace Brimvale
