// SPDX-License-Identifier: BSD-3-Clause
//
// The examples of the guide to the test kit. What stands between the marks is printed there, and compared with it.
#include "MesswertData.h"
#include "PluginBase.h"
#include "SettingsProfile.h"

#include <QFile>
#include <QObject>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <TestKit/SignalRecorder.h>

class PiecePlugin : public Brimvale::PluginBase
{
    Q_OBJECT

public:
    ~PiecePlugin() override { delete m_settingsProfile; }

    QString GetPluginName(bool) override { return QStringLiteral("Pieces"); }
    QString GetPluginIcon() override { return QString(); }
    void ApplyProfileItem(int, QVariant) override { }

    void print()
    {
        Brimvale::MesswertData pieces;
        pieces.messwert = QStringLiteral("12");
        pieces.unit = QStringLiteral("pcs");
        MeasurementDatatransfer(pieces, Brimvale::MesswertData());
    }

protected:
    void FillPluginId(Brimvale::PluginId& id) override { id.identifier = QStringLiteral("pieces"); }
    Brimvale::IMenuList* CreatePluginMenu() override { return nullptr; }
    QObject* CreateViewModel() override { return new QObject; }
    QString GetViewModelName() override { return QStringLiteral("pieces"); }
    QString GetPluginScreen() override { return QStringLiteral("qrc:/pieces/Pieces.qml"); }
    Brimvale::IPluginViewManager* CreateViewManager() override { return nullptr; }
};

// guide: test
using Brimvale::TestKit::RecordingHost;

class TestPieces : public QObject
{
    Q_OBJECT

private slots:
    void startLoadsTheScreen();
    void printReportsTheButton();
};

void TestPieces::startLoadsTheScreen()
{
    RecordingHost host;
    PiecePlugin plugin;
    QVERIFY(host.init(plugin));
    QVERIFY(host.start(plugin));
    BRIMVALE_COMPARE_CALLS(host.callsTo("IScreenLoader"),
                           "IScreenLoader::LoadScreen(\"qrc:/pieces/Pieces.qml\")");
    QVERIFY(host.contextObject("pieces"));
    QVERIFY(host.close(plugin));
}

void TestPieces::printReportsTheButton()
{
    RecordingHost host;
    PiecePlugin plugin;
    QVERIFY(host.init(plugin));
    QVERIFY(host.start(plugin));
    host.answer("IMSWParameterSource::QueryFlagA", false);
    host.ignore("*::Get*");
    host.clearCalls();

    QVERIFY(host.pressPrint(plugin));
    plugin.print();
    BRIMVALE_COMPARE_CALLS(
        host,
        "IMeasurementTransfer::TransferMeasurement(MesswertData(messwert=\"12\", unit=\"pcs\"), "
        "MesswertData(), MesswertData())",
        "IMSWParameterSource::QueryFlagA()", "ISequencer::SetPrintPending(true)",
        "ISequencer::NotifyHostEvent(\"printPressed\")", "IPrintIndicator::SetPrintPressed(true)",
        "ISequencer::NotifyMeasurementTransferred()",
        "IMeasurementObserver::OnMeasurementTransferred(MesswertData(messwert=\"12\", unit=\"pcs\"), "
        "MesswertData())",
        "IMeasurementObserver::OnSystemRegistersRead(0, 0)");
    QVERIFY(host.close(plugin));
}
// guide: end

class TestGuide : public QObject
{
    Q_OBJECT

private slots:
    void guideShowsTheExample();
    void guideNamesOnlyKnownOperations();
};

namespace
{

QString contents(const char* path)
{
    QFile file(QString::fromUtf8(path));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", path);
    return QString::fromUtf8(file.readAll());
}

QString between(const QString& text, const QString& begin, const QString& end)
{
    const int first = text.indexOf(begin);
    const int last = text.indexOf(end, first + begin.size());
    return first < 0 || last < 0 ? QString() : text.mid(first + begin.size(), last - first - begin.size());
}

} // namespace

void TestGuide::guideShowsTheExample()
{
    const QString example =
        between(contents(EXAMPLE), QStringLiteral("// guide: test\n"), QStringLiteral("// guide: end\n"));
    QVERIFY(!example.isEmpty());
    const QString shown =
        between(contents(GUIDE), QStringLiteral("<!-- tests/testkit/tst_guide.cpp -->\n```cpp\n"),
                QStringLiteral("```\n"));
    QCOMPARE(shown, example);
}

/// The names that the guide mentions in its fragments of code exist.
void TestGuide::guideNamesOnlyKnownOperations()
{
    static const QRegularExpression name(QStringLiteral("\"(I[A-Z][A-Za-z]+(?:#\\w+)?::\\w+)[\"(]"));
    QRegularExpressionMatchIterator it = name.globalMatch(contents(GUIDE));
    QStringList unknown;
    int count = 0;
    while (it.hasNext()) {
        const QString operation = it.next().captured(1);
        ++count;
        if (!RecordingHost::operations().contains(operation))
            unknown.append(operation);
    }
    QVERIFY(count > 5);
    QCOMPARE(unknown, QStringList());
}

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QTEST_SET_MAIN_SOURCE_PATH
    TestPieces example;
    TestGuide guide;
    return QTest::qExec(&example, argc, argv) + QTest::qExec(&guide, argc, argv);
}

#include "tst_guide.moc"
