// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINPROFILES_H
#define BRIMVALE_PLUGINPROFILES_H

#include "host/MenuItem.h"

#include <QCoreApplication>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace Brimvale
{

class IMenuList;
class IPlugin;
class IPluginManager;

namespace Terminal
{

class MenuFile;
class MenuStore;
class Notices;
class StatusInfo;
class StoredParameters;

/// The entries of a selection: as many values as names.
struct MenuSelection
{
    QStringList names;
    QStringList values;
};

/// Keeps what the person sets in the menus of plug-ins, and hands it to them.
///
/// A value is stored as a parameter of the plug-in: under the owner, the plug-in's identifier as the profile, the path
/// of the menu file and the number of the item. So a plug-in can also ask for it with ISystem::GetStoredParameter().
/// The menu file says what kind of value an item has, and which one holds while none is stored. Where a menu has a unique
/// name for the entry of a selection, that name is stored in place of the value, so that the choice outlives a change of
/// the language or of the order of the entries.
class PluginProfiles
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::PluginProfiles)
    Q_DISABLE_COPY(PluginProfiles)

public:
    /// Nothing is owned, everything must outlive the object.
    PluginProfiles(MenuStore& menus, StoredParameters& parameters, const StatusInfo& statusInfo,
                   Notices& notices);

    /// Puts the values into the profile of a plug-in that has just been initialised, in the order of their numbers. A
    /// stored value that the menu does not accept is left out, and told; the default stands in for it.
    void load(IPlugin& plugin, const QString& identifier, IPluginManager& manager);

    /// Puts the values into effect in a plug-in that has just started, in the order of their numbers.
    void apply(IPlugin& plugin, const QString& identifier);

    /// Stores values that the menu has taken, all or none. Returns false after telling why; they then hold until the
    /// terminal ends.
    bool store(IMenuList& menu, const QString& menuFilePath, const QString& identifier,
               const QMap<int, QVariant>& values);

    /// Stores what the plug-in has changed of its own accord since its values were put into effect, or since the last
    /// call. What its menu does not accept is left out, since it could not be loaded again.
    void storeChanges(IPlugin& plugin, const QString& identifier);

    /// Whether items of that kind have a value.
    static bool hasValue(const MenuItem& item);

    /// The text as which a value is stored, and the value that it stands for; invalid when the text is none.
    static QString textOf(const QVariant& value);
    static QVariant valueOf(const MenuItem& item, const QString& text);

    /// The entries of a selection as its menu has them; none when the item is no selection. What the menu throws passes.
    static MenuSelection selectionOf(IMenuList& menu, int id);

    /// A value as the kind of the item has it: a menu may answer 1 for yes.
    static QVariant typed(const MenuItem& item, const QVariant& value);

private:
    /// Calls code of the plug-in; what it throws is told.
    template <typename Code>
    bool call(const char* operation, Code&& code);

    QMap<int, QVariant> valuesOf(IPlugin& plugin, const QString& identifier, bool tell);
    QMap<int, QVariant> menuValuesOf(IPlugin& plugin);
    QVariant resolved(IMenuList& menu, const MenuItem& item, const QVariant& stored);
    QString storedText(IMenuList& menu, int id, const QVariant& value);

    MenuStore& m_menus;
    StoredParameters& m_parameters;
    const StatusInfo& m_statusInfo;
    Notices& m_notices;
    const IPlugin* m_started = nullptr; ///< The plug-in whose values m_known are.
    QMap<int, QVariant> m_known;        ///< What its menu had when it was asked last.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PLUGINPROFILES_H
