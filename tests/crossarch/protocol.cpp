// SPDX-License-Identifier: BSD-3-Clause
#include "CategorySort.h"
#include "FormattedValue.h"
#include "IRegisterValueProvider.h"
#include "MesswertData.h"
#include "PrintItemCurrentMeasurement.h"
#include "PrintItemDescriptionText.h"
#include "PrintItemNameValueUnit.h"
#include "PrintItemNameValueUnitData.h"
#include "PrintItemRegValue.h"
#include "PrintItemRegValueCurrentUnit.h"
#include "ResultTable.h"
#include "TestKit/RecordingHost.h"
#include "TriggerNoCheck.h"
#include "operations.h"

using namespace Brimvale;

namespace
{

ProtocolDef definition(Inputs& in)
{
    const int enable = in.integer();
    const int area = in.integer();
    return {ProtocolTypes(static_cast<ProtocolType>(enable)), ProtocolAreas(static_cast<ProtocolArea>(area))};
}

MesswertData measured(Inputs& in)
{
    return {in.text(),   in.text(),   in.text(),   in.text(),   in.integer(), in.integer(), in.integer(),
            in.places(), in.places(), in.number(), in.number(), in.flag(),    in.flag(),    in.flag(),
            in.flag(),   in.flag(),   in.flag(),   in.flag(),   in.integer()};
}

/// What a formatter answers; every character, since it is signed on one processor and not on the other.
void answerFormatter(TestKit::RecordingHost& host, Inputs& in)
{
    FormattedValue value;
    value.valueMark = static_cast<char>(in.bits() & 0xFF);
    value.bracketedDigitCount = static_cast<char>(in.bits() & 0xFF);
    value.isStable = in.flag();
    value.text = in.text();
    value.errorText = in.below(3) == 0 ? in.text() : QString();
    host.answer("IFormat::ConvertValue", value);
    host.answer("IFormat::FormatText", in.text());
    host.answer("IFormat::FormatDescriptionText", in.text());
    host.answer("IFormat::FormatNameValueUnit", in.text());
    host.answer("IFormat::FormatValue",
                in.flag() ? in.text() : QStringLiteral("  %1 g  ").arg(in.numberText(), 10));
    host.answer("IFormat::FormatNameValue", in.text());
    host.answer("IPrinter::GetPrintLayout", in.integer());
    host.answer("IPrinter::PrintLine", in.flag());
    host.answer("ISystem::GetProtocolFormatName", in.flag() ? QStringLiteral("sics") : in.text());
    host.answer("ISystem::GetCurrentUnit", in.integer());
}

/// The calls of the host that printing makes, with what goes to the formatter and to the printer.
QByteArray printed(IPrintableItem& item, TestKit::RecordingHost& host, int typesAndAreas)
{
    host.clearCalls();
    item.setValue();
    const bool wasPrinted = item.Print(host.printer(), host.formatter());
    return line(item.getName(), item.getUId(), item.getCategory(), item.getRank(),
                item.isEnabled(ProtocolTypes(static_cast<ProtocolType>(typesAndAreas))),
                item.isAvailableIn(ProtocolAreas(static_cast<ProtocolArea>(typesAndAreas))), wasPrinted,
                host.takeCalls());
}

} // namespace

void writeProtocol(ResultTable& table)
{
    TestKit::RecordingHost host;

    Inputs in = table.begin("PrintItemCurrentMeasurement");
    for (int i = 0; i < 3000; ++i) {
        answerFormatter(host, in);
        MesswertData source = measured(in);
        const QString uid = in.text();
        const bool withDescription = in.flag();
        PrintItemCurrentMeasurement item(nullptr, uid, &source, definition(in), withDescription,
                                         host.system());
        if (in.below(4) == 0) {
            const bool isStable = in.flag();
            item.onShowPeakholdChanged(true, isStable, in.flag());
        }
        table.row(line(uid, source, withDescription), printed(item, host, in.integer()));
    }

    in = table.begin("PrintItemRegValue");
    for (int i = 0; i < 5000; ++i) {
        answerFormatter(host, in);
        QString name = in.text();
        QString unit = in.unitName();
        QString description = in.text();
        QString category = in.text();
        const int number = in.integer();
        const double value = in.number();
        const int decimals = in.below(40) - 3;
        const bool withDescription = in.flag();
        const bool withUnit = in.flag();
        const int rank = in.integer();
        host.setRegister(number, value);
        PrintItemRegValue item(nullptr, name, &name, definition(in), number, decimals,
                               withUnit ? &unit : nullptr, withDescription, &description, rank, &category,
                               host.systemRegister());
        table.row(
            line(name, unit, description, category, number, value, decimals, withDescription, withUnit, rank),
            printed(item, host, in.integer()), item.getDiscription(), item.getUnit());
    }

    in = table.begin("PrintItemRegValueCurrentUnit");
    for (int i = 0; i < 2000; ++i) {
        answerFormatter(host, in);
        QString name = in.text();
        QString description = in.text();
        QString category = in.text();
        const int number = in.integer();
        const MesswertData value = measured(in);
        const bool withDescription = in.flag();
        const int rank = in.integer();
        host.setRegister(number, value);
        PrintItemRegValueCurrentUnit item(nullptr, name, &name, definition(in), number, true, false,
                                          withDescription, &description, rank, &category, host.system());
        table.row(line(name, description, category, number, value, withDescription, rank),
                  printed(item, host, in.integer()), item.getDiscription());
    }

    in = table.begin("PrintItemDescriptionText");
    for (int i = 0; i < 1000; ++i) {
        answerFormatter(host, in);
        QString name = in.text();
        QString description = in.text();
        QString text = in.text();
        QString category = in.text();
        const bool withDescription = in.flag();
        const int rank = in.integer();
        PrintItemDescriptionText item(nullptr, name, &name, definition(in), &description, &text,
                                      withDescription, rank, &category);
        table.row(line(name, description, text, category, withDescription), printed(item, host, in.integer()),
                  item.getDiscription(), item.getText());
    }

    in = table.begin("PrintItemNameValueUnit");
    for (int i = 0; i < 2000; ++i) {
        answerFormatter(host, in);
        PrintItemNameValueUnitData data(nullptr);
        data.setName(in.text());
        data.setDescription(in.text());
        data.setCategory(in.text());
        const MesswertData measurement = measured(in);
        const QString value = in.numberText();
        const QString unit = in.unitName();
        const int rank = in.integer();
        PrintItemNameValueUnit text(nullptr, unit, &data, value, rank, definition(in));
        text.setUnit(unit);
        PrintItemNameValueUnit snapshot(nullptr, unit, &data, MesswertData(), rank, definition(in));
        snapshot.setValue(measurement);
        const int mask = in.integer();
        const QByteArray printedText = printed(text, host, mask);
        table.row(line(value, unit, measurement, mask), printedText, printed(snapshot, host, mask));
    }

    in = table.begin("CategorySort");
    for (int i = 0; i < 2000; ++i) {
        const int number = in.integer();
        table.row(line(number), CategorySort::getAddonByUidRank(number),
                  CategorySort::getAddonUidByRank(number));
    }
    CategorySort sort;
    for (int i = 0; i < 300; ++i) {
        QObject parent;
        QList<IPrintableItem*> items;
        QStringList uids;
        const int count = in.below(12);
        for (int item = 0; item < count; ++item) {
            // Uids of their own: the order of equal ones is not defined.
            const QString uid = in.text() + QString::number(item);
            const int rank = in.flag() ? in.below(12) : in.integer();
            items.append(new PrintItemNameValueUnit(&parent, uid, nullptr, QString(), rank, definition(in)));
            uids.append(QString::number(rank) + QLatin1Char(':') + uid);
        }
        QStringList sorted;
        for (const IPrintableItem* item : sort.SortByCategory(items))
            sorted.append(item->getUId());
        table.row(line(uids), sorted);
    }

    in = table.begin("Triggers");
    for (int i = 0; i < 500; ++i) {
        QString name = in.text();
        const int areas = in.integer();
        const int type = in.below(6) - 2;
        const int askedAreas = in.integer();
        const int askedType = in.below(6) - 2;
        TriggerNoCheck trigger(nullptr, name, &name, ProtocolAreas(static_cast<ProtocolArea>(areas)),
                               static_cast<ApplicationType>(type));
        table.row(line(areas, type, askedAreas, askedType),
                  trigger.isAvailableIn(ProtocolAreas(static_cast<ProtocolArea>(askedAreas)),
                                        static_cast<ApplicationType>(askedType)));
    }
}
