// SPDX-License-Identifier: BSD-3-Clause
#include "MenuListBase.h"

#include "ISystem.h"

namespace Brimvale
{

MenuListBase::MenuListBase(QObject* parent)
    : QObject(parent)
{
}

MenuListBase::~MenuListBase() = default;

void MenuListBase::initMenuListBase(ISystem* system)
{
    m_system = system;
}

QString MenuListBase::GetMenuFilePath()
{
    return m_menuFilePath;
}

void MenuListBase::SetMenuName(QString name)
{
    Q_UNUSED(name)
}

QString MenuListBase::GetAddonMenuName()
{
    return QString();
}

bool MenuListBase::IsItemBoolValueAllowedToToggle(int id, ListModel* model)
{
    Q_UNUSED(id)
    Q_UNUSED(model)
    return true;
}

QPair<QString, QString> MenuListBase::defineSelectionList(int id)
{
    Q_UNUSED(id)
    return {};
}

bool MenuListBase::GetSelectionList(int id, QStringList* names, QStringList* values)
{
    const QPair<QString, QString> definition = defineSelectionList(id);
    if (definition.first.isEmpty()) {
        return false;
    }
    *names = definition.first.split(QLatin1Char(';'));
    *values = definition.second.split(QLatin1Char(';'));
    return true;
}

int MenuListBase::GetSelectionListDataPtr(int id, QString value)
{
    Q_UNUSED(id)
    Q_UNUSED(value)
    return -1;
}

QString MenuListBase::GetUniqueNameFromIndexInSelectionList(int id, int index)
{
    Q_UNUSED(id)
    Q_UNUSED(index)
    return QString();
}

int MenuListBase::GetIndexFromUniqueNameInSelectionList(int id, QString name)
{
    Q_UNUSED(id)
    Q_UNUSED(name)
    return -1;
}

QString MenuListBase::GetHelpFilePath(int id)
{
    Q_UNUSED(id)
    return QString();
}

bool MenuListBase::GetMenuItemList(QList<MenuItem>* items)
{
    return m_system->GetMenuItemList(m_menuFilePath, items);
}

bool MenuListBase::GetMenuItemById(int id, MenuItem* item)
{
    return m_system->GetMenuItemById(m_menuFilePath, id, item);
}

void MenuListBase::ExecuteCommand(int id, ListModel* model)
{
    Q_UNUSED(id)
    Q_UNUSED(model)
}

void MenuListBase::SetPluginManager(IPluginManager* manager)
{
    Q_UNUSED(manager)
}

void MenuListBase::OnCustomizeButton(int id)
{
    Q_UNUSED(id)
}

void MenuListBase::OnCustomizeString(QObject* object, int id)
{
    Q_UNUSED(object)
    Q_UNUSED(id)
}

} // namespace Brimvale
