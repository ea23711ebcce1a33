// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SETTINGSMODEL_H
#define BRIMVALE_SETTINGSMODEL_H

#include "menu/PluginMenu.h"

#include <QAbstractListModel>
#include <QMap>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <QVector>

#include <optional>

namespace Brimvale
{

class IPlugin;
class SelectListItem;

namespace Terminal
{

class MenuStore;
class Notices;
class PluginProfiles;

/// Whose settings are shown; nothing is owned.
struct SettingsSubject
{
    IPlugin* plugin = nullptr;
    QObject* object = nullptr; ///< The object of the plug-in.
    QString identifier;
    QString name; ///< Display name, for messages.
};

/// The settings screen: the menu of the active plug-in, one page of it at a time, and the dialog that is open.
///
/// The items come from the menu file, everything else from the plug-in's IMenuList. The rows are the visible items of
/// the page. What the person does arrives here; a script calls the same operations. A change goes this way:
/// IsItemValueValid(), SetItemValue(), GetItemValue() for what the plug-in has made of it, IProfileAccess::
/// SetProfileItem(), OnItemValueChanged(); then every item whose value is another one than before is stored.
///
/// Operations return the empty text, or why nothing was done. An exception of the plug-in is told as a notice and
/// counts as a refusal. The plug-in may close itself in any call.
class SettingsModel : public QAbstractListModel
{
    Q_OBJECT
    Q_DISABLE_COPY(SettingsModel)

    /// Whether the active plug-in has a menu.
    Q_PROPERTY(bool available READ isAvailable NOTIFY availableChanged)
    /// Whether the screen is shown.
    Q_PROPERTY(bool open READ isOpen NOTIFY openChanged)
    /// Title of the page, and of the page above it (empty at the top).
    Q_PROPERTY(QString title READ title NOTIFY pageChanged)
    Q_PROPERTY(QString parentTitle READ parentTitle NOTIFY pageChanged)
    /// The dialog that is open: "number", "text", "selection", "confirmation", "help"; empty for none.
    Q_PROPERTY(QString dialog READ dialog NOTIFY dialogChanged)
    Q_PROPERTY(QString dialogTitle READ dialogTitle NOTIFY dialogChanged)
    /// What is entered at first, what is asked, or the help text.
    Q_PROPERTY(QString dialogText READ dialogText NOTIFY dialogChanged)
    Q_PROPERTY(QString dialogUnit READ dialogUnit NOTIFY dialogChanged)
    /// The range of the number, as "1 … 500"; empty for none.
    Q_PROPERTY(QString dialogRange READ dialogRange NOTIFY dialogChanged)
    /// Places that the number may have behind the point.
    Q_PROPERTY(int dialogDecimals READ dialogDecimals NOTIFY dialogChanged)
    /// Whether the number may be below 0.
    Q_PROPERTY(bool dialogSigned READ isDialogSigned NOTIFY dialogChanged)
    /// The most characters of the text.
    Q_PROPERTY(int dialogMaximumLength READ dialogMaximumLength NOTIFY dialogChanged)
    /// Format of the help text: "plain", "markdown" or "rich".
    Q_PROPERTY(QString dialogFormat READ dialogFormat NOTIFY dialogChanged)
    /// Why the last entry was refused; empty when none was.
    Q_PROPERTY(QString dialogError READ dialogError NOTIFY dialogErrorChanged)
    /// The entries of the selection, SelectListItem objects.
    Q_PROPERTY(QList<QObject*> dialogChoices READ dialogChoices NOTIFY dialogChanged)

public:
    enum Role
    {
        ItemIdRole = Qt::UserRole + 1,
        KindRole,
        TextRole,
        ValueTextRole,
        UnitRole,
        CheckedRole,
        ChangeableRole, ///< Whether a tap does something.
        HelpRole        ///< Whether there is a help text.
    };
    Q_ENUM(Role)

    /// Nothing is owned, everything must outlive the model.
    SettingsModel(MenuStore& menus, PluginProfiles& profiles, Notices& notices, QObject* parent = nullptr);
    ~SettingsModel() override;

    /// Another plug-in is at work, or none: the screen is closed.
    void setSubject(const SettingsSubject& subject);

    /// The language has changed: all texts are asked for anew.
    void setLanguage(const QString& language);

    // QAbstractListModel
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    bool isAvailable() const { return m_menu.isAvailable(); }
    bool isOpen() const { return m_open; }
    QString title() const { return m_title; }
    QString parentTitle() const { return m_parentTitle; }
    QString dialog() const { return m_dialog.name; }
    /// The item that the dialog is about; 0 for none.
    int dialogItem() const { return m_dialog.id; }
    QString dialogTitle() const { return m_dialog.title; }
    QString dialogText() const { return m_dialog.text; }
    QString dialogUnit() const { return m_dialog.unit; }
    QString dialogRange() const { return m_dialog.range; }
    int dialogDecimals() const { return m_dialog.decimals; }
    bool isDialogSigned() const { return m_dialog.isSigned; }
    int dialogMaximumLength() const { return m_dialog.maximumLength; }
    QString dialogFormat() const { return m_dialog.format; }
    QString dialogError() const { return m_dialogError; }
    QList<QObject*> dialogChoices() const;

    /// Shows the top of the menu.
    Q_INVOKABLE QString openScreen();
    Q_INVOKABLE void closeScreen();
    /// Closes the dialog, or goes to the page above, or closes the screen.
    Q_INVOKABLE void back();

    /// A tap on the row of an item of this page: enters a menu, switches a yes/no, opens the dialog of the others, or
    /// runs a command that asks for no confirmation.
    Q_INVOKABLE QString press(int id);

    /// Opens the help text of an item.
    Q_INVOKABLE QString showHelp(int id);

    /// The number or the text was entered. The dialog stays open when it is refused.
    Q_INVOKABLE QString enter(const QString& text);
    /// The entry @p index of the selection was chosen.
    Q_INVOKABLE QString choose(int index);
    /// The command was confirmed.
    Q_INVOKABLE QString confirm();
    /// Something else is entered than what was refused.
    Q_INVOKABLE void clearDialogError() { setDialogError(QString()); }
    /// The dialog was left.
    Q_INVOKABLE void cancel();

    // For scripts.

    /// Goes to the page of the item and sets it as a person would: a yes/no to "on" or "off", a selection to one of
    /// its names or values, the others to the text.
    QString set(int id, const QString& text);
    /// Goes to the page of the item and taps it.
    QString pressAnywhere(int id);
    /// The value of a visible item as the screen shows it, with the unit; of a menu or a command its text.
    std::optional<QString> shownText(int id);

signals:
    void availableChanged();
    void openChanged();
    void pageChanged();
    void dialogChanged();
    void dialogErrorChanged();

private:
    struct Row
    {
        int id = 0;
        QString kind;
        QString text;
        QString valueText;
        QString unit;
        bool checked = false;
        bool changeable = false;
        bool hasHelp = false;

        bool operator==(const Row& other) const;
    };
    struct Dialog
    {
        QString name;
        int id = 0;
        QString title;
        QString text;
        QString unit;
        QString range;
        QString format;
        int decimals = 0;
        bool isSigned = false;
        int maximumLength = 0;
    };

    Row row(const MenuItem& item);
    QVector<Row> rows();

    void refresh();
    void showPage(int id);
    QString goTo(int id);
    QString refusalOf(int id);
    void openDialog(const MenuItem& item);
    Dialog dialogOf(const MenuItem& item);
    void setDialog(const Dialog& dialog);
    QString setDialogError(const QString& error);
    void closeDialog(bool entered, QString text);
    QString change(const MenuItem& item, const QVariant& value);
    QString execute(const MenuItem& item);
    void storeChanges(const QMap<int, QVariant>& before, const QMap<int, QVariant>& set);

    PluginMenu m_menu;
    MenuStore& m_menus;
    PluginProfiles& m_profiles;
    Notices& m_notices;
    SettingsSubject m_subject;
    QPointer<QObject> m_object;
    QString m_language;
    bool m_open = false;
    int m_page = 0; ///< Id of the menu that is shown; 0 is the top.
    QString m_title;
    QString m_parentTitle;
    QVector<Row> m_rows;
    Dialog m_dialog;
    QString m_dialogError;
    QVector<SelectListItem*> m_choices; ///< Children of the model.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SETTINGSMODEL_H
