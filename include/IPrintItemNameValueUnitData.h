// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPRINTITEMNAMEVALUEUNITDATA_H
#define BRIMVALE_IPRINTITEMNAMEVALUEUNITDATA_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// The texts of a name/value/unit print item, kept apart from it so that several items can share them.
/// Implemented by `PrintItemNameValueUnitData`. It has no identifier of its own: cast by the name
/// "IPrintItemNameValueUnitData".
class BRIMVALE_EXPORT IPrintItemNameValueUnitData
{
public:
    virtual ~IPrintItemNameValueUnitData();

    /// The category text.
    virtual QString getCategory() const = 0;

    /// The display name under which the item is offered; it is not printed.
    virtual QString getName() const = 0;

    /// The description, printed in the column of the name.
    virtual QString getDescription() const = 0;

    /// Replaces the category text; no notification.
    virtual void setCategory(const QString& category) = 0;

    /// Replaces the name; no notification.
    virtual void setName(const QString& name) = 0;

    /// Replaces the description; no notification.
    virtual void setDescription(const QString& description) = 0;
};

} // namespace Brimvale

#endif
