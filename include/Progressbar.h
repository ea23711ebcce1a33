// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROGRESSBAR_H
#define BRIMVALE_PROGRESSBAR_H

#include "SharedLibsGlobal.h"

#include <QList>
#include <QObject>

namespace Brimvale
{

/// The progress of a workflow as a row of step marks (`ProgressbarItem`), which a screen binds to.
class BRIMVALE_EXPORT Progressbar : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Progressbar)
    Q_PROPERTY(QList<QObject*> model READ model NOTIFY modelChanged)
    Q_PROPERTY(bool isVisible READ isVisible NOTIFY isVisibleChanged)
    Q_PROPERTY(int steps READ steps NOTIFY stepsChanged)

public:
    /// Makes a bar on the list `model`, which stays the caller's, is changed by the bar and must outlive it. The list
    /// is used as it is, even when its length is not `steps`. `parent` owns the bar.
    Progressbar(QObject* parent, QList<QObject*>& model, int steps, bool isVisible);
    ~Progressbar() override;

    /// A copy of the list of marks.
    QList<QObject*> model() const;

    /// Whether the bar is shown.
    bool isVisible() const;

    /// The count of steps.
    int steps() const;

    /// Shows or hides the bar; emits `isVisibleChanged()` on change.
    void setIsVisible(bool isVisible);

    /// Replaces the contents of the list; emits `modelChanged()` unless it holds the same objects in the same order.
    /// The objects must be `ProgressbarItem`s and are not owned.
    void setModel(const QList<QObject*>& model);

    /// Sets the count of steps and, when it changes, fills the list with as many new marks, none done: emits
    /// `stepsChanged()`, then `modelChanged()`. The bar owns the marks; those that were in the list before live until
    /// the bar is destroyed. A negative count gives an empty list.
    void setSteps(int steps);

    /// Marks a step as done or not and emits `modelChanged()`, also when the mark does not change. A number that is
    /// not in the list is ignored.
    void setStepDone(int index, bool done);

    /// Sets the count of steps to 0.
    void Reset();

signals:
    /// \name Changes of the properties
    /// Each is emitted after the value of its property was set, as the setter says.
    ///@{
    void modelChanged();
    void isVisibleChanged();
    void stepsChanged();
    ///@}

private:
    QList<QObject*>& m_model;
    bool m_isVisible;
    int m_steps;
};

} // namespace Brimvale

#endif
