// SPDX-License-Identifier: BSD-3-Clause

#include "LogRecorder.h"
#include "WarnInfo.h"

#include <QMetaProperty>
#include <QTranslator>
#include <QtTest>

#include <memory>

using Brimvale::WarnInfo;

namespace
{

// Translates the text of the levelling warning, and no other.
class Translator : public QTranslator
{
    Q_OBJECT

public:
    QString text = QStringLiteral("Nivellierung erforderlich");

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        const bool known =
            qstrcmp(context, "Brimvale::WarnInfo") == 0 && qstrcmp(source, "Levelling required") == 0;
        return known ? text : QString();
    }
    bool isEmpty() const override { return false; }
};

using Set = void (*)(WarnInfo&);

} // namespace

Q_DECLARE_METATYPE(Set)

class TestWarnInfo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void flagsAreCrossed_data();
    void flagsAreCrossed();
    void constructorReplacesTheLevellingText();
    void constructorKeepsTheCalibrationText();
    void parentOwnsTheObject();
    void setterStoresAndEmitsOnce_data();
    void setterStoresAndEmitsOnce();
    void setterOfTheSameValueEmitsNothing_data() { setterStoresAndEmitsOnce_data(); }
    void setterOfTheSameValueEmitsNothing();
    void nullTextIsTheEmptyText();
    void screenReadsButCannotWrite_data();
    void screenReadsButCannotWrite();
    void levellingTextIsTranslated();
    void constructorTranslates();
    void translationIsAnnouncedWhileVisible_data();
    void translationIsAnnouncedWhileVisible();
    void translationReplacesATextThatWasSet();
    void visibilityIsAnnouncedAfterItIsStored();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    QVariantList values() const
    {
        return {m_warnings->levellingRequiredText(), m_warnings->calibrationRequiredText(),
                m_warnings->levellingRequiredVisible(), m_warnings->calibrationRequiredVisible()};
    }
    void record();

    std::unique_ptr<WarnInfo> m_warnings;
    QStringList m_emitted;
};

void TestWarnInfo::init()
{
    m_warnings = std::make_unique<WarnInfo>(nullptr, QString(), QStringLiteral("Calibrate"), false, false);
    record();
}

void TestWarnInfo::cleanup()
{
    m_warnings.reset();
}

// Starts to collect the signals of the object.
void TestWarnInfo::record()
{
    m_emitted.clear();
    const auto add = [this](const char* name) {
        return [this, name] { m_emitted.append(QLatin1String(name)); };
    };
    connect(m_warnings.get(), &WarnInfo::levellingRequiredTextChanged, this,
            add("levellingRequiredTextChanged"));
    connect(m_warnings.get(), &WarnInfo::calibrationRequiredTextChanged, this,
            add("calibrationRequiredTextChanged"));
    connect(m_warnings.get(), &WarnInfo::levellingRequiredVisibleChanged, this,
            add("levellingRequiredVisibleChanged"));
    connect(m_warnings.get(), &WarnInfo::calibrationRequiredVisibleChanged, this,
            add("calibrationRequiredVisibleChanged"));
}

void TestWarnInfo::flagsAreCrossed_data()
{
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("second");
    QTest::newRow("first flag") << true << false;
    QTest::newRow("second flag") << false << true;
    QTest::newRow("both") << true << true;
    QTest::newRow("neither") << false << false;
}

void TestWarnInfo::flagsAreCrossed()
{
    QFETCH(bool, first);
    QFETCH(bool, second);
    const WarnInfo warnings(nullptr, QString(), QString(), first, second);
    QCOMPARE(warnings.calibrationRequiredVisible(), first);
    QCOMPARE(warnings.levellingRequiredVisible(), second);
}

void TestWarnInfo::constructorReplacesTheLevellingText()
{
    const WarnInfo warnings(nullptr, QStringLiteral("given"), QString(), false, false);
    QCOMPARE(warnings.levellingRequiredText(), QStringLiteral("Levelling required"));
}

void TestWarnInfo::constructorKeepsTheCalibrationText()
{
    const WarnInfo warnings(nullptr, QStringLiteral("level"), QStringLiteral("calibrate"), false, false);
    QCOMPARE(warnings.calibrationRequiredText(), QStringLiteral("calibrate"));
}

void TestWarnInfo::parentOwnsTheObject()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<WarnInfo> warnings = new WarnInfo(parent.get(), QString(), QString(), false, false);
    parent.reset();
    QVERIFY(warnings.isNull());
}

void TestWarnInfo::setterStoresAndEmitsOnce_data()
{
    QTest::addColumn<Set>("set");
    QTest::addColumn<QVariantList>("values");
    QTest::addColumn<QString>("emitted");

    const QString level = QStringLiteral("Levelling required");
    const QString calibrate = QStringLiteral("Calibrate");
    const QString other = QStringLiteral("other");
    QTest::newRow("levelling text") << Set([](WarnInfo& warnings) {
        warnings.setLevellingRequiredText(QStringLiteral("other"));
    }) << QVariantList{other, calibrate, false, false}
                                    << QStringLiteral("levellingRequiredTextChanged");
    QTest::newRow("calibration text")
        << Set([](WarnInfo& warnings) { warnings.setCalibrationRequiredText(QStringLiteral("other")); })
        << QVariantList{level, other, false, false} << QStringLiteral("calibrationRequiredTextChanged");
    QTest::newRow("levelling shown") << Set([](WarnInfo& warnings) {
        warnings.setLevellingRequiredVisible(true);
    }) << QVariantList{level, calibrate, true, false}
                                     << QStringLiteral("levellingRequiredVisibleChanged");
    QTest::newRow("calibration shown")
        << Set([](WarnInfo& warnings) { warnings.setCalibrationRequiredVisible(true); })
        << QVariantList{level, calibrate, false, true} << QStringLiteral("calibrationRequiredVisibleChanged");
}

void TestWarnInfo::setterStoresAndEmitsOnce()
{
    QFETCH(Set, set);
    QFETCH(QString, emitted);
    set(*m_warnings);
    QTEST(values(), "values");
    QCOMPARE(m_emitted, QStringList(emitted));
}

void TestWarnInfo::setterOfTheSameValueEmitsNothing()
{
    QFETCH(Set, set);
    set(*m_warnings);
    m_emitted.clear();
    set(*m_warnings);
    QTEST(values(), "values");
    QCOMPARE(m_emitted, QStringList());
}

void TestWarnInfo::nullTextIsTheEmptyText()
{
    m_warnings->setCalibrationRequiredText(QStringLiteral(""));
    m_emitted.clear();
    m_warnings->setCalibrationRequiredText(QString());
    QCOMPARE(m_emitted, QStringList());
}

void TestWarnInfo::screenReadsButCannotWrite_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("levelling text") << QByteArray("levellingRequiredText")
                                    << QVariant(QStringLiteral("Levelling required"));
    QTest::newRow("calibration text")
        << QByteArray("calibrationRequiredText") << QVariant(QStringLiteral("Calibrate"));
    QTest::newRow("levelling shown") << QByteArray("levellingRequiredVisible") << QVariant(false);
    QTest::newRow("calibration shown") << QByteArray("calibrationRequiredVisible") << QVariant(false);
}

void TestWarnInfo::screenReadsButCannotWrite()
{
    QFETCH(QByteArray, name);
    QTEST(m_warnings->property(name), "value");
    const QVariant other =
        m_warnings->property(name).type() == QVariant::Bool ? QVariant(true) : QVariant(QStringLiteral("x"));
    QVERIFY(!m_warnings->setProperty(name, other));
    QTEST(m_warnings->property(name), "value");
    QCOMPARE(m_emitted, QStringList());
}

void TestWarnInfo::levellingTextIsTranslated()
{
    Translator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    m_warnings->translateText();
    QCOMPARE(m_warnings->levellingRequiredText(), QStringLiteral("Nivellierung erforderlich"));
    QCOMPARE(m_warnings->calibrationRequiredText(), QStringLiteral("Calibrate"));

    QVERIFY(QCoreApplication::removeTranslator(&translator));
    m_warnings->translateText();
    QCOMPARE(m_warnings->levellingRequiredText(), QStringLiteral("Levelling required"));
}

void TestWarnInfo::constructorTranslates()
{
    Translator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const WarnInfo warnings(nullptr, QStringLiteral("given"), QStringLiteral("Calibrate"), false, false);
    QCOMPARE(warnings.levellingRequiredText(), QStringLiteral("Nivellierung erforderlich"));
    QCOMPARE(warnings.calibrationRequiredText(), QStringLiteral("Calibrate"));
}

void TestWarnInfo::translationIsAnnouncedWhileVisible_data()
{
    QTest::addColumn<bool>("levellingVisible");
    QTest::addColumn<bool>("calibrationVisible");
    QTest::addColumn<bool>("textChanges");
    QTest::addColumn<QStringList>("emitted");

    const QStringList announced{QStringLiteral("levellingRequiredTextChanged")};
    QTest::newRow("hidden") << false << false << true << QStringList();
    QTest::newRow("only the calibration warning is shown") << false << true << true << QStringList();
    QTest::newRow("shown") << true << false << true << announced;
    QTest::newRow("shown, same text") << true << false << false << announced;
    QTest::newRow("hidden, same text") << false << false << false << QStringList();
}

void TestWarnInfo::translationIsAnnouncedWhileVisible()
{
    QFETCH(bool, levellingVisible);
    QFETCH(bool, calibrationVisible);
    QFETCH(bool, textChanges);
    m_warnings =
        std::make_unique<WarnInfo>(nullptr, QString(), QString(), calibrationVisible, levellingVisible);
    record();

    Translator translator;
    if (!textChanges)
        translator.text = m_warnings->levellingRequiredText();
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QString seen;
    connect(m_warnings.get(), &WarnInfo::levellingRequiredTextChanged, this,
            [this, &seen] { seen = m_warnings->levellingRequiredText(); });
    m_warnings->translateText();
    QCOMPARE(m_warnings->levellingRequiredText(), translator.text);
    QTEST(m_emitted, "emitted");
    QCOMPARE(seen, levellingVisible ? translator.text : QString());
}

void TestWarnInfo::translationReplacesATextThatWasSet()
{
    m_warnings->setLevellingRequiredText(QStringLiteral("own text"));
    m_warnings->translateText();
    QCOMPARE(m_warnings->levellingRequiredText(), QStringLiteral("Levelling required"));
}

void TestWarnInfo::visibilityIsAnnouncedAfterItIsStored()
{
    bool seen = false;
    connect(m_warnings.get(), &WarnInfo::levellingRequiredVisibleChanged, this,
            [this, &seen] { seen = m_warnings->levellingRequiredVisible(); });
    m_warnings->setLevellingRequiredVisible(true);
    QVERIFY(seen);
    m_warnings->setLevellingRequiredVisible(false);
    QVERIFY(!seen);
    QCOMPARE(m_emitted.size(), 2);
}

void TestWarnInfo::destructorWritesItsLine()
{
    const LogRecorder log(QsLogging::TraceLevel);
    const QString address = QStringLiteral("0x%1").arg(quintptr(m_warnings.get()), 0, 16);
    m_warnings.reset();
    QCOMPARE(
        log.lines(),
        QStringList(QStringLiteral("TRACE Running destructor ->  Brimvale::WarnInfo(%1) ").arg(address)));
}

void TestWarnInfo::destructorWritesNothingAboveTrace()
{
    const LogRecorder log(QsLogging::DebugLevel);
    m_warnings.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestWarnInfo)
#include "tst_warninfo.moc"
