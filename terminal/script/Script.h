// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SCRIPT_H
#define BRIMVALE_SCRIPT_H

#include "source/SourceSpec.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// One statement of a script.
struct Statement
{
    enum class Kind
    {
        PutOn,                    ///< number: grams
        TakeOff,                  ///< number: grams
        TakeOffAll,               ///<
        WaitTime,                 ///< withinMs: how long
        WaitStable,               ///< withinMs: at most
        WaitDisplay,              ///< text; withinMs: at most
        WaitEnd,                  ///<
        WaitPrint,                ///< withinMs: at most
        PressPrint,               ///<
        Press,                    ///< word: uid
        Start,                    ///< text: identifier of the plug-in
        Close,                    ///<
        OpenSettings,             ///<
        CloseSettings,            ///<
        SetItem,                  ///< number: id of the setting; text
        PressItem,                ///< number: id of the setting
        SetLevel,                 ///< on: level
        SetCalibration,           ///< on: due
        SetNoise,                 ///< number: increments
        SetDrift,                 ///< number: grams per minute
        SetOperator,              ///< text
        SetSerialNumber,          ///< text
        SetPrintColumns,          ///< number: columns
        ProtocolItem,             ///< word: uid; on: choose it
        ProtocolItems,            ///< on: choose all that are offered; otherwise none
        ProtocolKind,             ///< word: see protocolTypeOf()
        ProtocolPart,             ///< word: see protocolPartOf()
        ProtocolTrigger,          ///< word: uid
        ProtocolMenu,             ///< on: open
        SetPrinter,               ///< text: one of PrinterModel::faults()
        RepeatPrint,              ///<
        PressUnit,                ///<
        PressSmallUnit,           ///<
        SetUnit,                  ///< word: unit
        SetSmallUnit,             ///< word: unit, or none
        SetApproval,              ///< on: approved units only
        SetCarat,                 ///< on: allowed
        SetAuxiliaryDigit,        ///< on: the last digit is not verified
        SetDecimals,              ///< number: at least
        SetReducedDigits,         ///< number
        SetTransferOff,           ///<
        SetTransferAbsolute,      ///< number: grams; on: the band is not fixed
        SetTransferPercent,       ///< number: percent; on: the band is not fixed
        SetTransferMinimum,       ///< number: grams
        SetParameters,            ///< word: set
        Disconnect,               ///<
        Connect,                  ///<
        Dismiss,                  ///< the notice
        Language,                 ///< word: "en" or "de"
        Bench,                    ///< word: the page
        Screenshot,               ///< text: file
        Note,                     ///< text
        ExpectDisplay,            ///< text
        ExpectStable,             ///< on
        ExpectNet,                ///< on
        ExpectLevellingWarning,   ///< text, or none
        ExpectCalibrationWarning, ///< text, or none
        ExpectActionEnabled,      ///< word: uid; on
        ExpectActionToggle,       ///< word: uid; number: index
        ExpectActionText,         ///< word: uid; text
        ExpectPrint,              ///< on
        ExpectPrintOut,           ///< text: file, or none
        ExpectNotice,             ///< text, or none
        ExpectTransfer,           ///< text, or none
        ExpectHostCall,           ///< text
        ExpectNoHostCall,         ///< text
        ExpectInfo,               ///< text, or none
        ExpectWorkflow,           ///< text, or none
        ExpectPrinter,            ///< text: one of PrinterModel::states()
        ExpectQueue,              ///< number: print-outs
        ExpectLog,                ///< text
        ExpectSmall,              ///< text, or none
        ExpectUnits,              ///< text, or none
        ExpectCoarse,             ///< on
        ExpectTriggers,           ///< number
        ExpectReason,             ///< text
        ExpectParameters,         ///< word: set
        ExpectItem                ///< number: id of the setting; text, or none
    };

    /// How long a wait goes on that does not say so itself.
    static constexpr qint64 DefaultWithinMs = 30000;

    Kind kind = Kind::Note;
    int line = 0;   ///< Counted from 1.
    QString source; ///< As it was written, without blanks around it.
    double number = 0.0;
    QString word;
    QString text;    ///< Without the quotation marks that it may have been written in.
    bool on = false; ///< The first word of a pair of words such as on|off, stable|unstable, enabled|disabled.
    bool none = false; ///< Instead of a text: there must be none.
    qint64 withinMs = DefaultWithinMs;
};

/// A script: what is done on the terminal and what is expected of it, one statement a line. The language is described
/// in docs/headless-scripts.md. A script is read whole before anything is done.
class Script
{
public:
    /// Longest wait.
    static constexpr qint64 MaximumWithinMs = Q_INT64_C(24) * 60 * 60 * 1000;

    /// Reads the file @p fileName. On failure nothing is returned and @p errors has a text for every fault:
    /// "FILE:LINE: what was written: what is wrong; what would be right".
    static constexpr int MaximumSize = 4 * 1024 * 1024; ///< Bytes of a file.
    static std::optional<Script> load(const QString& fileName, QStringList* errors);

    /// Reads @p content, UTF-8; @p name names it in the messages.
    static std::optional<Script> parse(const QByteArray& content, const QString& name, QStringList* errors);

    /// Statements that cannot be carried out with a source of that kind, as texts like those of parse(). Empty when the
    /// script fits.
    QStringList faultsWith(SourceSpec::Kind source) const;

    QString name() const { return m_name; }
    /// At least one.
    const QVector<Statement>& statements() const { return m_statements; }

private:
    Script() = default;

    QString m_name;
    QVector<Statement> m_statements;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SCRIPT_H
