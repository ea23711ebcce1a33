// SPDX-License-Identifier: BSD-3-Clause
#include "loading/ElfFile.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <elf.h>
#include <limits>

namespace Brimvale
{
namespace Terminal
{

namespace
{

QString machineName(int machine)
{
    switch (machine) {
    case EM_386:
        return QStringLiteral("x86");
    case EM_X86_64:
        return QStringLiteral("x86-64");
    case EM_ARM:
        return QStringLiteral("ARM");
    case EM_AARCH64:
        return QStringLiteral("AArch64");
    case EM_RISCV:
        return QStringLiteral("RISC-V");
    case EM_MIPS:
        return QStringLiteral("MIPS");
    case EM_PPC:
    case EM_PPC64:
        return QStringLiteral("PowerPC");
    case EM_S390:
        return QStringLiteral("S/390");
    case EM_SPARC:
    case EM_SPARCV9:
        return QStringLiteral("SPARC");
    default:
        return ElfFile::tr("an unknown processor (number %1)").arg(machine);
    }
}

constexpr bool hostIsLittleEndian = Q_BYTE_ORDER == Q_LITTLE_ENDIAN;

} // namespace

QString ElfFile::Target::text() const
{
    return ElfFile::tr("%1 (%2 bit, %3)")
        .arg(machineName(machine))
        .arg(bits)
        .arg(littleEndian ? QStringLiteral("little-endian") : QStringLiteral("big-endian"));
}

ElfFile::ElfFile(const QString& path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        read(file);
    } else {
        fail(Problem::Unreadable, file.errorString());
    }
}

bool ElfFile::isSharedLibrary() const
{
    return m_kind == ET_DYN;
}

QString ElfFile::kindText() const
{
    switch (m_kind) {
    case ET_REL:
        return ElfFile::tr("an object file");
    case ET_EXEC:
        return ElfFile::tr("an executable");
    case ET_DYN:
        return ElfFile::tr("a shared library");
    case ET_CORE:
        return ElfFile::tr("a core dump");
    default:
        return ElfFile::tr("kind %1").arg(m_kind);
    }
}

ElfFile::Target ElfFile::ownTarget()
{
    static const Target own = ElfFile(QStringLiteral("/proc/self/exe")).target();
    return own;
}

void ElfFile::read(QFile& file)
{
    const QByteArray identification = file.read(EI_NIDENT);
    if (file.error() != QFileDevice::NoError) {
        fail(Problem::Unreadable, file.errorString());
    } else if (identification.isEmpty()) {
        fail(Problem::Empty);
    } else if (!identification.startsWith(QByteArray(ELFMAG, SELFMAG))) {
        fail(Problem::NotElf);
    } else if (identification.size() < EI_NIDENT) {
        fail(Problem::Truncated, ElfFile::tr("its header is incomplete"));
    } else {
        const int elfClass = static_cast<unsigned char>(identification.at(EI_CLASS));
        const int data = static_cast<unsigned char>(identification.at(EI_DATA));
        if ((elfClass != ELFCLASS32 && elfClass != ELFCLASS64)
            || (data != ELFDATA2LSB && data != ELFDATA2MSB)) {
            fail(Problem::Damaged, ElfFile::tr("its header names no known format"));
            return;
        }
        m_target.bits = elfClass == ELFCLASS32 ? 32 : 64;
        m_target.littleEndian = data == ELFDATA2LSB;
        if (elfClass == ELFCLASS32) {
            readHeader<Elf32_Ehdr, Elf32_Phdr, Elf32_Shdr>(file);
        } else {
            readHeader<Elf64_Ehdr, Elf64_Phdr, Elf64_Shdr>(file);
        }
    }
}

template <typename Header, typename ProgramHeader, typename SectionHeader>
void ElfFile::readHeader(QFile& file)
{
    const auto number = [this](auto value) -> quint64 {
        if (m_target.littleEndian == hostIsLittleEndian) {
            return value;
        }
        // The types of the header are not those that qbswap() is defined for, but have their sizes.
        return qbswap<typename QIntegerForSizeof<decltype(value)>::Unsigned>(value);
    };
    const quint64 size = static_cast<quint64>(file.size());
    file.seek(0);
    const QByteArray bytes = file.read(sizeof(Header));
    if (bytes.size() < static_cast<int>(sizeof(Header))) {
        fail(Problem::Truncated, ElfFile::tr("its header is incomplete"));
        return;
    }
    Header header;
    std::memcpy(&header, bytes.constData(), sizeof(header));
    m_kind = static_cast<int>(number(header.e_type));
    m_target.machine = static_cast<int>(number(header.e_machine));

    // One past the farthest byte that any header promises.
    quint64 needed = sizeof(Header);
    const auto need = [&needed](quint64 start, quint64 length) {
        const quint64 end = length > std::numeric_limits<quint64>::max() - start
                                ? std::numeric_limits<quint64>::max()
                                : start + length;
        needed = std::max(needed, end);
    };
    // Calls use() with every entry, as long as all that was promised is there.
    const auto readTable = [&](auto entry, quint64 offset, quint64 count, quint64 entrySize,
                               const auto& use) {
        if (count > 0 && entrySize < sizeof(entry)) {
            fail(Problem::Damaged, ElfFile::tr("one of its tables has entries of %1 bytes").arg(entrySize));
            return;
        }
        need(offset, count * entrySize);
        for (quint64 i = 0; i < count && needed <= size; ++i) {
            file.seek(static_cast<qint64>(offset + i * entrySize));
            const QByteArray read = file.read(sizeof(entry));
            if (read.size() < static_cast<int>(sizeof(entry))) {
                fail(Problem::Truncated, ElfFile::tr("its header is incomplete"));
                return;
            }
            std::memcpy(&entry, read.constData(), sizeof(entry));
            use(entry);
        }
    };
    readTable(
        ProgramHeader(), number(header.e_phoff), number(header.e_phnum), number(header.e_phentsize),
        [&](const ProgramHeader& program) { need(number(program.p_offset), number(program.p_filesz)); });
    // Qt looks for the metadata there, and believes an offset and a length whose sum has run over.
    readTable(SectionHeader(), number(header.e_shoff), number(header.e_shnum), number(header.e_shentsize),
              [&](const SectionHeader& section) {
                  const quint64 start = number(section.sh_offset);
                  const quint64 length = number(section.sh_size);
                  const bool hasBytes = number(section.sh_type) != SHT_NOBITS || start + length < start;
                  need(start, hasBytes ? length : 0);
              });
    if (m_problem != Problem::None) {
        return;
    }
    if (needed > size) {
        fail(Problem::Truncated,
             ElfFile::tr("it has %1 bytes, its headers speak of %2").arg(size).arg(needed));
    }
}

void ElfFile::fail(Problem problem, const QString& detail)
{
    m_problem = problem;
    m_detail = detail;
}

} // namespace Terminal
} // namespace Brimvale
