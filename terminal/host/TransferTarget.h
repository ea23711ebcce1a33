// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TRANSFERTARGET_H
#define BRIMVALE_TRANSFERTARGET_H

#include "ITransferTarget.h"

#include <QString>

#include <memory>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
struct TransferRecord;

/// An output device that takes measurements.
class TransferOutput
{
public:
    virtual ~TransferOutput() = default;

    /// Whether it takes measurements now.
    virtual bool isActive() const = 0;

    /// Takes a measurement. Returns false, and is inactive from then on, when it failed.
    virtual bool write(const TransferRecord& record) = 0;

    /// Why it is not active, with what to do about it; empty when nothing has failed.
    virtual QString error() const { return QString(); }
};

/// One of the five places where an output can be connected. Without an output it is not active.
class TransferTarget : public ITransferTarget
{
public:
    explicit TransferTarget(HostCallLog& calls);
    ~TransferTarget() override;
    Q_DISABLE_COPY(TransferTarget)

    // ITransferTarget
    bool IsActive() override;

    bool isActive() const;
    /// Connects an output, in place of what was connected; null disconnects it.
    void setOutput(std::unique_ptr<TransferOutput> output);
    TransferOutput* output() const { return m_output.get(); }

private:
    HostCallLog& m_calls;
    std::unique_ptr<TransferOutput> m_output;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TRANSFERTARGET_H
