// SPDX-License-Identifier: BSD-3-Clause
#include "print/EscPos.h"

#include "print/TextLayout.h"

namespace Brimvale
{
namespace Terminal
{
namespace EscPos
{
namespace
{

/// The upper half of CP858.
const QString& upperHalf()
{
    static const QString characters = QStringLiteral(u"ÇüéâäàåçêëèïîìÄÅ"
                                                     u"ÉæÆôöòûùÿÖÜø£Ø×ƒ"
                                                     u"áíóúñÑªº¿®¬½¼¡«»"
                                                     u"░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
                                                     u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤"
                                                     u"ðÐÊËÈ€ÍÎÏ┘┌█▄¦Ì▀"
                                                     u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´"
                                                     u"\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0");
    return characters;
}

char encoded(QChar character)
{
    constexpr ushort FirstPrintable = 0x20;
    constexpr ushort Delete = 0x7F;
    if (character == QChar(0x03BC)) // The Greek letter in place of the micro sign.
        character = QChar(0x00B5);
    if (character.unicode() >= FirstPrintable && character.unicode() < Delete)
        return static_cast<char>(character.unicode());
    const int position = upperHalf().indexOf(character);
    return position < 0 ? '\0' : static_cast<char>(0x80 + position);
}

} // namespace

QByteArray begin()
{
    return QByteArrayLiteral("\x1B@\x1Bt\x13");
}

QByteArray encode(const QString& text)
{
    QByteArray bytes;
    const QString clean = printable(text).normalized(QString::NormalizationForm_C);
    const QVector<TextCell> cells = textCells(clean);
    for (const TextCell& cell : cells) {
        if (cell.text == QLatin1String("\n")) {
            bytes += '\n';
            continue;
        }
        const char byte = cell.text.size() == 1 ? encoded(cell.text.at(0)) : '\0';
        if (byte != '\0')
            bytes += byte;
        else
            bytes += QByteArray(cell.width, '?');
    }
    return bytes;
}

QByteArray end()
{
    return QByteArray("\x1B"
                      "d\x04\x1DVB\0",
                      7);
}

} // namespace EscPos
} // namespace Terminal
} // namespace Brimvale
