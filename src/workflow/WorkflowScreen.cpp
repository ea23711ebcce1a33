// SPDX-License-Identifier: BSD-3-Clause
#include "WorkflowScreen.h"

#include "InfoValueUnit.h"
#include "core/Logging.h"

#include <utility>

namespace Brimvale
{

namespace
{

QString textBehind(const QString* text)
{
    return text == nullptr ? QString() : *text;
}

InfoValueUnit* makeResult(QObject* parent)
{
    return new InfoValueUnit(parent, false, QString(), QString(), QString());
}

void copyResult(InfoValueUnit* to, const InfoValueUnit* from)
{
    to->setVisble(from->isVisible());
    to->setInfo(from->info());
    to->setValue(from->value());
    to->setUnit(from->unit());
}

} // namespace

WorkflowScreen::WorkflowScreen(QObject* parent, int screenType, QString* leftButtonText,
                               QString* centerButtonText, QString* rightButtonText, QString image,
                               int auxiliaryOn, QString* infoTextLine1, QString* infoTextLine2,
                               QString* infoTextLine3)
    : QObject(parent)
    , m_screenType(screenType)
    , m_infoTextLine1(infoTextLine1)
    , m_infoTextLine2(infoTextLine2)
    , m_infoTextLine3(infoTextLine3)
    , m_leftButtonText(leftButtonText)
    , m_centerButtonText(centerButtonText)
    , m_rightButtonText(rightButtonText)
    , m_image(std::move(image))
    , m_auxiliaryOn(auxiliaryOn)
    , m_result1(makeResult(this))
    , m_result2(makeResult(this))
{
}

WorkflowScreen::WorkflowScreen(QObject* parent, int screenType, ScreenTexte* texts, QString image,
                               int auxiliaryOn)
    : WorkflowScreen(parent, screenType, &texts->leftButtonText, &texts->centerButtonText,
                     &texts->rightButtonText, std::move(image), auxiliaryOn, &texts->infoTextLine1,
                     &texts->infoTextLine2, &texts->infoTextLine3)
{
}

WorkflowScreen::~WorkflowScreen()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

int WorkflowScreen::screenType() const
{
    return m_screenType;
}

QString WorkflowScreen::leftButtonText()
{
    return textBehind(m_leftButtonText);
}

QString WorkflowScreen::centerButtonText()
{
    return textBehind(m_centerButtonText);
}

QString WorkflowScreen::rightButtonText()
{
    return textBehind(m_rightButtonText);
}

QString WorkflowScreen::image() const
{
    return m_image;
}

int WorkflowScreen::auxiliaryOn() const
{
    return m_auxiliaryOn;
}

QString WorkflowScreen::infoTextLine1()
{
    return textBehind(m_infoTextLine1);
}

void WorkflowScreen::setInfoTextLine1(QString* text)
{
    m_infoTextLine1 = text;
}

QString WorkflowScreen::infoTextLine2()
{
    return textBehind(m_infoTextLine2);
}

void WorkflowScreen::setInfoTextLine2(QString* text)
{
    m_infoTextLine2 = text;
}

QString WorkflowScreen::infoTextLine3()
{
    return textBehind(m_infoTextLine3);
}

void WorkflowScreen::setInfoTextLine3(QString* text)
{
    m_infoTextLine3 = text;
}

InfoValueUnit* WorkflowScreen::getResult1()
{
    return m_result1;
}

void WorkflowScreen::setResult1(InfoValueUnit* result)
{
    copyResult(m_result1, result);
}

InfoValueUnit* WorkflowScreen::getResult2()
{
    return m_result2;
}

void WorkflowScreen::setResult2(InfoValueUnit* result)
{
    copyResult(m_result2, result);
}

} // namespace Brimvale
