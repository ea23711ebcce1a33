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

class Notices;

/// The stored parameters: texts under owner, profile, menu file and index.
///
/// They are kept in an INI file with the key `<owner>/<profile>/<menu file>/<index>` (the owner is the section), or in
/// memory when there is no file name. A value is written to the file when it is set. A file that cannot be read as INI
/// is reported and never written, so that nothing in it is lost; its readable values are used.
class StoredParameters
{
public:
    /// @param file the INI file, which need not exist; empty keeps the values in memory.
    StoredParameters(Notices& notices, const QString& file);
    ~StoredParameters();
    Q_DISABLE_COPY(StoredParameters)

    /// The stored value, or @p defaultValue when none is stored.
    QString value(const QString& menuFile, const QString& owner, const QString& profile,
                  const QString& defaultValue, int index) const;

    /// Stores a value. Returns false, after a report, when it could not be written.
    bool setValue(const QString& menuFile, const QString& owner, const QString& profile, int index,
                  const QString& value);

private:
    static QString key(const QString& menuFile, const QString& owner, const QString& profile, int index);

    Notices& m_notices;
    std::unique_ptr<QSettings> m_settings; ///< Null: in memory.
    bool m_readOnly = false;
    QMap<QString, QString> m_values;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_STOREDPARAMETERS_H
