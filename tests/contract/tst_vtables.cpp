// SPDX-License-Identifier: BSD-3-Clause

#include <QDir>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextStream>
#include <QVector>
#include <QtTest>

#include <cstdlib>
#include <cxxabi.h>
#include <memory>

// Compares vtables.txt with what the compiler emits. A compiled table shows a pure operation without its name, so a
// class is probed by a derived class that is generated from its block and overrides every operation: an operation
// that is missing or has another signature does not compile, and the probe's table names all slots in their order.

namespace
{

const QString Destructor = QStringLiteral("~");
const QString Pure = QStringLiteral("a pure operation");

struct Block
{
    QString name;
    QStringList bases;
    QStringList declarations; // "bool enabled() const"
};

// The slots of one table within a class: its own ("") or that of a further base.
struct Slots
{
    QString base;
    QStringList operations; // "enabled() const"
};

// "bool enabled() const" -> "enabled() const". Empty when it is no declaration.
QString operationOf(const QString& declaration)
{
    static const QRegularExpression pattern(
        QStringLiteral("^[\\w:<>,*& ]+?[ ](\\w+\\([^()]*\\)(?: const)?)(?: noexcept)?$"));
    return declaration == Destructor ? Destructor : pattern.match(declaration).captured(1);
}

class Table
{
public:
    // Reads the table. Returns what is wrong with it, or an empty text.
    QString read(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return QStringLiteral("%1: %2").arg(path, file.errorString());
        static const QRegularExpression head(QStringLiteral("^(\\w+)(?: : (\\w+(?:, \\w+)*))?$"));
        QTextStream stream(&file);
        for (int number = 1; !stream.atEnd(); ++number) {
            const QString line = stream.readLine();
            const QString text = line.trimmed();
            const QString where = QStringLiteral("%1:%2: ").arg(path).arg(number);
            if (text.isEmpty() || text.startsWith(QLatin1Char('#')))
                continue;
            if (line.startsWith(QLatin1String("    "))) {
                if (m_blocks.isEmpty() || operationOf(text).isEmpty())
                    return where + QStringLiteral("'%1' is no operation of a class").arg(text);
                m_blocks.last().declarations.append(text);
                continue;
            }
            const QRegularExpressionMatch match = head.match(line);
            if (!match.hasMatch())
                return where + QStringLiteral("'%1' is neither a class nor an operation").arg(line);
            if (m_index.contains(match.captured(1)))
                return where + QStringLiteral("%1 is here a second time").arg(match.captured(1));
            const QStringList bases = match.captured(2).split(QStringLiteral(", "), Qt::SkipEmptyParts);
            for (const QString& base : bases) {
                if (!m_index.contains(base))
                    return where + QStringLiteral("the base %1 must stand before the class").arg(base);
            }
            m_index.insert(match.captured(1), m_blocks.size());
            m_blocks.append({match.captured(1), bases, {}});
        }
        return QString();
    }

    const QVector<Block>& blocks() const { return m_blocks; }
    const Block& block(const QString& name) const { return m_blocks.at(m_index.value(name)); }

    QStringList declarations(const Block& block) const
    {
        return (block.bases.isEmpty() ? QStringList() : declarations(this->block(block.bases.first())))
               + block.declarations;
    }

    QVector<Slots> slotsOf(const Block& block) const
    {
        QStringList operations;
        for (const QString& declaration : declarations(block))
            operations.append(operationOf(declaration));
        QVector<Slots> result{{QString(), operations}};
        for (int i = 0; i < block.bases.size(); ++i) {
            const Block& base = this->block(block.bases.at(i));
            QVector<Slots> inherited = slotsOf(base);
            inherited.first().base = base.name;
            result += i == 0 ? inherited.mid(1) : inherited;
        }
        return result;
    }

    // A source that makes the compiler emit the table of a probe of each class.
    QByteArray probes() const
    {
        QByteArray source;
        for (const Block& block : m_blocks)
            source += block.name == QLatin1String("QObject")
                          ? "#include <QtCore>\n"
                          : "#include \"" + block.name.toLatin1() + ".h\"\n";
        source += "namespace Brimvale\n{\n";
        for (const Block& block : m_blocks) {
            const QByteArray name = block.name.toLatin1();
            source += "struct " + name + "Probe : " + name + "\n{\n    ~" + name + "Probe() override;\n";
            for (const QString& declaration : declarations(block)) {
                if (declaration != Destructor)
                    source += "    " + declaration.toLatin1() + " override;\n";
            }
            source += "};\n" + name + "Probe::~" + name + "Probe() { }\n";
        }
        return source + "}\n";
    }

private:
    QVector<Block> m_blocks;
    QHash<QString, int> m_index;
};

// "_ZNK8Brimvale12IActionProbe7enabledEv" -> "enabled() const"
QString operationOfSymbol(const QString& symbol)
{
    if (symbol == QLatin1String("__cxa_pure_virtual"))
        return Pure;
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> demangled(
        abi::__cxa_demangle(symbol.toLatin1().constData(), nullptr, nullptr, &status), &std::free);
    if (status != 0)
        return symbol;
    QString text = QString::fromLatin1(demangled.get());
    text.remove(QStringLiteral("Brimvale::"));
    const int qualifier = text.lastIndexOf(QLatin1String("::"), text.indexOf(QLatin1Char('(')));
    text.remove(0, qualifier + 2);
    return text.startsWith(Destructor) ? Destructor : text;
}

// The tables in the compiler's output, by name of the class.
QHash<QString, QVector<QStringList>> tablesIn(const QByteArray& assembly)
{
    static const QRegularExpression label(QStringLiteral("^_ZTVN8Brimvale\\d+(\\w+)ProbeE:"));
    static const QRegularExpression value(
        QStringLiteral("^\\s+\\.(?:quad|xword|word|long|8byte|4byte)\\s+(\\S+)"));
    QHash<QString, QVector<QStringList>> tables;
    QString name;
    QString previous;
    for (const QByteArray& bytes : assembly.split('\n')) {
        const QString line = QString::fromLatin1(bytes);
        const QRegularExpressionMatch begin = label.match(line);
        if (begin.hasMatch()) {
            name = begin.captured(1);
            continue;
        }
        const QRegularExpressionMatch entry = value.match(line);
        if (name.isEmpty() || !entry.hasMatch()) {
            name.clear();
            continue;
        }
        // Each table begins with the offset of its base in the object and the type information.
        const QString symbol = entry.captured(1);
        if (symbol.startsWith(QLatin1String("_ZTI"))) {
            if (!tables[name].isEmpty())
                tables[name].last().removeLast();
            tables[name].append(QStringList());
        } else if (tables.contains(name)) {
            tables[name].last().append(operationOfSymbol(symbol));
        }
    }
    return tables;
}

// The first difference between the table and the compiled class in words, or an empty text.
QString firstDifference(const QString& name, const QVector<Slots>& expected,
                        const QVector<QStringList>& compiled)
{
    for (int table = 0; table < qMax(expected.size(), compiled.size()); ++table) {
        if (table == expected.size())
            return QStringLiteral("%1 has a base with virtual operations that vtables.txt does not know")
                .arg(name);
        const QString where =
            table == 0 ? name : QStringLiteral("%1 as %2").arg(name, expected.at(table).base);
        if (table == compiled.size())
            return QStringLiteral("%1: the compiler emits no such table").arg(where);
        QStringList listed;
        for (const QString& operation : expected.at(table).operations)
            listed += operation == Destructor ? QStringList{Destructor, Destructor} : QStringList(operation);
        const QStringList& emitted = compiled.at(table);
        for (int slot = 0; slot < qMax(listed.size(), emitted.size()); ++slot) {
            const QString wanted = listed.value(slot, QStringLiteral("the end"));
            const QString found = emitted.value(slot, QStringLiteral("the end"));
            // The destructor's slots are empty in an abstract class. What a class leaves to the classes derived from
            // it is pure in the tables of its interfaces.
            const bool same =
                wanted == found || (wanted == Destructor && found == QLatin1String("0"))
                || (found == Pure && table > 0 && !expected.first().operations.contains(wanted));
            if (!same)
                return QStringLiteral("%1, slot %2: vtables.txt says %3, the compiler emits %4")
                    .arg(where)
                    .arg(slot)
                    .arg(wanted, found);
        }
    }
    return QString();
}

} // namespace

Q_DECLARE_METATYPE(Slots)

class TestVtables : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void slotsAreInOrder_data();
    void slotsAreInOrder();
    void differenceIsNamed_data();
    void differenceIsNamed();

private:
    Table m_table;
    QHash<QString, QVector<QStringList>> m_compiled;
};

void TestVtables::initTestCase()
{
    const QString problem = m_table.read(QStringLiteral(VTABLES));
    QVERIFY2(problem.isEmpty(), qPrintable(problem));

    const QTemporaryDir directory;
    QFile source(directory.filePath(QStringLiteral("probes.cpp")));
    QVERIFY(source.open(QIODevice::WriteOnly));
    source.write(m_table.probes());
    source.close();

    QProcess compiler;
    compiler.start(QStringLiteral(COMPILER),
                   {QStringLiteral("-std=c++17"), QStringLiteral("-fPIC"), QStringLiteral("-w"),
                    QStringLiteral("@" INCLUDE_OPTIONS), QStringLiteral("-S"), QStringLiteral("-o"),
                    QStringLiteral("-"), source.fileName()});
    QVERIFY2(compiler.waitForFinished(100000), qPrintable(compiler.errorString()));
    QVERIFY2(compiler.exitStatus() == QProcess::NormalExit && compiler.exitCode() == 0,
             "An operation in vtables.txt is not one of its class:\n" + compiler.readAllStandardError());
    m_compiled = tablesIn(compiler.readAllStandardOutput());
}

void TestVtables::slotsAreInOrder_data()
{
    QTest::addColumn<QString>("name");
    for (const Block& block : m_table.blocks())
        QTest::newRow(qPrintable(block.name)) << block.name;
}

void TestVtables::slotsAreInOrder()
{
    QFETCH(QString, name);
    const QVector<Slots> expected = m_table.slotsOf(m_table.block(name));
    const QString difference = firstDifference(name, expected, m_compiled.value(name));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void TestVtables::differenceIsNamed_data()
{
    QTest::addColumn<QVector<Slots>>("expected");
    QTest::addColumn<QString>("difference");

    const auto action = [](const QStringList& operations) {
        return QVector<Slots>{{QString(), QStringList(Destructor) + operations}};
    };
    QTest::newRow("swapped") << action(
        {QStringLiteral("maxToggleIndex() const"), QStringLiteral("toggleIndex() const")})
                             << QStringLiteral(
                                    "IActionToggle, slot 2: vtables.txt says maxToggleIndex() const, "
                                    "the compiler emits toggleIndex() const");
    QTest::newRow("other signature") << action(
        {QStringLiteral("toggleIndex()"), QStringLiteral("maxToggleIndex() const")})
                                     << QStringLiteral(
                                            "IActionToggle, slot 2: vtables.txt says toggleIndex(), "
                                            "the compiler emits toggleIndex() const");
    QTest::newRow("missing in the class")
        << action({QStringLiteral("toggleIndex() const"), QStringLiteral("maxToggleIndex() const"),
                   QStringLiteral("reset()")})
        << QStringLiteral("IActionToggle, slot 4: vtables.txt says reset(), the compiler emits the end");
    QTest::newRow("missing in the table")
        << action({QStringLiteral("toggleIndex() const")})
        << QStringLiteral("IActionToggle, slot 3: vtables.txt says the end, "
                          "the compiler emits maxToggleIndex() const");
    QVector<Slots> another =
        action({QStringLiteral("toggleIndex() const"), QStringLiteral("maxToggleIndex() const")});
    another.append({QStringLiteral("IAction"), {}});
    QTest::newRow("missing base") << another
                                  << QStringLiteral(
                                         "IActionToggle as IAction: the compiler emits no such table");
    QTest::newRow("unknown base")
        << QVector<Slots>()
        << QStringLiteral("IActionToggle has a base with virtual operations that vtables.txt does not know");
}

void TestVtables::differenceIsNamed()
{
    QFETCH(QVector<Slots>, expected);
    const QString name = QStringLiteral("IActionToggle");
    QTEST(firstDifference(name, expected, m_compiled.value(name)), "difference");
}

QTEST_GUILESS_MAIN(TestVtables)
#include "tst_vtables.moc"
