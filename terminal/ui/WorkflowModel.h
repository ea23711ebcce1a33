// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WORKFLOWMODEL_H
#define BRIMVALE_WORKFLOWMODEL_H

#include "ui/ActionListModel.h"
#include "workflow/WorkflowRunner.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace Brimvale
{
namespace Terminal
{

/// What the terminal's screen shows of the workflow that the active plug-in runs, and the keys that take the place of
/// the plug-in's own meanwhile (context property "workflow").
///
/// The model is passive: the host sets what it shows, and presses of its keys are signalled by keys(). All of it is
/// used on the GUI thread.
class WorkflowModel : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(WorkflowModel)

    /// Whether a workflow runs; everything else counts only then.
    Q_PROPERTY(bool running READ running NOTIFY viewChanged)
    /// Whether the workflow takes only a band above the plug-in's screen, not its place.
    Q_PROPERTY(bool band READ band NOTIFY viewChanged)
    /// Name of the step; may be empty.
    Q_PROPERTY(QString title READ title NOTIFY viewChanged)
    /// Three lines of information.
    Q_PROPERTY(QStringList lines READ lines NOTIFY viewChanged)
    /// Picture of the step; an empty URL shows none.
    Q_PROPERTY(QUrl image READ image NOTIFY viewChanged)
    /// Whether the auxiliary light of the step is on.
    Q_PROPERTY(bool auxiliaryOn READ auxiliaryOn NOTIFY viewChanged)
    /// Result fields, objects with the properties of InfoValueUnit; null for none.
    Q_PROPERTY(QObject* result1 READ result1 NOTIFY viewChanged)
    Q_PROPERTY(QObject* result2 READ result2 NOTIFY viewChanged)
    /// What the workflow waits for; empty when that is the user.
    Q_PROPERTY(QString waiting READ waiting NOTIFY viewChanged)
    /// Why the step cannot go on by itself; empty when all is well.
    Q_PROPERTY(QString fault READ fault NOTIFY viewChanged)
    /// The marks of the steps, an object with the properties of Progressbar; null for none.
    Q_PROPERTY(QObject* progress READ progress NOTIFY progressChanged)
    /// The keys of the workflow. Constant; its rows change.
    Q_PROPERTY(Brimvale::Terminal::ActionListModel* keys READ keys CONSTANT)

public:
    explicit WorkflowModel(QObject* parent = nullptr);

    bool running() const { return m_view.running; }
    bool band() const { return m_view.screenType == WorkflowView::Band; }
    QString title() const { return m_view.title; }
    QStringList lines() const { return m_view.lines; }
    QUrl image() const;
    bool auxiliaryOn() const { return m_view.auxiliaryOn; }
    QObject* result1() const { return m_view.result1; }
    QObject* result2() const { return m_view.result2; }
    QString waiting() const { return m_view.waiting; }
    QString fault() const { return m_view.fault; }
    QObject* progress() const { return m_progress; }
    ActionListModel* keys() { return &m_keys; }
    /// Everything that can be read of it: title, lines, results ("Weighed in 125.4 g"), what is waited for, the fault.
    /// Empty while none runs.
    QStringList texts() const;

    /// Shows @p view.
    void setView(const WorkflowView& view);
    /// Shows the marks of @p progress, which stays the caller's; one that is destroyed disappears.
    void setProgress(QObject* progress);

signals:
    void viewChanged();
    void progressChanged();

private:
    WorkflowView m_view;
    QPointer<QObject> m_progress;
    ActionListModel m_keys;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WORKFLOWMODEL_H
