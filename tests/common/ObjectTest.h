// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTS_COMMON_OBJECTTEST_H
#define BRIMVALE_TESTS_COMMON_OBJECTTEST_H

#include <QCoreApplication>
#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QObject>
#include <QStringList>
#include <QTranslator>

/// What tests of the library's objects share.
namespace ObjectTest
{

/// The line that the destructor of a class of the library writes for an object, as LogCapture gives it.
inline QString destructorLine(const char* className, const QObject* object)
{
    const QString name = object->objectName().isEmpty()
                             ? QString()
                             : QStringLiteral(", name = \"%1\"").arg(object->objectName());
    return QStringLiteral("trace: Running destructor ->  %1(0x%2%3)")
        .arg(QLatin1String(className))
        .arg(quintptr(object), 0, 16)
        .arg(name);
}

/// The methods that a class itself declares to the meta-object, in the order of their indexes, such as
/// "signal nameChanged()".
inline QStringList methodsOf(const QMetaObject& type)
{
    QStringList methods;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        const QMetaMethod method = type.method(i);
        const char* const kind = method.methodType() == QMetaMethod::Signal ? "signal "
                                 : method.methodType() == QMetaMethod::Slot ? "slot "
                                                                            : "method ";
        methods.append(QLatin1String(kind) + QString::fromLatin1(method.methodSignature()));
    }
    return methods;
}

/// The properties that a class itself declares, in their order, such as "QString name read nameChanged()". One that
/// can be written, has no notify signal, or is constant says so.
inline QStringList propertiesOf(const QMetaObject& type)
{
    QStringList properties;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        QString text = QStringLiteral("%1 %2%3%4 ")
                           .arg(QLatin1String(property.typeName()), QLatin1String(property.name()),
                                QLatin1String(property.isReadable() ? " read" : ""),
                                QLatin1String(property.isWritable() ? " write" : ""));
        text += property.isConstant() ? QStringLiteral("constant")
                : !property.hasNotifySignal()
                    ? QStringLiteral("silent")
                    : QString::fromLatin1(property.notifySignal().methodSignature());
        properties.append(text);
    }
    return properties;
}

/// Translates every text of every context by putting "xx " before it, and keeps what it was asked for.
class EveryTextTranslator : public QTranslator
{
public:
    EveryTextTranslator() { QCoreApplication::installTranslator(this); }
    ~EveryTextTranslator() override { QCoreApplication::removeTranslator(this); }

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        m_asked.append(QLatin1String(context) + QLatin1String(": ") + QString::fromUtf8(source));
        return QStringLiteral("xx ") + QString::fromUtf8(source);
    }
    bool isEmpty() const override { return false; }

    /// "context: text" of what was asked for since the last call.
    QStringList takeAsked()
    {
        QStringList asked;
        asked.swap(m_asked);
        return asked;
    }

private:
    mutable QStringList m_asked;
};

} // namespace ObjectTest

/// Lets a test read a private member that no operation gives away: `object.*memberOf(tag())`. An explicit instantiation
/// may name private members: it hands out a pointer to one.
#define READ_PRIVATE_MEMBER(tag, Class, Type, member)                                                        \
    struct tag                                                                                               \
    {                                                                                                        \
        using Pointer = Type Class::*;                                                                       \
        friend Pointer memberOf(tag);                                                                        \
    };                                                                                                       \
    template <tag::Pointer pointer>                                                                          \
    struct tag##Access                                                                                       \
    {                                                                                                        \
        friend tag::Pointer memberOf(tag) { return pointer; }                                                \
    };                                                                                                       \
    template struct tag##Access<&Class::member>

#endif
