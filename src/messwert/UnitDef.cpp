// SPDX-License-Identifier: BSD-3-Clause
#include "UnitDef.h"

#include "ProjectException.h"
#include "Utility.h"

#include <QTextStream>

#include <utility>

namespace Brimvale
{

namespace
{

constexpr quint32 RecordHeader = 0xFE7CFA95;
constexpr quint16 RecordVersion = 1;
constexpr QChar Separator(0x00A0); // no-break space

} // namespace

UnitDef::UnitDef(QString name, QString printName, double factor, int format, int rounding, bool isInverse,
                 UnitEnableFlag enableFlag)
    : m_name(std::move(name))
    , m_printName(std::move(printName))
    , m_factor(factor)
    , m_format(format)
    , m_rounding(rounding)
    , m_isInverse(isInverse)
    , m_enableFlag(enableFlag)
{
}

UnitDef::UnitDef(const UnitDef& other) = default;

UnitDef& UnitDef::operator=(const UnitDef& other) = default;

UnitDef::~UnitDef() = default;

QString UnitDef::name() const
{
    return m_name;
}

void UnitDef::setName(const QString& name)
{
    m_name = name;
}

QString UnitDef::printName() const
{
    return m_printName;
}

void UnitDef::setPrintName(const QString& printName)
{
    m_printName = printName;
}

double UnitDef::factor() const
{
    return m_factor;
}

void UnitDef::setFactor(double factor)
{
    m_factor = factor;
}

int UnitDef::format() const
{
    return m_format;
}

void UnitDef::setFormat(int format)
{
    m_format = format;
}

int UnitDef::rounding() const
{
    return m_rounding;
}

void UnitDef::setRounding(int rounding)
{
    m_rounding = rounding;
}

bool UnitDef::isInverse() const
{
    return m_isInverse;
}

void UnitDef::setIsInverse(bool isInverse)
{
    m_isInverse = isInverse;
}

void UnitDef::setEnableFlag(UnitEnableFlag enableFlag)
{
    m_enableFlag = enableFlag;
}

double UnitDef::getCalculatedFactor() const
{
    return m_isInverse ? 1.0 / m_factor : m_factor;
}

bool UnitDef::CheckEnableFlag(int mask)
{
    const int flags = m_enableFlag;
    if ((flags & ~mask) != 0) {
        return false;
    }
    return mask == 0 || flags != 0;
}

bool UnitDef::operator==(const UnitDef& other) const
{
    return m_name == other.m_name && m_printName == other.m_printName
           && Utility::isEqual(m_factor, other.m_factor) && m_format == other.m_format
           && m_rounding == other.m_rounding && m_isInverse == other.m_isInverse
           && m_enableFlag == other.m_enableFlag;
}

bool UnitDef::operator!=(const UnitDef& other) const
{
    return !(*this == other);
}

void UnitDef::insertToDataStream(QTextStream& stream) const
{
    stream << RecordHeader << Separator << RecordVersion << Separator << m_name << Separator << m_printName
           << Separator << m_factor << Separator << m_format << Separator << m_rounding << Separator
           << (m_isInverse ? 1 : 0) << Separator << static_cast<quint16>(m_enableFlag) << Separator;
}

void UnitDef::extractFromDataStream(QTextStream& stream)
{
    quint32 header = 0;
    stream >> header;
    if (header != RecordHeader) {
        throw ProjectException(
            QStringLiteral("UnitDef::extractFromDataStream() failed because of a header mismatch."));
    }
    quint16 version = 0;
    stream >> version;
    if (version > RecordVersion) {
        throw ProjectException(
            QStringLiteral("UnitDef::extractFromDataStream() failed because of a version compatibility."));
    }
    stream >> m_name >> m_printName >> m_factor;

    int format = 0;
    int rounding = 0;
    int isInverse = 0;
    int enableFlag = 0;
    stream >> format >> rounding >> isInverse >> enableFlag;
    m_format = format;
    m_rounding = rounding;
    m_isInverse = isInverse != 0;
    m_enableFlag = static_cast<UnitEnableFlag>(enableFlag & 0xFFFF);
}

QTextStream& operator<<(QTextStream& stream, const UnitDef& unit)
{
    unit.insertToDataStream(stream);
    return stream;
}

QTextStream& operator>>(QTextStream& stream, UnitDef& unit)
{
    unit.extractFromDataStream(stream);
    return stream;
}

} // namespace Brimvale
