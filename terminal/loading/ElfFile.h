// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ELFFILE_H
#define BRIMVALE_ELFFILE_H

#include <QCoreApplication>
#include <QString>
#include <QtGlobal>

class QFile;

namespace Brimvale
{
namespace Terminal
{

/// What the header of an ELF file says, read without running or mapping any of it.
///
/// The dynamic loader maps what the header promises; where a cut-off file does not have it, the first access
/// ends the process. So the length is checked here.
class ElfFile
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::ElfFile)

public:
    enum class Problem
    {
        None,
        Unreadable, ///< The file cannot be opened or read; detail() has the reason.
        Empty,
        NotElf,    ///< It does not begin as an ELF file.
        Truncated, ///< It is shorter than its header says; detail() has the lengths.
        Damaged    ///< The header contradicts itself; detail() tells where.
    };

    /// What a file was built for.
    struct Target
    {
        int bits = 0; ///< 32 or 64.
        bool littleEndian = true;
        int machine = 0; ///< `EM_…` of elf.h.

        /// For people, e.g. "x86-64 (64 bit, little-endian)".
        QString text() const;

        bool operator==(const Target& other) const
        {
            return bits == other.bits && littleEndian == other.littleEndian && machine == other.machine;
        }
        bool operator!=(const Target& other) const { return !(*this == other); }
    };

    explicit ElfFile(const QString& path);

    Problem problem() const { return m_problem; }
    QString detail() const { return m_detail; }

    const Target& target() const { return m_target; }
    bool isSharedLibrary() const;
    /// What kind of file it is, e.g. "an executable".
    QString kindText() const;

    /// What this process was built for.
    static Target ownTarget();

private:
    void read(QFile& file);
    template <typename Header, typename ProgramHeader, typename SectionHeader>
    void readHeader(QFile& file);
    void fail(Problem problem, const QString& detail = QString());

    Problem m_problem = Problem::None;
    QString m_detail;
    Target m_target;
    int m_kind = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_ELFFILE_H
