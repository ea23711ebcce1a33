// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINLOADER_H
#define BRIMVALE_PLUGINLOADER_H

#include <QMetaType>
#include <QString>
#include <QStringList>

class QObject;

namespace Brimvale
{

class IPlugin;

namespace Terminal
{

/// How far the loading of a plug-in came.
enum class LoadStage
{
    Folder,     ///< The folder is read and has plug-ins.
    File,       ///< The file exists and can be read.
    Format,     ///< It is a whole shared library.
    Processor,  ///< It was built for this processor.
    Metadata,   ///< It carries the metadata of a Qt plug-in.
    Identifier, ///< It is a plug-in for this terminal, one that is not there yet.
    QtVersion,  ///< It was built with a Qt that this terminal's Qt can run.
    Sdk,        ///< It was built with an SDK that this terminal's library can stand in for.
    Library,    ///< Libraries and symbols that it needs are there.
    Instance,   ///< Its object was made.
    Interface,  ///< The object has the interface IPlugin.
    Initialise, ///< InitPlugin() returned true.
    Loaded      ///< All of it.
};

/// The name of a stage as messages bear it: "file", "format", "processor", …
QString loadStageName(LoadStage stage);

/// The message of a failure: file, stage, cause (a half sentence) and what to do about it (a sentence).
QString loadFailureMessage(const QString& file, LoadStage stage, const QString& cause, const QString& mend);

/// What became of one plug-in.
struct LoadResult
{
    bool ok = false;
    LoadStage stage = LoadStage::File; ///< Loaded, or the stage that failed.
    QString file;                      ///< As it was given.
    QString message; ///< Empty when ok; otherwise file, stage, cause and what to do about it, in one text.
    QObject* object = nullptr; ///< The plug-in's object from LoadStage::Interface on; the caller owns it.
    IPlugin* plugin = nullptr; ///< Its interface; null unless that was found.
};

/// The interface identifier that a plug-in must bear.
extern const char pluginInterfaceIdentifier[];

/// Loads a plug-in file up to its interface, without calling any of its operations.
///
/// What can be told without running code of the file is told first: the file, its format and processor, its
/// metadata, identifier and Qt version. Then it is loaded with all symbols resolved at once, so that a
/// missing one is an error here and not at its first call, and never unloaded. An exception from the
/// constructor of the plug-in's object is caught.
///
/// One thing cannot be survived: an exception that leaves a static initialiser, which ends the process by the
/// rules of C++.
LoadResult loadPluginFile(const QString& file);

/// Does of loadPluginFile() what runs no code of the file: when that is well, the stage is LoadStage::Library.
LoadResult inspectPluginFile(const QString& file);

/// The plug-ins (`*.so`) of a folder with their paths, by name. None is returned and @p error tells why when
/// the folder does not exist, cannot be read or has no plug-in.
QStringList pluginFilesOf(const QString& folder, QString* error);

} // namespace Terminal
} // namespace Brimvale

Q_DECLARE_METATYPE(Brimvale::Terminal::LoadStage)

#endif // BRIMVALE_PLUGINLOADER_H
