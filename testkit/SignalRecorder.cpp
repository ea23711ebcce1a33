// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/SignalRecorder.h"

#include "TestKit/ArgumentText.h"

#include <QVector>

#include <stdexcept>

namespace Brimvale::TestKit
{

namespace
{

/// The text of a signal's argument, whose type is known at run time only.
QString parameterText(const QMetaMethod& signal, int index, const void* value)
{
    const int type = signal.parameterType(index);
    if (type == QMetaType::UnknownType)
        return QLatin1Char('<') + QString::fromLatin1(signal.parameterTypes().at(index)) + QLatin1Char('>');
    if (type == QMetaType::QVariant)
        return argumentText(*static_cast<const QVariant*>(value));
    // A QVariant writes its type first, which the signal's signature already tells.
    const QString text = argumentText(QVariant(type, value));
    const QString prefix = QStringLiteral("QVariant(%1, ").arg(QLatin1String(QMetaType::typeName(type)));
    if (text.startsWith(prefix))
        return text.mid(prefix.size()).chopped(1);
    return text.mid(int(qstrlen("QVariant("))).chopped(1);
}

} // namespace

/// Connected to each recorded signal directly by index, with a slot number of its own.
class SignalRecorder::Receiver : public QObject
{
public:
    explicit Receiver(SignalRecorder& recorder)
    {
        sink = [&recorder](const QString&, const QString& signal) { recorder.m_calls.append(signal); };
    }

    void add(const QObject* sender, const QMetaMethod& signal)
    {
        const int slot = QObject::staticMetaObject.methodCount() + m_signals.size();
        m_signals.append({objectText(sender, typeid(*sender)), signal});
        QMetaObject::connect(sender, signal.methodIndex(), this, slot, Qt::DirectConnection);
    }

    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override
    {
        id = QObject::qt_metacall(call, id, arguments);
        if (id < 0 || call != QMetaObject::InvokeMetaMethod)
            return id;
        // A copy, since the sink may record further signals.
        const Recorded recorded = m_signals.at(id);
        QStringList texts;
        for (int i = 0; i < recorded.signal.parameterCount(); ++i)
            texts.append(parameterText(recorded.signal, i, arguments[i + 1]));
        sink(recorded.sender, QString::fromLatin1(recorded.signal.name()) + QLatin1Char('(')
                                  + texts.join(QLatin1String(", ")) + QLatin1Char(')'));
        return -1;
    }

    std::function<void(const QString&, const QString&)> sink;

private:
    struct Recorded
    {
        QString sender;
        QMetaMethod signal;
    };

    QVector<Recorded> m_signals;
};

SignalRecorder::SignalRecorder()
    : m_receiver(std::make_unique<Receiver>(*this))
{
}

SignalRecorder::SignalRecorder(const QObject* sender)
    : SignalRecorder()
{
    recordAll(sender);
}

SignalRecorder::~SignalRecorder() = default;

void SignalRecorder::recordAll(const QObject* sender)
{
    const QMetaObject* const metaObject = sender->metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < metaObject->methodCount(); ++i) {
        const QMetaMethod method = metaObject->method(i);
        // A clone stands for a signal whose last arguments have defaults; it is emitted with the full one.
        if (method.methodType() == QMetaMethod::Signal && !(method.attributes() & QMetaMethod::Cloned))
            record(sender, method);
    }
}

void SignalRecorder::record(const QObject* sender, const Text& signal)
{
    QByteArray signature = signal.toString().toLatin1();
    // SIGNAL() puts a code before the signature.
    if (signature.startsWith(char('0' + QSIGNAL_CODE)))
        signature.remove(0, 1);
    signature = QMetaObject::normalizedSignature(signature.constData());
    const QMetaObject* const metaObject = sender->metaObject();
    const int index = metaObject->indexOfSignal(signature.constData());
    if (index < 0) {
        QStringList known;
        for (int i = 0; i < metaObject->methodCount(); ++i) {
            if (metaObject->method(i).methodType() == QMetaMethod::Signal)
                known.append(QString::fromLatin1(metaObject->method(i).methodSignature()));
        }
        throw std::invalid_argument(QStringLiteral("%1 has no signal %2. It has: %3.")
                                        .arg(QString::fromLatin1(metaObject->className()),
                                             QString::fromLatin1(signature), known.join(QLatin1String(", ")))
                                        .toStdString());
    }
    record(sender, metaObject->method(index));
}

void SignalRecorder::record(const QObject* sender, const QMetaMethod& signal)
{
    if (signal.methodType() != QMetaMethod::Signal || !signal.enclosingMetaObject()->cast(sender))
        throw std::invalid_argument(QStringLiteral("%1 is not a signal of %2.")
                                        .arg(QString::fromLatin1(signal.methodSignature()),
                                             QString::fromLatin1(sender->metaObject()->className()))
                                        .toStdString());
    m_receiver->add(sender, signal);
}

QStringList SignalRecorder::takeCalls()
{
    QStringList taken;
    taken.swap(m_calls);
    return taken;
}

void SignalRecorder::setSink(const std::function<void(const QString&, const QString&)>& sink)
{
    m_receiver->sink = sink;
}

} // namespace Brimvale::TestKit
