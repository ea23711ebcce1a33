// SPDX-License-Identifier: BSD-3-Clause
//
// Runs a fuzzer on every file of the given folders, in any build: what was found once is tested for ever.
#include "Fuzzing.h"

#include <QDir>
#include <QFile>

extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

int main(int argc, char** argv)
{
    if (LLVMFuzzerInitialize != nullptr) {
        LLVMFuzzerInitialize(&argc, &argv);
    }
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FOLDER...\n", argv[0]);
        return EXIT_FAILURE;
    }
    for (int i = 1; i < argc; ++i) {
        const QDir folder(QFile::decodeName(argv[i]));
        const QStringList names = folder.entryList(QDir::Files, QDir::Name);
        if (names.isEmpty()) {
            std::fprintf(stderr, "%s: there is no file in this folder\n", argv[i]);
            return EXIT_FAILURE;
        }
        for (const QString& name : names) {
            QFile file(folder.filePath(name));
            if (!file.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "%s: %s\n", qPrintable(file.fileName()), qPrintable(file.errorString()));
                return EXIT_FAILURE;
            }
            const QByteArray content = file.readAll();
            // Before the run, so that it is the last line when the run does not return.
            std::fprintf(stderr, "%s\n", qPrintable(file.fileName()));
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(content.constData()),
                                   static_cast<std::size_t>(content.size()));
        }
    }
    return EXIT_SUCCESS;
}
