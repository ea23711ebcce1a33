// SPDX-License-Identifier: BSD-3-Clause
#include "InfoValueUnit.h"
#include "MesswertData.h"
#include "MesswertInfo.h"
#include "ResultTable.h"
#include "SelectListItem.h"
#include "operations.h"

#include <QMetaProperty>

using namespace Brimvale;

namespace
{

/// Counts the signals of an object.
class SignalCounter : public QObject
{
    Q_OBJECT

public:
    explicit SignalCounter(const QObject& sender)
    {
        const QMetaMethod count = metaObject()->method(metaObject()->indexOfSlot("count()"));
        for (int i = sender.metaObject()->methodOffset(); i < sender.metaObject()->methodCount(); ++i) {
            const QMetaMethod method = sender.metaObject()->method(i);
            if (method.methodType() == QMetaMethod::Signal)
                connect(&sender, method, this, count);
        }
    }

    int counted = 0;

public slots:
    void count() { ++counted; }
};

QByteArray properties(const QObject& object)
{
    QByteArray text;
    const QMetaObject* const meta = object.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
        text += written(meta->property(i).read(&object).toString()) + ' ';
    return text;
}

MesswertData measured(Inputs& in)
{
    return {in.text(),   in.text(),   in.text(),   in.text(),   in.integer(), in.integer(), in.integer(),
            in.places(), in.places(), in.number(), in.number(), in.flag(),    in.flag(),    in.flag(),
            in.flag(),   in.flag(),   in.flag(),   in.flag(),   in.integer()};
}

} // namespace

void writeViewModels(ResultTable& table)
{
    Inputs in = table.begin("MesswertData");
    for (int i = 0; i < 3000; ++i) {
        const MesswertData data = measured(in);
        MesswertData other = data;
        // One difference, or none: a NaN differs from itself.
        switch (in.below(6)) {
        case 0:
            other.value = in.number();
            break;
        case 1:
            other.tareValue = -other.tareValue;
            break;
        case 2:
            other.messwert += in.text();
            break;
        case 3:
            other.registerNumber = in.integer();
            break;
        default:
            break;
        }
        table.row(line(data, other), other.isEqual(&data), MesswertData(data).isEqual(&other));
    }

    in = table.begin("MesswertInfo");
    for (int run = 0; run < 100; ++run) {
        MesswertInfo info(nullptr, in.text(), QString(), true, 0, true, false, false, 0, QString(), QString(),
                          true, 0, true, false, 0, QString(), QString(), QString(), 0, 0, true, true, true,
                          true, true);
        const SignalCounter counter(info);
        const QMetaObject* const meta = info.metaObject();
        for (int step = 0; step < 40; ++step) {
            const int index =
                meta->propertyOffset() + in.below(meta->propertyCount() - meta->propertyOffset());
            const QMetaProperty property = meta->property(index);
            QVariant value;
            if (property.type() == QVariant::String)
                value = in.text();
            else if (property.type() == QVariant::Bool)
                value = in.flag();
            else
                value = in.integer();
            const bool wasWritten = property.write(&info, value);
            table.row(line(QByteArray(property.name()), value.toString()), wasWritten, properties(info),
                      counter.counted);
        }
        MesswertData data = measured(in);
        info.setFromMesswertData(&data);
        table.row(line(data), properties(info), counter.counted);
    }

    in = table.begin("SelectListItem, InfoValueUnit");
    for (int i = 0; i < 500; ++i) {
        const QString text = in.text();
        const QString date = in.numberText();
        const qint64 sortKey = in.longInteger();
        SelectListItem item(nullptr, text, date, sortKey, text, in.flag(), false);
        SelectListItem copy(nullptr);
        copy = item;
        InfoValueUnit info(nullptr, in.flag(), text, date, text);
        info.setUnit(date);
        table.row(line(text, date, sortKey), properties(copy), qint64(copy.dateSort()), properties(info));
    }
}

#include "viewmodels.moc"
