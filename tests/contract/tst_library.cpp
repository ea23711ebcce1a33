// SPDX-License-Identifier: BSD-3-Clause

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

// What the built library shows to the linker: the symbols it exports and the libraries it needs.

namespace
{

// Standard output of a program, in lines. Empty when it cannot be run or fails.
QStringList outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return {};
    return QString::fromLocal8Bit(process.readAllStandardOutput())
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QStringList sorted(const QSet<QString>& set)
{
    QStringList list = set.values();
    list.sort();
    return list;
}

} // namespace

class TestLibrary : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void exportsWhatPublicHeadersDeclareOnly();
    void nameBearsTheMajorVersion();
    void needsRuntimesQtCoreAndLoggerOnly();

private:
    QStringList m_symbols;
    QStringList m_dynamic;
};

void TestLibrary::initTestCase()
{
    const QString library = QStringLiteral(LIBRARY);
    m_symbols =
        outputOf(QStringLiteral(NM), {QStringLiteral("-DC"), QStringLiteral("--defined-only"), library});
    QVERIFY2(!m_symbols.isEmpty(), NM " lists no symbols of " LIBRARY);
    m_dynamic = outputOf(QStringLiteral(READELF), {QStringLiteral("-dW"), library});
    QVERIFY2(!m_dynamic.isEmpty(), READELF " lists nothing of " LIBRARY);
}

void TestLibrary::exportsWhatPublicHeadersDeclareOnly()
{
    // "class BRIMVALE_EXPORT Name" and "BRIMVALE_EXPORT type name("
    static const QRegularExpression declaration(
        QStringLiteral("^(?|class BRIMVALE_EXPORT (\\w+)|BRIMVALE_EXPORT .*?(\\w+|operator..)\\()"),
        QRegularExpression::MultilineOption);
    QSet<QString> declared;
    const QDir headers(QStringLiteral(HEADERS));
    for (const QString& name : headers.entryList({QStringLiteral("*.h")})) {
        QFile header(headers.filePath(name));
        QVERIFY2(header.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(header.fileName()));
        QRegularExpressionMatchIterator found = declaration.globalMatch(QString::fromUtf8(header.readAll()));
        while (found.hasNext())
            declared.insert(found.next().captured(1));
    }
    QVERIFY2(declared.contains(QStringLiteral("PluginBase")),
             "The headers in " HEADERS " declare no classes.");

    // "0000000000022c1e T Brimvale::Utility::Round(double)"
    static const QRegularExpression entry(QStringLiteral("^[0-9a-f]+ \\w (.*)$"));
    static const QRegularExpression owner(QStringLiteral(
        "^(?:vtable for |typeinfo for |typeinfo name for |(?:non-virtual|covariant return) thunk to )?"
        "Brimvale::(\\w+|operator..)(?:::.*|\\(.*)?$"));
    QStringList foreign;
    for (const QString& line : m_symbols) {
        const QRegularExpressionMatch symbol = entry.match(line);
        QVERIFY2(symbol.hasMatch(), qPrintable(line));
        if (!declared.contains(owner.match(symbol.captured(1)).captured(1)))
            foreign.append(symbol.captured(1));
    }
    QVERIFY2(foreign.isEmpty(),
             qPrintable(QStringLiteral("also exported: ") + foreign.join(QStringLiteral("; "))));
}

void TestLibrary::nameBearsTheMajorVersion()
{
    const QStringList names = m_dynamic.filter(QStringLiteral("(SONAME)"));
    QCOMPARE(names.size(), 1);
    QVERIFY2(names.first().endsWith(QLatin1String("[libSharedLibs.so.1]")), qPrintable(names.first()));
}

void TestLibrary::needsRuntimesQtCoreAndLoggerOnly()
{
    static const QRegularExpression needed(QStringLiteral("\\(NEEDED\\).*\\[(.*)\\]"));
    QSet<QString> libraries;
    for (const QString& line : m_dynamic) {
        const QRegularExpressionMatch match = needed.match(line);
        if (match.hasMatch())
            libraries.insert(match.captured(1).section(QStringLiteral(".so"), 0, 0));
    }
    const QSet<QString> used{QStringLiteral("libQt5Core"), QStringLiteral("libQsLog")};
    QCOMPARE(sorted(used - libraries), QStringList());
    const QSet<QString> runtimes{QStringLiteral("libstdc++"), QStringLiteral("libm"),
                                 QStringLiteral("libgcc_s"), QStringLiteral("libc")};
    QCOMPARE(sorted(libraries - used - runtimes), QStringList());
}

QTEST_GUILESS_MAIN(TestLibrary)
#include "tst_library.moc"
