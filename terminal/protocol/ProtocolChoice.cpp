// SPDX-License-Identifier: BSD-3-Clause
#include "protocol/ProtocolChoice.h"

#include "host/StoredParameters.h"

#include <QUrl>

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

namespace
{

// The stored values, by their numbers.
enum Index
{
    ItemsIndex = 0,
    TypeIndex = 1,
    PartIndex = 2,
    TriggerIndex = 3
};

const QLatin1String Profile("protocol");

template <typename Value>
struct Key
{
    Value value;
    const char* key;
};

constexpr Key<ProtocolType> TypeKeys[] = {
    {ProtocolType::Measurement, "measurement"}, {ProtocolType::Series, "series"},
    {ProtocolType::Summary, "summary"},         {ProtocolType::Calibration, "calibration"},
    {ProtocolType::Workflow, "workflow"},
};

constexpr Key<ProtocolPart> PartKeys[] = {
    {ProtocolPart::Whole, "whole"},   {ProtocolPart::Header, "header"}, {ProtocolPart::Body, "body"},
    {ProtocolPart::Footer, "footer"}, {ProtocolPart::Sics, "sics"},
};

template <typename Value, std::size_t Count>
QVector<Value> valuesOf(const Key<Value> (&keys)[Count])
{
    QVector<Value> values;
    for (const Key<Value>& key : keys) {
        values.append(key.value);
    }
    return values;
}

template <typename Value, std::size_t Count>
QString keyIn(const Key<Value> (&keys)[Count], Value value)
{
    const auto found = std::find_if(std::begin(keys), std::end(keys),
                                    [value](const auto& key) { return key.value == value; });
    return found == std::end(keys) ? QString() : QString::fromLatin1(found->key);
}

template <typename Value, std::size_t Count>
std::optional<Value> valueIn(const Key<Value> (&keys)[Count], const QString& text)
{
    const auto found = std::find_if(std::begin(keys), std::end(keys),
                                    [&text](const auto& key) { return text == QLatin1String(key.key); });
    return found == std::end(keys) ? std::nullopt : std::optional<Value>(found->value);
}

QString menuFileOf(const QString& application)
{
    return QStringLiteral("protocol/") + QString(application).replace(QLatin1Char('/'), QLatin1String("%2F"));
}

} // namespace

bool ProtocolChoice::operator==(const ProtocolChoice& other) const
{
    return items == other.items && type == other.type && part == other.part && trigger == other.trigger;
}

ProtocolChoice ProtocolChoice::load(const StoredParameters& parameters, const QString& owner,
                                    const QString& application, const ProtocolChoice& defaults)
{
    const auto stored = [&](Index index) {
        return parameters.value(menuFileOf(application), owner, Profile, QString(), index);
    };
    ProtocolChoice choice = defaults;
    choice.type = protocolTypeOf(stored(TypeIndex)).value_or(defaults.type);
    choice.part = protocolPartOf(stored(PartIndex)).value_or(defaults.part);
    const QString trigger = stored(TriggerIndex);
    if (!trigger.isEmpty()) {
        choice.trigger = trigger;
    }
    // A uid may hold any character; encoded it holds no blank.
    const QStringList items = stored(ItemsIndex).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& item : items) {
        const QString uid = QUrl::fromPercentEncoding(item.toLatin1());
        if (!choice.items.contains(uid)) {
            choice.items.append(uid);
        }
    }
    return choice;
}

bool ProtocolChoice::store(StoredParameters& parameters, const QString& owner, const QString& application,
                           QString* error) const
{
    QStringList encoded;
    for (const QString& uid : items) {
        encoded.append(QString::fromLatin1(QUrl::toPercentEncoding(uid)));
    }
    const struct
    {
        Index index;
        QString value;
    } values[] = {
        {ItemsIndex, encoded.join(QLatin1Char(' '))},
        {TypeIndex, keyOf(type)},
        {PartIndex, keyOf(part)},
        {TriggerIndex, trigger},
    };
    bool ok = true;
    for (const auto& value : values) {
        ok = parameters.setValue(menuFileOf(application), owner, Profile, value.index, value.value, error)
             && ok;
    }
    return ok;
}

const QVector<ProtocolType>& protocolTypes()
{
    static const QVector<ProtocolType> types = valuesOf(TypeKeys);
    return types;
}

const QVector<ProtocolPart>& protocolParts()
{
    static const QVector<ProtocolPart> parts = valuesOf(PartKeys);
    return parts;
}

QString keyOf(ProtocolType type)
{
    return keyIn(TypeKeys, type);
}

QString keyOf(ProtocolPart part)
{
    return keyIn(PartKeys, part);
}

std::optional<ProtocolType> protocolTypeOf(const QString& key)
{
    return valueIn(TypeKeys, key);
}

std::optional<ProtocolPart> protocolPartOf(const QString& key)
{
    return valueIn(PartKeys, key);
}

QVector<ProtocolAreas> areasOf(ProtocolPart part)
{
    switch (part) {
    case ProtocolPart::Header:
        return {ProtocolArea::Header};
    case ProtocolPart::Body:
        return {ProtocolArea::Body};
    case ProtocolPart::Footer:
        return {ProtocolArea::Footer};
    case ProtocolPart::Sics:
        return {ProtocolArea::Sics};
    case ProtocolPart::Whole:
        break;
    }
    return {ProtocolArea::Header, ProtocolArea::Body, ProtocolArea::Footer};
}

} // namespace Terminal
} // namespace Brimvale
