// SPDX-License-Identifier: BSD-3-Clause
#ifndef RESULTTABLE_H
#define RESULTTABLE_H

#include "Inputs.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <type_traits>

namespace Brimvale
{
class MesswertData;
}

/// A table of operations: a line for each call, with its arguments and its result. It holds nothing that depends on the
/// processor, so that every processor has to write the same bytes.
class ResultTable
{
public:
    /// The lines of one operation in short.
    struct Checksum
    {
        QByteArray operation;
        int lines;
        QByteArray sha256;
    };

    explicit ResultTable(const QString& path);

    /// Why the table cannot be written; empty if it can.
    QString error() const { return m_file.error() == QFile::NoError ? QString() : m_file.errorString(); }

    /// Begins the lines of an operation and returns its inputs, which depend on nothing but its name.
    Inputs begin(const char* operation);

    /// Writes a line for every list of arguments and results.
    template <typename... Results>
    void row(const QByteArray& arguments, const Results&... results)
    {
        write(arguments + " = " + list(results...) + '\n');
    }

    /// Ends the table.
    QList<Checksum> finish();

private:
    template <typename... Values>
    static QByteArray list(const Values&... values);

    void write(const QByteArray& line);
    void endOperation();

    QFile m_file;
    QByteArray m_operation;
    int m_lines = 0;
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    QList<Checksum> m_checksums;
};

// How values are written: exactly, in ASCII.

QByteArray written(double value);
QByteArray written(const QString& text);
QByteArray written(const QStringList& texts);
QByteArray written(const Brimvale::MesswertData& data);
inline QByteArray written(const QByteArray& text)
{
    return text;
}
inline QByteArray written(bool value)
{
    return value ? "true" : "false";
}
template <typename Integer, typename = std::enable_if_t<std::is_integral_v<Integer>>>
QByteArray written(Integer value)
{
    if constexpr (std::is_signed_v<Integer>)
        return QByteArray::number(static_cast<qlonglong>(value));
    else
        return QByteArray::number(static_cast<qulonglong>(value));
}

/// The values, separated by blanks.
template <typename... Values>
QByteArray line(const Values&... values)
{
    QByteArray text;
    ((text += written(values), text += ' '), ...);
    text.chop(1);
    return text;
}

template <typename... Values>
QByteArray ResultTable::list(const Values&... values)
{
    return line(values...);
}

#endif
