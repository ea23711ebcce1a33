// SPDX-License-Identifier: BSD-3-Clause
#include "host/StoredParameters.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>
#include <QStringList>

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

} // namespace

StoredParameters::StoredParameters(const QString& file)
{
    if (file.isEmpty()) {
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
    if (!stored.isValid()) {
        return defaultValue;
    }
    // A value with commas that was written by hand, without quotes, is read as a list.
    return stored.type() == QVariant::StringList ? stored.toStringList().join(QLatin1String(", "))
                                                 : stored.toString();
}

bool StoredParameters::setValue(const QString& menuFile, const QString& owner, const QString& profile,
                                int index, const QString& value, QString* error)
{
    const QString name = key(menuFile, owner, profile, index);
    QString problem = m_error;
    if (m_settings && problem.isEmpty()) {
        m_settings->setValue(name, value);
        m_settings->sync();
        if (m_settings->status() != QSettings::NoError) {
            problem = errorText(*m_settings);
        }
    }
    if (!m_settings || !problem.isEmpty()) {
        m_values.insert(name, value);
    }
    if (error != nullptr) {
        *error = problem;
    }
    return problem.isEmpty();
}

QString StoredParameters::key(const QString& menuFile, const QString& owner, const QString& profile,
                              int index)
{
    const QString file = menuFile.isEmpty() ? QStringLiteral("-") : menuFile;
    return QStringList{keyPart(owner), keyPart(profile), file, QString::number(index)}.join(QLatin1Char('/'));
}

} // namespace Terminal
} // namespace Brimvale
