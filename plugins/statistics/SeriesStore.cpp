// SPDX-License-Identifier: BSD-3-Clause
#include "SeriesStore.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

using Brimvale::StatisticsValue;

namespace
{

const int FormatVersion = 1;

// SQLite's result codes.
const int Busy = 5;
const int Corrupt = 11;
const int NotADatabase = 26;

// SQLite takes any value in any column; with the checks quick_check finds what cannot have been written here.
const char* const Tables[] = {
    "CREATE TABLE weighing ("
    " number INTEGER PRIMARY KEY,"
    " value INTEGER NOT NULL CHECK (typeof(value) = 'integer'),"
    " komma INTEGER NOT NULL CHECK (typeof(komma) = 'integer'),"
    " unit TEXT NOT NULL,"
    " flags INTEGER NOT NULL CHECK (typeof(flags) = 'integer'),"
    " timestamp TEXT NOT NULL)",
    "CREATE TABLE setting (name TEXT PRIMARY KEY, value TEXT NOT NULL)",
    "PRAGMA user_version = 1",
};

int primaryCode(const QSqlError& error)
{
    return error.nativeErrorCode().toInt() & 0xff; // the higher bits say more about it
}

} // namespace

SeriesStore::SeriesStore(const QString& folder)
    : m_folder(folder)
    // The address makes the name unique.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    , m_connection(QStringLiteral("statistics-%1").arg(reinterpret_cast<quintptr>(this)))
{
}

SeriesStore::~SeriesStore()
{
    close();
}

QString SeriesStore::fileName() const
{
    return m_folder + QStringLiteral("/series.sqlite");
}

bool SeriesStore::open(WeighingSeries* series)
{
    close();
    m_damagedFile.clear();
    m_error.clear();
    series->clear();
    if (!QDir().mkpath(m_folder)) {
        m_error = tr("The folder %1 cannot be made.").arg(m_folder);
        return false;
    }
    Result result = openFile(series);
    if (result == Result::Damaged) {
        // Renamed while it is open: at the close SQLite would delete the log of what it could not read.
        const bool isMoved = setAside();
        close();
        series->clear();
        if (!isMoved) {
            return false;
        }
        result = openFile(series);
    }
    m_isOpen = result == Result::Done;
    if (!m_isOpen) {
        series->clear();
        close();
    }
    return m_isOpen;
}

void SeriesStore::close()
{
    m_isOpen = false;
    if (QSqlDatabase::contains(m_connection)) {
        QSqlDatabase::database(m_connection, false).close();
        QSqlDatabase::removeDatabase(m_connection);
    }
}

SeriesStore::Result SeriesStore::openFile(WeighingSeries* series)
{
    series->clear();
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=200"));
    database.setDatabaseName(fileName());
    if (!database.open()) {
        m_error = tr("The file %1 cannot be opened: %2").arg(fileName(), database.lastError().databaseText());
        return Result::Failed;
    }
    const Result result = prepare(database);
    return result == Result::Done ? read(series) : result;
}

SeriesStore::Result SeriesStore::prepare(QSqlDatabase& database)
{
    QSqlQuery query(database);
    // The first statements: the lock is held from the first access to the end.
    for (const char* pragma : {"PRAGMA locking_mode = EXCLUSIVE", "PRAGMA journal_mode = WAL",
                               "PRAGMA synchronous = FULL", "BEGIN IMMEDIATE", "ROLLBACK"}) {
        if (!query.exec(QLatin1String(pragma))) {
            return failure(query);
        }
    }

    if (!query.exec(QStringLiteral("PRAGMA quick_check")) || !query.next()) {
        return failure(query);
    }
    if (query.value(0).toString() != QLatin1String("ok")) {
        return Result::Damaged;
    }
    if (!query.exec(QStringLiteral("PRAGMA user_version")) || !query.next()) {
        return failure(query);
    }
    const int version = query.value(0).toInt();
    query.finish();
    if (version > FormatVersion) {
        m_error = tr("The file %1 was written by a newer version of this application.").arg(fileName());
        return Result::Failed;
    }
    const QStringList tables = database.tables();
    if (version == FormatVersion && tables.contains(QLatin1String("weighing"))
        && tables.contains(QLatin1String("setting"))) {
        return Result::Done;
    }
    if (version != 0 || !tables.isEmpty()) {
        return Result::Damaged; // the tables come with their version, all at once
    }
    database.transaction();
    for (const char* statement : Tables) {
        if (!query.exec(QLatin1String(statement))) {
            const Result result = failure(query);
            database.rollback();
            return result;
        }
    }
    if (!database.commit()) {
        m_error = tr("The file %1 cannot be used: %2").arg(fileName(), database.lastError().databaseText());
        return Result::Failed;
    }
    return Result::Done;
}

SeriesStore::Result SeriesStore::read(WeighingSeries* series)
{
    QSqlQuery query(QSqlDatabase::database(m_connection));
    query.setForwardOnly(true);
    if (!query.exec(
            QStringLiteral("SELECT value, komma, unit, flags, timestamp FROM weighing ORDER BY number"))) {
        return failure(query);
    }
    while (query.next()) {
        const int komma = query.value(1).toInt();
        const QDateTime time = QDateTime::fromString(query.value(4).toString(), Qt::ISODateWithMs);
        const StatisticsValue weighing(query.value(0).toLongLong(), komma, query.value(2).toString(),
                                       QFlags<StatisticsValue::StatisticsFlag>(query.value(3).toInt()),
                                       time.toLocalTime(), true);
        const bool sound = komma >= 0 && komma <= WeighingSeries::MaximumDecimals && time.isValid()
                           && weighing.value >= -WeighingSeries::MaximumDigits
                           && weighing.value <= WeighingSeries::MaximumDigits && !series->isFull()
                           && (series->count() == 0 || series->unit() == weighing.unit);
        if (!sound) {
            return Result::Damaged;
        }
        series->append(weighing);
    }
    return query.lastError().isValid() ? failure(query) : Result::Done;
}

/// Notes why `query` failed.
SeriesStore::Result SeriesStore::failure(const QSqlQuery& query)
{
    const QSqlError error = query.lastError();
    switch (primaryCode(error)) {
    case Corrupt:
    case NotADatabase:
        m_error = tr("The file %1 is damaged.").arg(fileName());
        return Result::Damaged;
    case Busy:
        m_error = tr("Another program uses the file %1.").arg(fileName());
        return Result::Failed;
    default:
        m_error = tr("The file %1 cannot be used: %2").arg(fileName(), error.databaseText());
        return Result::Failed;
    }
}

bool SeriesStore::setAside()
{
    QString name;
    for (int i = 1; name.isEmpty() || QFile::exists(name); ++i) {
        name = m_folder + QStringLiteral("/series.damaged-%1.sqlite").arg(i);
    }
    // Its log goes with it: what it holds may be all that is left.
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        const QString file = fileName() + QLatin1String(suffix);
        if (QFile::exists(file) && !QFile::rename(file, name + QLatin1String(suffix))) {
            m_error = tr("The file %1 is damaged and cannot be renamed.").arg(file);
            return false;
        }
    }
    m_damagedFile = name;
    return true;
}

bool SeriesStore::append(const StatisticsValue& weighing)
{
    // A null text would be stored as NULL.
    QString unit = weighing.unit;
    if (unit.isNull())
        unit = QStringLiteral(""); // clazy:exclude=empty-qstringliteral
    return change("INSERT INTO weighing (value, komma, unit, flags, timestamp) VALUES (?, ?, ?, ?, ?)",
                  {weighing.value, weighing.komma, unit, int(weighing.flags),
                   weighing.timestamp.toUTC().toString(Qt::ISODateWithMs)});
}

bool SeriesStore::removeLast()
{
    return change("DELETE FROM weighing WHERE number = (SELECT max(number) FROM weighing)");
}

bool SeriesStore::clear()
{
    return change("DELETE FROM weighing");
}

QString SeriesStore::setting(const QString& name, const QString& defaultValue) const
{
    if (!m_isOpen) {
        return defaultValue;
    }
    QSqlQuery query(QSqlDatabase::database(m_connection, false));
    query.prepare(QStringLiteral("SELECT value FROM setting WHERE name = ?"));
    query.addBindValue(name);
    return query.exec() && query.next() ? query.value(0).toString() : defaultValue;
}

bool SeriesStore::setSetting(const QString& name, const QString& value)
{
    return change("INSERT OR REPLACE INTO setting (name, value) VALUES (?, ?)", {name, value});
}

/// Runs one statement: outside of a transaction each is one of its own.
bool SeriesStore::change(const char* statement, const QVariantList& values)
{
    if (!m_isOpen) {
        return false; // error() still tells why it could not be opened
    }
    QSqlQuery query(QSqlDatabase::database(m_connection, false));
    query.prepare(QLatin1String(statement));
    for (const QVariant& value : values) {
        query.addBindValue(value);
    }
    if (!query.exec()) {
        failure(query);
        return false;
    }
    return true;
}
