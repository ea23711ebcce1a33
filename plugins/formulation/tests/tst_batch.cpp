// SPDX-License-Identifier: BSD-3-Clause
#include "Batch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class TestBatch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void figures();
    void isKept();
    void laterStateTakesThePlace();
    void finishedBatchIsNoLongerUnfinished_data();
    void finishedBatchIsNoLongerUnfinished();
    void cutBetweenTheTwoSteps();
    void numbers();
    void damaged_data();
    void damaged();
    void keepsTheOldOneWhenTheNewCannotBeWritten();

private:
    QString file(const char* name) const
    {
        return m_folder->filePath(QLatin1String("kept/") + QLatin1String(name));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<BatchStore> m_store;
    Batch m_batch;
    QString m_error;
};

void TestBatch::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<BatchStore>(m_folder->filePath(QStringLiteral("kept")));
    m_error.clear();
    m_batch = Batch();
    m_batch.number = 7;
    m_batch.vessel = 84.6;
    m_batch.recipe.name = QStringLiteral("Brot \"süß\"");
    m_batch.recipe.components = {{QStringLiteral("Mehl"), 500.0, 2.0}, {QStringLiteral("Salz"), 10.5, 5.0}};
    m_batch.weighed = {503.1};
}

void TestBatch::figures()
{
    QCOMPARE(m_batch.numberText(), QStringLiteral("0007"));
    QCOMPARE(m_batch.total(), 503.1);
    QCOMPARE(weightText(m_batch.deviation(0), 1, true), QStringLiteral("+3.1"));
    QVERIFY(m_batch.isWithinTolerance(0, 1));
    QCOMPARE(m_batch.nextComponent(), 1);
    QVERIFY(!m_batch.isWeighedIn());
    m_batch.weighed.append(12.0);
    QVERIFY(m_batch.isWeighedIn());
    QVERIFY(!m_batch.isWithinTolerance(1, 1));
}

void TestBatch::isKept()
{
    QVERIFY(!m_store->unfinished(&m_error));
    QVERIFY2(m_store->save(m_batch, &m_error), qPrintable(m_error));
    const std::optional<Batch> read = m_store->unfinished(&m_error);
    QCOMPARE(m_error, QString());
    QVERIFY(read);
    QCOMPARE(read->number, 7);
    QCOMPARE(read->state, Batch::Unfinished);
    QCOMPARE(read->vessel, 84.6);
    QCOMPARE(read->recipe.name, m_batch.recipe.name);
    QCOMPARE(read->recipe.components.size(), 2);
    QCOMPARE(read->recipe.components.at(1).name, QStringLiteral("Salz"));
    QCOMPARE(read->recipe.components.at(1).target, 10.5);
    QCOMPARE(read->recipe.components.at(1).tolerance, 5.0);
    QCOMPARE(read->weighed, QVector<double>{503.1});
}

void TestBatch::laterStateTakesThePlace()
{
    QVERIFY(m_store->save(m_batch, &m_error));
    m_batch.weighed.clear();
    QVERIFY(m_store->save(m_batch, &m_error));
    QVERIFY(m_store->unfinished(&m_error)->weighed.isEmpty());
    QCOMPARE(QDir(m_store->folder()).entryList(QDir::Files), QStringList{QStringLiteral("unfinished.json")});
}

void TestBatch::finishedBatchIsNoLongerUnfinished_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("complete") << int(Batch::Complete);
    QTest::newRow("aborted") << int(Batch::Aborted);
}

void TestBatch::finishedBatchIsNoLongerUnfinished()
{
    QFETCH(int, state);
    QVERIFY(m_store->save(m_batch, &m_error));
    m_batch.state = static_cast<Batch::State>(state);
    QVERIFY(m_store->save(m_batch, &m_error));
    QVERIFY(!m_store->unfinished(&m_error));
    QCOMPARE(QDir(m_store->folder()).entryList(QDir::Files), QStringList{QStringLiteral("batch-0007.json")});
}

void TestBatch::cutBetweenTheTwoSteps()
{
    QVERIFY(m_store->save(m_batch, &m_error));
    QVERIFY(QFile::copy(file("unfinished.json"), m_folder->filePath(QStringLiteral("copy"))));
    m_batch.state = Batch::Complete;
    QVERIFY(m_store->save(m_batch, &m_error));
    QVERIFY(QFile::copy(m_folder->filePath(QStringLiteral("copy")), file("unfinished.json")));
    QVERIFY(!m_store->unfinished(&m_error)); // the complete one counts
    QCOMPARE(m_error, QString());
    QVERIFY(!QFile::exists(file("unfinished.json")));
    QVERIFY(QFile::exists(file("batch-0007.json")));
}

void TestBatch::numbers()
{
    QCOMPARE(m_store->nextNumber(), 1);
    for (const int number : {3, 12000}) {
        m_batch.number = number;
        m_batch.state = Batch::Aborted;
        QVERIFY(m_store->save(m_batch, &m_error));
        QCOMPARE(m_store->nextNumber(), number + 1);
    }
    QFile other(file("batch-99999x.json"));
    QVERIFY(other.open(QIODevice::WriteOnly));
    QCOMPARE(m_store->nextNumber(), 12001);
}

void TestBatch::damaged_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to"); // empty: the file ends there
    QTest::newRow("cut off") << QByteArray("\"recipe\"") << QByteArray();
    QTest::newRow("no number") << QByteArray("\"batch\": 7") << QByteArray("\"batch\": 0");
    QTest::newRow("other state") << QByteArray("unfinished") << QByteArray("complete");
    QTest::newRow("no vessel") << QByteArray("vessel_g") << QByteArray("vessel");
    QTest::newRow("no components") << QByteArray("\"components\"") << QByteArray("\"other\"");
    QTest::newRow("weight that is a text") << QByteArray("503.1") << QByteArray("\"503.1\"");
    QTest::newRow("target of nothing") << QByteArray("10.5") << QByteArray("0");
}

void TestBatch::damaged()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QVERIFY(m_store->save(m_batch, &m_error));
    for (const char* aside : {"damaged-1.json", "damaged-2.json"}) {
        QVERIFY(m_store->save(m_batch, &m_error));
        QFile unfinished(file("unfinished.json"));
        QVERIFY(unfinished.open(QIODevice::ReadOnly));
        QByteArray text = unfinished.readAll();
        unfinished.close();
        QVERIFY(text.contains(from));
        text = to.isEmpty() ? text.left(text.indexOf(from)) : text.replace(from, to);
        QVERIFY(unfinished.open(QIODevice::WriteOnly));
        unfinished.write(text);
        unfinished.close();

        m_error.clear();
        QVERIFY(!m_store->unfinished(&m_error));
        QVERIFY2(m_error.contains(QLatin1String("it is damaged")), qPrintable(m_error));
        QVERIFY2(m_error.contains(file(aside)), qPrintable(m_error));
        QFile kept(file(aside));
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), text);
        QVERIFY(!QFile::exists(file("unfinished.json")));
    }
}

void TestBatch::keepsTheOldOneWhenTheNewCannotBeWritten()
{
    QVERIFY(m_store->save(m_batch, &m_error));
    // In the place of the record stands a folder, which no rights help against.
    QVERIFY(QDir().mkpath(file("batch-0007.json/x")));
    m_batch.state = Batch::Complete;
    QVERIFY(!m_store->save(m_batch, &m_error));
    QVERIFY2(m_error.startsWith(QLatin1String("The batch cannot be written to ") + file("batch-0007.json")),
             qPrintable(m_error));
    QVERIFY(QFile::exists(file("unfinished.json")));
}

QTEST_GUILESS_MAIN(TestBatch)
#include "tst_batch.moc"
