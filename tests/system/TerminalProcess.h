// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TERMINALPROCESS_H
#define BRIMVALE_TERMINALPROCESS_H

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QtTest>

/// The built terminal as a process of its own.
class TerminalProcess : public QProcess
{
public:
    static constexpr int TimeoutMs = 60000;

    static QString weighingPlugin() { return QStringLiteral(BRIMVALE_WEIGHING_PLUGIN); }
    static QString fixture(const QString& name)
    {
        return QStringLiteral(BRIMVALE_FIXTURE_DIRECTORY "/%1.so").arg(name);
    }
    static QString data(const QString& name) { return QStringLiteral(BRIMVALE_TEST_DATA "/") + name; }

    /// Words of a command line; none of them may hold a blank.
    static QStringList words(const QString& line) { return line.split(QLatin1Char(' '), Qt::SkipEmptyParts); }

    TerminalProcess()
    {
        setProgram(QStringLiteral(BRIMVALE_TERMINAL));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        // A run without a window must find its own way.
        for (const char* name : {"QT_QPA_PLATFORM", "QT_QUICK_BACKEND", "DISPLAY", "WAYLAND_DISPLAY"})
            environment.remove(QLatin1String(name));
        setProcessEnvironment(environment);
    }

    ~TerminalProcess() override
    {
        if (state() != QProcess::NotRunning) {
            kill();
            waitForFinished();
        }
    }

    void setVariable(const char* name, const char* value)
    {
        QProcessEnvironment environment = processEnvironment();
        environment.insert(QLatin1String(name), QLatin1String(value));
        setProcessEnvironment(environment);
    }

    /// Runs to the end.
    bool run(const QStringList& arguments)
    {
        setArguments(arguments);
        start();
        return finish();
    }

    /// Waits for the end.
    bool finish()
    {
        QElapsedTimer elapsed;
        elapsed.start();
        while (state() != QProcess::NotRunning && elapsed.elapsed() < TimeoutMs)
            waitForFinished(50);
        read();
        return state() == QProcess::NotRunning && exitStatus() == QProcess::NormalExit;
    }

    /// Waits until the standard output has @p part, or the terminal has ended; an event loop runs meanwhile.
    bool waitForOutput(const QString& part) { return waitFor(&m_output, part); }

    /// The same for the standard error output.
    bool waitForError(const QString& part) { return waitFor(&m_error, part); }

    QByteArray output() const { return m_output; }
    QString outputText() const { return QString::fromUtf8(m_output); }
    QString errorText() const { return QString::fromUtf8(m_error); }
    QStringList outputLines() const { return outputText().split(QLatin1Char('\n'), Qt::SkipEmptyParts); }

    /// For messages of failed tests.
    QByteArray everything() const
    {
        return "standard output:\n" + m_output + "standard error output:\n" + m_error;
    }

private:
    void read()
    {
        m_output += readAllStandardOutput();
        m_error += readAllStandardError();
    }

    /// A true event loop: QTest::qWaitFor() would sleep 10 ms between what computers are answered.
    bool waitFor(const QByteArray* text, const QString& part)
    {
        QEventLoop loop;
        const auto look = [&] {
            if (readAndFind(text, part) || state() == QProcess::NotRunning)
                loop.quit();
        };
        connect(this, &QProcess::readyReadStandardOutput, &loop, look);
        connect(this, &QProcess::readyReadStandardError, &loop, look);
        connect(this, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &loop, look);
        QTimer::singleShot(TimeoutMs, &loop, &QEventLoop::quit);
        if (!readAndFind(text, part) && state() != QProcess::NotRunning)
            loop.exec();
        return readAndFind(text, part);
    }

    bool readAndFind(const QByteArray* text, const QString& part)
    {
        read();
        return text->contains(part.toUtf8());
    }

    QByteArray m_output;
    QByteArray m_error;
};

/// Checks the exit code and shows both outputs when it is another one.
#define COMPARE_EXIT_CODE(process, code)                                                                     \
    QVERIFY2((process).exitCode() == (code), (process).everything().constData())

#endif // BRIMVALE_TERMINALPROCESS_H
