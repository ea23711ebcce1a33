// SPDX-License-Identifier: BSD-3-Clause
#ifndef FORMULATIONVIEWMODEL_H
#define FORMULATIONVIEWMODEL_H

#include <QList>
#include <QObject>
#include <QString>

#include <MesswertInfo.h>
#include <WarnInfo.h>

/// What the screen shows. The host publishes it as "formulation"; the terminal's main display follows `messwertInfo`.
class FormulationViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Brimvale::MesswertInfo* messwertInfo READ messwertInfo CONSTANT)
    Q_PROPERTY(Page page READ page NOTIFY pageChanged)
    Q_PROPERTY(QList<QObject*> recipes READ recipes NOTIFY recipesChanged)
    Q_PROPERTY(int currentRecipe READ currentRecipe NOTIFY recipesChanged)
    Q_PROPERTY(QString title READ title NOTIFY textsChanged)
    Q_PROPERTY(QString text READ text NOTIFY textsChanged)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)
    Q_PROPERTY(Severity severity READ severity NOTIFY messageChanged)
    Q_PROPERTY(QString componentName READ componentName NOTIFY dosingChanged)
    Q_PROPERTY(QString remaining READ remaining NOTIFY dosingChanged)
    Q_PROPERTY(QString lowerLimit READ lowerLimit NOTIFY dosingChanged)
    Q_PROPERTY(QString target READ target NOTIFY dosingChanged)
    Q_PROPERTY(QString upperLimit READ upperLimit NOTIFY dosingChanged)
    Q_PROPERTY(double coarse READ coarse NOTIFY dosingChanged)
    Q_PROPERTY(double fine READ fine NOTIFY dosingChanged)
    Q_PROPERTY(Level level READ level NOTIFY dosingChanged)

public:
    enum Page
    {
        Selection,   ///< the recipes, one of which is chosen
        Interrupted, ///< a batch was not finished
        Dosing       ///< a component is being added
    };
    Q_ENUM(Page)

    enum Severity
    {
        Info,
        Attention,
        Wrong
    };
    Q_ENUM(Severity)

    /// How much of the component is there.
    enum Level
    {
        NoWeight,
        TooLittle,
        Within,
        TooMuch
    };
    Q_ENUM(Level)

    /// The fine bar reaches from the target less this many tolerances to the target and as many.
    static constexpr double FineRange = 4.0;

    struct Component
    {
        QString name;
        QString remaining; ///< Up to the target, without sign and unit.
        QString lowerLimit;
        QString target;
        QString upperLimit;
        double coarse = 0.0; ///< Of the target, 0 to 1.
        double fine = 0.0;   ///< In the fine bar, 0 to 1: the target is at 0.5.
        Level level = NoWeight;

        bool operator==(const Component& other) const;
    };

    FormulationViewModel();

    Brimvale::MesswertInfo* messwertInfo() const { return m_messwertInfo; }

    /// Found by name: the base feeds the host's calibration and levelling warnings into the returned object.
    Q_INVOKABLE Brimvale::WarnInfo* warnInfo() const { return m_warnInfo; }

    /// Chooses a recipe, as the screen does when one is touched.
    Q_INVOKABLE void choose(int recipe);

    Page page() const { return m_page; }
    void setPage(Page page);

    /// The entries, `SelectListItem` objects that are not owned.
    QList<QObject*> recipes() const { return m_recipes; }
    int currentRecipe() const { return m_currentRecipe; }
    void setRecipes(const QList<QObject*>& recipes, int current);

    QString title() const { return m_title; }
    QString text() const { return m_text; }
    void setTexts(const QString& title, const QString& text);

    QString message() const { return m_message; }
    Severity severity() const { return m_severity; }
    void setMessage(const QString& message, Severity severity);

    QString componentName() const { return m_component.name; }
    QString remaining() const { return m_component.remaining; }
    QString lowerLimit() const { return m_component.lowerLimit; }
    QString target() const { return m_component.target; }
    QString upperLimit() const { return m_component.upperLimit; }
    double coarse() const { return m_component.coarse; }
    double fine() const { return m_component.fine; }
    Level level() const { return m_component.level; }
    void setComponent(const Component& component);

    void translateTexts();

signals:
    void pageChanged();
    void recipesChanged();
    void textsChanged();
    void messageChanged();
    void dosingChanged();
    /// The user has chosen a recipe.
    void chosen(int recipe);

private:
    Brimvale::MesswertInfo* m_messwertInfo; ///< a child
    Brimvale::WarnInfo* m_warnInfo;         ///< a child
    Page m_page = Selection;
    QList<QObject*> m_recipes;
    int m_currentRecipe = -1;
    QString m_title;
    QString m_text;
    QString m_message;
    Severity m_severity = Info;
    Component m_component;
};

#endif
