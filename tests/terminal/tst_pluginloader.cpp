// SPDX-License-Identifier: BSD-3-Clause
#include "IPlugin.h"
#include "loading/ElfFile.h"
#include "loading/PluginLoader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <cstddef>
#include <elf.h>
#include <link.h>
#include <memory>

using namespace Brimvale;
using namespace Brimvale::Terminal;

namespace
{

// Where the kind of the file and its processor stand in the header, in 32 and 64 bits.
constexpr int typeOffset = 16;
constexpr int machineOffset = 18;

QString fixture(const QString& name)
{
    return QDir(QStringLiteral(BRIMVALE_FIXTURE_DIRECTORY)).filePath(name + QStringLiteral(".so"));
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A 16-bit number as it stands in a file for this machine.
QByteArray number(int value)
{
    const quint16 bits = static_cast<quint16>(value);
    return QByteArray(reinterpret_cast<const char*>(&bits), sizeof(bits));
}

} // namespace

class tst_PluginLoader : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aGoodPluginIsLoaded();
    void aCorrectionOfTheSdkIsNoOtherVersion();
    void theObjectIsMadeAnewAfterItsDestruction();

    void failure_data();
    void failure();
    void theMessageNamesFileStageCauseAndMend();
    void aForeignLanguageDoesNotHideTheCause();
    void messagesAreTranslated();

    void cutOffFile_data();
    void cutOffFile();

    void folder();
    void folderFailure_data();
    void folderFailure();
    void everyStageHasAName();

private:
    QString write(const QString& name, const QByteArray& content);
    QByteArray good() const;
    QByteArray patched(int offset, const QByteArray& bytes) const;
    QByteArray withMetadataAt(quint64 offset, quint64 length) const;
    QByteArray withQtVersion(char major, char minor) const;
    QByteArray withSdkVersion(const QByteArray& version) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_PluginLoader::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY2(!good().isEmpty(), "the fixture plug-in was not built");
}

void tst_PluginLoader::cleanup()
{
    m_folder.reset();
}

QString tst_PluginLoader::write(const QString& name, const QByteArray& content)
{
    QFile file(m_folder->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("cannot write %s", qPrintable(file.fileName()));
    }
    return file.fileName();
}

QByteArray tst_PluginLoader::good() const
{
    return contentOf(fixture(QStringLiteral("fixture")));
}

QByteArray tst_PluginLoader::patched(int offset, const QByteArray& bytes) const
{
    return good().replace(offset, bytes.size(), bytes);
}

/// With a table of sections that tells another place of the metadata.
QByteArray tst_PluginLoader::withMetadataAt(quint64 offset, quint64 length) const
{
    QByteArray content = good();
    const auto* const header = reinterpret_cast<const ElfW(Ehdr)*>(content.constData());
    auto* const sections = reinterpret_cast<ElfW(Shdr)*>(content.data() + header->e_shoff);
    const char* const names = content.constData() + sections[header->e_shstrndx].sh_offset;
    for (int i = 0; i < header->e_shnum; ++i) {
        if (qstrcmp(names + sections[i].sh_name, ".qtmetadata") == 0) {
            sections[i].sh_offset = static_cast<ElfW(Off)>(offset);
            sections[i].sh_size = static_cast<decltype(sections[i].sh_size)>(length);
            return content;
        }
    }
    qFatal("the fixture plug-in has no metadata");
}

QByteArray tst_PluginLoader::withQtVersion(char major, char minor) const
{
    QByteArray content = good();
    const QByteArray magic = "QTMETADATA !";
    const int place = content.indexOf(magic);
    if (place < 0) {
        qFatal("the fixture plug-in has no metadata");
    }
    // After the magic: the version of the format, then Qt's.
    content[place + magic.size() + 1] = major;
    content[place + magic.size() + 2] = minor;
    return content;
}

/// Another version of as many characters.
QByteArray tst_PluginLoader::withSdkVersion(const QByteArray& version) const
{
    QByteArray content = good();
    const QByteArray built = BRIMVALE_TERMINAL_VERSION;
    const int place = content.indexOf(built, content.indexOf("SharedLibsVersion"));
    if (place < 0 || version.size() != built.size()) {
        qFatal("the fixture plug-in does not tell the version of its SDK");
    }
    return content.replace(place, version.size(), version);
}

void tst_PluginLoader::aGoodPluginIsLoaded()
{
    const LoadResult result = loadPluginFile(fixture(QStringLiteral("fixture")));
    const std::unique_ptr<QObject> object(result.object);
    QVERIFY2(result.ok, qPrintable(result.message));
    QCOMPARE(result.stage, LoadStage::Loaded);
    QCOMPARE(result.message, QString());
    QVERIFY(result.plugin != nullptr);
    QCOMPARE(result.plugin->GetPluginName(false), QStringLiteral("Fixture"));
    QCOMPARE(result.object->property("steps").toStringList(), QStringList{QStringLiteral("constructor")});
}

void tst_PluginLoader::aCorrectionOfTheSdkIsNoOtherVersion()
{
    const LoadResult result = loadPluginFile(write(QStringLiteral("corrected.so"), withSdkVersion("1.0.9")));
    const std::unique_ptr<QObject> object(result.object);
    QVERIFY2(result.ok, qPrintable(result.message));
}

void tst_PluginLoader::theObjectIsMadeAnewAfterItsDestruction()
{
    delete loadPluginFile(fixture(QStringLiteral("fixture"))).object;
    const LoadResult result = loadPluginFile(fixture(QStringLiteral("fixture")));
    const std::unique_ptr<QObject> object(result.object);
    QVERIFY2(result.ok, qPrintable(result.message));
    QVERIFY(object != nullptr);
}

void tst_PluginLoader::failure_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<LoadStage>("stage");
    QTest::addColumn<QStringList>("parts");

    const auto row = [](const char* name, const QString& file, LoadStage stage, const QStringList& parts) {
        QTest::newRow(name) << file << stage << parts;
    };
    const auto text = [](const char* part) { return QString::fromLatin1(part); };

    static QTemporaryDir folder; // the rows outlive the folder of a single test
    const auto put = [&](const char* name, const QByteArray& content) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("cannot write %s", name);
        }
        return file.fileName();
    };

    row("no such file", text("/nowhere/plugin.so"), LoadStage::File, {text("there is no such file")});
    row("a folder", folder.path(), LoadStage::File, {text("this is a folder"), text("--plugin-dir")});
    row("a device", text("/dev/null"), LoadStage::File, {text("no regular file")});
    row("empty file", put("empty.so", QByteArray()), LoadStage::Format, {text("the file is empty")});
    row("text file", put("text.so", "This is a text.\n"), LoadStage::Format,
        {text("it is no shared library")});
    row("three bytes of an ELF file", put("three.so", good().left(3)), LoadStage::Format,
        {text("it is no shared library")});
    row("cut off", put("half.so", good().left(good().size() / 2)), LoadStage::Format,
        {text("the file is cut off"), QString::number(good().size() / 2)});
    row("unknown class", put("class.so", patched(EI_CLASS, QByteArray(1, 9))), LoadStage::Format,
        {text("the file is damaged")});
    row("metadata beyond the end", put("beyond.so", withMetadataAt(Q_UINT64_C(1) << 30, 32)),
        LoadStage::Format, {text("the file is cut off")});
    row("metadata whose end runs over", put("over.so", withMetadataAt(~Q_UINT64_C(15), 32)),
        LoadStage::Format, {text("the file is cut off")});
    row("entries that are too small",
        put("entries.so", patched(offsetof(ElfW(Ehdr), e_shentsize), number(8))), LoadStage::Format,
        {text("the file is damaged"), text("entries of 8 bytes")});
    row("an executable", put("executable.so", patched(typeOffset, number(ET_EXEC))), LoadStage::Format,
        {text("an executable"), text("brimvale_add_plugin")});
    row("an object file", put("object.so", patched(typeOffset, number(ET_REL))), LoadStage::Format,
        {text("an object file")});
    const bool onArm = ElfFile::ownTarget().machine == EM_ARM;
    row("another processor", put("foreign.so", patched(machineOffset, number(onArm ? EM_X86_64 : EM_ARM))),
        LoadStage::Processor,
        {onArm ? text("x86-64 (") : text("ARM ("),
         text("this terminal runs on ") + ElfFile::ownTarget().text(),
         text("Build the plug-in for ") + ElfFile::ownTarget().text()});
    row("an unheard-of processor", put("odd.so", patched(machineOffset, number(32494))), LoadStage::Processor,
        {text("an unknown processor (number 32494)")});
    row("no metadata", fixture(text("no_metadata")), LoadStage::Metadata,
        {text("no metadata of a Qt plug-in"), text("Q_PLUGIN_METADATA(IID \"Brimvale.Plugin.IPlugin\"")});
    row("wrong identifier", fixture(text("wrong_identifier")), LoadStage::Identifier,
        {text("\"Example.OtherHost.IModule\""), text("\"Brimvale.Plugin.IPlugin\"")});
    row("newer SDK", put("newer_sdk.so", withSdkVersion("1.1.0")), LoadStage::Sdk,
        {text("it was built with version 1.1.0 of the SDK, this terminal has version 1.0.0"),
         text("version 1.0 of the SDK")});
    row("next SDK", put("next_sdk.so", withSdkVersion("2.0.0")), LoadStage::Sdk, {text("version 2.0.0")});
    row("former SDK", put("former_sdk.so", withSdkVersion("0.9.0")), LoadStage::Sdk, {text("version 0.9.0")});
    row("newer Qt", put("newer.so", withQtVersion(5, 99)), LoadStage::QtVersion,
        {text("built with Qt 5.99"), text("runs on Qt ") + QString::fromLatin1(qVersion())});
    row("next Qt", put("next.so", withQtVersion(6, 2)), LoadStage::QtVersion,
        {text("built with Qt 6.2"), text("runs on Qt ") + QString::fromLatin1(qVersion())});
    row("missing library", fixture(text("missing_library")), LoadStage::Library,
        {text("it needs the library libbrimvale-not-installed.so.3, which is not there (No such file or "
              "directory)"),
         text("Install libbrimvale-not-installed.so.3")});
    row("undefined symbol", fixture(text("undefined_symbol")), LoadStage::Library,
        {text("the symbol Fixture::definedNowhere(int) is not defined anywhere"), text("--no-undefined")});
    row("constructor throws", fixture(text("throw_constructor")), LoadStage::Instance,
        {text("the constructor of the plug-in threw std::runtime_error: the fixture failed on purpose"),
         text("PreInitPlugin()")});
    row("class without the interface", fixture(text("no_interface")), LoadStage::Interface,
        {text("its class NoInterface has not the interface IPlugin"), text("Brimvale::PluginBase")});
}

void tst_PluginLoader::failure()
{
    QFETCH(QString, file);
    QFETCH(LoadStage, stage);
    QFETCH(QStringList, parts);

    const LoadResult result = loadPluginFile(file);
    const std::unique_ptr<QObject> object(result.object);
    QVERIFY(!result.ok);
    QVERIFY(result.plugin == nullptr);
    QCOMPARE(loadStageName(result.stage), loadStageName(stage));
    QCOMPARE(result.file, file);
    QVERIFY2(result.message.contains(file), qPrintable(result.message));
    for (const QString& part : parts) {
        QVERIFY2(result.message.contains(part),
                 qPrintable(QStringLiteral("\"%1\" is not in \"%2\"").arg(part, result.message)));
    }
}

void tst_PluginLoader::theMessageNamesFileStageCauseAndMend()
{
    QCOMPARE(loadPluginFile(QStringLiteral("/nowhere/plugin.so")).message,
             QStringLiteral(
                 "Plug-in /nowhere/plugin.so was not loaded (file): there is no such file. Check the path."));
}

void tst_PluginLoader::aForeignLanguageDoesNotHideTheCause()
{
    // The dynamic loader translates its messages where the language packs are installed.
    const QByteArray before = setlocale(LC_MESSAGES, nullptr);
    setlocale(LC_MESSAGES, "de_DE.UTF-8");
    const LoadResult result = loadPluginFile(fixture(QStringLiteral("missing_library")));
    setlocale(LC_MESSAGES, before.constData());
    QVERIFY2(result.message.contains(QLatin1String("libbrimvale-not-installed.so.3")),
             qPrintable(result.message));
}

void tst_PluginLoader::messagesAreTranslated()
{
    Q_INIT_RESOURCE(terminal_core_translations);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/translations/terminal_de.qm")));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const QString message = loadPluginFile(QStringLiteral("/nowhere/plugin.so")).message;
    QCOMPARE(message,
             QStringLiteral("Das Plug-in /nowhere/plugin.so wurde nicht geladen (Datei): diese Datei gibt "
                            "es nicht. Prüfen Sie den Pfad."));
}

void tst_PluginLoader::cutOffFile_data()
{
    QTest::addColumn<int>("percent");
    for (const int percent : {1, 10, 30, 50, 70, 90, 99}) {
        QTest::addRow("%d percent of the file", percent) << percent;
    }
}

void tst_PluginLoader::cutOffFile()
{
    // Mapped by the dynamic loader, such a file ends the process at the first access beyond its end.
    QFETCH(int, percent);
    const QByteArray content = good();
    const LoadResult result =
        loadPluginFile(write(QStringLiteral("cut.so"), content.left(content.size() * percent / 100)));
    QVERIFY(!result.ok);
    QCOMPARE(loadStageName(result.stage), loadStageName(LoadStage::Format));
    QVERIFY2(result.message.contains(QLatin1String("cut off")), qPrintable(result.message));
}

void tst_PluginLoader::folder()
{
    write(QStringLiteral("b.so"), "b");
    write(QStringLiteral("a.so"), "a");
    write(QStringLiteral("c.txt"), "c");
    write(QStringLiteral("libx.so.1"), "x");
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("d.so")));
    QString error = QStringLiteral("not touched");
    QCOMPARE(pluginFilesOf(m_folder->path(), &error),
             (QStringList{m_folder->filePath(QStringLiteral("a.so")),
                          m_folder->filePath(QStringLiteral("b.so"))}));
    QCOMPARE(error, QString());
}

void tst_PluginLoader::folderFailure_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("message");
    QTest::newRow("no such folder")
        << QStringLiteral("/nowhere")
        << QStringLiteral("No plug-ins were loaded from /nowhere: there is no such folder. Check the path.");
    QTest::newRow("a file") << QStringLiteral("/dev/null")
                            << QStringLiteral(
                                   "No plug-ins were loaded from /dev/null: this is no folder. Load a "
                                   "single file with --plugin.");
}

void tst_PluginLoader::folderFailure()
{
    QFETCH(QString, path);
    QFETCH(QString, message);
    QString error;
    QVERIFY(pluginFilesOf(path, &error).isEmpty());
    QCOMPARE(error, message);

    write(QStringLiteral("readme.txt"), "no plug-in");
    QVERIFY(pluginFilesOf(m_folder->path(), &error).isEmpty());
    QVERIFY2(error.contains(QLatin1String("it has no plug-in (*.so)")), qPrintable(error));
}

void tst_PluginLoader::everyStageHasAName()
{
    QStringList names;
    for (int stage = int(LoadStage::Folder); stage <= int(LoadStage::Loaded); ++stage) {
        names.append(loadStageName(static_cast<LoadStage>(stage)));
    }
    QCOMPARE(names.removeDuplicates(), 0);
    QVERIFY(!names.contains(QString()));
}

QTEST_GUILESS_MAIN(tst_PluginLoader)

#include "tst_pluginloader.moc"
