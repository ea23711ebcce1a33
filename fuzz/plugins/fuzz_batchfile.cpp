// SPDX-License-Identifier: BSD-3-Clause
//
// The file in which the formulation plug-in keeps the batch that was not finished.
#include "Fuzzing.h"
#include "formulation/Batch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace
{

const QDir& folder()
{
    static const QTemporaryDir temporary;
    static const QDir folder(temporary.path());
    return folder;
}

QString path(const char* name)
{
    return folder().filePath(QString::fromLatin1(name));
}

} // namespace

FUZZING_WITHOUT_LEAK_CHECK

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = Fuzzing::Input(data, size).rest();
    for (const QString& name : folder().entryList(QDir::Files)) {
        QFile::remove(folder().filePath(name));
    }
    {
        QFile file(path("unfinished.json"));
        REQUIRE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }

    BatchStore store(folder().path());
    QString error;
    const std::optional<Batch> batch = store.unfinished(&error);
    REQUIRE(batch.has_value() == error.isEmpty());
    if (!batch) {
        // It is kept as it was, under another name.
        QFile aside(path("damaged-1.json"));
        REQUIRE(aside.open(QIODevice::ReadOnly) && aside.readAll() == content);
        REQUIRE(error.contains(path("unfinished.json")) && error.contains(path("damaged-1.json")));
        REQUIRE(!QFile::exists(path("unfinished.json")));
        return 0;
    }
    REQUIRE(batch->number >= 1 && batch->state == Batch::Unfinished && !batch->recipe.name.isEmpty());
    REQUIRE(std::isfinite(batch->vessel) && batch->vessel >= 0.0);
    REQUIRE(!batch->recipe.components.isEmpty() && batch->weighed.size() <= batch->recipe.components.size());
    for (const Component& component : batch->recipe.components) {
        REQUIRE(!component.name.isEmpty() && component.target > 0.0 && component.tolerance > 0.0);
    }
    REQUIRE(batch->isWeighedIn() || batch->nextComponent() < batch->recipe.components.size());
    REQUIRE(batch->numberText().toInt() == batch->number);

    REQUIRE(store.save(*batch, &error));
    const std::optional<Batch> again = store.unfinished(&error);
    REQUIRE(again && error.isEmpty());
    REQUIRE(again->number == batch->number && again->recipe.name == batch->recipe.name
            && again->vessel == batch->vessel && again->weighed == batch->weighed);
    REQUIRE(std::equal(batch->recipe.components.cbegin(), batch->recipe.components.cend(),
                       again->recipe.components.cbegin(), again->recipe.components.cend(),
                       [](const Component& left, const Component& right) {
                           return left.name == right.name && left.target == right.target
                                  && left.tolerance == right.tolerance;
                       }));
    return 0;
}
