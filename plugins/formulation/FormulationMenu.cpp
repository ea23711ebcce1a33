// SPDX-License-Identifier: BSD-3-Clause
#include "FormulationMenu.h"

#include "FormulationPlugin.h"

using namespace Brimvale;

namespace
{

// What stands in the menu file, for the translation.
[[maybe_unused]] constexpr const char* MenuTexts[] = {
    QT_TRANSLATE_NOOP("FormulationMenu", "Recipe"),
    QT_TRANSLATE_NOOP("FormulationMenu", "Default tolerance"),
    QT_TRANSLATE_NOOP("FormulationMenu", "Refuse what is out of tolerance"),
};

constexpr double MinimumTolerance = 0.01;

} // namespace

FormulationMenu::FormulationMenu(FormulationPlugin* plugin)
    : MenuListBase(plugin)
    , m_plugin(plugin)
{
    m_menuFilePath = QStringLiteral(":/formulation/menu.json");
}

QString FormulationMenu::GetMenuName()
{
    return tr("Formulation");
}

bool FormulationMenu::IsItemVisible(int id, ListModel* model)
{
    Q_UNUSED(id)
    Q_UNUSED(model)
    return true;
}

bool FormulationMenu::IsItemEnabled(int id, ListModel* model)
{
    Q_UNUSED(model)
    // A batch keeps the recipe that it began with.
    return id == FormulationPlugin::ToleranceEnforced || m_plugin->isRecipeFree();
}

QVariant FormulationMenu::GetItemValue(int id)
{
    return m_plugin->setting(id);
}

bool FormulationMenu::SetItemValue(int id, QVariant value)
{
    if (!IsItemValueValid(id, value)) {
        return false;
    }
    m_plugin->SetProfileItem(id, value, QString()); // stores it and calls ApplyProfileItem()
    return true;
}

QString FormulationMenu::GetItemText(int id)
{
    Q_UNUSED(id)
    return QString(); // that of the menu file
}

QString FormulationMenu::GetItemUnit(int id)
{
    return id == FormulationPlugin::DefaultTolerance ? QStringLiteral("%") : QString();
}

bool FormulationMenu::GetItemRange(int id, double* minimum, double* maximum)
{
    if (id != FormulationPlugin::DefaultTolerance) {
        return false;
    }
    *minimum = MinimumTolerance;
    *maximum = RecipeFile::MaximumTolerance;
    return true;
}

bool FormulationMenu::IsItemValueValid(int id, QVariant value)
{
    switch (id) {
    case FormulationPlugin::ChosenRecipe:
        return m_plugin->recipeNames().contains(value.toString());
    case FormulationPlugin::DefaultTolerance:
        return value.toDouble() >= MinimumTolerance && value.toDouble() <= RecipeFile::MaximumTolerance;
    default:
        return true;
    }
}

void FormulationMenu::OnItemValueChanged(int id)
{
    Q_UNUSED(id)
}

QPair<QString, QString> FormulationMenu::defineSelectionList(int id)
{
    if (id != FormulationPlugin::ChosenRecipe) {
        return {};
    }
    const QString names = m_plugin->recipeNames().join(QLatin1Char(';'));
    return {names, names}; // names of recipes are the same in every language
}
