// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "host/HostMenuList.h"

#include <QSignalSpy>
#include <QtTest>

using namespace Brimvale;
using namespace Brimvale::Terminal;

using Set = WeighingParameterService::Set;

class tst_WeighingParameterService : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void noSetAtFirst();
    void standard();
    void msw();
    void restored();
    void fixedRangeIsRestored();
    void notifies();

private:
    WeighingParameterService& service() { return m_fixture->host->weighingParameters(); }
    IWeighingParameters& sets() { return m_fixture->host->weighingParameterSets(); }
    QString parameters()
    {
        QStringList values;
        for (int number = 0; number < WeighingParameterService::ParameterCount; ++number)
            values.append(service().parameter(number));
        return values.join(QLatin1Char(','));
    }

    std::unique_ptr<HostFixture> m_fixture;
};

void tst_WeighingParameterService::init()
{
    m_fixture = std::make_unique<HostFixture>();
    const auto store = [this](const char* profile, const QStringList& values) {
        for (int index = 0; index < values.size(); ++index)
            m_fixture->host->storedParameters().setValue(HostMenuList::menuFilePath(), QStringLiteral("user"),
                                                         QString::fromLatin1(profile), index,
                                                         values.at(index));
    };
    store("msw",
          {QStringLiteral("calm"), QStringLiteral("fast"), QStringLiteral("fine"), QStringLiteral("long")});
    store("system", {QStringLiteral("s0"), QStringLiteral("s1"), QStringLiteral("s2"), QStringLiteral("s3")});
}

void tst_WeighingParameterService::noSetAtFirst()
{
    QCOMPARE(service().set(), Set::None);
    QCOMPARE(parameters(), QStringLiteral(",,,"));
}

void tst_WeighingParameterService::standard()
{
    QVERIFY(sets().InitStandardWeighingParameters());
    QCOMPARE(service().set(), Set::Standard);
    QCOMPARE(service().profile(), QStringLiteral("standard"));
    QCOMPARE(parameters(), QStringLiteral("normal,normal,,normal"));
}

void tst_WeighingParameterService::msw()
{
    QVERIFY(sets().InitMSWWeighingParameters());
    QCOMPARE(service().set(), Set::MSW);
    QCOMPARE(parameters(), QStringLiteral("calm,fast,fine,long"));
}

void tst_WeighingParameterService::restored()
{
    QVERIFY(sets().InitMSWWeighingParameters());
    QVERIFY(sets().ResetWeighingParameters());
    QCOMPARE(service().set(), Set::System);
    QCOMPARE(parameters(), QStringLiteral("s0,s1,s2,s3"));
}

void tst_WeighingParameterService::fixedRangeIsRestored()
{
    m_fixture->host->rangeSwitch().setFixRange(1);
    QVERIFY(sets().InitStandardWeighingParameters());
    m_fixture->host->rangeSwitch().setFixRange(0);
    QVERIFY(sets().ResetWeighingParameters());
    QCOMPARE(m_fixture->host->rangeSwitch().fixRange(), 1);
}

void tst_WeighingParameterService::notifies()
{
    QSignalSpy spy(&service(), &WeighingParameterService::changed);
    QVERIFY(sets().InitStandardWeighingParameters());
    QCOMPARE(spy.count(), 4); // profile and three parameters
}

QTEST_GUILESS_MAIN(tst_WeighingParameterService)
#include "tst_weighingparameterservice.moc"
