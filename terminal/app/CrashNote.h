// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_CRASHNOTE_H
#define BRIMVALE_CRASHNOTE_H

#include <QString>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// What crashes a plug-in crashes the terminal. So that this does not happen at every start, the terminal writes on its
/// way down which plug-in was at work, to the standard error output and into a file, which the next start reads.
///
/// Only a crash leaves the file (a wrong access to memory, abort(), qFatal(), an exception that nobody can catch); a
/// terminal that is switched off or killed leaves none. At most one object of this class may exist at a time.
class CrashNote
{
public:
    struct Crash
    {
        bool whileLoading = false; ///< The plug-in was being loaded; otherwise it was the active one.
        QString file;              ///< Of the plug-in.
    };

    /// @param file where the note is left; empty: nowhere.
    explicit CrashNote(const QString& file);
    ~CrashNote();
    Q_DISABLE_COPY(CrashNote)

    /// What the last run has left, which is forgotten thereby. Nothing when there is no note or the plug-in's file has
    /// been changed since.
    std::optional<Crash> take();

    // Whose code is run from now on.
    void setLoading(const QString& pluginFile);
    void setActive(const QString& pluginFile);
    void setNone();

private:
    const QString m_file;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_CRASHNOTE_H
