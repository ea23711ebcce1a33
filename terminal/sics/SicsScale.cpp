// SPDX-License-Identifier: BSD-3-Clause
#include "sics/SicsScale.h"

#include "IPrinter.h"
#include "ISystemRegister.h"
#include "host/Host.h"
#include "measuring/Scale.h"

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Keeps the text that an item prints.
class TextPrinter : public IPrinter
{
public:
    int GetPrintLayout() override { return 0; }
    bool PrintLine(const QString& line) override
    {
        text += line;
        return true;
    }

    QString text;
};

/// `I4 A "text"` has no means to write a quotation mark or a control character.
QByteArray quotable(const QString& text)
{
    QByteArray result = text.toLatin1();
    for (char& byte : result) {
        if (byte == '"' || static_cast<uchar>(byte) < 0x20 || byte == 0x7f)
            byte = '?';
    }
    return result;
}

} // namespace

SicsScale::SicsScale(Host& host, Scale& scale, IFormat& format, const QString& serialNumber, QObject* parent)
    : QObject(parent)
    , m_host(host)
    , m_scale(scale)
    , m_format(format)
    , m_serialNumber(quotable(serialNumber))
    , m_item(nullptr, QStringLiteral("terminal.sics"), &m_value, ProtocolDef(), false, &host.system())
{
    const auto forget = [this] { m_weightAnswer.clear(); };
    connect(&m_scale, &Scale::stateChanged, this, forget);
    connect(&m_scale, &Scale::decimalsChanged, this, forget);
    connect(&m_scale, &Scale::newMeasurement, this, [this, forget] {
        forget();
        emit updated();
    });
}

SicsScale::~SicsScale() = default;

bool SicsScale::isValid() const
{
    return m_scale.isValid();
}

bool SicsScale::isStable() const
{
    return m_scale.isStable();
}

double SicsScale::netGrams() const
{
    return m_scale.netGrams();
}

double SicsScale::incrementGrams() const
{
    return m_scale.readability().toGrams(m_scale.incrementDigits());
}

QByteArray SicsScale::weightAnswer()
{
    if (m_weightAnswer.isEmpty()) {
        const bool beyondRange =
            m_scale.status() == Reading::Status::Overload || m_scale.status() == Reading::Status::Underload;
        m_weightAnswer = beyondRange
                             ? refusal('S')
                             : answer('S', m_host.registerValues().grams(ISystemRegister::CurrentRegister));
    }
    return m_weightAnswer;
}

QByteArray SicsScale::zero()
{
    if (m_scale.zero())
        return QByteArrayLiteral("Z A\r\n");
    return refusal('Z');
}

QByteArray SicsScale::tare()
{
    if (m_scale.tare())
        return answer('T', m_host.registerValues().grams(ISystemRegister::TareRegister));
    return refusal('T');
}

QByteArray SicsScale::resetAnswer() const
{
    return "I4 A \"" + m_serialNumber + "\"\r\n";
}

QByteArray SicsScale::answer(char id, const MesswertData& value)
{
    m_value = value;
    m_item.setValue();
    TextPrinter printer;
    {
        const ProtocolFormatScope sics(m_host.system(), QStringLiteral("sics"));
        m_item.Print(&printer, &m_format);
    }
    return id + printer.text.toLatin1().mid(1);
}

/// Why there is no weight, or why zero or tare was not carried out.
QByteArray SicsScale::refusal(char id) const
{
    char reason = 'I';
    if (m_scale.status() == Reading::Status::Overload) {
        reason = '+';
    } else if (m_scale.status() == Reading::Status::Underload
               || (m_scale.isValid() && m_scale.lastRefusal() == Scale::Refusal::NegativeLoad)) {
        reason = '-';
    } else if (m_scale.isValid() && m_scale.lastRefusal() == Scale::Refusal::OutsideZeroRange) {
        reason = m_scale.lastReading().grams > 0.0 ? '+' : '-';
    }
    return QByteArray(1, id) + ' ' + reason + "\r\n";
}

} // namespace Terminal
} // namespace Brimvale
