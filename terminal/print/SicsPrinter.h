// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SICSPRINTER_H
#define BRIMVALE_SICSPRINTER_H

#include "print/PrintDevice.h"

#include <QByteArray>

#include <functional>

namespace Brimvale
{
namespace Terminal
{

/// Takes SICS answers for the connected computers and returns how many take it.
using SicsAnswerSink = std::function<int(const QByteArray& answer)>;

/// Hands SICS answers to the computers that are connected with the terminal. Without one the print-out fails.
class SicsPrinter : public PrintDevice
{
    Q_OBJECT

public:
    explicit SicsPrinter(SicsAnswerSink sink);

    QString description() const override;
    void begin(const PrintJob& job, int firstBlock) override;
    void print(const QString& block) override;
    void end() override;
    void cancel() override { }

private:
    const SicsAnswerSink m_sink;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SICSPRINTER_H
