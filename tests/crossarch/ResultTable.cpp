// SPDX-License-Identifier: BSD-3-Clause
#include "ResultTable.h"

#include "MesswertData.h"

#include <cmath>
#include <cstdio>

using namespace Brimvale;

ResultTable::ResultTable(const QString& path)
    : m_file(path)
{
    m_file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

Inputs ResultTable::begin(const char* operation)
{
    endOperation();
    m_operation = operation;
    write("# " + m_operation + '\n');
    m_lines = 0;
    // "FNV-1a"
    quint64 seed = 0xCBF29CE484222325;
    for (const char character : m_operation)
        seed = (seed ^ static_cast<uchar>(character)) * 0x100000001B3;
    return Inputs(seed);
}

QList<ResultTable::Checksum> ResultTable::finish()
{
    endOperation();
    m_file.flush();
    return m_checksums;
}

void ResultTable::write(const QByteArray& line)
{
    m_file.write(line);
    m_hash.addData(line);
    ++m_lines;
}

void ResultTable::endOperation()
{
    if (!m_operation.isEmpty())
        m_checksums.append({m_operation, m_lines, m_hash.result().toHex()});
    m_hash.reset();
}

QByteArray written(double value)
{
    // The sign of what is no number is the processor's.
    if (std::isnan(value))
        return "nan";
    char text[40];
    std::snprintf(text, sizeof(text), "%a", value);
    return text;
}

QByteArray written(const QString& text)
{
    QByteArray result = "\"";
    for (const QChar character : text) {
        const ushort code = character.unicode();
        if (code >= ' ' && code <= '~' && code != '\\' && code != '"')
            result += static_cast<char>(code);
        else
            result += "\\u" + QByteArray::number(code, 16).rightJustified(4, '0');
    }
    // An empty text may be a null text, which is a difference that callers see.
    return text.isNull() ? QByteArray("null") : result + '"';
}

QByteArray written(const QStringList& texts)
{
    QByteArray result = "[";
    for (const QString& text : texts)
        result += written(text) + ' ';
    return result + ']';
}

QByteArray written(const MesswertData& data)
{
    return '{'
           + line(data.messwert, data.unit, data.unitPrintName, data.errorText, data.stabilityValue,
                  data.rangeNumber, data.eichDigit, data.decimals, data.resolutionReduction, data.value,
                  data.tareValue, data.isValid, data.isCalculated, data.isStable, data.net, data.isPresetTare,
                  data.isGrobRange, data.isOverload, data.registerNumber)
           + '}';
}
