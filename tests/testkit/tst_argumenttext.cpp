// SPDX-License-Identifier: BSD-3-Clause
#include "FormattedValue.h"
#include "IPlugin.h"
#include "ISystemRegister.h"
#include "MesswertData.h"

#include <QObject>
#include <QtTest>

#include <TestKit/ArgumentText.h>
#include <cmath>
#include <limits>

using namespace Brimvale;
using namespace Brimvale::TestKit;

Q_DECLARE_METATYPE(Brimvale::MesswertData)

namespace Namespace
{

class Object : public QObject
{
    Q_OBJECT
};

/// A host object that is no QObject.
class PlainRegister : public ISystemRegister
{
public:
    double GetRegisterValue(int) override { return 0.0; }
};

} // namespace Namespace

class TestArgumentText : public QObject
{
    Q_OBJECT

private slots:
    void value_data();
    void value();
    void measuredValueNamesEveryMemberThatDiffers();
    void formattedValueNamesEveryMemberThatDiffers();
    void object_data();
    void object();
};

void TestArgumentText::value_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QString& text, const char* expected) {
        QTest::newRow(name) << text << QString::fromUtf8(expected);
    };

    row("true", argumentText(true), "true");
    row("false", argumentText(false), "false");
    row("int", argumentText(-42), "-42");
    row("largest 64-bit integer", argumentText(std::numeric_limits<qint64>::max()), "9223372036854775807");
    row("enumerator", argumentText(ISystemRegister::UpperLimitRegister), "90");

    row("whole double", argumentText(500.0), "500");
    row("large whole double", argumentText(-1000000000.0), "-1000000000");
    row("shortest round trip", argumentText(0.1), "0.1");
    row("all digits where needed", argumentText(0.1 + 0.2), "0.30000000000000004");
    row("very large double", argumentText(1e21), "1e+21");
    row("very small double", argumentText(1e-7), "1e-07");
    row("zero", argumentText(0.0), "0");
    row("negative zero", argumentText(-0.0), "-0");
    row("not a number", argumentText(std::nan("")), "nan");
    row("infinity", argumentText(-std::numeric_limits<double>::infinity()), "-inf");

    row("text", argumentText(QStringLiteral("ab c")), "\"ab c\"");
    row("empty text", argumentText(QString()), "\"\"");
    row("quotes and backslash", argumentText(QStringLiteral("a\"b\\c")), "\"a\\\"b\\\\c\"");
    row("line ends and tabs", argumentText(QStringLiteral("a\r\n\tb")), "\"a\\r\\n\\tb\"");
    row("control character", argumentText(QString(QChar(0x1b))), "\"\\u001b\"");
    row("umlaut", argumentText(QStringLiteral("Gewicht größer")), "\"Gewicht größer\"");
    row("literal", argumentText("a\"b"), "\"a\\\"b\"");
    row("null literal", argumentText(static_cast<const char*>(nullptr)), "null");

    row("printable char", argumentText('*'), "'*'");
    row("other char", argumentText('\0'), "0");
    row("char beyond ASCII", argumentText(static_cast<char>(0xe4)), "228");

    row("invalid variant", argumentText(QVariant()), "QVariant()");
    row("int variant", argumentText(QVariant(5)), "QVariant(int, 5)");
    row("double variant", argumentText(QVariant(5.0)), "QVariant(double, 5)");
    row("bool variant", argumentText(QVariant(true)), "QVariant(bool, true)");
    row("text variant", argumentText(QVariant(QStringLiteral("5"))), "QVariant(QString, \"5\")");
    row("list variant", argumentText(QVariant(QVariantList{1, QStringLiteral("a")})),
        "QVariant(QVariantList, [QVariant(int, 1), QVariant(QString, \"a\")])");
    row("text list variant", argumentText(QVariant(QStringList{QStringLiteral("a")})),
        "QVariant(QStringList, [\"a\"])");
    row("null object variant", argumentText(QVariant::fromValue(static_cast<QObject*>(nullptr))),
        "QVariant(QObject*, null)");
    MesswertData data;
    data.unit = QStringLiteral("g");
    row("measured value variant", argumentText(QVariant::fromValue(data)),
        "QVariant(MesswertData(unit=\"g\"))");

    row("list", argumentText(QList<int>{1, 2}), "[1, 2]");
    row("empty list", argumentText(QList<int>()), "[]");
    row("pair", argumentText(qMakePair(QStringLiteral("a"), 1)), "(\"a\", 1)");

    double number = 0.0;
    row("out pointer", argumentText(out(&number)), "out");
    row("null out pointer", argumentText(out(static_cast<double*>(nullptr))), "null");
}

void TestArgumentText::value()
{
    QFETCH(QString, text);
    QTEST(text, "expected");
}

void TestArgumentText::measuredValueNamesEveryMemberThatDiffers()
{
    QCOMPARE(argumentText(MesswertData()), QStringLiteral("MesswertData()"));

    const MesswertData full(QStringLiteral("12.5"), QStringLiteral("g"), QStringLiteral("gram"),
                            QStringLiteral("no \"reading\""), 1, 2, 3, 4, 5, 12.5, 0.25, false, true, true,
                            true, true, true, true, 74);
    QCOMPARE(
        argumentText(full),
        QStringLiteral("MesswertData(messwert=\"12.5\", unit=\"g\", unitPrintName=\"gram\", "
                       "errorText=\"no \\\"reading\\\"\", stabilityValue=1, rangeNumber=2, eichDigit=3, "
                       "decimals=4, resolutionReduction=5, value=12.5, tareValue=0.25, isValid=false, "
                       "isCalculated=true, isStable=true, net=true, isPresetTare=true, isGrobRange=true, "
                       "isOverload=true, registerNumber=74)"));
}

void TestArgumentText::formattedValueNamesEveryMemberThatDiffers()
{
    QCOMPARE(argumentText(FormattedValue()), QStringLiteral("FormattedValue()"));

    FormattedValue full;
    full.valueMark = '*';
    full.bracketedDigitCount = 1;
    full.isStable = true;
    full.text = QStringLiteral("12.5 g");
    full.errorText = QStringLiteral("OL");
    QCOMPARE(argumentText(full), QStringLiteral("FormattedValue(valueMark='*', bracketedDigitCount=1, "
                                                "isStable=true, text=\"12.5 g\", errorText=\"OL\")"));
}

void TestArgumentText::object_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("expected");

    QTest::newRow("class name without namespace") << QString() << QStringLiteral("Object");
    QTest::newRow("object name") << QStringLiteral("scale") << QStringLiteral("scale");
}

void TestArgumentText::object()
{
    QFETCH(QString, objectName);
    Namespace::Object object;
    object.setObjectName(objectName);
    QTEST(argumentText(&object), "expected");

    Namespace::PlainRegister plain;
    const ISystemRegister* const interface = &plain;
    QCOMPARE(argumentText(interface), QStringLiteral("PlainRegister"));
    QCOMPARE(argumentText(static_cast<const IPlugin*>(nullptr)), QStringLiteral("null"));
}

QTEST_GUILESS_MAIN(TestArgumentText)
#include "tst_argumenttext.moc"
