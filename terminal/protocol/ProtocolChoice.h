// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLCHOICE_H
#define BRIMVALE_PROTOCOLCHOICE_H

#include "ProtocolArea.h"
#include "ProtocolType.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

class StoredParameters;

/// What of a protocol is printed: one area of it, or the header, the body and the footer one after the other.
enum class ProtocolPart
{
    Whole,
    Header,
    Body,
    Footer,
    Sics ///< A SICS weight answer instead of a print-out.
};

/// What the person chose for the protocol of one application.
struct ProtocolChoice
{
    QStringList items; ///< Uids, each once; the order means nothing, since items are printed as sorted.
    ProtocolType type = ProtocolType::Measurement;
    ProtocolPart part = ProtocolPart::Whole;
    QString trigger; ///< Uid of the trigger that starts the protocol.

    bool operator==(const ProtocolChoice& other) const;
    bool operator!=(const ProtocolChoice& other) const { return !(*this == other); }

    /// The choice that is stored for the application @p application; what is not stored or cannot be read has
    /// the value of @p defaults.
    static ProtocolChoice load(const StoredParameters& parameters, const QString& owner,
                               const QString& application, const ProtocolChoice& defaults);
    /// Stores the choice. Returns false, with the reason in @p error, when it cannot be written; it then holds
    /// for this run only.
    bool store(StoredParameters& parameters, const QString& owner, const QString& application,
               QString* error) const;
};

/// All kinds of protocol, in the order in which they are offered.
const QVector<ProtocolType>& protocolTypes();
/// All parts, in the order in which they are offered.
const QVector<ProtocolPart>& protocolParts();

/// The words under which they are stored and written in scripts: "measurement", "whole".
QString keyOf(ProtocolType type);
QString keyOf(ProtocolPart part);
std::optional<ProtocolType> protocolTypeOf(const QString& key);
std::optional<ProtocolPart> protocolPartOf(const QString& key);

/// The areas that are printed one after the other.
QVector<ProtocolAreas> areasOf(ProtocolPart part);

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOLCHOICE_H
