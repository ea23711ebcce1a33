// SPDX-License-Identifier: BSD-3-Clause
#include "loading/PluginLoader.h"

#include "IPlugin.h"
#include "host/PluginGuard.h"
#include "loading/ElfFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QVersionNumber>

#include <cstdlib>
#include <cxxabi.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale() is no C++
#include <memory>
#include <optional>

namespace Brimvale
{
namespace Terminal
{

const char pluginInterfaceIdentifier[] = "Brimvale.Plugin.IPlugin";

namespace
{

/// What the texts of this file are translated as.
struct PluginLoader
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::PluginLoader)
};

/// The dynamic loader tells its errors in the language of the process. They are read here, so they must be in
/// the one language that can be relied upon.
class PlainLocale
{
public:
    PlainLocale()
        : m_plain(newlocale(LC_MESSAGES_MASK, "C", duplocale(LC_GLOBAL_LOCALE)))
        , m_previous(m_plain != nullptr ? uselocale(m_plain) : nullptr)
    {
    }
    ~PlainLocale()
    {
        if (m_plain != nullptr) {
            uselocale(m_previous);
            freelocale(m_plain);
        }
    }
    Q_DISABLE_COPY(PlainLocale)

private:
    locale_t m_plain;
    locale_t m_previous;
};

QString demangled(const QString& symbol)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(symbol.toLatin1().constData(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? QString::fromLatin1(name.get()) : symbol;
}

QString versionText(int version)
{
    return QStringLiteral("%1.%2").arg(version >> 16 & 0xff).arg(version >> 8 & 0xff);
}

/// One attempt to load a file.
class Attempt
{
public:
    explicit Attempt(const QString& file) { m_result.file = file; }

    LoadResult inspect();
    LoadResult run();

private:
    bool isInspected(QPluginLoader& loader);
    bool fail(LoadStage stage, const QString& cause, const QString& mend);
    bool checkFile();
    bool checkFormat();
    bool checkMetadata(const QPluginLoader& loader);
    bool checkSdk(const QJsonObject& metadata);
    bool loadLibrary(QPluginLoader& loader);
    bool makeInstance(QPluginLoader& loader);

    LoadResult m_result;
    QString m_path; ///< Absolute: the dynamic loader looks for a bare name elsewhere.
};

bool Attempt::isInspected(QPluginLoader& loader)
{
    if (!checkFile() || !checkFormat()) {
        return false;
    }
    // Missing symbols show now and not at the first call; code that runs is never taken away.
    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    loader.setFileName(m_path);
    return checkMetadata(loader);
}

LoadResult Attempt::inspect()
{
    QPluginLoader loader;
    m_result.ok = isInspected(loader);
    if (m_result.ok) {
        m_result.stage = LoadStage::Library;
    }
    return m_result;
}

LoadResult Attempt::run()
{
    QPluginLoader loader;
    if (isInspected(loader) && loadLibrary(loader) && makeInstance(loader)) {
        m_result.ok = true;
        m_result.stage = LoadStage::Loaded;
    }
    return m_result;
}

bool Attempt::fail(LoadStage stage, const QString& cause, const QString& mend)
{
    m_result.stage = stage;
    m_result.message = loadFailureMessage(m_result.file, stage, cause, mend);
    return false;
}

bool Attempt::checkFile()
{
    const QFileInfo info(m_result.file);
    if (!info.exists()) {
        return fail(LoadStage::File, PluginLoader::tr("there is no such file"),
                    PluginLoader::tr("Check the path."));
    }
    if (info.isDir()) {
        return fail(
            LoadStage::File, PluginLoader::tr("this is a folder"),
            PluginLoader::tr("Name a plug-in file, or load all plug-ins of the folder with --plugin-dir."));
    }
    if (!info.isFile()) {
        return fail(LoadStage::File, PluginLoader::tr("this is no regular file"),
                    PluginLoader::tr("Name a plug-in file."));
    }
    if (!info.isReadable()) {
        return fail(LoadStage::File, PluginLoader::tr("it cannot be read"),
                    PluginLoader::tr("Check its permissions."));
    }
    m_path = info.canonicalFilePath();
    return true;
}

bool Attempt::checkFormat()
{
    const ElfFile file(m_path);
    switch (file.problem()) {
    case ElfFile::Problem::None:
        break;
    case ElfFile::Problem::Unreadable:
        return fail(LoadStage::File, PluginLoader::tr("it cannot be read: %1").arg(file.detail()),
                    PluginLoader::tr("Check its permissions and the medium."));
    case ElfFile::Problem::Empty:
        return fail(LoadStage::Format, PluginLoader::tr("the file is empty"),
                    PluginLoader::tr("Build or copy it again."));
    case ElfFile::Problem::NotElf:
        return fail(LoadStage::Format,
                    PluginLoader::tr("it is no shared library: it does not begin as an ELF file does"),
                    PluginLoader::tr("Name the file that the build of the plug-in makes (.so)."));
    case ElfFile::Problem::Truncated:
        return fail(LoadStage::Format, PluginLoader::tr("the file is cut off: %1").arg(file.detail()),
                    PluginLoader::tr("Build or copy it again."));
    case ElfFile::Problem::Damaged:
        return fail(LoadStage::Format, PluginLoader::tr("the file is damaged: %1").arg(file.detail()),
                    PluginLoader::tr("Build or copy it again."));
    }

    const ElfFile::Target target = file.target();
    const ElfFile::Target own = ElfFile::ownTarget();
    if (own.bits != 0
        && target != own) { // a system that does not tell leaves the check to the dynamic loader
        return fail(
            LoadStage::Processor,
            PluginLoader::tr("it was built for %1, this terminal runs on %2").arg(target.text(), own.text()),
            PluginLoader::tr("Build the plug-in for %1.").arg(own.text()));
    }
    if (!file.isSharedLibrary()) {
        return fail(LoadStage::Format,
                    PluginLoader::tr("it is no shared library but an ELF file of another kind (%1)")
                        .arg(file.kindText()),
                    PluginLoader::tr("Build the plug-in as a module library; brimvale_add_plugin() does."));
    }
    return true;
}

bool Attempt::checkMetadata(const QPluginLoader& loader)
{
    const QJsonObject metadata = loader.metaData();
    const QString identifier = metadata.value(QLatin1String("IID")).toString();
    if (identifier.isEmpty()) {
        return fail(
            LoadStage::Metadata, PluginLoader::tr("it carries no metadata of a Qt plug-in"),
            PluginLoader::tr(
                "Put Q_PLUGIN_METADATA(IID \"%1\" FILE \"….json\") into the class of the plug-in and let moc "
                "process its header.")
                .arg(QLatin1String(pluginInterfaceIdentifier)));
    }
    if (identifier != QLatin1String(pluginInterfaceIdentifier)) {
        return fail(
            LoadStage::Identifier,
            PluginLoader::tr(
                "it is a plug-in of another kind: its identifier is \"%1\", this terminal loads \"%2\"")
                .arg(identifier, QLatin1String(pluginInterfaceIdentifier)),
            PluginLoader::tr("Correct the IID of Q_PLUGIN_METADATA, or take the file out of the folder."));
    }
    const int version = metadata.value(QLatin1String("version")).toInt();
    const bool otherMajor = (version >> 16 & 0xff) != QT_VERSION_MAJOR;
    const QStringList running = QString::fromLatin1(qVersion()).split(QLatin1Char('.'));
    const int minor = running.value(1).toInt();
    if (otherMajor || (version >> 8 & 0xff) > minor) {
        return fail(LoadStage::QtVersion,
                    PluginLoader::tr("it was built with Qt %1, this terminal runs on Qt %2")
                        .arg(versionText(version), QString::fromLatin1(qVersion())),
                    PluginLoader::tr("Build the plug-in with Qt %1.%2 or an older Qt %1.")
                        .arg(QT_VERSION_MAJOR)
                        .arg(minor));
    }
    return checkSdk(metadata);
}

/// A library of the same major version has all that an older one had. One that is older than the SDK may lack operations
/// at the end of a host interface, which the plug-in would call all the same.
bool Attempt::checkSdk(const QJsonObject& metadata)
{
    // In a list, as moc writes it. A plug-in that brimvale_add_plugin() has not built need not tell.
    const QString text = metadata.value(QLatin1String("SharedLibsVersion")).toArray().at(0).toString();
    const QVersionNumber built = QVersionNumber::fromString(text);
    const QVersionNumber own = QVersionNumber::fromString(QLatin1String(BRIMVALE_TERMINAL_VERSION));
    if (built.isNull()
        || (built.majorVersion() == own.majorVersion() && built.minorVersion() <= own.minorVersion())) {
        return true;
    }
    return fail(
        LoadStage::Sdk,
        PluginLoader::tr("it was built with version %1 of the SDK, this terminal has version %2")
            .arg(text, own.toString()),
        PluginLoader::tr("Build the plug-in with version %1.%2 of the SDK or an older %1, or bring the "
                         "terminal up to date.")
            .arg(own.majorVersion())
            .arg(own.minorVersion()));
}

bool Attempt::loadLibrary(QPluginLoader& loader)
{
    std::optional<QString> exception;
    bool loaded = false;
    {
        const PlainLocale locale;
        exception = exceptionOf("the initialisation of static objects", [&] { loaded = loader.load(); });
    }
    if (exception) {
        return fail(LoadStage::Library,
                    PluginLoader::tr("its code threw while it was loaded: %1").arg(*exception),
                    PluginLoader::tr("Let no exception out of the initialisation of static objects."));
    }
    if (loaded) {
        return true;
    }

    const QString error = loader.errorString();
    static const QRegularExpression missingLibrary(
        QStringLiteral("([^\\s:(]+): cannot open shared object file: (.*?)\\)?$"));
    static const QRegularExpression missingSymbol(
        QStringLiteral("undefined symbol: ([^\\s,)]+)(?:, version ([^\\s)]+))?"));
    static const QRegularExpression missingVersion(
        QStringLiteral("([^\\s:(]+): version [`']([^']+)' not found"));

    QRegularExpressionMatch match = missingLibrary.match(error);
    if (match.hasMatch()) {
        const QString library = match.captured(1);
        return fail(LoadStage::Library,
                    PluginLoader::tr("it needs the library %1, which is not there (%2)")
                        .arg(library, match.captured(2)),
                    PluginLoader::tr(
                        "Install %1, or name its folder in LD_LIBRARY_PATH or in the RPATH of the plug-in.")
                        .arg(library));
    }
    match = missingVersion.match(error);
    if (match.hasMatch()) {
        const QString library = QFileInfo(match.captured(1)).fileName();
        return fail(
            LoadStage::Library,
            PluginLoader::tr("it needs version %1 of %2, and the one on this machine does not have it")
                .arg(match.captured(2), library),
            PluginLoader::tr(
                "Build the plug-in with the versions of the libraries that this machine has; its Qt is %1.")
                .arg(QString::fromLatin1(qVersion())));
    }
    match = missingSymbol.match(error);
    if (match.hasMatch()) {
        QString symbol = demangled(match.captured(1));
        if (!match.captured(2).isEmpty()) {
            symbol += PluginLoader::tr(" (version %1)").arg(match.captured(2));
        }
        return fail(
            LoadStage::Library, PluginLoader::tr("the symbol %1 is not defined anywhere").arg(symbol),
            PluginLoader::tr(
                "Define it in the plug-in or link the library that does, and link with -Wl,--no-undefined: "
                "the "
                "linker then finds the error. If the symbol belongs to Brimvale, the plug-in was built with "
                "another version of the SDK than this terminal's."));
    }
    return fail(LoadStage::Library, error, PluginLoader::tr("See the text of the dynamic loader."));
}

bool Attempt::makeInstance(QPluginLoader& loader)
{
    QObject* object = nullptr;
    if (const auto exception = exceptionOf("its constructor", [&] { object = loader.instance(); })) {
        return fail(
            LoadStage::Instance, PluginLoader::tr("the constructor of the plug-in threw %1").arg(*exception),
            PluginLoader::tr(
                "Let no exception out of the constructor; what can fail belongs into PreInitPlugin(), which "
                "may return false."));
    }
    if (object == nullptr) {
        return fail(
            LoadStage::Instance, PluginLoader::tr("no object was made: %1").arg(loader.errorString()),
            PluginLoader::tr(
                "Put Q_PLUGIN_METADATA into exactly one class, which can be constructed without arguments."));
    }
    m_result.object = object;
    m_result.plugin = qobject_cast<IPlugin*>(object);
    if (m_result.plugin == nullptr) {
        return fail(LoadStage::Interface,
                    PluginLoader::tr("its class %1 has not the interface IPlugin")
                        .arg(QString::fromLatin1(object->metaObject()->className())),
                    PluginLoader::tr("Derive the class from Brimvale::PluginBase, with Q_OBJECT."));
    }
    return true;
}

} // namespace

QString loadStageName(LoadStage stage)
{
    switch (stage) {
    case LoadStage::Folder:
        return PluginLoader::tr("folder");
    case LoadStage::File:
        return PluginLoader::tr("file");
    case LoadStage::Format:
        return PluginLoader::tr("format");
    case LoadStage::Processor:
        return PluginLoader::tr("processor");
    case LoadStage::Metadata:
        return PluginLoader::tr("metadata");
    case LoadStage::Identifier:
        return PluginLoader::tr("identifier");
    case LoadStage::QtVersion:
        return PluginLoader::tr("Qt version");
    case LoadStage::Sdk:
        return PluginLoader::tr("SDK version");
    case LoadStage::Library:
        return PluginLoader::tr("library");
    case LoadStage::Instance:
        return PluginLoader::tr("instance");
    case LoadStage::Interface:
        return PluginLoader::tr("interface");
    case LoadStage::Initialise:
        return PluginLoader::tr("initialisation");
    case LoadStage::Loaded:
        break;
    }
    return PluginLoader::tr("loaded");
}

QString loadFailureMessage(const QString& file, LoadStage stage, const QString& cause, const QString& mend)
{
    return stage == LoadStage::Folder
               ? PluginLoader::tr("No plug-ins were loaded from %1: %2. %3").arg(file, cause, mend)
               : PluginLoader::tr("Plug-in %1 was not loaded (%2): %3. %4")
                     .arg(file, loadStageName(stage), cause, mend);
}

LoadResult inspectPluginFile(const QString& file)
{
    return Attempt(file).inspect();
}

LoadResult loadPluginFile(const QString& file)
{
    return Attempt(file).run();
}

QStringList pluginFilesOf(const QString& folder, QString* error)
{
    const QFileInfo info(folder);
    QString cause;
    QString mend;
    QStringList files;
    if (!info.exists()) {
        cause = PluginLoader::tr("there is no such folder");
        mend = PluginLoader::tr("Check the path.");
    } else if (!info.isDir()) {
        cause = PluginLoader::tr("this is no folder");
        mend = PluginLoader::tr("Load a single file with --plugin.");
    } else if (!info.isReadable()) {
        cause = PluginLoader::tr("it cannot be read");
        mend = PluginLoader::tr("Check its permissions.");
    } else {
        const QDir directory(folder);
        const QStringList names =
            directory.entryList({QStringLiteral("*.so")}, QDir::Files | QDir::System, QDir::Name);
        for (const QString& name : names) {
            files.append(directory.filePath(name));
        }
        if (files.isEmpty()) {
            cause = PluginLoader::tr("it has no plug-in (*.so)");
            mend = PluginLoader::tr("Name the folder into which the plug-ins are built.");
        }
    }
    if (error != nullptr) {
        *error = cause.isEmpty() ? QString() : loadFailureMessage(folder, LoadStage::Folder, cause, mend);
    }
    return files;
}

} // namespace Terminal
} // namespace Brimvale
