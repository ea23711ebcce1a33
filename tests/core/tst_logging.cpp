// SPDX-License-Identifier: BSD-3-Clause

#include "LogRecorder.h"
#include "core/Logging.h"

#include <QDebug>
#include <QPair>
#include <QtTest>

#include <memory>

namespace
{

// Counts how often it is formatted.
struct Probe
{
    mutable int formatted = 0;
};

QDebug operator<<(QDebug stream, const Probe& probe)
{
    ++probe.formatted;
    return stream << "probe";
}

class Watched : public QObject
{
    Q_OBJECT

public:
    ~Watched() override { BRIMVALE_LOG_TRACE("Running destructor -> " << this); }
};

class Derived : public Watched
{
    Q_OBJECT
};

// As the library's action classes: an object first, an interface second.
class Interface
{
public:
    virtual ~Interface() = default;
};

class Implementation : public QObject, public Interface
{
    Q_OBJECT

public:
    ~Implementation() override { BRIMVALE_LOG_TRACE("Running destructor -> " << this); }
};

struct Plain
{
    ~Plain() { BRIMVALE_LOG_TRACE("Running destructor -> " << this); }
};

QString hex(const void* address)
{
    return QStringLiteral("0x%1").arg(quintptr(address), 0, 16);
}

} // namespace

class TestLogging : public QObject
{
    Q_OBJECT

private slots:
    void statementIsWrittenFromItsLevelOn_data();
    void statementIsWrittenFromItsLevelOn();
    void nothingIsDoneBelowTheLevel_data();
    void nothingIsDoneBelowTheLevel();
    void everythingIsDoneOnceAtTheLevel();
    void lineBearsItsLevel_data();
    void lineBearsItsLevel();
    void itemsAreFollowedByOneBlank_data();
    void itemsAreFollowedByOneBlank();
    void commasNeedNoCare();
    void objectIsNamedByClassAddressAndName();
    void objectOfADerivedClassIsNamedByTheClassBeingDestroyed();
    void objectWithAnInterfaceIsNamedAsAnObject();
    void otherObjectIsNamedByItsAddress();
    void isOneStatement_data();
    void isOneStatement();

private:
    void writeAt(int level, const QString& text);
};

void TestLogging::writeAt(int level, const QString& text)
{
    switch (level) {
    case QsLogging::TraceLevel:
        BRIMVALE_LOG_TRACE(text);
        break;
    case QsLogging::DebugLevel:
        BRIMVALE_LOG_DEBUG(text);
        break;
    case QsLogging::WarnLevel:
        BRIMVALE_LOG_WARN(text);
        break;
    case QsLogging::OffLevel:
        BRIMVALE_LOG_ALWAYS(text);
        break;
    default:
        QFAIL("no statement of this level");
    }
}

void TestLogging::statementIsWrittenFromItsLevelOn_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("configured");
    QTest::addColumn<bool>("written");

    const QPair<int, const char*> statements[] = {{QsLogging::TraceLevel, "trace"},
                                                  {QsLogging::DebugLevel, "debug"},
                                                  {QsLogging::WarnLevel, "warn"},
                                                  {QsLogging::OffLevel, "start line"}};
    const QPair<int, const char*> levels[] = {
        {QsLogging::TraceLevel, "trace"}, {QsLogging::DebugLevel, "debug"}, {QsLogging::InfoLevel, "info"},
        {QsLogging::WarnLevel, "warn"},   {QsLogging::ErrorLevel, "error"}, {QsLogging::FatalLevel, "fatal"},
        {QsLogging::OffLevel, "off"}};
    for (const auto& statement : statements) {
        for (const auto& level : levels)
            QTest::addRow("%s at %s", statement.second, level.second)
                << statement.first << level.first << (level.first <= statement.first);
    }
}

void TestLogging::statementIsWrittenFromItsLevelOn()
{
    QFETCH(int, level);
    QFETCH(int, configured);
    QFETCH(bool, written);
    const LogRecorder log(static_cast<QsLogging::Level>(configured));
    writeAt(level, QStringLiteral("text"));
    QCOMPARE(log.levels(), written ? QVector<int>{level} : QVector<int>());
}

void TestLogging::nothingIsDoneBelowTheLevel_data()
{
    QTest::addColumn<int>("statement");
    QTest::addColumn<int>("configured");

    QTest::newRow("trace at debug") << int(QsLogging::TraceLevel) << int(QsLogging::DebugLevel);
    QTest::newRow("debug at info") << int(QsLogging::DebugLevel) << int(QsLogging::InfoLevel);
    QTest::newRow("warn at error") << int(QsLogging::WarnLevel) << int(QsLogging::ErrorLevel);
    QTest::newRow("warn at off") << int(QsLogging::WarnLevel) << int(QsLogging::OffLevel);
}

void TestLogging::nothingIsDoneBelowTheLevel()
{
    QFETCH(int, statement);
    QFETCH(int, configured);
    const LogRecorder log(static_cast<QsLogging::Level>(configured));
    const Probe probe;
    int evaluated = 0;
    const auto evaluate = [&evaluated] { return ++evaluated; };

    if (statement == QsLogging::TraceLevel)
        BRIMVALE_LOG_TRACE("text" << probe << evaluate());
    else if (statement == QsLogging::DebugLevel)
        BRIMVALE_LOG_DEBUG("text" << probe << evaluate());
    else
        BRIMVALE_LOG_WARN("text" << probe << evaluate());

    QCOMPARE(probe.formatted, 0);
    QCOMPARE(evaluated, 0);
    QCOMPARE(log.lines(), QStringList());
}

void TestLogging::everythingIsDoneOnceAtTheLevel()
{
    const LogRecorder log(QsLogging::TraceLevel);
    const Probe probe;
    int evaluated = 0;
    BRIMVALE_LOG_TRACE("text" << probe << ++evaluated);
    QCOMPARE(probe.formatted, 1);
    QCOMPARE(evaluated, 1);
    QCOMPARE(log.lines(), QStringList(QStringLiteral("TRACE text probe 1 ")));
}

void TestLogging::lineBearsItsLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("line");

    QTest::newRow("trace") << int(QsLogging::TraceLevel) << QStringLiteral("TRACE \"text\" ");
    QTest::newRow("debug") << int(QsLogging::DebugLevel) << QStringLiteral("DEBUG \"text\" ");
    QTest::newRow("warn") << int(QsLogging::WarnLevel) << QStringLiteral("WARN  \"text\" ");
    QTest::newRow("start line") << int(QsLogging::OffLevel) << QStringLiteral(" \"text\" ");
}

void TestLogging::lineBearsItsLevel()
{
    QFETCH(int, level);
    QFETCH(QString, line);
    const LogRecorder log(QsLogging::TraceLevel);
    writeAt(level, QStringLiteral("text"));
    QCOMPARE(log.lines(), QStringList(line));
}

void TestLogging::itemsAreFollowedByOneBlank_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("line");

    QTest::newRow("number") << QVariant(7) << QStringLiteral("DEBUG Class::Function: value=  7 ");
    QTest::newRow("text") << QVariant(QStringLiteral("seven"))
                          << QStringLiteral("DEBUG Class::Function: value=  \"seven\" ");
    QTest::newRow("empty text") << QVariant(QString())
                                << QStringLiteral("DEBUG Class::Function: value=  \"\" ");
}

void TestLogging::itemsAreFollowedByOneBlank()
{
    QFETCH(QVariant, value);
    QFETCH(QString, line);
    const LogRecorder log(QsLogging::DebugLevel);
    if (value.type() == QVariant::Int)
        BRIMVALE_LOG_DEBUG("Class::Function: value= " << value.toInt());
    else
        BRIMVALE_LOG_DEBUG("Class::Function: value= " << value.toString());
    QCOMPARE(log.lines(), QStringList(line));
}

void TestLogging::commasNeedNoCare()
{
    const LogRecorder log(QsLogging::DebugLevel);
    BRIMVALE_LOG_DEBUG("pair" << QPair<int, int>(1, 2).second << qMax(3, 4));
    QCOMPARE(log.lines(), QStringList(QStringLiteral("DEBUG pair 2 4 ")));
}

void TestLogging::objectIsNamedByClassAddressAndName()
{
    const LogRecorder log(QsLogging::TraceLevel);
    auto watched = std::make_unique<Watched>();
    watched->setObjectName(QStringLiteral("scale"));
    const QString address = hex(watched.get());
    watched.reset();
    const QString line = QStringLiteral("TRACE Running destructor ->  Watched(%1, name = \"scale\") ");
    QCOMPARE(log.lines(), QStringList(line.arg(address)));
}

void TestLogging::objectOfADerivedClassIsNamedByTheClassBeingDestroyed()
{
    const LogRecorder log(QsLogging::TraceLevel);
    auto derived = std::make_unique<Derived>();
    const QString address = hex(derived.get());
    derived.reset();
    QCOMPARE(log.lines(),
             QStringList(QStringLiteral("TRACE Running destructor ->  Watched(%1) ").arg(address)));
}

void TestLogging::objectWithAnInterfaceIsNamedAsAnObject()
{
    const LogRecorder log(QsLogging::TraceLevel);
    auto implementation = std::make_unique<Implementation>();
    const QString address = hex(implementation.get());
    implementation.reset();
    QCOMPARE(log.lines(),
             QStringList(QStringLiteral("TRACE Running destructor ->  Implementation(%1) ").arg(address)));
}

void TestLogging::otherObjectIsNamedByItsAddress()
{
    const LogRecorder log(QsLogging::TraceLevel);
    QString address;
    {
        const Plain plain;
        address = hex(&plain);
    }
    QCOMPARE(log.lines(), QStringList(QStringLiteral("TRACE Running destructor ->  %1 ").arg(address)));
}

void TestLogging::isOneStatement_data()
{
    QTest::addColumn<bool>("condition");
    QTest::addColumn<int>("configured");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<bool>("otherwise");

    QTest::newRow("taken") << true << int(QsLogging::TraceLevel)
                           << QStringList(QStringLiteral("TRACE taken ")) << false;
    QTest::newRow("taken, below the level") << true << int(QsLogging::OffLevel) << QStringList() << false;
    QTest::newRow("not taken") << false << int(QsLogging::TraceLevel) << QStringList() << true;
}

void TestLogging::isOneStatement()
{
    QFETCH(bool, condition);
    QFETCH(int, configured);
    const LogRecorder log(static_cast<QsLogging::Level>(configured));
    bool otherwise = false;
    if (condition)
        BRIMVALE_LOG_TRACE("taken");
    else
        otherwise = true;
    QTEST(log.lines(), "lines");
    QTEST(otherwise, "otherwise");
}

QTEST_APPLESS_MAIN(TestLogging)
#include "tst_logging.moc"
