// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_STOREDPARAMETERS_H
#define BRIMVALE_STOREDPARAMETERS_H

#include <QMap>
#include <QString>

#include <memory>

class QSettings;

namespace Brimvale
{
namespace Terminal
{

/// The stored parameters: texts under owner, profile, menu file and index.
///
/// They are kept in an INI file (UTF-8) with the key `<owner>/<profile>/<menu file>/<index>`, the owner being
/// the section, or in memory when there is no file name. A value is written to the file when it is set. A
/// file that cannot be read is never written, so that nothing in it is lost, and one that cannot be written is found at
/// once; see error().
///
/// A new file takes the place of the old one in one step, and what was stored with success is on the medium: when the
/// power fails, the file holds everything that was confirmed, and of what was being stored all or nothing.
class StoredParameters
{
public:
    /// @param file the INI file, which need not exist; empty keeps the values in memory.
    static constexpr qint64 MaximumSize = Q_INT64_C(16) * 1024 * 1024; ///< Bytes of the file.

    explicit StoredParameters(const QString& file);
    ~StoredParameters();
    Q_DISABLE_COPY(StoredParameters)

    /// Why the file could not be read, or could not be written later, with what to do about it; empty when it could or need not.
    QString error() const { return m_error; }

    /// The stored value, or @p defaultValue when none is stored.
    QString value(const QString& menuFile, const QString& owner, const QString& profile,
                  const QString& defaultValue, int index) const;

    /// Stores a value. Returns false, with the reason in @p error, when the file cannot be written; the value
    /// then holds for this run only.
    bool setValue(const QString& menuFile, const QString& owner, const QString& profile, int index,
                  const QString& value, QString* error = nullptr);

    /// All values under menu file, owner and profile that have a number.
    QMap<int, QString> values(const QString& menuFile, const QString& owner, const QString& profile) const;

    /// Stores several values in one step: all of them or none. Otherwise like setValue().
    bool setValues(const QString& menuFile, const QString& owner, const QString& profile,
                   const QMap<int, QString>& values, QString* error = nullptr);

private:
    static QString group(const QString& menuFile, const QString& owner, const QString& profile);
    static QString key(const QString& menuFile, const QString& owner, const QString& profile, int index);

    std::unique_ptr<QSettings> m_settings; ///< Null: in memory.
    QMap<QString, QString> m_values;       ///< What is not in the file.
    QString m_error;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_STOREDPARAMETERS_H
