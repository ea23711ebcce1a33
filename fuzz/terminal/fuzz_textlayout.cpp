// SPDX-License-Identifier: BSD-3-Clause
//
// Texts of plug-ins on their way to the printer.
#include "Fuzzing.h"
#include "print/EscPos.h"
#include "print/TextLayout.h"

using namespace Brimvale::Terminal;

namespace
{

QString withoutBlanks(const QString& text)
{
    QString result;
    for (const QChar character : text) {
        if (character != QLatin1Char(' ') && character != QLatin1Char('\n')) {
            result += character;
        }
    }
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzzing::Input input(data, size);
    const int columns = 2 + input.take<std::uint8_t>() % 80;
    const QString text = Fuzzing::textOf(input.rest());

    const QString clean = printable(text);
    Fuzzing::requireEqual(printable(clean), clean, "a printable text stays as it is");
    for (const QChar character : clean) {
        REQUIRE(character == QLatin1Char('\n') || character.category() != QChar::Other_Control);
    }

    QString cells;
    int width = 0;
    for (const TextCell& cell : textCells(text)) {
        REQUIRE(!cell.text.isEmpty() && cell.width >= 0 && cell.width <= 2);
        cells += cell.text;
        width += cell.width;
    }
    Fuzzing::requireEqual(cells, text, "nothing is lost between the cells");
    REQUIRE(textWidth(text) == width);
    REQUIRE(padded(text, columns).startsWith(text) && rightAligned(text, columns).endsWith(text));

    const QStringList lines = wrapped(text, columns);
    REQUIRE(!lines.isEmpty());
    for (const QString& line : lines) {
        REQUIRE(textWidth(line) <= columns && !line.endsWith(QLatin1Char(' ')));
        REQUIRE(!line.contains(QLatin1Char('\n')));
    }
    Fuzzing::requireEqual(withoutBlanks(lines.join(QLatin1Char('\n'))), withoutBlanks(clean),
                          "wrapping loses nothing but blanks");
    const QString joined = lines.join(QLatin1Char('\n'));
    Fuzzing::requireEqual(wrapped(joined, columns).join(QLatin1Char('\n')), joined,
                          "what is wrapped stays as it is");

    const QByteArray bytes = EscPos::encode(text);
    REQUIRE(bytes.count('\n') == clean.count(QLatin1Char('\n')));
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        REQUIRE(code == '\n' || (code >= 0x20 && code != 0x7F));
    }
    return 0;
}
