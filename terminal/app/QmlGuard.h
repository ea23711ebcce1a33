// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_QMLGUARD_H
#define BRIMVALE_QMLGUARD_H

#include <QString>

#include <functional>

class QObject;

namespace Brimvale
{
namespace Terminal
{

/// Keeps exceptions out of the QML engine, which does not survive them: unlike the event loop it leaves its own
/// bookkeeping half done. Invokables and slots that QML calls end with their exception, and QML gets no result.
///
/// What the engine calls in other ways is out of reach: the accessors of a property, the virtual operations of a model
/// or of an item.
class QmlGuard
{
public:
    using Report = std::function<void(QObject* object, const QString& exception)>;

    /// @param report is told what was caught, in words; @p object may be null when it is gone. An empty function lets
    /// exceptions through.
    static void setReport(Report report);
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_QMLGUARD_H
