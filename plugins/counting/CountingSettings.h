// SPDX-License-Identifier: BSD-3-Clause
#ifndef COUNTINGSETTINGS_H
#define COUNTINGSETTINGS_H

#include "PieceReference.h"

#include <QCoreApplication>
#include <QString>

/// What the person enters on the screen (the parts of a reference, the target and its tolerance) and the reference, as they are kept.
/// Every value is within its range always.
class CountingSettings
{
    Q_DECLARE_TR_FUNCTIONS(CountingSettings)

public:
    enum Id
    {
        Parts,     ///< in the next reference
        Target,    ///< 0: there is none
        Tolerance, ///< pieces more or less than the target
        Count
    };

    /// What a count is against the target.
    enum Check
    {
        NoTarget,
        Under,
        Reached,
        Over
    };

    int value(int id) const { return m_values[id]; }
    /// Returns false, and changes nothing, when the value is out of range.
    bool setValue(int id, int value);

    QString title(int id) const;
    QString text(int id) const; ///< `± 2`, `none`
    QString rangeText(int id) const;

    Check check(int pieces) const;
    /// The pieces that are missing, or too many; 0 when the target is reached or there is none.
    int difference(int pieces) const;

    const PieceReference& reference() const { return m_reference; }
    void setReference(const PieceReference& reference) { m_reference = reference; }

    /// Reads an INI file. What is missing keeps its value; what is unreadable or out of range, too, and makes the result
    /// false. A file that does not exist is well.
    bool load(const QString& fileName);
    /// Returns whether everything is in the file.
    bool save(const QString& fileName) const;

private:
    int m_values[Count] = {10, 0, 0};
    PieceReference m_reference;
};

#endif
