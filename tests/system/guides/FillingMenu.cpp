// SPDX-License-Identifier: BSD-3-Clause
#include "FillingMenu.h"

// clang-format off
// guide: source
using namespace Brimvale;

FillingMenu::FillingMenu(SettingsProfile& profile, IProfileAccess& access, QObject* parent)
    : MenuListBase(parent), m_profile(profile), m_access(access)
{
    m_menuFilePath = QStringLiteral(":/filling/menu.json");
}

QString FillingMenu::GetMenuName() { return tr("Filling"); }
bool FillingMenu::IsItemVisible(int, ListModel*) { return true; }
bool FillingMenu::IsItemEnabled(int, ListModel*) { return true; }

// The values live in the profile of the plug-in.
QVariant FillingMenu::GetItemValue(int id) { return m_profile.GetProfileItem(id); }

bool FillingMenu::SetItemValue(int id, QVariant value)
{
    if (!IsItemValueValid(id, value))
        return false;
    m_access.SetProfileItem(id, value, GetItemText(id)); // stores it and calls ApplyProfileItem()
    return true;
}

// An empty text: that of the menu file is shown, translated in its "context".
QString FillingMenu::GetItemText(int) { return QString(); }

QString FillingMenu::GetItemUnit(int id) { return id == Target ? QStringLiteral("g") : QString(); }

bool FillingMenu::GetItemRange(int id, double* minimum, double* maximum)
{
    if (id != Target)
        return false;
    *minimum = 1.0;
    *maximum = 1000.0;
    return true;
}

bool FillingMenu::IsItemValueValid(int id, QVariant value)
{
    return id != Target || (value.toDouble() >= 1.0 && value.toDouble() <= 1000.0);
}

void FillingMenu::OnItemValueChanged(int) {}

// Names and values, each joined by ";". The values are stored: they are the same in every language.
QPair<QString, QString> FillingMenu::defineSelectionList(int id)
{
    if (id != Mode)
        return {};
    return {tr("Coarse") + QLatin1Char(';') + tr("Fine"), QStringLiteral("coarse;fine")};
}

void FillingMenu::ExecuteCommand(int id, ListModel*)
{
    if (id == ClearBatch)
        m_access.SetProfileItem(Batch, QString(), QString());
}
// guide: end

// guide: texts
[[maybe_unused]] constexpr const char* MenuTexts[] = {
    QT_TRANSLATE_NOOP("FillingMenu", "Target weight"),
    QT_TRANSLATE_NOOP("FillingMenu", "Clear the name of the batch?"),
};
// guide: end
// clang-format on
