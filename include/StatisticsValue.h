// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_STATISTICSVALUE_H
#define BRIMVALE_STATISTICSVALUE_H

#include "SharedLibsGlobal.h"

#include <QDateTime>
#include <QFlags>
#include <QMap>
#include <QString>

namespace Brimvale
{

/// One figure of a statistics, held as a scaled integer, with its two text forms.
///
/// The **key/value form** is written by `ToString()` and read back by `SetFromString()`:
///
///     value="123456" komma="2" unit="g" flags="1" timestamp="2021-03-05 14:07:09.042"
///
/// The **database form** of `ToDbString()` is the values part of a database statement:
///
///     '123456','2','g','1','2021-03-05 14:07:09.042'
///
/// Time stamps are written in local time without a zone; a null or invalid one is written as an empty text. Nothing
/// is escaped in either form: a unit with a double quote cannot be read back, and one with a single quote must be kept
/// out of database statements. The validity mark is part of neither form.
///
/// The order of the members is part of the binary contract.
class BRIMVALE_EXPORT StatisticsValue
{
public:
    /// What the figure is. The flags are stored and written as a number; the library reads none of them.
    enum StatisticsFlag
    {
        NoFlag = 0,         ///< a plain figure
        Calculated = 0x01,  ///< calculated from other figures
        Extreme = 0x02,     ///< a minimum or maximum
        OutOfLimits = 0x04, ///< outside of its limits
        Deleted = 0x08      ///< taken out of the statistics
    };

    /// Sets every member from its argument.
    StatisticsValue(long long value, int komma, QString unit, QFlags<StatisticsFlag> flags,
                    QDateTime timestamp, bool isValid);
    StatisticsValue(const StatisticsValue& other);
    StatisticsValue& operator=(const StatisticsValue& other);
    virtual ~StatisticsValue();

    /// Sets the numbers and flags to 0, the unit to the empty text, the time stamp to null and the mark to invalid.
    void Reset();

    /// Whether all six members equal those of `other`, which must not be null. Two null time stamps are equal.
    bool isEqual(const StatisticsValue* other);

    /// Whether the figure holds a valid value.
    bool isValid();
    /// Marks the figure as valid or not.
    void setIsValid(bool isValid);

    /// The key/value form: always all five fields, separated by one blank.
    QString ToString() const;

    /// The database form.
    QString ToDbString() const;

    /// Reads the key/value form into this figure. Nothing is reported:
    ///
    /// - a field that is missing keeps its value, and the validity mark is never touched;
    /// - of a repeated key the last counts; keys are compared exactly, unknown ones are ignored;
    /// - a number that cannot be read, or is beyond 32 bits with sign, becomes 0: so does a larger `value`, although all
    ///   its 64 bits are written, and `flags` with the highest bit;
    /// - a time stamp that cannot be read, or names a time that the clock skips, becomes invalid.
    ///
    /// A text that is not in the form is read as far as the search for pairs advances.
    void SetFromString(QString text);

    // The steps of SetFromString(), in the order of their use.

    /// Adds the pairs of `text` to `map`, from the start to where the search does not advance any more.
    void ConvertStringToMap(QString text, QMap<QString, QString>* map);

    /// Adds the pair at `position` of `text` to `map`, replacing one with the same key, and returns the position
    /// after it: the second behind the closing quote, since one blank follows. The key is all that stands before `="`.
    /// Where there is no pair, the returned position lies before or little behind the beginning of the text.
    int AddKeyValPair(QString text, int position, QMap<QString, QString>* map);

    /// Sets the members named by the keys of `map`, which must not be null.
    void ConvertMapToStatsVal(const QMap<QString, QString>* map);

    /// Sets the member named `key` ("value", "komma", "unit", "flags" or "timestamp"); another key is ignored.
    void SetStatsProperty(QString key, QString text);

    long long value;              ///< the figure times 10 to the power `komma`
    int komma;                    ///< count of decimal places of `value`
    QString unit;                 ///< unit text
    QFlags<StatisticsFlag> flags; ///< what the figure is
    QDateTime timestamp;          ///< when the figure was taken; may be null
    bool valid;                   ///< whether the figure holds a valid value; see `isValid()`
};

} // namespace Brimvale

#endif
