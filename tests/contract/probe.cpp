// SPDX-License-Identifier: BSD-3-Clause
//
// What tools/contract reads beside the library: its debug information describes every public type, and its output,
// written as contract.txt is, tells what only a running program knows.

#include "public_types.h"

#include <QException>
#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaProperty>

#include <cstdio>
#include <type_traits>

namespace
{

const char* kindOf(const QMetaMethod& method)
{
    switch (method.methodType()) {
    case QMetaMethod::Signal:
        return "signal";
    case QMetaMethod::Slot:
        return "slot";
    case QMetaMethod::Method:
        return "invokable";
    case QMetaMethod::Constructor:
        break;
    }
    return "constructor";
}

// A screen cannot call a private one.
const char* accessOf(const QMetaMethod& method)
{
    switch (method.access()) {
    case QMetaMethod::Private:
        return " private";
    case QMetaMethod::Protected:
        return " protected";
    case QMetaMethod::Public:
        break;
    }
    return "";
}

void showMethod(const QMetaMethod& method, int index)
{
    QByteArrayList parameters;
    for (int i = 0; i < method.parameterCount(); ++i)
        parameters.append((method.parameterTypes().at(i) + ' ' + method.parameterNames().at(i)).trimmed());
    const bool hasResult = method.returnType() != QMetaType::Void && *method.typeName() != '\0';
    const QByteArray result = hasResult ? QByteArray(method.typeName()) + ' ' : QByteArray();
    std::printf("    %s %d %s%s(%s)%s\n", kindOf(method), index, result.constData(),
                method.name().constData(), parameters.join(", ").constData(), accessOf(method));
}

void showProperty(const QMetaProperty& property, int index)
{
    QByteArray access;
    if (property.isReadable())
        access += " read";
    if (property.isWritable())
        access += " write";
    if (property.isResettable())
        access += " reset";
    if (property.isConstant())
        access += " constant";
    if (property.isFinal())
        access += " final";
    if (property.isUser())
        access += " user";
    if (property.hasNotifySignal())
        access += " notify " + property.notifySignal().name();
    std::printf("    property %d %s %s%s\n", index, property.typeName(), property.name(), access.constData());
}

void showMetaObject(const QMetaObject& type)
{
    std::printf("    metaobject \"%s\"\n", type.className());
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        showMethod(type.method(i), i - type.methodOffset());
    for (int i = 0; i < type.constructorCount(); ++i)
        showMethod(type.constructor(i), i);
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
        showProperty(type.property(i), i - type.propertyOffset());
    for (int i = type.enumeratorOffset(); i < type.enumeratorCount(); ++i)
        std::printf("    metaenum %d %s\n", i - type.enumeratorOffset(), type.enumerator(i).name());
}

template <typename Type>
void show(const char* name)
{
    std::printf("class %s\n", name);
    std::printf("    alignment %d\n", int(alignof(Type)));
    if (std::is_trivially_copyable<Type>::value)
        std::printf("    trivially copyable\n");
    if (const char* identifier = qobject_interface_iid<Type*>())
        std::printf("    identifier \"%s\"\n", identifier);
    if constexpr (std::is_base_of<QObject, Type>::value)
        showMetaObject(Type::staticMetaObject);
}

} // namespace

int main()
{
#define SHOW(Type) show<Brimvale::Type>(#Type);
    PUBLIC_TYPES(SHOW)
    show<Brimvale::IPrintableItem::PrintItemID>("IPrintableItem::PrintItemID");
    show<Brimvale::WorkflowScreen::ScreenTexte>("WorkflowScreen::ScreenTexte");
    // clang++ describes enumerations only where they are used.
    show<Brimvale::CategorySort::CategoryOrder>("CategorySort::CategoryOrder");
    show<Brimvale::IApprovedMode::Mode>("IApprovedMode::Mode");
    show<Brimvale::ISystemRegister::Register>("ISystemRegister::Register");
    show<Brimvale::LoadChange::State>("LoadChange::State");
    show<QObject>("QObject");
    show<std::exception>("std::exception");
    show<QException>("QException");
    return 0;
}
