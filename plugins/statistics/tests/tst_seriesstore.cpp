// SPDX-License-Identifier: BSD-3-Clause
#include "SeriesStore.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <cstdio>
#include <ctime>
#include <sys/resource.h>

using namespace Brimvale;

namespace
{

/// The weighing number `number`: all of it follows from the number, so that half of one is noticed.
StatisticsValue weighing(int number)
{
    const QDateTime time(QDate(2026, 1, 2), QTime(3, 4, 5, 6), Qt::UTC);
    return StatisticsValue(number * 1000003LL, number % 4, QStringLiteral("g"), StatisticsValue::Calculated,
                           time.addSecs(number), true);
}

bool isWeighing(StatisticsValue stored, int number)
{
    const StatisticsValue expected = weighing(number);
    return stored.isEqual(&expected);
}

/// The process that is killed: writes weighings for ever, and tells the number of each one that is confirmed.
int writeForEver(const QString& folder, rlim_t largestFile)
{
    SeriesStore store(folder);
    WeighingSeries series;
    if (!store.open(&series)) {
        std::fprintf(stderr, "%s\n", qPrintable(store.error()));
        return 2;
    }
    if (largestFile > 0) {
        // The write that goes beyond this size is cut short there, and the next ends the process.
        const rlimit limit{largestFile, largestFile};
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    for (int number = series.count() + 1; store.append(weighing(number)); ++number) {
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
    return 3;
}

} // namespace

/// What is kept, and what comes back after every kind of end.
class TestSeriesStore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void emptyAtFirst();
    void keepsWeighings();
    void keepsOddUnits();
    void undoAndClear();
    void keepsSettings();
    void survivesKill_data();
    void survivesKill();
    void survivesKillWithinAWrite_data();
    void survivesKillWithinAWrite();
    void damagedFileIsSetAside_data();
    void damagedFileIsSetAside();
    void logOfADamagedFileIsKept();
    void damagedFilesAreNumbered();
    void foreignValues_data();
    void foreignValues();
    void secondProgramIsRefused();
    void newerVersionIsRefused();
    void folderThatCannotBeMade();
    void fullMedium();
    void closedStoreRefuses();

private:
    QString folder() const { return m_folder->filePath(QStringLiteral("statistics")); }
    QString file() const { return folder() + QStringLiteral("/series.sqlite"); }
    /// The count of stored weighings; -1 when they cannot be opened, -2 when one is not whole or in its place.
    int storedCount(bool* setAside = nullptr);
    void fill(int count);
    QByteArray content() const;
    void setContent(const QByteArray& content) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestSeriesStore::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

int TestSeriesStore::storedCount(bool* setAside)
{
    SeriesStore store(folder());
    WeighingSeries series;
    if (!store.open(&series)) {
        qWarning("%s", qPrintable(store.error()));
        return -1;
    }
    if (setAside != nullptr) {
        *setAside = !store.damagedFile().isEmpty();
    } else if (!store.damagedFile().isEmpty()) {
        return -1;
    }
    for (int i = 0; i < series.count(); ++i) {
        if (!isWeighing(series.weighings().at(static_cast<std::size_t>(i)), i + 1)) {
            return -2;
        }
    }
    return series.count();
}

void TestSeriesStore::fill(int count)
{
    SeriesStore store(folder());
    WeighingSeries series;
    QVERIFY2(store.open(&series), qPrintable(store.error()));
    for (int number = 1; number <= count; ++number) {
        QVERIFY2(store.append(weighing(number)), qPrintable(store.error()));
    }
}

QByteArray TestSeriesStore::content() const
{
    QFile stored(file());
    return stored.open(QIODevice::ReadOnly) ? stored.readAll() : QByteArray();
}

void TestSeriesStore::setContent(const QByteArray& content) const
{
    QFile stored(file());
    QVERIFY(stored.open(QIODevice::WriteOnly));
    QCOMPARE(stored.write(content), qint64(content.size()));
}

void TestSeriesStore::emptyAtFirst()
{
    QCOMPARE(storedCount(), 0);
    QCOMPARE(storedCount(), 0);
}

void TestSeriesStore::keepsWeighings()
{
    fill(300);
    QCOMPARE(storedCount(), 300);
}

void TestSeriesStore::keepsOddUnits()
{
    const QStringList units = {QString(), QStringLiteral("'; DROP TABLE weighing; --"),
                               QStringLiteral("\"µg\"")};
    for (const QString& unit : units) {
        StatisticsValue odd = weighing(1);
        odd.unit = unit;
        WeighingSeries series;
        {
            SeriesStore store(folder());
            QVERIFY(store.open(&series));
            QVERIFY(store.clear());
            QVERIFY2(store.append(odd), qPrintable(store.error()));
        }
        SeriesStore store(folder());
        QVERIFY(store.open(&series));
        QCOMPARE(series.count(), 1);
        QCOMPARE(series.unit(), unit);
    }
}

void TestSeriesStore::undoAndClear()
{
    fill(3);
    {
        SeriesStore store(folder());
        WeighingSeries series;
        QVERIFY(store.open(&series));
        QVERIFY(store.removeLast());
    }
    QCOMPARE(storedCount(), 2);
    {
        SeriesStore store(folder());
        WeighingSeries series;
        QVERIFY(store.open(&series));
        QVERIFY(store.append(weighing(3)));
        QVERIFY(store.clear());
        QVERIFY(store.removeLast()); // nothing is left to take out
        QVERIFY(store.append(weighing(1)));
    }
    QCOMPARE(storedCount(), 1);
}

void TestSeriesStore::keepsSettings()
{
    WeighingSeries series;
    {
        SeriesStore store(folder());
        QVERIFY(store.open(&series));
        QCOMPARE(store.setting(QStringLiteral("threshold"), QStringLiteral("7")), QStringLiteral("7"));
        QVERIFY(store.setSetting(QStringLiteral("threshold"), QStringLiteral("8")));
        QVERIFY(store.setSetting(QStringLiteral("threshold"), QStringLiteral("9")));
    }
    SeriesStore store(folder());
    QVERIFY(store.open(&series));
    QCOMPARE(store.setting(QStringLiteral("threshold"), QStringLiteral("7")), QStringLiteral("9"));
}

void TestSeriesStore::survivesKill_data()
{
    QTest::addColumn<int>("confirmed");
    QTest::addColumn<int>("delayUs");
    for (int round = 0; round < 12; ++round) {
        QTest::addRow("kill %d", round) << 1 + round * 7 << round * 137 % 1000;
    }
}

void TestSeriesStore::survivesKill()
{
    QFETCH(int, confirmed);
    QFETCH(int, delayUs);
    int before = 0;
    // Again on the same file: the second begins with what the first has left.
    for (int again = 0; again < 2; ++again) {
        QProcess writer;
        writer.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--write"), folder()});
        QByteArray output;
        while (output.count('\n') < confirmed && writer.waitForReadyRead(10000)) {
            output += writer.readAllStandardOutput();
        }
        QVERIFY2(output.count('\n') >= confirmed, writer.readAllStandardError().constData());
        const timespec delay{0, delayUs * 1000L};
        nanosleep(&delay, nullptr);
        QCOMPARE(::kill(static_cast<pid_t>(writer.processId()), SIGKILL), 0);
        QVERIFY(writer.waitForFinished());
        output += writer.readAllStandardOutput();
        const int told = before + output.count('\n');
        const int stored = storedCount();
        // The last one may have been stored and not been told of any more.
        QVERIFY2(stored == told || stored == told + 1,
                 qPrintable(QStringLiteral("%1 stored, %2 confirmed").arg(stored).arg(told)));
        before = stored;
    }
}

void TestSeriesStore::survivesKillWithinAWrite_data()
{
    QTest::addColumn<int>("largestFile");
    // The write-ahead log begins with 32 bytes; a frame of it has 24 bytes and a page of 4096.
    const int frame = 24 + 4096;
    for (int bytes : {20000, 32 + 5 * frame, 32 + 5 * frame + 1, 32 + 5 * frame + 24, 32 + 6 * frame - 1,
                      50000, 32 + 15 * frame + 2000, 99999}) {
        QTest::addRow("%d bytes", bytes) << bytes;
    }
}

void TestSeriesStore::survivesKillWithinAWrite()
{
    QFETCH(int, largestFile);
    fill(0); // the tables; the limit is for the weighings
    QProcess writer;
    writer.start(QCoreApplication::applicationFilePath(),
                 {QStringLiteral("--write"), folder(), QString::number(largestFile)});
    QVERIFY(writer.waitForFinished(30000));
    QCOMPARE(writer.exitStatus(), QProcess::CrashExit);
    QCOMPARE(writer.exitCode(), int(SIGXFSZ)); // in the middle of a write
    const int told = writer.readAllStandardOutput().count('\n');
    QVERIFY(told > 0);
    const int stored = storedCount();
    QVERIFY2(stored == told || stored == told + 1,
             qPrintable(QStringLiteral("%1 stored, %2 confirmed").arg(stored).arg(told)));
    QCOMPARE(storedCount(), stored);
}

void TestSeriesStore::damagedFileIsSetAside_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("size");
    QTest::newRow("header overwritten") << 0 << 100;
    QTest::newRow("schema overwritten") << 100 << 200;
    QTest::newRow("a page overwritten") << 2 * 4096 << 4096;
    QTest::newRow("all overwritten") << 0 << 1000000;
}

void TestSeriesStore::damagedFileIsSetAside()
{
    QFETCH(int, from);
    QFETCH(int, size);
    fill(500);
    QByteArray damaged = content();
    QVERIFY(damaged.size() > 4 * 4096);
    for (int i = from; i < qMin(from + size, damaged.size()); ++i) {
        damaged[i] = static_cast<char>(0xA5 ^ (i * 31));
    }
    setContent(damaged);

    SeriesStore store(folder());
    WeighingSeries series;
    QVERIFY2(store.open(&series), qPrintable(store.error()));
    QCOMPARE(series.count(), 0);
    QCOMPARE(store.damagedFile(), folder() + QStringLiteral("/series.damaged-1.sqlite"));
    QFile kept(store.damagedFile());
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QVERIFY(kept.readAll() == damaged); // nothing is lost that was there
    QVERIFY(store.append(weighing(1)));
    store.close();
    QCOMPARE(storedCount(), 1);
}

void TestSeriesStore::logOfADamagedFileIsKept()
{
    fill(1);
    QProcess writer;
    writer.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--write"), folder()});
    QVERIFY(writer.waitForReadyRead(10000));
    QCOMPARE(::kill(static_cast<pid_t>(writer.processId()), SIGKILL), 0);
    QVERIFY(writer.waitForFinished());
    QFile log(file() + QStringLiteral("-wal"));
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QByteArray newest = log.readAll(); // weighings that are not in the file itself yet
    QVERIFY(!newest.isEmpty());
    setContent(content().replace(0, 16, "no database here"));

    bool setAside = false;
    QCOMPARE(storedCount(&setAside), 0);
    QVERIFY(setAside);
    QFile kept(folder() + QStringLiteral("/series.damaged-1.sqlite-wal"));
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QVERIFY(kept.readAll() == newest);
}

void TestSeriesStore::damagedFilesAreNumbered()
{
    QVERIFY(QDir().mkpath(folder()));
    for (int i = 1; i <= 3; ++i) {
        const QByteArray text =
            QByteArray("this is no database, and long enough to be taken for a bad one\n").repeated(i * 20);
        setContent(text);
        bool setAside = false;
        QCOMPARE(storedCount(&setAside), 0);
        QVERIFY(setAside);
        QFile kept(folder() + QStringLiteral("/series.damaged-%1.sqlite").arg(i));
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), text);
    }
}

void TestSeriesStore::foreignValues_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("text in place of a number") << "UPDATE weighing SET value = 'heavy' WHERE number = 2";
    QTest::newRow("too many decimals") << "UPDATE weighing SET komma = 10 WHERE number = 2";
    QTest::newRow("negative decimals") << "UPDATE weighing SET komma = -1 WHERE number = 2";
    QTest::newRow("beyond the largest") << "UPDATE weighing SET value = 9223372036854775807 WHERE number = 2";
    QTest::newRow("beyond the smallest")
        << "UPDATE weighing SET value = -9223372036854775808 WHERE number = 2";
    QTest::newRow("another unit") << "UPDATE weighing SET unit = 'kg' WHERE number = 2";
    QTest::newRow("no time") << "UPDATE weighing SET timestamp = 'noon' WHERE number = 2";
    QTest::newRow("other tables") << "DROP TABLE weighing; PRAGMA user_version = 0";
    QTest::newRow("a missing table") << "DROP TABLE weighing";
}

void TestSeriesStore::foreignValues()
{
    QFETCH(QString, statement);
    fill(3);
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("foreign"));
        database.setDatabaseName(file());
        QVERIFY(database.open());
        QSqlQuery query(database);
        QVERIFY(query.exec(QStringLiteral("PRAGMA ignore_check_constraints = ON")));
        const QStringList parts = statement.split(QStringLiteral("; "));
        for (const QString& part : parts) {
            QVERIFY2(query.exec(part), qPrintable(query.lastError().text()));
        }
        query.finish();
        database.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("foreign"));
    bool setAside = false;
    QCOMPARE(storedCount(&setAside), 0);
    QVERIFY(setAside);
}

void TestSeriesStore::secondProgramIsRefused()
{
    fill(1);
    QProcess writer;
    writer.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--write"), folder()});
    QVERIFY(writer.waitForReadyRead(10000));
    SeriesStore store(folder());
    WeighingSeries series;
    QVERIFY(!store.open(&series));
    QCOMPARE(store.error(), QStringLiteral("Another program uses the file %1.").arg(file()));
    QCOMPARE(series.count(), 0);
    QVERIFY(store.damagedFile().isEmpty());
    QCOMPARE(writer.state(), QProcess::Running); // it was not disturbed
    QCOMPARE(::kill(static_cast<pid_t>(writer.processId()), SIGKILL), 0);
    QVERIFY(writer.waitForFinished());
    QVERIFY2(store.open(&series), qPrintable(store.error()));
    QVERIFY(series.count() > 1);
}

void TestSeriesStore::newerVersionIsRefused()
{
    fill(2);
    QByteArray newer = content();
    newer[63] = 2; // the version, a big-endian number at byte 60
    setContent(newer);
    SeriesStore store(folder());
    WeighingSeries series;
    QVERIFY(!store.open(&series));
    QVERIFY2(store.error().contains(QStringLiteral("newer version")), qPrintable(store.error()));
    store.close();
    QCOMPARE(QDir(folder()).entryList(QDir::Files),
             QStringList(QStringLiteral("series.sqlite"))); // left alone
}

void TestSeriesStore::folderThatCannotBeMade()
{
    QFile inTheWay(folder());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    SeriesStore store(folder());
    WeighingSeries series;
    QVERIFY(!store.open(&series));
    QCOMPARE(store.error(), QStringLiteral("The folder %1 cannot be made.").arg(folder()));
    QVERIFY(!store.append(weighing(1)));
    QVERIFY(!store.error().isEmpty());
}

void TestSeriesStore::fullMedium()
{
    fill(1);
    SeriesStore store(folder());
    WeighingSeries series;
    QVERIFY(store.open(&series));

    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN); // a write fails instead
    const rlimit limit{60000, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
    int number = 2;
    while (number < 1000 && store.append(weighing(number))) {
        ++number;
    }
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    QVERIFY(number < 1000);
    QVERIFY(!store.error().isEmpty());

    QVERIFY2(store.append(weighing(number)), qPrintable(store.error())); // there is space again
    store.close();
    QCOMPARE(storedCount(), number);
}

void TestSeriesStore::closedStoreRefuses()
{
    SeriesStore store(folder());
    QVERIFY(!store.append(weighing(1)));
    QVERIFY(!store.removeLast());
    QVERIFY(!store.clear());
    QVERIFY(!store.setSetting(QStringLiteral("a"), QStringLiteral("b")));
    QCOMPARE(store.setting(QStringLiteral("a"), QStringLiteral("c")), QStringLiteral("c"));
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == QLatin1String("--write")) {
        return writeForEver(arguments.value(2), arguments.value(3).toUInt());
    }
    TestSeriesStore test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_seriesstore.moc"
