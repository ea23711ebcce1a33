// SPDX-License-Identifier: BSD-3-Clause
#include "host/StoredParameters.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringList>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace Brimvale
{
namespace Terminal
{

namespace
{

/// A part of a key: neither empty nor with a separator in it.
QString keyPart(QString part)
{
    part.replace(QLatin1Char('/'), QLatin1String("%2F"));
    return part.isEmpty() ? QStringLiteral("-") : part;
}

QString errorText(const QSettings& settings)
{
    const char* const text =
        settings.status() == QSettings::FormatError
            ? QT_TRANSLATE_NOOP(
                "Brimvale::Terminal::StoredParameters",
                "The stored parameters in %1 are not a valid INI file. Correct it or move it away.")
            : QT_TRANSLATE_NOOP(
                "Brimvale::Terminal::StoredParameters",
                "The stored parameters in %1 cannot be read or written. Check the permissions of the "
                "file and its folder.");
    return QCoreApplication::translate("Brimvale::Terminal::StoredParameters", text).arg(settings.fileName());
}

/// What a stored value is as a text. One with commas that was written by hand, without quotes, is read as a list.
QString textOf(const QVariant& stored)
{
    return stored.type() == QVariant::StringList ? stored.toStringList().join(QLatin1String(", "))
                                                 : stored.toString();
}

bool flush(const QString& path, int flags)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | flags);
    if (descriptor < 0) {
        return false;
    }
    // Some file systems, such as those of foreign machines, know no flushing; they do what they can.
    const bool flushed = ::fsync(descriptor) == 0 || errno == EINVAL;
    ::close(descriptor);
    return flushed;
}

/// Brings the file, and its name in the folder, to the medium: a new file that only the folder in memory knows would
/// be gone after a power failure.
bool flushFile(const QString& path)
{
    return flush(path, 0) && flush(QFileInfo(path).absolutePath(), O_DIRECTORY);
}

/// A process that ended while it made the lock of the file leaves an empty one. QSettings would wait half a minute for
/// whoever holds it.
void removeEmptyLock(const QString& path)
{
    const QFileInfo lock(path + QStringLiteral(".lock"));
    constexpr qint64 MomentsToMakeOneS = 2;
    if (lock.isFile() && lock.size() == 0
        && lock.lastModified().secsTo(QDateTime::currentDateTime()) > MomentsToMakeOneS) {
        QFile::remove(lock.filePath());
    }
}

} // namespace

StoredParameters::StoredParameters(const QString& file)
{
    if (file.isEmpty()) {
        return;
    }
    removeEmptyLock(file);
    if (QFileInfo(file).size() > MaximumSize) {
        m_error =
            QCoreApplication::translate("Brimvale::Terminal::StoredParameters",
                                        "The stored parameters in %1 have more than %2 bytes: this is no "
                                        "settings file of the terminal. Move it away.")
                .arg(file, QString::number(MaximumSize));
        return;
    }
    m_settings = std::make_unique<QSettings>(file, QSettings::IniFormat);
    m_settings->setIniCodec("UTF-8");
    m_settings->sync();
    m_settings->allKeys(); // sections are parsed when they are needed, and not before is an error noticed
    // The folder takes the lock, and the new file that replaces the old one.
    if (m_settings->status() != QSettings::NoError || !m_settings->isWritable()
        || !QFileInfo(QFileInfo(file).absolutePath()).isWritable()) {
        m_error = errorText(*m_settings);
    }
}

StoredParameters::~StoredParameters() = default;

QString StoredParameters::value(const QString& menuFile, const QString& owner, const QString& profile,
                                const QString& defaultValue, int index) const
{
    const QString name = key(menuFile, owner, profile, index);
    const auto own = m_values.constFind(name);
    if (own != m_values.constEnd()) {
        return *own;
    }
    const QVariant stored = m_settings ? m_settings->value(name) : QVariant();
    return stored.isValid() ? textOf(stored) : defaultValue;
}

bool StoredParameters::setValue(const QString& menuFile, const QString& owner, const QString& profile,
                                int index, const QString& value, QString* error)
{
    return setValues(menuFile, owner, profile, {{index, value}}, error);
}

QMap<int, QString> StoredParameters::values(const QString& menuFile, const QString& owner,
                                            const QString& profile) const
{
    QMap<int, QString> values;
    const auto add = [&values](const QString& name, const QString& value) {
        const int index = name.toInt();
        if (name == QString::number(index)) { // value() knows no 05
            values.insert(index, value);
        }
    };
    const QString prefix = group(menuFile, owner, profile);
    if (m_settings) {
        m_settings->beginGroup(prefix);
        const QStringList names = m_settings->childKeys();
        for (const QString& name : names) {
            add(name, textOf(m_settings->value(name)));
        }
        m_settings->endGroup();
    }
    for (auto own = m_values.cbegin(); own != m_values.cend(); ++own) {
        if (own.key().startsWith(prefix + QLatin1Char('/'))) {
            add(own.key().mid(prefix.size() + 1), *own);
        }
    }
    return values;
}

bool StoredParameters::setValues(const QString& menuFile, const QString& owner, const QString& profile,
                                 const QMap<int, QString>& values, QString* error)
{
    QString problem = m_error;
    if (m_settings && problem.isEmpty()) {
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            m_settings->setValue(key(menuFile, owner, profile, value.key()), *value);
        }
        m_settings->sync();
        if (m_settings->status() != QSettings::NoError || !flushFile(m_settings->fileName())) {
            problem = errorText(*m_settings);
        }
    }
    if (!m_settings || !problem.isEmpty()) {
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            m_values.insert(key(menuFile, owner, profile, value.key()), *value);
        }
    }
    if (error != nullptr) {
        *error = problem;
    }
    return problem.isEmpty();
}

QString StoredParameters::group(const QString& menuFile, const QString& owner, const QString& profile)
{
    const QString file = menuFile.isEmpty() ? QStringLiteral("-") : menuFile;
    return QStringList{keyPart(owner), keyPart(profile), file}.join(QLatin1Char('/'));
}

QString StoredParameters::key(const QString& menuFile, const QString& owner, const QString& profile,
                              int index)
{
    return group(menuFile, owner, profile) + QLatin1Char('/') + QString::number(index);
}

} // namespace Terminal
} // namespace Brimvale
