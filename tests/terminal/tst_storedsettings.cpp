// SPDX-License-Identifier: BSD-3-Clause
//
// What becomes of stored values when the power fails, the process is killed or the medium does not play along.
#include "../core/SystemCalls.h"
#include "host/StoredParameters.h"

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <functional>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

using namespace Brimvale::Terminal;

namespace
{

const QString Menu = QStringLiteral(":/menu.json");
const QString Owner = QStringLiteral("user");
const QString Plugin = QStringLiteral("filling");

bool changesFiles(const SystemCalls::Call& call)
{
    return qstrcmp(call.name, "read") != 0;
}

QString pathOf(const SystemCalls::Call& call)
{
    if (call.path != nullptr) {
        return QFile::decodeName(call.path);
    }
    return QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(call.descriptor));
}

} // namespace

class tst_StoredSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void numbersAreWrittenWithoutZerosBeforeThem();
    void severalValuesInOneStep();
    void valuesOfOnePluginOnly();
    void valuesInMemory();
    void newFileIsOnTheMediumBeforeItCounts();
    void cutAtEveryCall();
    void everyCallThatFails_data();
    void everyCallThatFails();
    void killedWhileItWrites();
    void fileThatIsTooLarge();

private:
    /// A file with the values 1 "old" and 2 "old", which no QSettings of this process has seen.
    void prepare(const QString& folder)
    {
        m_file = folder + QStringLiteral("/settings.ini");
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[user]\nfilling\\%3A\\menu.json\\1=old\nfilling\\%3A\\menu.json\\2=old\nother=kept\n");
    }
    /// Runs @p code in a process of its own. Returns its exit status.
    static int inChild(const std::function<void()>& code)
    {
        const pid_t child = ::fork();
        if (child == 0) {
            code();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    /// What the file holds now.
    QMap<int, QString> stored() const { return StoredParameters(m_file).values(Menu, Owner, Plugin); }

    const QMap<int, QString> m_old{{1, QStringLiteral("old")}, {2, QStringLiteral("old")}};
    const QMap<int, QString> m_new{{1, QStringLiteral("new")}, {2, QStringLiteral("newer")}};
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

void tst_StoredSettings::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    prepare(m_folder->path());
}

void tst_StoredSettings::numbersAreWrittenWithoutZerosBeforeThem()
{
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[user]\nfilling\\%3A\\menu.json\\05=five\nfilling\\%3A\\menu.json\\6=six\n");
    file.close();
    const StoredParameters parameters(m_file);
    QCOMPARE(parameters.values(Menu, Owner, Plugin), (QMap<int, QString>{{6, QStringLiteral("six")}}));
    QCOMPARE(parameters.value(Menu, Owner, Plugin, QStringLiteral("none"), 5), QStringLiteral("none"));
}

void tst_StoredSettings::severalValuesInOneStep()
{
    StoredParameters parameters(m_file);
    QCOMPARE(parameters.values(Menu, Owner, Plugin), m_old);
    int renames = 0;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            renames += qstrcmp(call.name, "rename") == 0 ? 1 : 0;
            return 0;
        });
        QVERIFY(parameters.setValues(Menu, Owner, Plugin, m_new));
    }
    QCOMPARE(renames, 1);
    QCOMPARE(stored(), m_new);
}

void tst_StoredSettings::valuesOfOnePluginOnly()
{
    StoredParameters parameters(m_file);
    QVERIFY(parameters.setValue(Menu, Owner, QStringLiteral("other"), 1, QStringLiteral("x")));
    QVERIFY(parameters.setValue(QStringLiteral(":/menu.json/more"), Owner, Plugin, 1, QStringLiteral("x")));
    QVERIFY(parameters.setValue(Menu, QStringLiteral("guest"), Plugin, 1, QStringLiteral("x")));
    QCOMPARE(parameters.values(Menu, Owner, Plugin), m_old);
}

void tst_StoredSettings::valuesInMemory()
{
    StoredParameters parameters{QString()};
    QVERIFY(parameters.setValues(Menu, Owner, Plugin, m_new));
    QVERIFY(parameters.setValue(Menu, Owner, QStringLiteral("other"), 1, QStringLiteral("x")));
    QCOMPARE(parameters.values(Menu, Owner, Plugin), m_new);
}

void tst_StoredSettings::newFileIsOnTheMediumBeforeItCounts()
{
    StoredParameters parameters(m_file);
    QStringList order;
    {
        const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
            // A file without a name, at first: "/folder/#1234 (deleted)".
            const QString path = pathOf(call);
            if (!path.startsWith(m_folder->path()) || path.endsWith(QLatin1String(".lock"))) {
                return 0;
            }
            if (qstrcmp(call.name, "fsync") == 0 || qstrcmp(call.name, "fdatasync") == 0) {
                order.append(path == m_folder->path() ? QStringLiteral("folder flushed")
                             : path == m_file         ? QStringLiteral("file flushed")
                                                      : QStringLiteral("new file flushed"));
            } else if (qstrcmp(call.name, "rename") == 0) {
                order.append(QStringLiteral("renamed"));
            } else if (qstrcmp(call.name, "write") == 0) {
                order.append(path == m_file ? QStringLiteral("old file written")
                                            : QStringLiteral("new file written"));
            }
            return 0;
        });
        QVERIFY(parameters.setValues(Menu, Owner, Plugin, m_new));
        order.append(QStringLiteral("confirmed"));
    }
    order.removeDuplicates();
    QVERIFY2(!order.contains(QStringLiteral("old file written")),
             qPrintable(order.join(QStringLiteral(", "))));
    const QStringList needed{QStringLiteral("new file written"), QStringLiteral("new file flushed"),
                             QStringLiteral("renamed"), QStringLiteral("folder flushed"),
                             QStringLiteral("confirmed")};
    QStringList found;
    for (const QString& step : order) {
        if (needed.contains(step)) {
            found.append(step);
        }
    }
    QVERIFY2(found == needed, qPrintable(order.join(QStringLiteral(", "))));
}

/// The process ends before the n-th call that changes files, for every n.
void tst_StoredSettings::cutAtEveryCall()
{
    constexpr int Cut = 9;
    int status = Cut;
    int oldOnes = 0;
    int newOnes = 0;
    for (int n = 0; status == Cut; ++n) {
        QVERIFY(n < 200);
        m_folder = std::make_unique<QTemporaryDir>();
        prepare(m_folder->path());
        status = inChild([&] {
            StoredParameters parameters(m_file);
            int count = 0;
            const SystemCalls::Watching watching([&](const SystemCalls::Call& call) {
                if (changesFiles(call) && count++ == n) {
                    ::_exit(Cut);
                }
                return 0;
            });
            if (!parameters.setValues(Menu, Owner, Plugin, m_new)) {
                ::_exit(1);
            }
        });
        const QMap<int, QString> values = stored();
        QVERIFY2(values == m_old || values == m_new, qPrintable(QString::number(n)));
        oldOnes += values == m_old ? 1 : 0;
        newOnes += values == m_new ? 1 : 0;
        // The next start, some seconds later, stores again, whatever the end has left behind: an empty lock, too.
        QFile lock(m_file + QStringLiteral(".lock"));
        if (lock.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
            lock.setFileTime(QDateTime::currentDateTime().addSecs(-5), QFileDevice::FileModificationTime);
            lock.close();
        }
        QCOMPARE(inChild([&] {
                     StoredParameters parameters(m_file);
                     if (!parameters.setValue(Menu, Owner, Plugin, 1, QStringLiteral("again"))) {
                         ::_exit(1);
                     }
                 }),
                 0);
        QVERIFY(QFile(m_file).exists());
    }
    QCOMPARE(status, 0);
    // The cuts lay on both sides of the step.
    QVERIFY2(oldOnes > 3 && newOnes > 1, qPrintable(QStringLiteral("%1 %2").arg(oldOnes).arg(newOnes)));
}

void tst_StoredSettings::everyCallThatFails_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("error");
    QTest::newRow("write: full") << QByteArray("write") << ENOSPC;
    QTest::newRow("write: broken") << QByteArray("write") << EIO;
    QTest::newRow("rename") << QByteArray("rename") << EACCES;
    QTest::newRow("fsync") << QByteArray("fsync") << EIO;
    QTest::newRow("open") << QByteArray("open") << EACCES;
}

void tst_StoredSettings::everyCallThatFails()
{
    QFETCH(QByteArray, call);
    QFETCH(int, error);
    constexpr int Confirmed = 2;
    const int status = inChild([&] {
        StoredParameters parameters(m_file);
        const SystemCalls::Watching watching([&](const SystemCalls::Call& made) {
            return call == made.name && pathOf(made).startsWith(m_folder->path()) ? error : 0;
        });
        QString text;
        const bool confirmed = parameters.setValues(Menu, Owner, Plugin, m_new, &text);
        // What cannot be stored holds for this run, and the reason is told.
        const bool holds = parameters.values(Menu, Owner, Plugin) == m_new;
        ::_exit(confirmed ? Confirmed : holds && !text.isEmpty() ? 0 : 1);
    });
    QCOMPARE(status, 0);
    const QMap<int, QString> values = stored();
    QVERIFY(values == m_old || values == m_new);
}

/// A process that stores one value after the other is killed at some moment. What it has confirmed is there.
void tst_StoredSettings::killedWhileItWrites()
{
    for (int round = 0; round < 12; ++round) {
        m_folder = std::make_unique<QTemporaryDir>();
        prepare(m_folder->path());
        int pipe[2];
        QVERIFY(::pipe(pipe) == 0);
        const pid_t child = ::fork();
        if (child == 0) {
            ::close(pipe[0]);
            StoredParameters parameters(m_file);
            for (std::int32_t n = 1;; ++n) {
                const QString text = QString::number(n);
                if (!parameters.setValues(Menu, Owner, Plugin, {{1, text}, {2, text}})
                    || ::write(pipe[1], &n, sizeof n) != sizeof n) {
                    ::_exit(1);
                }
            }
        }
        ::close(pipe[1]);
        std::int32_t confirmed = 0;
        const int wanted = 3 + round;
        while (confirmed < wanted && ::read(pipe[0], &confirmed, sizeof confirmed) == sizeof confirmed) { }
        ::usleep(static_cast<useconds_t>(round * 137)); // another moment of the next step each time
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        QVERIFY(WIFSIGNALED(status));
        while (::read(pipe[0], &confirmed, sizeof confirmed) == sizeof confirmed) { }
        ::close(pipe[0]);
        const QMap<int, QString> values = stored();
        QVERIFY(confirmed >= wanted);
        QVERIFY2(values.value(1).toInt() >= confirmed && values.value(1).toInt() <= confirmed + 1,
                 qPrintable(values.value(1) + QStringLiteral(" after ") + QString::number(confirmed)));
        QCOMPARE(values.value(2), values.value(1));
        // What else stood in the file is still there.
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll().contains("other=kept"));
    }
}

void tst_StoredSettings::fileThatIsTooLarge()
{
    QVERIFY(QFile::resize(m_file, StoredParameters::MaximumSize + 1));
    StoredParameters parameters(m_file);
    QVERIFY(parameters.error().startsWith(QLatin1String("The stored parameters in ") + m_file
                                          + QLatin1String(" have more than 16777216 bytes")));
    // It is left as it is, and values hold for this run.
    QString error;
    QVERIFY(!parameters.setValue(Menu, Owner, Plugin, 1, QStringLiteral("new"), &error));
    QCOMPARE(error, parameters.error());
    QCOMPARE(parameters.value(Menu, Owner, Plugin, QString(), 1), QStringLiteral("new"));
    QCOMPARE(QFile(m_file).size(), StoredParameters::MaximumSize + 1);
}

QTEST_GUILESS_MAIN(tst_StoredSettings)
#include "tst_storedsettings.moc"
