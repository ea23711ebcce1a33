// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WORKFLOWSCREEN_H
#define BRIMVALE_WORKFLOWSCREEN_H

#include "IWorkflowScreen.h"
#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

class InfoValueUnit;

/// The description of one screen of a workflow.
///
/// Its six texts are held by pointer and read when they are asked for, so that a change of language shows without
/// notification: they belong to the plug-in and must outlive the screen. A null pointer reads as an empty text. Type,
/// button texts, image and auxiliary switch cannot be changed.
class BRIMVALE_EXPORT WorkflowScreen : public QObject, public IWorkflowScreen
{
    Q_OBJECT
    Q_DISABLE_COPY(WorkflowScreen)
    Q_INTERFACES(Brimvale::IWorkflowScreen)

public:
    /// The six texts of a screen in one record. Mind the order of the buttons: from right to left.
    struct ScreenTexte
    {
        QString infoTextLine1;    ///< first line of the instruction
        QString infoTextLine2;    ///< second line
        QString infoTextLine3;    ///< third line
        QString rightButtonText;  ///< text of the right button
        QString centerButtonText; ///< text of the middle button
        QString leftButtonText;   ///< text of the left button
    };

    /// Makes a screen of single texts; any of them may be null. `parent` owns the screen.
    WorkflowScreen(QObject* parent, int screenType, QString* leftButtonText, QString* centerButtonText,
                   QString* rightButtonText, QString image, int auxiliaryOn, QString* infoTextLine1,
                   QString* infoTextLine2, QString* infoTextLine3);

    /// Makes a screen of the texts in `texts`, which is not copied, must not be null and must outlive the screen.
    WorkflowScreen(QObject* parent, int screenType, ScreenTexte* texts, QString image, int auxiliaryOn);

    ~WorkflowScreen() override;

    int screenType() const override;
    QString leftButtonText() override;
    QString centerButtonText() override;
    QString rightButtonText() override;
    QString image() const override;
    int auxiliaryOn() const override;
    QString infoTextLine1() override;
    void setInfoTextLine1(QString* text) override;
    QString infoTextLine2() override;
    void setInfoTextLine2(QString* text) override;
    QString infoTextLine3() override;
    void setInfoTextLine3(QString* text) override;
    InfoValueUnit* getResult1() override;
    void setResult1(InfoValueUnit* result) override;
    InfoValueUnit* getResult2() override;
    void setResult2(InfoValueUnit* result) override;

private:
    int m_screenType;
    QString* m_infoTextLine1;
    QString* m_infoTextLine2;
    QString* m_infoTextLine3;
    QString* m_leftButtonText;
    QString* m_centerButtonText;
    QString* m_rightButtonText;
    QString m_image;
    int m_auxiliaryOn;
    InfoValueUnit* m_result1; ///< a child
    InfoValueUnit* m_result2; ///< a child
};

} // namespace Brimvale

#endif
