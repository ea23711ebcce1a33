// SPDX-License-Identifier: BSD-3-Clause
//
// Plug-in files: what is read of them before any of their code runs.
#include "Fuzzing.h"
#include "loading/ElfFile.h"
#include "loading/PluginLoader.h"

#include <QFile>
#include <QTemporaryDir>

#include <elf.h>
#include <memory>

using Brimvale::Terminal::ElfFile;
using Brimvale::Terminal::LoadResult;
using Brimvale::Terminal::LoadStage;

namespace
{

const QString& path()
{
    static const QTemporaryDir folder;
    static const QString path = folder.filePath(QStringLiteral("plugin.so"));
    return path;
}

void checkProgramHeaders(const QByteArray& content)
{
    Elf64_Ehdr header;
    REQUIRE(content.size() >= static_cast<int>(sizeof(header)));
    std::memcpy(&header, content.constData(), sizeof(header));
    const auto size = static_cast<quint64>(content.size());
    for (quint64 i = 0; i < header.e_phnum; ++i) {
        const quint64 offset = header.e_phoff + i * header.e_phentsize;
        REQUIRE(offset >= header.e_phoff && offset <= size && size - offset >= sizeof(Elf64_Phdr));
        Elf64_Phdr program;
        std::memcpy(&program, content.constData() + offset, sizeof(program));
        REQUIRE(program.p_offset <= size && program.p_filesz <= size - program.p_offset);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = Fuzzing::Input(data, size).rest();
    QFile file(path());
    REQUIRE(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size());
    file.close();

    const ElfFile elf(path());
    REQUIRE(!elf.kindText().isEmpty() && !elf.target().text().isEmpty());
    switch (elf.problem()) {
    case ElfFile::Problem::Empty:
        REQUIRE(content.isEmpty());
        break;
    case ElfFile::Problem::NotElf:
        REQUIRE(!content.isEmpty() && !content.startsWith(ELFMAG));
        break;
    case ElfFile::Problem::Unreadable:
        REQUIRE(false);
        break;
    case ElfFile::Problem::Truncated:
    case ElfFile::Problem::Damaged:
        REQUIRE(content.startsWith(ELFMAG) && !elf.detail().isEmpty());
        break;
    case ElfFile::Problem::None:
        REQUIRE(content.startsWith(ELFMAG));
        if (elf.target() == ElfFile::ownTarget() && elf.target().bits == 64) {
            checkProgramHeaders(content);
        }
    }

    const LoadResult result = Brimvale::Terminal::inspectPluginFile(path());
    REQUIRE(result.object == nullptr && result.plugin == nullptr && result.file == path());
    if (result.ok) {
        REQUIRE(result.stage == LoadStage::Library && result.message.isEmpty());
        REQUIRE(elf.problem() == ElfFile::Problem::None && elf.isSharedLibrary());
        REQUIRE(content.contains(Brimvale::Terminal::pluginInterfaceIdentifier));
    } else {
        REQUIRE(result.stage > LoadStage::File && result.stage < LoadStage::Library);
        REQUIRE(result.message.contains(path())
                && result.message.contains(Brimvale::Terminal::loadStageName(result.stage)));
        REQUIRE(result.message.endsWith(QLatin1Char('.')) || result.message.endsWith(QLatin1Char(')')));
    }
    return 0;
}
