// SPDX-License-Identifier: BSD-3-Clause
#include "FormulationViewModel.h"

using Brimvale::MesswertInfo;
using Brimvale::WarnInfo;

namespace
{

MesswertInfo* makeMesswertInfo(QObject* parent)
{
    const QString none;
    return new MesswertInfo(
        parent,
        // main display: value, unit, visible, verification digit, valid, calculated, coarse, reduction
        none, none, true, 0, false, false, false, 0,
        // small display, which shows the weight in the vessel while a component is added
        none, none, false, 0, true, false, 0,
        // texts of the net and preset-tare marks, error text
        none, none, none,
        // bar graph, stability indicator
        0, -1,
        // visible: net, preset tare, bar graph, stability, all
        false, false, false, false, true);
}

} // namespace

bool FormulationViewModel::Component::operator==(const Component& other) const
{
    return name == other.name && remaining == other.remaining && lowerLimit == other.lowerLimit
           && target == other.target && upperLimit == other.upperLimit && coarse == other.coarse
           && fine == other.fine && level == other.level;
}

FormulationViewModel::FormulationViewModel()
    : m_messwertInfo(makeMesswertInfo(this))
    , m_warnInfo(new WarnInfo(this, QString(), QString(), false, false))
{
    translateTexts();
}

void FormulationViewModel::choose(int recipe)
{
    emit chosen(recipe);
}

void FormulationViewModel::setPage(Page page)
{
    if (m_page != page) {
        m_page = page;
        emit pageChanged();
    }
}

void FormulationViewModel::setRecipes(const QList<QObject*>& recipes, int current)
{
    if (m_recipes != recipes || m_currentRecipe != current) {
        m_recipes = recipes;
        m_currentRecipe = current;
        emit recipesChanged();
    }
}

void FormulationViewModel::setTexts(const QString& title, const QString& text)
{
    if (m_title != title || m_text != text) {
        m_title = title;
        m_text = text;
        emit textsChanged();
    }
}

void FormulationViewModel::setMessage(const QString& message, Severity severity)
{
    if (m_message != message || m_severity != severity) {
        m_message = message;
        m_severity = severity;
        emit messageChanged();
    }
}

void FormulationViewModel::setComponent(const Component& component)
{
    if (!(m_component == component)) {
        m_component = component;
        emit dosingChanged();
    }
}

void FormulationViewModel::translateTexts()
{
    m_messwertInfo->setNetText(tr("NET"));
    m_messwertInfo->setPtText(tr("PT"));
    m_warnInfo->translateText();
}
