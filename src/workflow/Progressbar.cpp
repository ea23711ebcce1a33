// SPDX-License-Identifier: BSD-3-Clause
#include "Progressbar.h"

#include "ProgressbarItem.h"
#include "core/Logging.h"

#include <QPointer>

namespace Brimvale
{

Progressbar::Progressbar(QObject* parent, QList<QObject*>& model, int steps, bool isVisible)
    : QObject(parent)
    , m_model(model)
    , m_isVisible(isVisible)
    , m_steps(steps)
{
    qRegisterMetaType<QList<QObject*>>("QList<QObject*>");
}

Progressbar::~Progressbar()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QList<QObject*> Progressbar::model() const
{
    return m_model;
}

bool Progressbar::isVisible() const
{
    return m_isVisible;
}

int Progressbar::steps() const
{
    return m_steps;
}

void Progressbar::setIsVisible(bool isVisible)
{
    if (m_isVisible == isVisible) {
        return;
    }
    m_isVisible = isVisible;
    emit isVisibleChanged();
}

void Progressbar::setModel(const QList<QObject*>& model)
{
    if (m_model == model) {
        return;
    }
    m_model = model;
    emit modelChanged();
}

void Progressbar::setSteps(int steps)
{
    if (m_steps == steps) {
        return;
    }
    m_steps = steps;
    const QPointer<Progressbar> self(this);
    emit stepsChanged();
    if (self.isNull()) {
        return;
    }
    // The old marks stay children: a view may still hold them.
    m_model.clear();
    for (int step = 0; step < steps; ++step) {
        m_model.append(new ProgressbarItem(this, false));
    }
    emit modelChanged();
}

void Progressbar::setStepDone(int index, bool done)
{
    if (index < 0 || index >= m_model.size()) {
        return;
    }
    // A slot of the item's signal may destroy the bar.
    const QPointer<Progressbar> self(this);
    // The list holds nothing else.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-static-cast-downcast)
    static_cast<ProgressbarItem*>(m_model.at(index))->setIsDone(done);
    if (!self.isNull()) {
        emit modelChanged();
    }
}

void Progressbar::Reset()
{
    setSteps(0);
}

} // namespace Brimvale
