// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_TEXT_H
#define BRIMVALE_TESTKIT_TEXT_H

#include <QLatin1String>
#include <QString>

namespace Brimvale::TestKit
{

/// A text argument, so that tests can write a plain literal (UTF-8), a `QString` or a `QLatin1String` where they
/// name an operation or state an expected call.
class Text
{
public:
    Text(const char* utf8)
        : m_text(QString::fromUtf8(utf8))
    {
    }
    Text(QLatin1String text)
        : m_text(text)
    {
    }
    Text(const QString& text)
        : m_text(text)
    {
    }

    const QString& toString() const { return m_text; }
    operator const QString&() const { return m_text; }

private:
    QString m_text;
};

} // namespace Brimvale::TestKit

#endif
