// SPDX-License-Identifier: BSD-3-Clause

#include "FileUtils.h"
#include "LogRecorder.h"
#include "SystemCalls.h"

#include <QDataStream>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <grp.h>
#include <memory>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using Brimvale::FileUtils;

namespace
{

constexpr uid_t OrdinaryUser = 65534; // nobody
constexpr int MediumSize = 64 * 1024; // bytes of the small medium

QByteArray native(const QString& path)
{
    return QFile::encodeName(path);
}

bool write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

// Null where there is nothing to read.
QByteArray read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray content = file.readAll();
    return content.isNull() ? QByteArray("") : content;
}

bool link(const char* target, const QString& path)
{
    return ::symlink(target, native(path).constData()) == 0;
}

bool setMode(const QString& path, mode_t mode)
{
    return ::chmod(native(path).constData(), mode) == 0;
}

// Unlike QFileInfo, which sees no link that leads nowhere.
bool isThere(const QString& path)
{
    struct stat status = {};
    return ::lstat(native(path).constData(), &status) == 0;
}

mode_t modeOf(const QString& path)
{
    struct stat status = {};
    return ::lstat(native(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

ino_t inodeOf(const QString& path)
{
    struct stat status = {};
    return ::lstat(native(path).constData(), &status) == 0 ? status.st_ino : 0;
}

// Names and contents of everything below a directory; a directory's content is "directory", a link's what it says.
using Tree = QMap<QString, QByteArray>;

Tree treeOf(const QString& directory)
{
    Tree tree;
    QDirIterator entries(directory, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QFileInfo info(path);
        QByteArray content = "directory";
        if (info.isSymLink()) {
            char target[1024];
            const ssize_t length = ::readlink(native(path).constData(), target, sizeof target);
            content = "-> " + QByteArray(target, int(length));
        } else if (!info.isDir()) {
            content = read(path);
        }
        tree.insert(QDir(directory).relativeFilePath(path), content);
    }
    return tree;
}

// More than one step of a copy, and different everywhere.
QByteArray longContent(int size)
{
    QByteArray content(size, '\0');
    for (int i = 0; i < size; ++i)
        content[i] = char((i * 2654435761u) >> 24);
    return content;
}

QString textOf(bool result)
{
    return result ? QStringLiteral("true") : QStringLiteral("false");
}

// The exit status of a process that does `act`, or the negative number of the signal that ended it.
int statusOfChild(const std::function<int()>& act)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(act());
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child)
        return 255;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

// What `act` returns when it runs in a process of its own.
QStringList inChild(const std::function<QStringList()>& act)
{
    int ends[2] = {};
    if (::pipe(ends) != 0)
        return {QStringLiteral("no pipe")};
    const int status = statusOfChild([&] {
        QFile output;
        if (!output.open(ends[1], QIODevice::WriteOnly))
            return 1;
        QDataStream stream(&output);
        stream << act();
        return output.flush() ? 0 : 1;
    });
    ::close(ends[1]);
    QFile input;
    QStringList result(QStringLiteral("the process ended with %1").arg(status));
    if (status == 0 && input.open(ends[0], QIODevice::ReadOnly)) {
        QDataStream stream(&input);
        stream >> result;
    }
    input.close();
    ::close(ends[0]);
    return result;
}

// The same as a user who may not do everything.
QStringList asOrdinaryUser(const std::function<QStringList()>& act)
{
    return inChild([&]() -> QStringList {
        if (::geteuid() == 0
            && (::setgroups(0, nullptr) != 0 || ::setgid(OrdinaryUser) != 0 || ::setuid(OrdinaryUser) != 0))
            return {QStringLiteral("the user was not changed")};
        return act();
    });
}

// How a file gets its name, by the abilities of the file system.
enum Publishing
{
    Unnamed,
    Renamed,
    Linked,
    PlainRenamed
};

void addPublishings()
{
    QTest::addColumn<int>("publishing");
    QTest::newRow("unnamed files") << int(Unnamed);
    QTest::newRow("renaming without replacing") << int(Renamed);
    QTest::newRow("hard links") << int(Linked);
    QTest::newRow("plain renaming") << int(PlainRenamed);
}

int errorFor(const SystemCalls::Call& call, int publishing)
{
    if (publishing >= Renamed && std::strcmp(call.name, "open") == 0 && (call.flags & O_TMPFILE) == O_TMPFILE)
        return EOPNOTSUPP;
    if (publishing >= Linked && std::strcmp(call.name, "renameat2") == 0)
        return EINVAL;
    if (publishing >= PlainRenamed && std::strcmp(call.name, "link") == 0)
        return EPERM;
    return 0;
}

} // namespace

class tst_FileUtils : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void filterValues();

    void exists_data();
    void exists();

    void copiesFile_data();
    void copiesFile();
    void copiesContent_data();
    void copiesContent();
    void namesUnnamedFiles_data();
    void namesUnnamedFiles();
    void keepsPermissions_data();
    void keepsPermissions();
    void permissionsThatCannotBeSetDoNotMatter();
    void replacesFile();
    void survivesShrinkingSource();
    void copiesFromAnotherFileSystem();
    void copiesWithoutStandardInput();
    void missingSource();
    void failedRemovalAndFailedCopy();
    void refusesCopyOntoItself_data();
    void refusesCopyOntoItself();
    void refusesCopyOntoItselfAcrossMount();
    void replacesOtherNameOfSource_data();
    void replacesOtherNameOfSource();
    void doesNotReplaceDirectory();
    void doesNotFollowDestinationThatLeadsNowhere();
    void doesNotCopyPipe();
    void doesNotCopyToNameThatAppears_data();
    void doesNotCopyToNameThatAppears();
    void copiesResource();
    void resourceThatCannotBeWrittenLeavesNothing_data();
    void resourceThatCannotBeWrittenLeavesNothing();
    void copiesNameBetweenDirectories();
    void copiesWithinCurrentDirectory_data();
    void copiesWithinCurrentDirectory();
    void copiesIntoRootDirectory();
    void namesNothingByNullCharacter();

    void createsOneDirectory_data();
    void createsOneDirectory();

    void copiesFilesOfDirectory();
    void copyOfDirectoryGoesOnAfterFailure();
    void copiesEmptyDirectory();
    void doesNotMakeDestinationOfDirectory();

    void copiesTree_data();
    void copiesTree();
    void copiesTreeOfResources();
    void copyOfTreeNeedsNewDestination();
    void copyOfTreeNeedsParent();
    void copyOfTreeLogsNothing();
    void copyStopsAtBadLink_data();
    void copyStopsAtBadLink();
    void copyEndsInCircle_data();
    void copyEndsInCircle();

    void copiesTreeOverAnother();
    void copiesOneFileOverAnother();
    void selectsByNameFilters_data();
    void selectsByNameFilters();
    void logsCopyOfTree();
    void logsNothingAboveTrace();
    void doesNotReplaceFileByDirectory();

    void survivesVanishingSource_data();
    void survivesVanishingSource();
    void survivesVanishingDestination_data();
    void survivesVanishingDestination();
    void survivesVanishingTreeThatIsRemoved();

    void removesTree();
    void removesLinkButNotItsTarget_data();
    void removesLinkButNotItsTarget();
    void doesNotRemoveFile_data();
    void doesNotRemoveFile();
    void nothingToRemove();
    void relativePathRemovesNothing();
    void removalStopsAtFailure();

    void createsFile_data();
    void createsFile();
    void createsFileInEncodingOfLocale();
    void cannotCreateFile();
    void readsFirstLine_data();
    void readsFirstLine();
    void readsNothingWhereNothingIs();
    void appends_data();
    void appends();
    void cannotAppend();
    void syncsWhatIsWritten_data();
    void syncsWhatIsWritten();
    void reportsOnlyWhetherFileWasOpened();

    void ordinaryUserAndUnreadableFile();
    void ordinaryUserAndReadOnlyDirectory();
    void ordinaryUserAndReadOnlyTree();

    void fullMedium_data();
    void fullMedium();
    void failedWriteLeavesNothing_data();
    void failedWriteLeavesNothing();
    void killLeavesNoPartOfFile_data();
    void killLeavesNoPartOfFile();

private:
    QString at(const QString& name) const { return m_directory->path() + QLatin1Char('/') + name; }
    QString at(const char* name) const { return at(QString::fromUtf8(name)); }
    bool makeTree(const QString& directory) const;

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_currentDirectory;
    FileUtils m_files;
};

void tst_FileUtils::init()
{
    ::umask(022);
    m_currentDirectory = QDir::currentPath();
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY2(m_directory->isValid(), qPrintable(m_directory->errorString()));
    if (::geteuid() == 0)
        QCOMPARE(::chown(native(m_directory->path()).constData(), OrdinaryUser, OrdinaryUser), 0);
    QVERIFY(QDir::setCurrent(m_directory->path()));
}

void tst_FileUtils::cleanup()
{
    SystemCalls::setLargestStep(0);
    QDir::setCurrent(m_currentDirectory);
    m_directory.reset();
}

// Names of all kinds, files that are links, and a directory that is one.
bool tst_FileUtils::makeTree(const QString& directory) const
{
    const QDir dir(directory);
    return QDir().mkpath(dir.filePath(QStringLiteral("sub dir/.hidden dir")))
           && dir.mkdir(QStringLiteral("empty")) && write(dir.filePath(QStringLiteral("plain.txt")), "plain")
           && write(dir.filePath(QStringLiteral(".hidden")), "hidden")
           && write(dir.filePath(QStringLiteral("two  blanks ")), "blanks")
           && write(dir.filePath(QStringLiteral("Gr\u00f6\u00dfe \u00c4\u00d6\u00dc.csv")), "umlauts")
           && write(dir.filePath(QStringLiteral("new\nline")), "newline")
           && write(dir.filePath(QStringLiteral("[star]*?\\")), "wildcards")
           && write(dir.filePath(QStringLiteral("-rf")), "")
           && write(dir.filePath(QStringLiteral("sub dir/large")), longContent(300000))
           && write(dir.filePath(QStringLiteral("sub dir/.hidden dir/deep")), "deep")
           && link("../plain.txt", dir.filePath(QStringLiteral("sub dir/link to file")))
           && link("sub dir/.hidden dir", dir.filePath(QStringLiteral("link to directory")));
}

// The selections are given as numbers of Qt.
void tst_FileUtils::filterValues()
{
    const auto files = QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QCOMPARE(int(files), 25346);
    QCOMPARE(int(files | QDir::Dirs), 25347);
    QCOMPARE(int(files | QDir::AllDirs), 26370);
}

void tst_FileUtils::exists_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isFile");
    QTest::addColumn<bool>("isDirectory");
    QTest::newRow("file") << QStringLiteral("file") << true << false;
    QTest::newRow("directory") << QStringLiteral("directory") << false << true;
    QTest::newRow("link to file") << QStringLiteral("link to file") << true << false;
    QTest::newRow("link to directory") << QStringLiteral("link to directory") << false << true;
    QTest::newRow("dangling link") << QStringLiteral("dangling") << false << false;
    QTest::newRow("circular link") << QStringLiteral("circular") << false << false;
    QTest::newRow("pipe") << QStringLiteral("pipe") << false << false;
    QTest::newRow("missing") << QStringLiteral("missing") << false << false;
    QTest::newRow("empty path") << QString() << false << false;
    QTest::newRow("resource") << QStringLiteral(":/builtin/text.txt") << true << false;
}

void tst_FileUtils::exists()
{
    QFETCH(QString, path);
    QVERIFY(write(at("file"), "content"));
    QVERIFY(QDir().mkdir(at("directory")));
    QVERIFY(link("file", at("link to file")));
    QVERIFY(link("directory", at("link to directory")));
    QVERIFY(link("nowhere", at("dangling")));
    QVERIFY(link("circular", at("circular")));
    QCOMPARE(::mkfifo(native(at("pipe")).constData(), 0600), 0);

    QTEST(m_files.fileExists(path), "isFile");
    QTEST(m_files.dirExists(path), "isDirectory");
}

void tst_FileUtils::copiesFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("file.txt");
    QTest::newRow("hidden") << QStringLiteral(".file");
    QTest::newRow("blanks") << QStringLiteral(" a  file ");
    QTest::newRow("umlauts") << QStringLiteral("Gr\u00f6\u00dfe \u00c4\u00d6\u00dc");
    QTest::newRow("newline") << QStringLiteral("a\nfile\n");
    QTest::newRow("wildcards") << QStringLiteral("[a]*?\\");
    QTest::newRow("longest") << QString(255, QLatin1Char('n'));
}

void tst_FileUtils::copiesFile()
{
    QFETCH(QString, name);
    QVERIFY(write(at("source"), "content"));
    QVERIFY(QDir().mkdir(at("directory")));
    const QString copy = at("directory/") + name;

    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(m_files.CopyFileOverwrite(at("source"), copy));
    QVERIFY(m_files.CopyFileOverwrite(copy, at("back")));

    QCOMPARE(read(copy), QByteArray("content"));
    QCOMPARE(read(at("back")), QByteArray("content"));
    QCOMPARE(read(at("source")), QByteArray("content"));
    QCOMPARE(treeOf(at("directory")).keys(), QStringList(name));
    QCOMPARE(log.lines(),
             QStringList({QStringLiteral("TRACE FileUtils::CopyFileOverwrite, copied  %1 ").arg(at("source")),
                          QStringLiteral("TRACE FileUtils::CopyFileOverwrite, copied  %1 ").arg(copy)}));
}

void tst_FileUtils::copiesContent_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("withinKernel");
    QTest::addColumn<int>("step");
    QTest::newRow("empty") << 0 << true << 0;
    QTest::newRow("empty, through a buffer") << 0 << false << 0;
    QTest::newRow("one byte") << 1 << true << 0;
    QTest::newRow("megabytes") << 3000001 << true << 0;
    QTest::newRow("megabytes in steps") << 3000001 << true << 100003;
    QTest::newRow("a buffer") << 65536 << false << 0;
    QTest::newRow("megabytes through a buffer") << 3000001 << false << 0;
    QTest::newRow("megabytes through a buffer in steps") << 3000001 << false << 40009;
}

void tst_FileUtils::copiesContent()
{
    QFETCH(int, size);
    QFETCH(bool, withinKernel);
    QFETCH(int, step);
    const QByteArray content = longContent(size);
    QVERIFY(write(at("source"), content));
    int interrupted = 0;

    SystemCalls::setLargestStep(std::size_t(step));
    {
        // Every third reading and writing is interrupted first.
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            if (std::strcmp(call.name, "copy_file_range") == 0)
                return withinKernel ? 0 : EXDEV;
            const bool isTransfer =
                std::strcmp(call.name, "read") == 0 || std::strcmp(call.name, "write") == 0;
            return isTransfer && ++interrupted % 3 == 1 ? EINTR : 0;
        });
        QVERIFY(m_files.CopyFileOverwrite(at("source"), at("copy")));
    }
    // What the kernel has copied is not asked for again; a file without a size may have content all the same.
    QCOMPARE(interrupted > 0, !withinKernel || size == 0);
    QVERIFY(read(at("copy")) == content);
}

void tst_FileUtils::namesUnnamedFiles_data()
{
    QTest::addColumn<bool>("privileged");
    QTest::addColumn<bool>("proc");
    QTest::newRow("privileged") << true << true;
    QTest::newRow("ordinary user") << false << true;
    QTest::newRow("ordinary user without /proc") << false << false;
}

void tst_FileUtils::namesUnnamedFiles()
{
    QFETCH(bool, privileged);
    QFETCH(bool, proc);
    QVERIFY(write(at("source"), "content"));
    QVERIFY(setMode(at("source"), 0640));
    int named = 0;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            named += std::strcmp(call.name, "mkostemp") == 0 ? 1 : 0;
            if (std::strcmp(call.name, "linkat") != 0)
                return 0;
            const bool works = (call.flags & AT_EMPTY_PATH) != 0 ? privileged : proc;
            return works ? 0 : ENOENT;
        });
        QVERIFY(m_files.CopyFileOverwrite(at("source"), at("copy")));
    }
    QCOMPARE(read(at("copy")), QByteArray("content"));
    QCOMPARE(int(modeOf(at("copy"))), 0640);
    if (!privileged)
        QCOMPARE(named, proc ? 0 : 1);
}

void tst_FileUtils::keepsPermissions_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("publishing");
    for (const int mode : {0400, 0600, 0644, 0755, 0666, 0777, 0421}) {
        QTest::newRow(qPrintable(QStringLiteral("%1, unnamed").arg(mode, 4, 8, QLatin1Char('0'))))
            << mode << int(Unnamed);
        QTest::newRow(qPrintable(QStringLiteral("%1, renamed").arg(mode, 4, 8, QLatin1Char('0'))))
            << mode << int(Renamed);
    }
}

void tst_FileUtils::keepsPermissions()
{
    QFETCH(int, mode);
    QFETCH(int, publishing);
    QVERIFY(write(at("source"), "content"));
    QVERIFY(setMode(at("source"), mode_t(mode)));
    QVERIFY(write(at("copy"), "old"));

    const SystemCalls::Watching watching(
        [&](const SystemCalls::Call& call) { return errorFor(call, publishing); });
    QVERIFY(m_files.CopyFileOverwrite(at("source"), at("copy")));
    QVERIFY(m_files.copyRecursively(at("source"), at("second copy")));

    QCOMPARE(int(modeOf(at("copy"))), mode);
    QCOMPARE(int(modeOf(at("second copy"))), mode);
}

void tst_FileUtils::permissionsThatCannotBeSetDoNotMatter()
{
    QVERIFY(write(at("source"), "content"));
    const SystemCalls::Watching watching(
        [](const SystemCalls::Call& call) { return std::strcmp(call.name, "fchmod") == 0 ? EPERM : 0; });
    QVERIFY(m_files.CopyFileOverwrite(at("source"), at("copy")));
    QCOMPARE(read(at("copy")), QByteArray("content"));
}

void tst_FileUtils::replacesFile()
{
    QVERIFY(write(at("source"), "new"));
    QVERIFY(write(at("copy"), "old and longer"));
    QVERIFY(m_files.CopyFileOverwrite(at("source"), at("copy")));
    QCOMPARE(read(at("copy")), QByteArray("new"));
}

// What is left of it is copied.
void tst_FileUtils::survivesShrinkingSource()
{
    const QByteArray content = longContent(40000);
    QVERIFY(write(at("source"), content));
    SystemCalls::setLargestStep(9000);
    int steps = 0;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            if (std::strcmp(call.name, "copy_file_range") == 0 && ++steps == 3)
                return ::truncate(native(at("source")).constData(), 18000);
            return 0;
        });
        QVERIFY(m_files.CopyFileOverwrite(at("source"), at("copy")));
    }
    QVERIFY(steps >= 3);
    QCOMPARE(read(at("copy")), content.left(18000));
}

void tst_FileUtils::copiesFromAnotherFileSystem()
{
    const QString source = QStringLiteral("/proc/version");
    const QByteArray content = read(source);
    QVERIFY(!content.isEmpty());
    QVERIFY(write(at("copy"), "old"));
    QVERIFY(m_files.CopyFileOverwrite(source, at("copy")));
    QCOMPARE(read(at("copy")), content);
}

// The first file that is opened is number 0 then.
void tst_FileUtils::copiesWithoutStandardInput()
{
    QVERIFY(write(at("source"), "content"));
    const int kept = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    ::close(STDIN_FILENO);
    const bool copied = m_files.CopyFileOverwrite(at("source"), at("copy"));
    const bool isOpen = ::fcntl(STDIN_FILENO, F_GETFD) >= 0;
    if (kept >= 0) {
        ::dup2(kept, STDIN_FILENO);
        ::close(kept);
    }
    QVERIFY(copied);
    QVERIFY(!isOpen);
    QCOMPARE(read(at("copy")), QByteArray("content"));
}

void tst_FileUtils::missingSource()
{
    QVERIFY(write(at("copy"), "old"));
    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(!m_files.CopyFileOverwrite(at("missing"), at("copy")));
    QCOMPARE(read(at("copy")), QByteArray("old"));
    QCOMPARE(
        log.lines(),
        QStringList(
            QStringLiteral("TRACE FileUtils::CopyFileOverwrite, failed to copy  %1 ").arg(at("missing"))));
}

// The copy is tried even when the old file could not be removed, and is no success then.
void tst_FileUtils::failedRemovalAndFailedCopy()
{
    QVERIFY(write(at("source"), "new"));
    QVERIFY(write(at("copy"), "old"));
    LogRecorder log(QsLogging::TraceLevel);
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            return std::strcmp(call.name, "unlink") == 0 && call.path == native(at("copy")) ? EBUSY : 0;
        });
        QVERIFY(!m_files.CopyFileOverwrite(at("source"), at("copy")));
        QVERIFY(!m_files.CopyRecursivelyOverwrite(at("source"), at("copy"), {}));
    }
    QCOMPARE(read(at("copy")), QByteArray("old"));
    QCOMPARE(log.lines(),
             QStringList(
                 {QStringLiteral("TRACE FileUtils::CopyFileOverwrite, failed to copy  %1 ").arg(at("source")),
                  QStringLiteral("TRACE could not remove old file  \"%1\" ").arg(at("copy"))}));
}

void tst_FileUtils::refusesCopyOntoItself_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("destination");
    const QString file = QStringLiteral("directory/file");
    QTest::newRow("same path") << file << file;
    QTest::newRow("detour") << file << QStringLiteral("directory/../directory/./file");
    QTest::newRow("through a linked directory") << file << QStringLiteral("linked/file");
    QTest::newRow("from a link") << QStringLiteral("directory/link") << file;
    QTest::newRow("link onto itself") << QStringLiteral("directory/link") << QStringLiteral("linked/link");
    QTest::newRow("file with two names") << QStringLiteral("directory/name") << QStringLiteral("linked/name");
}

void tst_FileUtils::refusesCopyOntoItself()
{
    QFETCH(QString, source);
    QFETCH(QString, destination);
    QVERIFY(QDir().mkdir(at("directory")));
    QVERIFY(write(at("directory/file"), "content"));
    QVERIFY(write(at("directory/name"), "two names"));
    QVERIFY(link("file", at("directory/link")));
    QVERIFY(link("directory", at("linked")));
    QCOMPARE(::link(native(at("directory/name")).constData(), native(at("directory/other name")).constData()),
             0);
    const Tree before = treeOf(at("directory"));
    const ino_t inode = inodeOf(at("directory/file"));

    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(!m_files.CopyFileOverwrite(at(source), at(destination)));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at(source), at(destination), {}));
    QVERIFY(!m_files.copyRecursively(at(source), at(destination)));

    QCOMPARE(treeOf(at("directory")), before);
    QCOMPARE(inodeOf(at("directory/file")), inode);
    QCOMPARE(log.lines(),
             QStringList(
                 {QStringLiteral("TRACE FileUtils::CopyFileOverwrite, failed to copy  %1 ").arg(at(source)),
                  QStringLiteral("TRACE could not copy file  \"%1\" ").arg(at(source))}));
}

// A directory that is mounted a second time: the same file under two paths, neither of which is a link.
void tst_FileUtils::refusesCopyOntoItselfAcrossMount()
{
    if (::geteuid() != 0)
        QSKIP("mounting a directory needs the rights of root");
    QVERIFY(QDir().mkdir(at("place")) && QDir().mkdir(at("other place")));
    QVERIFY(write(at("place/file"), "content"));
    const QString notMounted = QStringLiteral("not mounted: ");
    const QStringList results = inChild([&]() -> QStringList {
        if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
            || ::mount(native(at("place")).constData(), native(at("other place")).constData(), nullptr,
                       MS_BIND, nullptr)
                   != 0)
            return {notMounted + QString::fromLocal8Bit(std::strerror(errno))};
        return {textOf(m_files.CopyFileOverwrite(at("place/file"), at("other place/file"))),
                QString::fromUtf8(read(at("other place/file")))};
    });
    if (results.value(0).startsWith(notMounted))
        QSKIP(qPrintable(results.value(0)));
    QCOMPARE(results, QStringList({QStringLiteral("false"), QStringLiteral("content")}));
    QCOMPARE(read(at("place/file")), QByteArray("content"));
}

void tst_FileUtils::replacesOtherNameOfSource_data()
{
    QTest::addColumn<QString>("destination");
    QTest::newRow("link to the source") << QStringLiteral("link");
    QTest::newRow("hard link") << QStringLiteral("name");
}

void tst_FileUtils::replacesOtherNameOfSource()
{
    QFETCH(QString, destination);
    QVERIFY(write(at("file"), "content"));
    QVERIFY(link("file", at("link")));
    QCOMPARE(::link(native(at("file")).constData(), native(at("name")).constData()), 0);

    QVERIFY(m_files.CopyFileOverwrite(at("file"), at(destination)));
    QCOMPARE(read(at("file")), QByteArray("content"));
    QCOMPARE(read(at(destination)), QByteArray("content"));
    QVERIFY(!QFileInfo(at(destination)).isSymLink());
    QVERIFY(inodeOf(at("file")) != inodeOf(at(destination)));
}

void tst_FileUtils::doesNotReplaceDirectory()
{
    QVERIFY(write(at("file"), "content"));
    QVERIFY(QDir().mkdir(at("directory")));
    QVERIFY(!m_files.CopyFileOverwrite(at("file"), at("directory")));
    QVERIFY(!m_files.CopyFileOverwrite(at("directory"), at("copy")));
    QCOMPARE(treeOf(m_directory->path()),
             Tree({{QStringLiteral("file"), "content"}, {QStringLiteral("directory"), "directory"}}));
}

void tst_FileUtils::doesNotFollowDestinationThatLeadsNowhere()
{
    QVERIFY(write(at("file"), "content"));
    QVERIFY(link("nowhere", at("link")));
    QVERIFY(!m_files.CopyFileOverwrite(at("file"), at("link")));
    QCOMPARE(treeOf(m_directory->path()),
             Tree({{QStringLiteral("file"), "content"}, {QStringLiteral("link"), "-> nowhere"}}));
}

// Reading a pipe would wait for somebody who writes into it.
void tst_FileUtils::doesNotCopyPipe()
{
    QCOMPARE(::mkfifo(native(at("pipe")).constData(), 0600), 0);
    QVERIFY(!m_files.CopyFileOverwrite(at("pipe"), at("copy")));
    QVERIFY(!m_files.copyRecursively(at("pipe"), at("copy")));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("pipe"), at("copy"), {}));
    QVERIFY(!isThere(at("copy")));
}

void tst_FileUtils::doesNotCopyToNameThatAppears_data()
{
    addPublishings();
}

// What somebody else makes while a file is copied is not replaced.
void tst_FileUtils::doesNotCopyToNameThatAppears()
{
    QFETCH(int, publishing);
    QVERIFY(write(at("source"), "content"));
    bool appeared = false;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            const int error = errorFor(call, publishing);
            if (error == 0 && !appeared && std::strcmp(call.name, "fchmod") == 0)
                appeared = write(at("copy"), "somebody else's");
            return error;
        });
        QVERIFY(!m_files.copyRecursively(at("source"), at("copy")));
    }
    QVERIFY(appeared);
    QCOMPARE(treeOf(m_directory->path()),
             Tree({{QStringLiteral("source"), "content"}, {QStringLiteral("copy"), "somebody else's"}}));
}

void tst_FileUtils::copiesResource()
{
    const QByteArray content = read(QStringLiteral(":/builtin/text.txt"));
    QVERIFY(!content.isEmpty());
    QVERIFY(m_files.CopyFileOverwrite(QStringLiteral(":/builtin/text.txt"), at("copy")));
    QCOMPARE(read(at("copy")), content);
    QCOMPARE(int(modeOf(at("copy"))), 0444);
}

void tst_FileUtils::resourceThatCannotBeWrittenLeavesNothing_data()
{
    QTest::addColumn<int>("publishing");
    QTest::newRow("unnamed") << int(Unnamed);
    QTest::newRow("named") << int(Renamed);
}

void tst_FileUtils::resourceThatCannotBeWrittenLeavesNothing()
{
    QFETCH(int, publishing);
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            return std::strcmp(call.name, "write") == 0 ? ENOSPC : errorFor(call, publishing);
        });
        QVERIFY(!m_files.CopyFileOverwrite(QStringLiteral(":/builtin/text.txt"), at("copy")));
    }
    QVERIFY(treeOf(m_directory->path()).isEmpty());
}

void tst_FileUtils::copiesWithinCurrentDirectory_data()
{
    addPublishings();
}

// By names without a directory.
void tst_FileUtils::copiesWithinCurrentDirectory()
{
    QFETCH(int, publishing);
    QVERIFY(write(at("source"), "content"));
    {
        const SystemCalls::Watching watching(
            [&](const SystemCalls::Call& call) { return errorFor(call, publishing); });
        QVERIFY(m_files.CopyFileOverwrite(QStringLiteral("source"), QStringLiteral("copy")));
    }
    QCOMPARE(treeOf(m_directory->path()),
             Tree({{QStringLiteral("source"), "content"}, {QStringLiteral("copy"), "content"}}));
}

// Where the file is made first; that it cannot be made there keeps the test from leaving one.
void tst_FileUtils::copiesIntoRootDirectory()
{
    QVERIFY(write(at("source"), "content"));
    QStringList places;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            const bool makesFile =
                std::strcmp(call.name, "mkostemp") == 0 || (call.flags & O_TMPFILE) == O_TMPFILE;
            if (makesFile)
                places.append(QFileInfo(QDir::cleanPath(QString::fromUtf8(call.path))).path());
            return makesFile ? EACCES : 0;
        });
        QVERIFY(!m_files.CopyFileOverwrite(at("source"), QStringLiteral("/brimvale-test-copy")));
    }
    QCOMPARE(places, QStringList({QStringLiteral("/"), QStringLiteral("/")}));
    QVERIFY(!isThere(QStringLiteral("/brimvale-test-copy")));
}

// The system would take the part before it for the name.
void tst_FileUtils::namesNothingByNullCharacter()
{
    QVERIFY(write(at("source"), "content"));
    const QString hidden = QLatin1Char('\0') + QStringLiteral("rest");
    QVERIFY(!m_files.copyRecursively(at("source"), at("copy") + hidden));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("source"), at("copy") + hidden, {}));
    QVERIFY(!m_files.copyRecursively(at("source") + hidden, at("copy")));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("source") + hidden, at("copy"), {}));
    QCOMPARE(treeOf(m_directory->path()), Tree({{QStringLiteral("source"), "content"}}));
}

void tst_FileUtils::copiesNameBetweenDirectories()
{
    QVERIFY(QDir().mkdir(at("from")));
    QVERIFY(QDir().mkdir(at("to")));
    QVERIFY(write(at("from/a file"), "content"));

    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(m_files.CopyFileOverwrite(QStringLiteral("a file"), at("from"), at("to")));
    QVERIFY(m_files.CopyFileOverwrite(QStringLiteral("a file"), at("from/"), at("to/")));
    QVERIFY(!m_files.CopyFileOverwrite(QStringLiteral("missing"), QString(), at("to")));

    QCOMPARE(treeOf(at("to")), Tree({{QStringLiteral("a file"), "content"}}));
    // The separator is there once more, whatever the directory ends with.
    QCOMPARE(log.lines(),
             QStringList(
                 {QStringLiteral("TRACE FileUtils::CopyFileOverwrite, copied  %1 ").arg(at("from/a file")),
                  QStringLiteral("TRACE FileUtils::CopyFileOverwrite, copied  %1 ").arg(at("from//a file")),
                  QStringLiteral("TRACE FileUtils::CopyFileOverwrite, failed to copy  /missing ")}));
}

void tst_FileUtils::createsOneDirectory_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("succeeds");
    QTest::addColumn<bool>("isDirectory");
    QTest::newRow("new") << QStringLiteral("new") << true << true;
    QTest::newRow("new with separator") << QStringLiteral("new/") << true << true;
    QTest::newRow("umlauts and newline") << QStringLiteral("\u00c4\n\u00d6") << true << true;
    QTest::newRow("in a directory") << QStringLiteral("there/new") << true << true;
    QTest::newRow("there") << QStringLiteral("there") << true << true;
    QTest::newRow("link to directory") << QStringLiteral("link") << true << true;
    QTest::newRow("two levels") << QStringLiteral("b/c") << false << false;
    QTest::newRow("below a file") << QStringLiteral("file/new") << false << false;
    QTest::newRow("where a file is") << QStringLiteral("file") << false << false;
    QTest::newRow("where a dangling link is") << QStringLiteral("dangling") << false << false;
}

void tst_FileUtils::createsOneDirectory()
{
    QFETCH(QString, path);
    QVERIFY(QDir().mkdir(at("there")));
    QVERIFY(write(at("there/kept"), "kept"));
    QVERIFY(write(at("file"), "content"));
    QVERIFY(link("there", at("link")));
    QVERIFY(link("nowhere", at("dangling")));

    QTEST(m_files.createDir(at(path)), "succeeds");
    QTEST(QFileInfo(at(path)).isDir(), "isDirectory");
    QTEST(m_files.createDir(path), "succeeds"); // in the current directory
    QCOMPARE(read(at("there/kept")), QByteArray("kept"));
    QCOMPARE(read(at("file")), QByteArray("content"));
}

void tst_FileUtils::copiesFilesOfDirectory()
{
    QVERIFY(makeTree(at("from")));
    QVERIFY(QDir().mkdir(at("to")));
    QVERIFY(write(at("to/plain.txt"), "old"));
    QVERIFY(write(at("to/other"), "other"));

    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(m_files.CopyDirOverwrite(at("from"), at("to")));

    Tree expected;
    const Tree source = treeOf(at("from"));
    for (auto entry = source.cbegin(); entry != source.cend(); ++entry) {
        if (!entry.key().contains(QLatin1Char('/')) && entry.value() != "directory"
            && !entry.value().startsWith("->"))
            expected.insert(entry.key(), entry.value());
    }
    QCOMPARE(expected.size(), 7);
    QCOMPARE(log.lines().size(), 7);
    expected.insert(QStringLiteral("other"), "other");
    QCOMPARE(treeOf(at("to")), expected);
}

void tst_FileUtils::copyOfDirectoryGoesOnAfterFailure()
{
    QVERIFY(QDir().mkdir(at("from")));
    QVERIFY(QDir().mkdir(at("to")));
    for (const char* name : {"a", "c", "e", "g"})
        QVERIFY(write(at("from/") + QLatin1String(name), name));
    for (const char* name : {"b", "d", "f"})
        QVERIFY(link("nowhere", at("from/") + QLatin1String(name)));

    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(!m_files.CopyDirOverwrite(at("from"), at("to")));

    QCOMPARE(treeOf(at("to")).keys(), QStringList({QStringLiteral("a"), QStringLiteral("c"),
                                                   QStringLiteral("e"), QStringLiteral("g")}));
    QCOMPARE(log.lines().filter(QStringLiteral("failed to copy")).size(), 3);
    QCOMPARE(log.lines().size(), 7);
}

void tst_FileUtils::copiesEmptyDirectory()
{
    QVERIFY(QDir().mkpath(at("from/sub")));
    QVERIFY(QDir().mkdir(at("to")));
    QVERIFY(m_files.CopyDirOverwrite(at("from"), at("to")));
    QVERIFY(treeOf(at("to")).isEmpty());
}

void tst_FileUtils::doesNotMakeDestinationOfDirectory()
{
    QVERIFY(QDir().mkdir(at("from")));
    QVERIFY(write(at("from/file"), "content"));
    QVERIFY(!m_files.CopyDirOverwrite(at("from"), at("missing")));
    QVERIFY(!isThere(at("missing")));
}

void tst_FileUtils::copiesTree_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<bool>("overwrites");
    for (const bool overwrites : {false, true}) {
        const char* operation = overwrites ? "overwriting" : "new";
        QTest::addRow("%s, plain", operation) << QStringLiteral("copy") << overwrites;
        QTest::addRow("%s, separator at the end", operation) << QStringLiteral("copy/") << overwrites;
        QTest::addRow("%s, blank, umlaut, newline", operation)
            << QStringLiteral("c \u00f6\npy") << overwrites;
    }
}

// Links are followed: the copy holds what they lead to.
void tst_FileUtils::copiesTree()
{
    QFETCH(QString, destination);
    QFETCH(bool, overwrites);
    QVERIFY(makeTree(at("from")));
    Tree expected = treeOf(at("from"));
    QCOMPARE(expected.size(), 14);
    expected[QStringLiteral("sub dir/link to file")] = "plain";
    expected[QStringLiteral("link to directory")] = "directory";
    expected[QStringLiteral("link to directory/deep")] = "deep";

    for (const QString& path : {at(destination), QStringLiteral("relative ") + destination}) {
        QVERIFY(overwrites ? m_files.CopyRecursivelyOverwrite(at("from"), path, {})
                           : m_files.copyRecursively(at("from"), path));
        QCOMPARE(treeOf(QFileInfo(path).absoluteFilePath()), expected);
    }
    QVERIFY(m_files.CopyRecursivelyOverwrite(at("from"), at(destination), {}));
    QCOMPARE(treeOf(at(destination)), expected);
}

void tst_FileUtils::copiesTreeOfResources()
{
    const QByteArray content = read(QStringLiteral(":/builtin/text.txt"));
    const Tree expected({{QStringLiteral("text.txt"), content},
                         {QStringLiteral("below"), "directory"},
                         {QStringLiteral("below/copy.txt"), content}});
    QVERIFY(m_files.copyRecursively(QStringLiteral(":/builtin"), at("copy")));
    QCOMPARE(treeOf(at("copy")), expected);
    QVERIFY(m_files.CopyRecursivelyOverwrite(QStringLiteral(":/builtin"), at("copy"), {}));
    QCOMPARE(treeOf(at("copy")), expected);
}

void tst_FileUtils::copyOfTreeNeedsNewDestination()
{
    QVERIFY(makeTree(at("from")));
    QVERIFY(QDir().mkdir(at("empty")));
    QVERIFY(write(at("file"), "content"));
    QVERIFY(write(at("other file"), "other"));
    QVERIFY(!m_files.copyRecursively(at("from"), at("empty")));
    QVERIFY(treeOf(at("empty")).isEmpty());
    QVERIFY(!m_files.copyRecursively(at("from"), at("file")));
    QVERIFY(!m_files.copyRecursively(at("other file"), at("file")));
    QCOMPARE(read(at("file")), QByteArray("content"));
    QVERIFY(m_files.copyRecursively(at("other file"), at("new file")));
    QCOMPARE(read(at("new file")), QByteArray("other"));
}

void tst_FileUtils::copyOfTreeNeedsParent()
{
    QVERIFY(makeTree(at("from")));
    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(!m_files.copyRecursively(at("from"), at("missing/copy")));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("from"), at("missing/copy"), {}));
    QVERIFY(!isThere(at("missing")));
    QCOMPARE(log.lines(),
             QStringList(QStringLiteral("TRACE could not create dir  \"%1\" ").arg(at("missing/copy"))));
}

void tst_FileUtils::copyOfTreeLogsNothing()
{
    QVERIFY(makeTree(at("from")));
    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(m_files.copyRecursively(at("from"), at("copy")));
    QVERIFY(!m_files.copyRecursively(at("from"), at("copy")));
    QVERIFY(!m_files.copyRecursively(at("missing"), at("other copy")));
    QVERIFY(m_files.removeDir(at("copy")));
    QCOMPARE(log.lines(), QStringList());
}

void tst_FileUtils::copyStopsAtBadLink_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::newRow("dangling") << QByteArray("nowhere");
    QTest::newRow("circular") << QByteArray("link");
}

void tst_FileUtils::copyStopsAtBadLink()
{
    QFETCH(QByteArray, target);
    QVERIFY(QDir().mkdir(at("from")));
    QVERIFY(link(target.constData(), at("from/link")));
    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(!m_files.copyRecursively(at("from"), at("copy")));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("from"), at("copy"), {}));
    QVERIFY(QFileInfo(at("copy")).isDir());
    QVERIFY(treeOf(at("copy")).isEmpty());
    QCOMPARE(log.lines(),
             QStringList(QStringLiteral("TRACE could not copy file  \"%1\" ").arg(at("from/link"))));
}

void tst_FileUtils::copyEndsInCircle_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("destination");
    QTest::newRow("link to its directory") << QStringLiteral("own") << QStringLiteral("copy");
    QTest::newRow("link to a directory above") << QStringLiteral("above") << QStringLiteral("copy");
    QTest::newRow("destination in the source") << QStringLiteral("plain") << QStringLiteral("plain/copy");
    QTest::newRow("link into the destination") << QStringLiteral("into") << QStringLiteral("copy");
}

// The result is a failure, and comes before the medium is full.
void tst_FileUtils::copyEndsInCircle()
{
    QFETCH(QString, source);
    QFETCH(QString, destination);
    QVERIFY(QDir().mkpath(at("own")) && link(".", at("own/circle")));
    QVERIFY(QDir().mkpath(at("above/sub")) && link("..", at("above/sub/circle")));
    QVERIFY(QDir().mkpath(at("plain")));
    QVERIFY(QDir().mkpath(at("into")) && link("../copy", at("into/link")));

    QVERIFY(!m_files.copyRecursively(at(source), at(destination)));
    QVERIFY(treeOf(at(destination)).size() <= 1);
    const LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at(source), at(destination), {}));
    QVERIFY(treeOf(at(destination)).size() <= 1);
    // The directory that would be entered again.
    QVERIFY(
        log.lines().last().startsWith(QStringLiteral("TRACE could not copy file  \"%1/").arg(at(source))));
}

void tst_FileUtils::copiesTreeOverAnother()
{
    QVERIFY(makeTree(at("from")));
    QVERIFY(QDir().mkpath(at("to/sub dir")));
    QVERIFY(write(at("to/plain.txt"), "old and longer than the new"));
    QVERIFY(write(at("to/sub dir/large"), "old"));
    QVERIFY(write(at("to/sub dir/other"), "other"));
    QVERIFY(m_files.CopyRecursivelyOverwrite(at("from"), at("to"), {}));

    Tree expected = treeOf(at("from"));
    expected[QStringLiteral("sub dir/link to file")] = "plain";
    expected[QStringLiteral("link to directory")] = "directory";
    expected[QStringLiteral("link to directory/deep")] = "deep";
    expected[QStringLiteral("sub dir/other")] = "other";
    QCOMPARE(treeOf(at("to")), expected);
}

void tst_FileUtils::copiesOneFileOverAnother()
{
    QVERIFY(write(at("from.txt"), "new"));
    QVERIFY(write(at("to"), "old"));
    // The filters do not apply to what is named.
    QVERIFY(m_files.CopyRecursivelyOverwrite(at("from.txt"), at("to"), {QStringLiteral("*.csv")}));
    QCOMPARE(read(at("to")), QByteArray("new"));
}

void tst_FileUtils::selectsByNameFilters_data()
{
    QTest::addColumn<QStringList>("filters");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none") << QStringList()
                          << QStringList({QStringLiteral("a.txt"), QStringLiteral("b.csv"),
                                          QStringLiteral("data"), QStringLiteral("data/c.txt"),
                                          QStringLiteral("more.txt"), QStringLiteral("more.txt/d.txt"),
                                          QStringLiteral("more.txt/e.csv")});
    QTest::newRow("texts") << QStringList(QStringLiteral("*.txt"))
                           << QStringList({QStringLiteral("a.txt"), QStringLiteral("more.txt"),
                                           QStringLiteral("more.txt/d.txt")});
    QTest::newRow("two") << QStringList({QStringLiteral("*.csv"), QStringLiteral("data")})
                         << QStringList({QStringLiteral("b.csv"), QStringLiteral("data")});
    QTest::newRow("no match") << QStringList(QStringLiteral("*.xml")) << QStringList();
}

void tst_FileUtils::selectsByNameFilters()
{
    QFETCH(QStringList, filters);
    QVERIFY(QDir().mkpath(at("from/data")));
    QVERIFY(QDir().mkpath(at("from/more.txt")));
    for (const char* name : {"a.txt", "b.csv", "data/c.txt", "more.txt/d.txt", "more.txt/e.csv"})
        QVERIFY(write(at("from/") + QLatin1String(name), name));
    QVERIFY(m_files.CopyRecursivelyOverwrite(at("from"), at("to"), filters));
    QVERIFY(QFileInfo(at("to")).isDir());
    QTEST(QStringList(treeOf(at("to")).keys()), "names");
}

void tst_FileUtils::logsCopyOfTree()
{
    QVERIFY(QDir().mkpath(at("from/sub")));
    QVERIFY(write(at("from/sub/file"), "content"));
    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(m_files.CopyRecursivelyOverwrite(at("from"), at("to"), {}));
    QVERIFY(m_files.CopyRecursivelyOverwrite(at("from"), at("to"), {}));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("missing"), at("to"), {}));
    QCOMPARE(log.lines(),
             QStringList({QStringLiteral("TRACE created dir  \"%1\" ").arg(at("to")),
                          QStringLiteral("TRACE created dir  \"%1\" ").arg(at("to/sub")),
                          QStringLiteral("TRACE copied file \"%1\" ").arg(at("from/sub/file")),
                          QStringLiteral("TRACE copied file \"%1\" ").arg(at("from/sub/file")),
                          QStringLiteral("TRACE could not copy file  \"%1\" ").arg(at("missing"))}));
}

void tst_FileUtils::logsNothingAboveTrace()
{
    QVERIFY(QDir().mkpath(at("from/sub")));
    QVERIFY(write(at("from/file"), "content"));
    QVERIFY(QFile::link(at("from"), at("from/sub/circle")));
    QVERIFY(write(at("old"), "old"));

    const LogRecorder log(QsLogging::DebugLevel);
    QVERIFY(m_files.CopyFileOverwrite(at("from/file"), at("copy")));
    QVERIFY(!m_files.CopyFileOverwrite(at("missing"), at("copy")));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("from"), at("to"), {}));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("from"), at("missing/to"), {}));
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("missing"), at("copy"), {}));
    {
        const SystemCalls::Watching watching(
            [](const SystemCalls::Call& call) { return std::strcmp(call.name, "unlink") == 0 ? EPERM : 0; });
        QVERIFY(!m_files.CopyRecursivelyOverwrite(at("from/file"), at("old"), {}));
    }
    QCOMPARE(read(at("old")), QByteArray("old"));
    QCOMPARE(log.lines(), QStringList());
}

void tst_FileUtils::doesNotReplaceFileByDirectory()
{
    QVERIFY(QDir().mkpath(at("from/name")));
    QVERIFY(QDir().mkpath(at("to")));
    QVERIFY(write(at("to/name"), "content"));
    LogRecorder log(QsLogging::TraceLevel);
    QVERIFY(!m_files.CopyRecursivelyOverwrite(at("from"), at("to"), {}));
    QCOMPARE(read(at("to/name")), QByteArray("content"));
    QCOMPARE(log.lines(),
             QStringList(QStringLiteral("TRACE could not create dir  \"%1\" ").arg(at("to/name"))));
}

void tst_FileUtils::survivesVanishingSource_data()
{
    QTest::addColumn<bool>("overwrites");
    QTest::newRow("new") << false;
    QTest::newRow("overwriting") << true;
}

// The source goes while its first file is copied.
void tst_FileUtils::survivesVanishingSource()
{
    QFETCH(bool, overwrites);
    QVERIFY(QDir().mkdir(at("from")));
    for (int i = 0; i < 5; ++i)
        QVERIFY(write(at(QStringLiteral("from/%1").arg(i)), "content"));
    bool vanished = false;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            if (!vanished && std::strcmp(call.name, "fchmod") == 0)
                vanished = QDir(at("from")).removeRecursively();
            return 0;
        });
        QVERIFY(!(overwrites ? m_files.CopyRecursivelyOverwrite(at("from"), at("copy"), {})
                             : m_files.copyRecursively(at("from"), at("copy"))));
    }
    QVERIFY(vanished);
    // What was copied stays, whole.
    QCOMPARE(treeOf(at("copy")).values(), QList<QByteArray>({"content"}));
}

void tst_FileUtils::survivesVanishingDestination_data()
{
    addPublishings();
}

void tst_FileUtils::survivesVanishingDestination()
{
    QFETCH(int, publishing);
    QVERIFY(makeTree(at("from")));
    bool vanished = false;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            const int error = errorFor(call, publishing);
            if (error == 0 && !vanished && std::strcmp(call.name, "fchmod") == 0)
                vanished = QDir(at("copy")).removeRecursively();
            return error;
        });
        QVERIFY(!m_files.CopyRecursivelyOverwrite(at("from"), at("copy"), {}));
    }
    QVERIFY(vanished);
    QVERIFY(!isThere(at("copy")));
}

void tst_FileUtils::survivesVanishingTreeThatIsRemoved()
{
    QVERIFY(makeTree(at("tree")));
    bool vanished = false;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            if (!vanished && std::strcmp(call.name, "unlink") == 0)
                vanished = QDir(at("tree")).removeRecursively();
            return 0;
        });
        QVERIFY(!m_files.removeDir(at("tree")));
    }
    QVERIFY(vanished);
    QVERIFY(m_files.removeDir(at("tree")));
}

void tst_FileUtils::removesTree()
{
    QVERIFY(makeTree(at("tree")));
    QVERIFY(QDir().mkpath(at("outside/sub")));
    QVERIFY(write(at("outside/sub/kept"), "kept"));
    QVERIFY(link("nowhere", at("tree/dangling")));
    QVERIFY(link("circular", at("tree/circular")));
    QVERIFY(link("..", at("tree/sub dir/above")));
    QVERIFY(link("../outside", at("tree/link outside")));
    QVERIFY(link("../../outside/sub/kept", at("tree/sub dir/link to file outside")));
    QCOMPARE(::mkfifo(native(at("tree/pipe")).constData(), 0600), 0);

    QVERIFY(m_files.removeDir(at("tree")));
    QCOMPARE(treeOf(m_directory->path()), Tree({{QStringLiteral("outside"), "directory"},
                                                {QStringLiteral("outside/sub"), "directory"},
                                                {QStringLiteral("outside/sub/kept"), "kept"}}));
}

void tst_FileUtils::removesLinkButNotItsTarget_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("ending");
    QTest::newRow("link") << QStringLiteral("link") << QString();
    QTest::newRow("link to a link") << QStringLiteral("link to link") << QString();
    QTest::newRow("separator behind") << QStringLiteral("link") << QStringLiteral("/");
    QTest::newRow("two separators behind") << QStringLiteral("link") << QStringLiteral("//");
    QTest::newRow("point behind") << QStringLiteral("link") << QStringLiteral("/.");
}

void tst_FileUtils::removesLinkButNotItsTarget()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkdir(at("tree")));
    QVERIFY(write(at("tree/kept"), "kept"));
    QVERIFY(link("tree", at("link")));
    QVERIFY(link("link", at("link to link")));
    QFETCH(QString, ending);
    QVERIFY(m_files.removeDir(at(name) + ending));
    QVERIFY(!isThere(at(name)));
    QCOMPARE(treeOf(at("tree")), Tree({{QStringLiteral("kept"), "kept"}}));
}

void tst_FileUtils::doesNotRemoveFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("file") << QStringLiteral("file");
    QTest::newRow("link to file") << QStringLiteral("link");
}

void tst_FileUtils::doesNotRemoveFile()
{
    QFETCH(QString, name);
    QVERIFY(write(at("file"), "content"));
    QVERIFY(link("file", at("link")));
    QVERIFY(!m_files.removeDir(at(name)));
    QVERIFY(isThere(at(name)));
    QCOMPARE(read(at("file")), QByteArray("content"));
}

void tst_FileUtils::nothingToRemove()
{
    QVERIFY(link("nowhere", at("dangling")));
    QVERIFY(m_files.removeDir(at("missing")));
    QVERIFY(m_files.removeDir(at("missing/too")));
    QVERIFY(m_files.removeDir(at("dangling")));
    // No path is not the current directory.
    QVERIFY(m_files.removeDir(QString()));
    QVERIFY(isThere(at("dangling")));
}

void tst_FileUtils::relativePathRemovesNothing()
{
    QVERIFY(QDir().mkdir(at("tree")));
    QVERIFY(write(at("tree/kept"), "kept"));
    QVERIFY(m_files.removeDir(QStringLiteral("tree")));
    QVERIFY(m_files.removeDir(QStringLiteral("./tree")));
    QCOMPARE(treeOf(at("tree")), Tree({{QStringLiteral("kept"), "kept"}}));
}

void tst_FileUtils::removalStopsAtFailure()
{
    QVERIFY(QDir().mkpath(at("tree/sub")));
    QVERIFY(write(at("tree/sub/stuck"), "stuck"));
    QVERIFY(write(at("tree/kept"), "kept"));
    const Tree before = treeOf(at("tree"));
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            return std::strcmp(call.name, "unlink") == 0 && call.path == native(at("tree/sub/stuck")) ? EBUSY
                                                                                                      : 0;
        });
        QVERIFY(!m_files.removeDir(at("tree")));
    }
    // Directories come first, so nothing was removed yet.
    QCOMPARE(treeOf(at("tree")), before);
}

void tst_FileUtils::createsFile_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << QStringLiteral("a text\nof two lines\n");
    QTest::newRow("umlauts") << QStringLiteral("Gr\u00f6\u00dfe \u00b5g");
    QTest::newRow("empty") << QString();
    QTest::newRow("long") << QString(100000, QLatin1Char('x'));
}

void tst_FileUtils::createsFile()
{
    QFETCH(QString, text);
    QVERIFY(m_files.CreateFile(at("file \u00f6"), text));
    QCOMPARE(read(at("file \u00f6")), text.toUtf8());
    QVERIFY(write(at("file"), QByteArray(200000, 'o')));
    QVERIFY(m_files.CreateFile(at("file"), text));
    QCOMPARE(read(at("file")), text.toUtf8());
}

void tst_FileUtils::createsFileInEncodingOfLocale()
{
    QTextCodec* const codec = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    const bool created = m_files.CreateFile(at("created"), QStringLiteral("\u00f6"));
    const QString line = m_files.ReadFile(at("created"));
    const bool appended = m_files.WriteFile(at("appended"), QStringLiteral("\u00f6"), QByteArray(), false);
    QTextCodec::setCodecForLocale(codec);

    QVERIFY(created);
    QVERIFY(appended);
    QCOMPARE(read(at("created")), QByteArray("\xf6"));
    QCOMPARE(line, QStringLiteral("\u00f6"));
    QCOMPARE(read(at("appended")), QByteArray("\xc3\xb6")); // always UTF-8
}

void tst_FileUtils::cannotCreateFile()
{
    QVERIFY(QDir().mkdir(at("directory")));
    QVERIFY(!m_files.CreateFile(at("missing/file"), QStringLiteral("text")));
    QVERIFY(!m_files.CreateFile(at("directory"), QStringLiteral("text")));
    QCOMPARE(treeOf(m_directory->path()), Tree({{QStringLiteral("directory"), "directory"}}));
}

void tst_FileUtils::readsFirstLine_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("line");
    QTest::newRow("several lines") << QByteArray("first\nsecond\nthird\n") << QStringLiteral("first");
    QTest::newRow("one line without end") << QByteArray("only") << QStringLiteral("only");
    QTest::newRow("carriage return") << QByteArray("first\r\nsecond") << QStringLiteral("first");
    QTest::newRow("empty first line") << QByteArray("\nsecond") << QString();
    QTest::newRow("umlauts") << QByteArray("Gr\xc3\xb6\xc3\x9f"
                                           "e\n")
                             << QStringLiteral("Gr\u00f6\u00dfe");
    QTest::newRow("empty") << QByteArray("") << QString();
    QTest::newRow("long") << QByteArray(100000, 'x') + "\ny" << QString(100000, QLatin1Char('x'));
}

void tst_FileUtils::readsFirstLine()
{
    QFETCH(QByteArray, content);
    QVERIFY(write(at("file"), content));
    QTEST(m_files.ReadFile(at("file")), "line");
    QCOMPARE(read(at("file")), content);
}

void tst_FileUtils::readsNothingWhereNothingIs()
{
    QCOMPARE(m_files.ReadFile(at("missing")), QString());
    QCOMPARE(m_files.ReadFile(m_directory->path()), QString());
    QVERIFY(!isThere(at("missing")));
}

void tst_FileUtils::appends_data()
{
    QTest::addColumn<bool>("isBinary");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("text") << false
                          << QByteArray("old\nGr\xc3\xb6\xc3\x9f"
                                        "eGr\xc3\xb6\xc3\x9f"
                                        "e");
    QTest::newRow("bytes") << true << QByteArray("old\n\0\r\n\xff\0\r\n\xff", 12);
}

void tst_FileUtils::appends()
{
    QFETCH(bool, isBinary);
    QFETCH(QByteArray, expected);
    const QString text = QStringLiteral("Gr\u00f6\u00dfe");
    const QByteArray data("\0\r\n\xff", 4);
    QVERIFY(write(at("file"), "old\n"));
    for (const char* name : {"file", "new"}) {
        QVERIFY(m_files.WriteFile(at(name), text, data, isBinary));
        QVERIFY(m_files.WriteFile(at(name), text, data, isBinary));
    }
    QCOMPARE(read(at("file")), expected);
    QCOMPARE(read(at("new")), expected.mid(4));
}

void tst_FileUtils::cannotAppend()
{
    QVERIFY(QDir().mkdir(at("directory")));
    for (const bool isBinary : {false, true}) {
        QVERIFY(!m_files.WriteFile(at("missing/file"), QStringLiteral("text"), "data", isBinary));
        QVERIFY(!m_files.WriteFile(at("directory"), QStringLiteral("text"), "data", isBinary));
    }
    QCOMPARE(treeOf(m_directory->path()), Tree({{QStringLiteral("directory"), "directory"}}));
}

void tst_FileUtils::syncsWhatIsWritten_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("created") << QStringLiteral("create") << QByteArray("text");
    QTest::newRow("text appended") << QStringLiteral("text") << QByteArray("oldtext");
    QTest::newRow("bytes appended") << QStringLiteral("bytes") << QByteArray("oldbytes");
}

// Once, for the file that was written, when everything is in it and before it is closed.
void tst_FileUtils::syncsWhatIsWritten()
{
    QFETCH(QString, operation);
    QFETCH(QByteArray, content);
    QVERIFY(write(at("file"), "old"));
    QStringList calls;
    bool succeeded = false;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            const bool isSync = std::strcmp(call.name, "fsync") == 0;
            if (isSync || std::strcmp(call.name, "close") == 0) {
                const QString descriptor = QStringLiteral("/proc/self/fd/%1").arg(call.descriptor);
                const QString path = QFile::symLinkTarget(descriptor);
                calls.append(QLatin1String(call.name) + QLatin1Char(' ') + path);
                if (isSync)
                    calls.append(QString::fromUtf8(read(path)));
            }
            return 0;
        });
        if (operation == QLatin1String("create"))
            succeeded = m_files.CreateFile(at("file"), QStringLiteral("text"));
        else
            succeeded = m_files.WriteFile(at("file"), QStringLiteral("text"), "bytes",
                                          operation == QLatin1String("bytes"));
    }
    QVERIFY(succeeded);
    QCOMPARE(calls, QStringList({QStringLiteral("fsync ") + at("file"), QString::fromUtf8(content),
                                 QStringLiteral("close ") + at("file")}));
}

void tst_FileUtils::reportsOnlyWhetherFileWasOpened()
{
    const SystemCalls::Watching watching([](const SystemCalls::Call& call) {
        const bool isFailing = std::strcmp(call.name, "write") == 0 || std::strcmp(call.name, "fsync") == 0;
        return isFailing ? EIO : 0;
    });
    QVERIFY(m_files.CreateFile(at("file"), QStringLiteral("text")));
    QVERIFY(m_files.WriteFile(at("file"), QStringLiteral("text"), "data", false));
    QVERIFY(m_files.WriteFile(at("file"), QStringLiteral("text"), "data", true));
}

void tst_FileUtils::ordinaryUserAndUnreadableFile()
{
    const QStringList results = asOrdinaryUser([&] {
        LogRecorder log(QsLogging::TraceLevel);
        QStringList results({textOf(QDir().mkdir(at("from")) && write(at("from/secret"), "secret")
                                    && setMode(at("from/secret"), 0000) && write(at("copy"), "old"))});
        results.append(textOf(m_files.fileExists(at("from/secret"))));
        results.append(textOf(m_files.copyRecursively(at("from"), at("new"))));
        results.append(textOf(m_files.CopyRecursivelyOverwrite(at("from"), at("new"), {})));
        results.append(textOf(m_files.CopyFileOverwrite(at("from/secret"), at("copy"))));
        results.append(textOf(m_files.CreateFile(at("from/secret"), QStringLiteral("text"))));
        results.append(textOf(m_files.WriteFile(at("from/secret"), QStringLiteral("text"), "data", true)));
        results.append(m_files.ReadFile(at("from/secret")));
        results.append(textOf(m_files.removeDir(at("from"))));
        return results + log.lines();
    });
    QCOMPARE(results,
             QStringList({QStringLiteral("true"), QStringLiteral("true"), QStringLiteral("false"),
                          QStringLiteral("false"), QStringLiteral("false"), QStringLiteral("false"),
                          QStringLiteral("false"), QString(), QStringLiteral("true"),
                          QStringLiteral("TRACE could not copy file  \"%1\" ").arg(at("from/secret")),
                          QStringLiteral("TRACE FileUtils::CopyFileOverwrite, failed to copy  %1 ")
                              .arg(at("from/secret"))}));
    // The old file goes first.
    QCOMPARE(treeOf(m_directory->path()), Tree({{QStringLiteral("new"), "directory"}}));
}

void tst_FileUtils::ordinaryUserAndReadOnlyDirectory()
{
    const QStringList results = asOrdinaryUser([&] {
        QStringList results(
            {textOf(write(at("file"), "new") && QDir().mkpath(at("from/sub")) && write(at("from/file"), "new")
                    && QDir().mkdir(at("to")) && write(at("to/file"), "old") && setMode(at("to"), 0555))});
        LogRecorder log(QsLogging::TraceLevel);
        results.append(textOf(m_files.CopyFileOverwrite(at("file"), at("to/file"))));
        results.append(textOf(m_files.CopyFileOverwrite(at("file"), at("to/new"))));
        results.append(textOf(m_files.CopyRecursivelyOverwrite(at("file"), at("to/file"), {})));
        results.append(textOf(m_files.CopyRecursivelyOverwrite(at("file"), at("to/new"), {})));
        results.append(textOf(m_files.CopyRecursivelyOverwrite(at("from/sub"), at("to/sub"), {})));
        results.append(textOf(m_files.copyRecursively(at("from/sub"), at("to/sub"))));
        results.append(textOf(m_files.createDir(at("to/sub"))));
        results.append(textOf(m_files.createDir(at("to"))));
        results.append(textOf(m_files.CreateFile(at("to/new"), QStringLiteral("text"))));
        results.append(textOf(m_files.WriteFile(at("to/new"), QStringLiteral("text"), "data", true)));
        results.append(log.lines());
        return results;
    });
    QCOMPARE(results,
             QStringList(
                 {QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("false"),
                  QStringLiteral("false"), QStringLiteral("false"), QStringLiteral("false"),
                  QStringLiteral("false"), QStringLiteral("false"), QStringLiteral("true"),
                  QStringLiteral("false"), QStringLiteral("false"),
                  QStringLiteral("TRACE FileUtils::CopyFileOverwrite, failed to copy  %1 ").arg(at("file")),
                  QStringLiteral("TRACE FileUtils::CopyFileOverwrite, failed to copy  %1 ").arg(at("file")),
                  QStringLiteral("TRACE could not remove old file  \"%1\" ").arg(at("to/file")),
                  QStringLiteral("TRACE could not copy file  \"%1\" ").arg(at("file")),
                  QStringLiteral("TRACE could not create dir  \"%1\" ").arg(at("to/sub"))}));
    QCOMPARE(treeOf(at("to")), Tree({{QStringLiteral("file"), "old"}}));
    QVERIFY(setMode(at("to"), 0755));
}

void tst_FileUtils::ordinaryUserAndReadOnlyTree()
{
    const QStringList results = asOrdinaryUser([&] {
        return QStringList({textOf(QDir().mkpath(at("tree/sub")) && write(at("tree/sub/file"), "content")
                                   && setMode(at("tree/sub"), 0555)),
                            textOf(m_files.copyRecursively(at("tree"), at("copy"))),
                            textOf(m_files.removeDir(at("tree")))});
    });
    QCOMPARE(results, QStringList({QStringLiteral("true"), QStringLiteral("true"), QStringLiteral("false")}));
    QCOMPARE(read(at("tree/sub/file")), QByteArray("content"));
    QCOMPARE(read(at("copy/sub/file")), QByteArray("content"));
    QVERIFY(setMode(at("tree/sub"), 0755));
}

void tst_FileUtils::fullMedium_data()
{
    addPublishings();
}

// A medium of a few pages, which only this process sees.
void tst_FileUtils::fullMedium()
{
    QFETCH(int, publishing);
    if (::geteuid() != 0)
        QSKIP("mounting a small file system needs the rights of root");
    QVERIFY(QDir().mkdir(at("medium")));
    QVERIFY(QDir().mkdir(at("from")));
    QVERIFY(write(at("from/small"), "small"));
    QVERIFY(write(at("from/large"), longContent(2 * MediumSize)));
    const QString notMounted = QStringLiteral("not mounted: ");

    const QStringList results = inChild([&]() -> QStringList {
        const QByteArray options = "size=" + QByteArray::number(MediumSize);
        if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
            || ::mount("tmpfs", native(at("medium")).constData(), "tmpfs", 0, options.constData()) != 0)
            return {notMounted + QString::fromLocal8Bit(std::strerror(errno))};
        const SystemCalls::Watching watching(
            [&](const SystemCalls::Call& call) { return errorFor(call, publishing); });
        LogRecorder log(QsLogging::TraceLevel);
        QStringList results;
        results.append(textOf(m_files.CopyFileOverwrite(at("from/large"), at("medium/large"))));
        results.append(textOf(m_files.CopyRecursivelyOverwrite(at("from/large"), at("medium/large"), {})));
        results.append(textOf(m_files.CopyFileOverwrite(at("from/small"), at("medium/small"))));
        results.append(textOf(m_files.copyRecursively(at("from"), at("medium/copy"))));
        results.append(textOf(isThere(at("medium/copy/large"))));
        results.append(
            textOf(m_files.WriteFile(at("medium/written"), QString(), longContent(2 * MediumSize), true)));
        results.append(treeOf(at("medium")).keys().filter(QRegularExpression(QStringLiteral("^[^/]*$"))));
        return results + log.lines();
    });
    if (results.value(0).startsWith(notMounted))
        QSKIP(qPrintable(results.value(0)));
    QCOMPARE(
        results,
        QStringList(
            {QStringLiteral("false"), QStringLiteral("false"), QStringLiteral("true"),
             QStringLiteral("false"), QStringLiteral("false"), QStringLiteral("true"), QStringLiteral("copy"),
             QStringLiteral("small"), QStringLiteral("written"),
             QStringLiteral("TRACE FileUtils::CopyFileOverwrite, failed to copy  %1 ").arg(at("from/large")),
             QStringLiteral("TRACE could not copy file  \"%1\" ").arg(at("from/large")),
             QStringLiteral("TRACE FileUtils::CopyFileOverwrite, copied  %1 ").arg(at("from/small"))}));
}

void tst_FileUtils::failedWriteLeavesNothing_data()
{
    QTest::addColumn<int>("publishing");
    QTest::addColumn<QByteArray>("failing");
    QTest::newRow("write, unnamed") << int(Unnamed) << QByteArray("write");
    QTest::newRow("write, named") << int(Renamed) << QByteArray("write");
    QTest::newRow("close, named") << int(Renamed) << QByteArray("close");
    QTest::newRow("read, unnamed") << int(Unnamed) << QByteArray("read");
    QTest::newRow("read, named") << int(Renamed) << QByteArray("read");
}

void tst_FileUtils::failedWriteLeavesNothing()
{
    QFETCH(int, publishing);
    QFETCH(QByteArray, failing);
    QVERIFY(QDir().mkdir(at("to")));
    QVERIFY(write(at("source"), longContent(300000)));
    SystemCalls::setLargestStep(50000);
    int count = 0;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            if (std::strcmp(call.name, "copy_file_range") == 0)
                return ENOSYS;
            if (call.name == failing && (failing == "close" || ++count > 3))
                return EIO;
            return errorFor(call, publishing);
        });
        QVERIFY(!m_files.copyRecursively(at("source"), at("to/copy")));
    }
    QVERIFY(treeOf(at("to")).isEmpty());
}

void tst_FileUtils::killLeavesNoPartOfFile_data()
{
    addPublishings();
}

// The process is killed at its first call into the system, at its second and so on, until it comes to the end: whatever
// bears a name that is copied is the whole file, the old or the new.
void tst_FileUtils::killLeavesNoPartOfFile()
{
    QFETCH(int, publishing);
    const QByteArray large = longContent(40000);
    const QByteArray old = longContent(900);
    QVERIFY(QDir().mkpath(at("from/sub")));
    QVERIFY(write(at("from/large"), large));
    QVERIFY(write(at("from/sub/small"), "small"));

    int killed = 0;
    for (int last = 1; last < 1000; ++last) {
        QVERIFY(m_files.removeDir(at("to")));
        QVERIFY(QDir().mkdir(at("to")));
        QVERIFY(write(at("to/large"), old));
        const int status = statusOfChild([&] {
            int calls = 0;
            SystemCalls::setLargestStep(9000);
            const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
                if (++calls == last)
                    ::kill(::getpid(), SIGKILL);
                // Through a buffer at every other attempt.
                if (last % 2 == 0 && std::strcmp(call.name, "copy_file_range") == 0)
                    return ENOSYS;
                return errorFor(call, publishing);
            });
            return m_files.CopyRecursivelyOverwrite(at("from"), at("to"), {}) ? 0 : 1;
        });
        const QByteArray copy = read(at("to/large"));
        const QByteArray small = read(at("to/sub/small"));
        QVERIFY2(copy.isNull() || copy == old || copy == large, qPrintable(QString::number(last)));
        QVERIFY2(small.isNull() || small == "small", qPrintable(QString::number(last)));
        const Tree tree = treeOf(at("to"));
        for (const QString& name : tree.keys()) {
            const bool isKnown = name == QLatin1String("large") || name == QLatin1String("sub")
                                 || name == QLatin1String("sub/small");
            const bool isTemporary =
                publishing != Unnamed && QFileInfo(name).fileName().startsWith(QLatin1String(".copy."));
            QVERIFY2(isKnown || isTemporary, qPrintable(name));
        }
        if (status == 0) {
            QCOMPARE(tree, Tree({{QStringLiteral("large"), large},
                                 {QStringLiteral("sub"), "directory"},
                                 {QStringLiteral("sub/small"), "small"}}));
            // Enough moments lie before the end, between the parts of the large file too.
            QVERIFY2(killed > 15, qPrintable(QString::number(killed)));
            return;
        }
        QCOMPARE(status, -SIGKILL);
        ++killed;
    }
    QFAIL("the copy never came to its end");
}

QTEST_GUILESS_MAIN(tst_FileUtils)

#include "tst_fileutils.moc"
