// SPDX-License-Identifier: BSD-3-Clause
#include "ui/WorkflowModel.h"

#include "ui/InstrumentModel.h"

namespace Brimvale
{
namespace Terminal
{

WorkflowModel::WorkflowModel(QObject* parent)
    : QObject(parent)
{
}

QUrl WorkflowModel::image() const
{
    return InstrumentModel::urlFromPath(m_view.image);
}

QStringList WorkflowModel::texts() const
{
    QStringList texts = QStringList{m_view.title} + m_view.lines;
    for (const QObject* const result : {m_view.result1.data(), m_view.result2.data()}) {
        if (result != nullptr && result->property("isVisible").toBool()) {
            texts.append(result->property("info").toString() + QLatin1Char(' ')
                         + result->property("value").toString() + QLatin1Char(' ')
                         + result->property("unit").toString());
        }
    }
    texts << m_view.waiting << m_view.fault;
    texts.removeAll(QString());
    return texts;
}

void WorkflowModel::setView(const WorkflowView& view)
{
    if (m_view != view) {
        m_view = view;
        emit viewChanged();
    }
}

void WorkflowModel::setProgress(QObject* progress)
{
    if (m_progress != progress) {
        m_progress = progress;
        emit progressChanged();
    }
}

} // namespace Terminal
} // namespace Brimvale
