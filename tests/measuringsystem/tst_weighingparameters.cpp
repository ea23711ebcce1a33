// SPDX-License-Identifier: BSD-3-Clause
#include "IMenuList.h"
#include "IStatusInfo.h"
#include "ISystem.h"
#include "IWeighingParameters.h"
#include "WeighingParameters.h"

#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <functional>
#include <limits>
#include <memory>

using namespace Brimvale;
using namespace Brimvale::TestKit;

namespace
{

const char* const GetService = "ISystem::GetWeighingParameterService()";
const char* const GetRangeSwitch = "ISystem::GetRangeSwitch()";
const char* const GetSource = "ISystem::GetMSWParameterSource()";

QStringList saveCalls()
{
    return {QLatin1String(GetRangeSwitch), QStringLiteral("IRangeSwitch::getFixRange()")};
}

QStringList standardCalls()
{
    const QString service = QLatin1String(GetService);
    return {QLatin1String(GetRangeSwitch),
            QStringLiteral("IRangeSwitch::SetRangeSelection(0)"),
            service,
            QStringLiteral("IWeighingParameterService::SetParameterProfile(\"standard\")"),
            service,
            QStringLiteral("IWeighingParameterService::SetParameter0(\"normal\")"),
            service,
            QStringLiteral("IWeighingParameterService::SetParameter1(\"normal\")"),
            service,
            QStringLiteral("IWeighingParameterService::SetParameter3(\"normal\")")};
}

/// The values are those scripted in init().
QStringList mswCalls()
{
    const QString service = QLatin1String(GetService);
    const QString source = QLatin1String(GetSource);
    return {service,
            source,
            QStringLiteral("IMSWParameterSource::GetMSWParameter2()"),
            QLatin1String(GetRangeSwitch),
            QStringLiteral("IRangeSwitch::getCurrentRange()"),
            QStringLiteral("IWeighingParameterService::SetParameter2(\"msw two\", 7)"),
            service,
            source,
            QStringLiteral("IMSWParameterSource::GetMSWParameter0()"),
            QStringLiteral("IWeighingParameterService::SetParameter0(\"msw zero\")"),
            service,
            source,
            QStringLiteral("IMSWParameterSource::GetMSWParameter1()"),
            QStringLiteral("IWeighingParameterService::SetParameter1(\"msw one\")"),
            service,
            source,
            QStringLiteral("IMSWParameterSource::GetMSWParameter3()"),
            QStringLiteral("IWeighingParameterService::SetParameter3(\"msw three\")")};
}

/// The calls of a reset up to the fixed range, with the values that the host has stored.
QStringList resetCalls(const QString& value2, const QString& value0, const QString& value1,
                       const QString& value3)
{
    const QString service = QLatin1String(GetService);
    const auto stored = [](int index) {
        return QStringLiteral(
                   "ISystem::GetStoredParameter(\"/menus/plugin.xml\", \"owner\", \"system\", \"\", %1)")
            .arg(index);
    };
    return {QStringLiteral("IMenuList::GetMenuFilePath()"),
            QStringLiteral("ISystem::GetStatusInfo()"),
            QStringLiteral("IStatusInfo::GetAddonText()"),
            service,
            stored(2),
            QStringLiteral("IWeighingParameterService::SetParameter2(\"%1\", 0)").arg(value2),
            service,
            stored(0),
            QStringLiteral("IWeighingParameterService::SetParameter0(\"%1\")").arg(value0),
            service,
            stored(1),
            QStringLiteral("IWeighingParameterService::SetParameter1(\"%1\")").arg(value1),
            service,
            stored(3),
            QStringLiteral("IWeighingParameterService::SetParameter3(\"%1\")").arg(value3)};
}

QStringList emptyResetCalls()
{
    return resetCalls(QString(), QString(), QString(), QString());
}

QStringList restoreCalls(int range)
{
    return {QLatin1String(GetRangeSwitch), QStringLiteral("IRangeSwitch::setFixRange(%1)").arg(range)};
}

QString debugLine(const char* operation)
{
    return QLatin1String("debug: WeighingParameters::") + QLatin1String(operation);
}

} // namespace

class TestWeighingParameters : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void beginsWithoutCalls();
    void metaObject();
    void operationsOneByOne_data();
    void operationsOneByOne();
    void standardSet();
    void mswSet();
    void resetWithoutAnInitLeavesTheRange();
    void resetRestoresTheRange_data();
    void resetRestoresTheRange();
    void savesOnly();
    void latestInitCounts();
    void resetTwiceRestoresTwice();
    void storedValuesArePassedUnchanged_data();
    void storedValuesArePassedUnchanged();
    void hostObjectsAreFetchedAfresh();
    void logLines_data();
    void logLines();
    void logIsAtDebugLevel();
    void logsItsEnd();

private:
    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<WeighingParameters> m_parameters;
};

void TestWeighingParameters::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_host->answer("IMenuList::GetMenuFilePath", "/menus/plugin.xml");
    m_host->answer("IStatusInfo::GetAddonText", "owner");
    m_host->answer("IRangeSwitch::getFixRange", 3);
    m_host->answer("IRangeSwitch::getCurrentRange", 7);
    m_host->answer("IMSWParameterSource::GetMSWParameter0", "msw zero");
    m_host->answer("IMSWParameterSource::GetMSWParameter1", "msw one");
    m_host->answer("IMSWParameterSource::GetMSWParameter2", "msw two");
    m_host->answer("IMSWParameterSource::GetMSWParameter3", "msw three");
    m_parameters = std::make_unique<WeighingParameters>(nullptr, m_host->system(), m_host->menuList());
}

void TestWeighingParameters::cleanup()
{
    m_parameters.reset();
    m_host.reset();
}

void TestWeighingParameters::beginsWithoutCalls()
{
    BRIMVALE_COMPARE_CALLS(*m_host);
    m_parameters.reset();
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestWeighingParameters::metaObject()
{
    const QMetaObject* const meta = m_parameters->metaObject();
    QCOMPARE(meta->className(), "Brimvale::WeighingParameters");
    QCOMPARE(meta->methodCount(), QObject::staticMetaObject.methodCount());
    QCOMPARE(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
    QCOMPARE(qobject_cast<IWeighingParameters*>(m_parameters.get()),
             static_cast<IWeighingParameters*>(m_parameters.get()));
    QCOMPARE(qobject_interface_iid<IWeighingParameters*>(),
             "Brimvale.MeasuringSystem.IWeighingParameters/1.0");

    QObject parent;
    auto* const owned = new WeighingParameters(&parent, m_host->system(), m_host->menuList());
    QCOMPARE(owned->parent(), &parent);
}

void TestWeighingParameters::operationsOneByOne_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("save") << 0 << saveCalls();
    QTest::newRow("standard") << 1 << standardCalls();
    QTest::newRow("MSW") << 2 << mswCalls();
}

void TestWeighingParameters::operationsOneByOne()
{
    QFETCH(int, operation);
    QFETCH(QStringList, calls);
    switch (operation) {
    case 0:
        m_parameters->SaveCurrentWeighingParameters();
        break;
    case 1:
        m_parameters->SetStandardWeighingParameters();
        break;
    default:
        m_parameters->SetMSWWeighingParameters();
    }
    BRIMVALE_COMPARE_CALLS(*m_host, calls);
}

void TestWeighingParameters::standardSet()
{
    IWeighingParameters* const face = m_parameters.get();
    QVERIFY(face->InitStandardWeighingParameters());
    BRIMVALE_COMPARE_CALLS(*m_host, saveCalls(), standardCalls());
}

void TestWeighingParameters::mswSet()
{
    IWeighingParameters* const face = m_parameters.get();
    QVERIFY(face->InitMSWWeighingParameters());
    BRIMVALE_COMPARE_CALLS(*m_host, saveCalls(), mswCalls());
}

void TestWeighingParameters::resetWithoutAnInitLeavesTheRange()
{
    IWeighingParameters* const face = m_parameters.get();
    QVERIFY(face->ResetWeighingParameters());
    BRIMVALE_COMPARE_CALLS(*m_host, emptyResetCalls());

    // Nor do the sets by themselves save it.
    m_parameters->SetStandardWeighingParameters();
    m_parameters->SetMSWWeighingParameters();
    m_host->clearCalls();
    QVERIFY(face->ResetWeighingParameters());
    BRIMVALE_COMPARE_CALLS(*m_host, emptyResetCalls());
}

void TestWeighingParameters::resetRestoresTheRange_data()
{
    QTest::addColumn<int>("range");
    QTest::addColumn<bool>("restored");
    QTest::newRow("range 3") << 3 << true;
    QTest::newRow("range 0") << 0 << true;
    QTest::newRow("no fixed range, -1") << -1 << true;
    QTest::newRow("-2 counts as none saved") << -2 << false;
    QTest::newRow("smaller ones too") << std::numeric_limits<int>::min() << false;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << true;
}

void TestWeighingParameters::resetRestoresTheRange()
{
    QFETCH(int, range);
    QFETCH(bool, restored);
    m_host->answer("IRangeSwitch::getFixRange", range);
    for (bool isMsw : {false, true}) {
        QVERIFY(isMsw ? m_parameters->InitMSWWeighingParameters()
                      : m_parameters->InitStandardWeighingParameters());
        m_host->clearCalls();
        QVERIFY(m_parameters->ResetWeighingParameters());
        BRIMVALE_COMPARE_CALLS(*m_host, emptyResetCalls(), restored ? restoreCalls(range) : QStringList());
    }
}

void TestWeighingParameters::savesOnly()
{
    m_parameters->SaveCurrentWeighingParameters();
    QVERIFY(m_parameters->ResetWeighingParameters());
    BRIMVALE_COMPARE_CALLS(*m_host, saveCalls(), emptyResetCalls(), restoreCalls(3));
}

void TestWeighingParameters::latestInitCounts()
{
    QVERIFY(m_parameters->InitStandardWeighingParameters());
    m_host->answer("IRangeSwitch::getFixRange", 5);
    QVERIFY(m_parameters->InitStandardWeighingParameters());
    QVERIFY(m_parameters->ResetWeighingParameters());
    BRIMVALE_COMPARE_CALLS(*m_host, saveCalls(), standardCalls(), saveCalls(), standardCalls(),
                           emptyResetCalls(), restoreCalls(5));

    // One that finds no range takes the saved one back.
    m_host->answer("IRangeSwitch::getFixRange", -2);
    QVERIFY(m_parameters->InitMSWWeighingParameters());
    QVERIFY(m_parameters->ResetWeighingParameters());
    BRIMVALE_COMPARE_CALLS(*m_host, saveCalls(), mswCalls(), emptyResetCalls());
}

void TestWeighingParameters::resetTwiceRestoresTwice()
{
    QVERIFY(m_parameters->InitStandardWeighingParameters());
    m_host->answer("IRangeSwitch::getFixRange", 9);
    m_host->clearCalls();
    QVERIFY(m_parameters->ResetWeighingParameters());
    QVERIFY(m_parameters->ResetWeighingParameters());
    BRIMVALE_COMPARE_CALLS(*m_host, emptyResetCalls(), restoreCalls(3), emptyResetCalls(), restoreCalls(3));
}

void TestWeighingParameters::storedValuesArePassedUnchanged_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::newRow("texts") << QStringList{QStringLiteral("zero"), QStringLiteral("one"),
                                          QStringLiteral("two"), QStringLiteral("three")};
    QTest::newRow("blanks and other letters")
        << QStringList{QStringLiteral(" 0 "), QStringLiteral("\u00E4\u4E24"), QStringLiteral("%1"),
                       QStringLiteral("normal")};
    QTest::newRow("some empty") << QStringList{QString(), QStringLiteral("one"), QString(), QString()};
}

void TestWeighingParameters::storedValuesArePassedUnchanged()
{
    QFETCH(QStringList, values);
    for (int index = 0; index < values.size(); ++index) {
        m_host->answer(
            QStringLiteral(
                "ISystem::GetStoredParameter(\"/menus/plugin.xml\", \"owner\", \"system\", \"\", %1)")
                .arg(index),
            values.at(index));
    }
    QVERIFY(m_parameters->ResetWeighingParameters());
    BRIMVALE_COMPARE_CALLS(*m_host, resetCalls(values.at(2), values.at(0), values.at(1), values.at(3)));
}

void TestWeighingParameters::hostObjectsAreFetchedAfresh()
{
    // A host may hand out another object at every call: the second one is seen to be used at once.
    RecordingHost other;
    m_host->answerOnce<IWeighingParameterService*>("ISystem::GetWeighingParameterService",
                                                   other.system()->GetWeighingParameterService());
    m_host->answerOnce<IRangeSwitch*>("ISystem::GetRangeSwitch", other.system()->GetRangeSwitch());
    other.clearCalls();
    m_parameters->SetStandardWeighingParameters();
    BRIMVALE_COMPARE_CALLS(other, "IRangeSwitch::SetRangeSelection(0)",
                           "IWeighingParameterService::SetParameterProfile(\"standard\")");
    QStringList rest = standardCalls();
    rest.removeAt(3);
    rest.removeAt(1);
    BRIMVALE_COMPARE_CALLS(*m_host, rest);

    m_host->answerOnce<IMSWParameterSource*>("ISystem::GetMSWParameterSource",
                                             other.system()->GetMSWParameterSource());
    other.clearCalls();
    m_parameters->SetMSWWeighingParameters();
    BRIMVALE_COMPARE_CALLS(other, "IMSWParameterSource::GetMSWParameter2()");

    // Path and owner are asked for once and used for all four values.
    m_host->clearCalls();
    QVERIFY(m_parameters->ResetWeighingParameters());
    QCOMPARE(m_host->callsTo("IMenuList").size(), 1);
    QCOMPARE(m_host->callsTo("IStatusInfo").size(), 1);
    QCOMPARE(m_host->callsTo("ISystem::GetWeighingParameterService").size(), 4);
}

void TestWeighingParameters::logLines_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<QStringList>("lines");
    const QString save = debugLine("SaveCurrentWeighingParameters");
    const QString standard = debugLine("SetStandardWeighingParameters");
    const QString msw = debugLine("SetMSWWeighingParameters");
    QTest::newRow("save") << 0 << QStringList{save};
    QTest::newRow("standard") << 1 << QStringList{standard};
    QTest::newRow("MSW") << 2 << QStringList{msw};
    QTest::newRow("init standard") << 3 << QStringList{save, standard};
    QTest::newRow("init MSW") << 4 << QStringList{save, msw};
    QTest::newRow("reset") << 5 << QStringList{debugLine("ResetWeighingParameters")};
}

void TestWeighingParameters::logLines()
{
    QFETCH(int, operation);
    const std::function<void()> operations[] = {
        [this] { m_parameters->SaveCurrentWeighingParameters(); },
        [this] { m_parameters->SetStandardWeighingParameters(); },
        [this] { m_parameters->SetMSWWeighingParameters(); },
        [this] { m_parameters->InitStandardWeighingParameters(); },
        [this] { m_parameters->InitMSWWeighingParameters(); },
        [this] { m_parameters->ResetWeighingParameters(); },
    };
    LogCapture log(*m_host);
    operations[operation]();
    QTEST(log.takeLines(), "lines");
    // The name is logged before anything is done.
    QVERIFY(m_host->calls().constFirst().startsWith(QLatin1String("log debug: WeighingParameters::")));
}

void TestWeighingParameters::logIsAtDebugLevel()
{
    LogCapture log(QsLogging::InfoLevel);
    QVERIFY(m_parameters->InitStandardWeighingParameters());
    QVERIFY(m_parameters->ResetWeighingParameters());
    BRIMVALE_COMPARE_CALLS(log.takeLines());
}

void TestWeighingParameters::logsItsEnd()
{
    LogCapture log;
    QString address;
    QDebug(&address).nospace() << m_parameters.get();
    m_parameters.reset();
    QCOMPARE(log.takeLines(), QStringList(QStringLiteral("trace: Running destructor ->  ") + address));
}

QTEST_GUILESS_MAIN(TestWeighingParameters)
#include "tst_weighingparameters.moc"
