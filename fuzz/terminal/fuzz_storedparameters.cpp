// SPDX-License-Identifier: BSD-3-Clause
//
// The file of the stored parameters, also as a person has changed it.
#include "Fuzzing.h"
#include "host/StoredParameters.h"

#include <QFile>
#include <QTemporaryDir>

using Brimvale::Terminal::StoredParameters;

namespace
{

const QString& path()
{
    static const QTemporaryDir folder;
    static const QString path = folder.filePath(QStringLiteral("parameters.ini"));
    return path;
}

QByteArray content()
{
    QFile file(path());
    REQUIRE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = Fuzzing::Input(data, size).rest();
    const QString menu = QStringLiteral(":/menu.json");
    const QString owner = QStringLiteral("Owner 1");
    const QString profile = QStringLiteral("profile");
    const QString text = Fuzzing::textOf(bytes.left(20));
    {
        QFile file(path());
        REQUIRE(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size());
    }

    QMap<int, QString> before;
    {
        StoredParameters parameters(path());
        before = parameters.values(menu, owner, profile);
        for (auto value = before.cbegin(); value != before.cend(); ++value) {
            REQUIRE(parameters.value(menu, owner, profile, QStringLiteral("absent"), value.key()) == *value);
        }
        QString error;
        const bool isStored = parameters.setValue(menu, owner, profile, 4711, text, &error);
        REQUIRE(isStored == error.isEmpty() && isStored == parameters.error().isEmpty());
        REQUIRE(parameters.value(menu, owner, profile, QString(), 4711) == text);
        if (!isStored) {
            REQUIRE(error.contains(path()));
            REQUIRE(content() == bytes); // nothing is lost
            return 0;
        }
    }
    // Nothing but the one value changes.
    before.insert(4711, text);
    StoredParameters parameters(path());
    REQUIRE(parameters.error().isEmpty());
    REQUIRE(parameters.values(menu, owner, profile) == before);
    return 0;
}
