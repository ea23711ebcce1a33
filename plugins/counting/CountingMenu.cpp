// SPDX-License-Identifier: BSD-3-Clause
#include "CountingMenu.h"

#include "CountingSettings.h"
#include "CountingViewModel.h"

#include <IProfileAccess.h>
#include <SettingsProfile.h>

using namespace Brimvale;

namespace
{

// The texts of the menu file, for lupdate.
[[maybe_unused]] constexpr const char* MenuTexts[] = {
    QT_TRANSLATE_NOOP("CountingMenu", "Usual count"),
    QT_TRANSLATE_NOOP("CountingMenu", "Optimise by itself"),
    QT_TRANSLATE_NOOP("CountingMenu", "Delete reference"),
    QT_TRANSLATE_NOOP("CountingMenu", "Delete the reference?"),
};

} // namespace

CountingMenu::CountingMenu(SettingsProfile& profile, IProfileAccess& access, const CountingSettings& settings,
                           QObject* parent)
    : MenuListBase(parent)
    , m_profile(profile)
    , m_access(access)
    , m_settings(settings)
{
    m_menuFilePath = QStringLiteral(":/counting/menu.json");
}

QString CountingMenu::GetMenuName()
{
    return tr("Counting");
}

bool CountingMenu::IsItemVisible(int id, ListModel* model)
{
    Q_UNUSED(id)
    Q_UNUSED(model)
    return true;
}

bool CountingMenu::IsItemEnabled(int id, ListModel* model)
{
    Q_UNUSED(model)
    return id != DeleteReference || m_settings.reference().isValid();
}

QVariant CountingMenu::GetItemValue(int id)
{
    return m_profile.GetProfileItem(id);
}

bool CountingMenu::SetItemValue(int id, QVariant value)
{
    if (!IsItemValueValid(id, value)) {
        return false;
    }
    m_access.SetProfileItem(id, value, GetItemText(id));
    return true;
}

QString CountingMenu::GetItemText(int id)
{
    Q_UNUSED(id)
    return QString(); // that of the menu file
}

QString CountingMenu::GetItemUnit(int id)
{
    return id == UsualCount ? CountingViewModel::pieceUnit() : QString();
}

bool CountingMenu::GetItemRange(int id, double* minimum, double* maximum)
{
    if (id != UsualCount) {
        return false;
    }
    *minimum = 1.0;
    *maximum = PieceReference::LargestCount;
    return true;
}

bool CountingMenu::IsItemValueValid(int id, QVariant value)
{
    if (id == UsualCount) {
        bool isNumber = false;
        const int count = value.toInt(&isNumber);
        return isNumber && count >= 1 && count <= PieceReference::LargestCount;
    }
    return id == OptimiseByItself;
}

void CountingMenu::OnItemValueChanged(int id)
{
    Q_UNUSED(id) // the profile has put it into effect
}

void CountingMenu::ExecuteCommand(int id, ListModel* model)
{
    Q_UNUSED(model)
    if (id == DeleteReference) {
        emit deleteReferenceRequested();
    }
}
