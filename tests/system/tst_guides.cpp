// SPDX-License-Identifier: BSD-3-Clause
//
// The examples of the guides to menus and to workflows: they are what the plug-in "filling" is made of, and that does
// what the guides say.
#include "TerminalProcess.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

class tst_Guides : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void guideShowsTheExample_data();
    void guideShowsTheExample();
    void settings();
    void settingsInGerman();
    void workflow();
    void workflowThatIsAborted();

private:
    bool play(const QString& script);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_output;
};

namespace
{

QString contents(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

QString guide(const QString& name)
{
    return contents(QStringLiteral(BRIMVALE_GUIDES "/") + name);
}

/// What stands between the marks of a file, moved to the left; the whole file when there is no name.
QString example(const QString& file, const QString& name)
{
    const QString text = contents(QStringLiteral(BRIMVALE_EXAMPLES "/") + file);
    if (name.isEmpty())
        return text;
    const QString mark = QStringLiteral("// guide: ") + name + QLatin1Char('\n');
    const int begin = text.indexOf(mark) + mark.size();
    const int end = text.indexOf(QStringLiteral("// guide: end\n"), begin);
    if (begin < mark.size() || end < 0)
        qFatal("%s has no mark %s", qPrintable(file), qPrintable(name));
    QStringList lines = text.mid(begin, end - begin).split(QLatin1Char('\n'));
    lines.removeLast(); // what stands before the end mark
    const bool indented = lines.first().startsWith(QStringLiteral("    "));
    for (QString& line : lines)
        line = indented ? line.mid(4) : line;
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

} // namespace

void tst_Guides::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

/// Plays a script on the plug-in, with settings that are kept from one call to the next.
bool tst_Guides::play(const QString& script)
{
    const QString name = m_folder->filePath(QStringLiteral("guide.script"));
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(script.toUtf8());
    file.close();
    TerminalProcess terminal;
    const bool ended = terminal.run(
        QStringList{QStringLiteral("--headless"), QStringLiteral("--no-bench"), QStringLiteral("--plugin"),
                    QStringLiteral(BRIMVALE_FILLING_PLUGIN), QStringLiteral("--settings"),
                    m_folder->filePath(QStringLiteral("settings.ini")), QStringLiteral("--output"),
                    m_folder->path(), QStringLiteral("--script"), name});
    m_output = terminal.outputText() + terminal.errorText();
    return ended && terminal.exitCode() == 0 && !m_output.contains(QStringLiteral("WARN"))
           && !m_output.contains(QStringLiteral("ERROR"));
}

void tst_Guides::guideShowsTheExample_data()
{
    QTest::addColumn<QString>("guideName");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("mark");
    QTest::newRow("menu file") << "menu-files.md"
                               << "menu.json"
                               << "";
    QTest::newRow("menu, header") << "menu-files.md"
                                  << "FillingMenu.h"
                                  << "header";
    QTest::newRow("menu, source") << "menu-files.md"
                                  << "FillingMenu.cpp"
                                  << "source";
    QTest::newRow("texts of the menu file") << "menu-files.md"
                                            << "FillingMenu.cpp"
                                            << "texts";
    QTest::newRow("plug-in with a menu") << "menu-files.md"
                                         << "FillingPlugin.cpp"
                                         << "plug-in";
    QTest::newRow("workflow") << "workflows.md"
                              << "FillingPlugin.cpp"
                              << "workflow";
    QTest::newRow("signals of the workflow") << "workflows.md"
                                             << "FillingPlugin.cpp"
                                             << "signals";
}

void tst_Guides::guideShowsTheExample()
{
    QFETCH(QString, guideName);
    QFETCH(QString, file);
    QFETCH(QString, mark);
    const QString shown = example(file, mark);
    QVERIFY(shown.size() > 100);
    QVERIFY2(guide(guideName).contains(QLatin1Char('\n') + shown), qPrintable(shown));
}

void tst_Guides::settings()
{
    QVERIFY2(play(QStringLiteral("open settings\n"
                                 "expect item 11 500.0 g\n"
                                 "expect item 12 Fine\n"
                                 "expect item 20 On\n"
                                 "set item 11 250.5\n"
                                 "set item 12 coarse\n"
                                 "set item 20 off\n"
                                 "set item 21 A 7\n")),
             qPrintable(m_output));
    QVERIFY2(play(QStringLiteral("open settings\n"
                                 "expect item 11 250.5 g\n"
                                 "expect item 12 Coarse\n"
                                 "expect item 20 Off\n"
                                 "expect item 21 A 7\n"
                                 "press item 22\n"
                                 "press item 22\n"
                                 "expect item 21 \"\"\n")),
             qPrintable(m_output));
    // What the menu refuses does not get by.
    QVERIFY(!play(QStringLiteral("open settings\nset item 11 1000.1\n")));
    QVERIFY2(m_output.contains(QStringLiteral("Enter a number from 1.0 to 1000.0.")), qPrintable(m_output));
    QVERIFY2(play(QStringLiteral("open settings\nexpect item 11 250.5 g\nexpect item 21 \"\"\n")),
             qPrintable(m_output));
}

void tst_Guides::settingsInGerman()
{
    QVERIFY2(play(QStringLiteral("open settings\n"
                                 "language de\n"
                                 "expect item 10 Abfüllen\n"
                                 "expect item 12 Fein\n"
                                 "set item 12 Grob\n"
                                 "language en\n"
                                 "expect item 12 Coarse\n")),
             qPrintable(m_output));
}

void tst_Guides::workflow()
{
    const QString text = guide(QStringLiteral("workflows.md"));
    const int begin = text.indexOf(QStringLiteral("press recipe.start\n"));
    QVERIFY(begin > 0);
    const QString script = text.mid(begin, text.indexOf(QStringLiteral("```"), begin) - begin);
    QVERIFY(script.count(QStringLiteral("expect ")) >= 3);
    QVERIFY2(play(script), qPrintable(m_output));
    // Again, after another start of the plug-in.
    QVERIFY2(play(script
                  + QStringLiteral("close\nstart filling\ntake off all\nwait stable\n"
                                   "language de\npress recipe.start\n"
                                   "expect workflow \"125,0 g Weizenmehl zugeben\"\n")),
             qPrintable(m_output));
}

void tst_Guides::workflowThatIsAborted()
{
    QVERIFY2(play(QStringLiteral("press recipe.start\n"
                                 "put on 125 g\n"
                                 "wait stable\n"
                                 "press workflow.repeat\n"
                                 "expect workflow \"Weighed in 125.0 g\"\n"
                                 "press workflow.abort\n"
                                 "expect workflow none\n")),
             qPrintable(m_output));
}

QTEST_GUILESS_MAIN(tst_Guides)
#include "tst_guides.moc"
