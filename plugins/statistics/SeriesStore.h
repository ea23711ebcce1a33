// SPDX-License-Identifier: BSD-3-Clause
#ifndef SERIESSTORE_H
#define SERIESSTORE_H

#include "WeighingSeries.h"

#include <QCoreApplication>
#include <QString>
#include <QVariantList>

class QSqlDatabase;
class QSqlQuery;

/// Keeps a series of weighings, and a few settings, in an SQLite file.
///
/// What an operation has confirmed by true is on the medium: neither the end of the process nor a power failure takes it
/// away, and what was not confirmed is there whole or not at all. Hence the write-ahead log with full synchronisation:
/// SQLite's default for a write-ahead log would survive the process, but not a power failure, and the older rollback
/// journal needs several synchronisations for each weighing, which wear a flash memory and are slow on it.
///
/// Only one program may use a file, since each shows the series that it has read: a second one is refused.
class SeriesStore
{
    Q_DECLARE_TR_FUNCTIONS(SeriesStore)
    Q_DISABLE_COPY(SeriesStore)

public:
    /// Does nothing yet. `folder` is made when the store is opened.
    explicit SeriesStore(const QString& folder);
    ~SeriesStore();

    /// Opens the file and reads the series into `series`. A file that is damaged is set aside under another name, and a
    /// new one begins. Returns false, with `error()`, when the store cannot be used; `series` is then empty.
    bool open(WeighingSeries* series);
    void close();
    bool isOpen() const { return m_isOpen; }

    /// Where `open()` has set a damaged file aside; empty when it was sound.
    QString damagedFile() const { return m_damagedFile; }
    /// Why the last operation failed, in the language of the person.
    QString error() const { return m_error; }
    QString fileName() const;

    bool append(const Brimvale::StatisticsValue& weighing);
    bool removeLast();
    bool clear();

    QString setting(const QString& name, const QString& defaultValue) const;
    bool setSetting(const QString& name, const QString& value);

private:
    enum class Result
    {
        Done,
        Failed,
        Damaged
    };

    Result openFile(WeighingSeries* series);
    Result prepare(QSqlDatabase& database);
    Result read(WeighingSeries* series);
    Result failure(const QSqlQuery& query);
    bool change(const char* statement, const QVariantList& values = {});
    bool setAside();

    const QString m_folder;
    const QString m_connection; ///< name of the connection, this store's own
    bool m_isOpen = false;
    QString m_damagedFile;
    QString m_error;
};

#endif
