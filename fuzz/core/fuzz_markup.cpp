// SPDX-License-Identifier: BSD-3-Clause
//
// Texts that come from elsewhere and are marked up, freed of mark-up or shown byte by byte.
#include "Fuzzing.h"
#include "Utility.h"

using Brimvale::Utility;

namespace
{

void checkRemoval(const QString& text)
{
    const QString plain = Utility::removeSubOrSuperscriptText(text);

    QString expected = text;
    for (const char* const tag : {"<sub>", "</sub>", "<sup>", "</sup>", "<sub", "</sub", "<sup", "</sup",
                                  "<su", "</su", "<s", "</s", "</"}) {
        expected = expected.split(QString::fromLatin1(tag)).join(QString());
    }
    Fuzzing::requireEqual(plain, expected, "the tags are removed one after the other");
    REQUIRE(plain.size() <= text.size());

    const QString opening = QStringLiteral("<s");
    const QString closing = QStringLiteral("</");
    if (!plain.contains(opening) && !plain.contains(closing)) {
        Fuzzing::requireEqual(Utility::removeSubOrSuperscriptText(plain), plain, "nothing is left to remove");
    }
    if (!text.contains(opening) && !text.contains(closing)) {
        Fuzzing::requireEqual(plain, text, "there was nothing to remove");
    }
    if (!text.contains(QLatin1Char('<'))) {
        for (const QString& marked : {Utility::SubscriptText(text), Utility::SuperscriptText(text)}) {
            REQUIRE(marked.size() == text.size() + 11);
            Fuzzing::requireEqual(Utility::removeSubOrSuperscriptText(marked), text,
                                  "mark-up comes off again");
        }
    }
    REQUIRE(Utility::ButtonText(text) == QLatin1Char('[') + text + QLatin1Char(']'));
}

void checkDump(const QByteArray& bytes)
{
    const QString dump = Utility::ByteArrayToDebug(bytes);
    QString expected;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code >= 32 && code <= 126) {
            expected += QLatin1Char(byte);
        } else {
            expected +=
                QLatin1Char('<') + QString::fromLatin1(QByteArray(1, byte).toHex()) + QLatin1Char('>');
        }
    }
    Fuzzing::requireEqual(dump, expected, "every byte is shown");
    for (const QChar character : dump) {
        REQUIRE(character >= QLatin1Char(' ') && character <= QLatin1Char('~'));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = Fuzzing::Input(data, size).rest();
    checkRemoval(Fuzzing::textOf(bytes));
    checkDump(bytes);
    // Of a text the dump is that of its parts.
    const int middle = bytes.size() / 2;
    REQUIRE(Utility::ByteArrayToDebug(bytes)
            == Utility::ByteArrayToDebug(bytes.left(middle)) + Utility::ByteArrayToDebug(bytes.mid(middle)));
    return 0;
}
