// SPDX-License-Identifier: BSD-3-Clause

#include "Utility.h"

#include "core/Logging.h"
#include "core/Rounding.h"
#include "core/SaturatingCast.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <cmath>
#include <memory>

namespace Brimvale
{

namespace
{

struct Command
{
    QString program;
    QStringList arguments;
};

// The command of a command line; its program is empty when the line is blank.
Command splitCommandLine(const QString& commandLine)
{
    QStringList words = QProcess::splitCommand(commandLine);
    if (words.isEmpty())
        return {};
    const QString program = words.takeFirst();
    return {program, words};
}

Command shellCommand(const QStringList& arguments)
{
    return {QStringLiteral("/bin/sh"), arguments};
}

// Whether the command runs. The process class reports a normal exit for one that could not be started.
bool start(QProcess& process, const Command& command)
{
    if (command.program.isEmpty())
        return false;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(command.program, command.arguments, QIODevice::ReadWrite);
    // Not part of the time-out of the command: whether it exists is known at once, and must be known.
    return process.waitForStarted();
}

bool waitForFinished(QProcess& process, int timeout)
{
    // Of the negative numbers the process class takes only -1 for no limit.
    return process.waitForFinished(qMax(timeout, -1));
}

bool run(const Command& command, int timeout)
{
    auto process = std::make_unique<QProcess>();
    // A pipe that nobody reads would stop the command when it is full, and kill it when the host ends.
    process->setStandardOutputFile(QProcess::nullDevice());
    if (!start(*process, command))
        return false;

    waitForFinished(*process, timeout);
    const bool normalExit = process->exitStatus() == QProcess::NormalExit;
    if (process->state() != QProcess::NotRunning) {
        // The command is to run on, and destroying the object would kill it. Until it has ended nobody owns
        // the object, so that the command also outlasts the application. Its next change of state is its end.
        QProcess* const running = process.release();
        QObject::connect(running, &QProcess::stateChanged, running, &QObject::deleteLater);
    }
    return normalExit;
}

QString response(const Command& command, int timeout)
{
    QProcess process;
    if (!start(process, command))
        return QString();
    if (!waitForFinished(process, timeout)) {
        // Its destructor would do so as well, but not without a warning.
        process.kill();
        process.waitForFinished();
        return QString();
    }
    const QByteArray output = process.readAllStandardOutput();
    return QString::fromUtf8(output.constData(), static_cast<int>(qstrlen(output.constData())));
}

} // namespace

Utility::~Utility()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

void Utility::delay_ms(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        QCoreApplication::processEvents();
    } while (timer.elapsed() < milliseconds);
}

void Utility::delay_ms_eventloop(int milliseconds)
{
    QEventLoop loop;
    // A timer refuses a negative time, and the loop would never end.
    QTimer::singleShot(qMax(milliseconds, 0), &loop, &QEventLoop::quit);
    loop.exec();
}

QString Utility::ReadApplicationVersionString(const QString& text)
{
    return text.isEmpty() ? QString() : QCoreApplication::applicationVersion();
}

double Utility::Round(double value, int decimals)
{
    return roundToPlaces(value, decimals).value;
}

double Utility::Round(double value)
{
    const double result = saturatingCast<qint32>(std::floor(std::fabs(value) + 1e-14 + 0.5));
    return value < 0.0 ? -result : result;
}

bool Utility::isEqual(double a, double b)
{
    return std::fabs(a - b) <= std::fabs(a) * 1e-6;
}

bool Utility::doProcess(QString command, int timeout)
{
    return run(splitCommandLine(command), timeout);
}

QString Utility::doProcessGetResponse(QString command, int timeout)
{
    return response(splitCommandLine(command), timeout);
}

bool Utility::doProcessBash(QStringList arguments, int timeout)
{
    if (arguments.isEmpty())
        return false;
    return run(shellCommand(arguments), timeout);
}

QString Utility::doProcessBashGetResponse(QStringList arguments, int timeout)
{
    if (arguments.isEmpty())
        return QStringLiteral("f");
    return response(shellCommand(arguments), timeout);
}

bool Utility::doCheckDisk(QString device)
{
    if (device.isEmpty())
        return false;
    return doProcess(QStringLiteral("fsck %1").arg(device), 30000);
}

QString Utility::SubscriptText(const QString& text)
{
    return QStringLiteral("<sub>") + text + QStringLiteral("</sub>");
}

QString Utility::SuperscriptText(const QString& text)
{
    return QStringLiteral("<sup>") + text + QStringLiteral("</sup>");
}

QString Utility::ButtonText(const QString& text)
{
    return QLatin1Char('[') + text + QLatin1Char(']');
}

QString Utility::removeSubOrSuperscriptText(QString text)
{
    // Whole tags first, then what truncation may have left of one.
    // Texts and not pointers to them, which the dynamic linker would have to adjust.
    static constexpr char Tags[][7] = {"<sub>", "</sub>", "<sup>", "</sup>", "<sub", "</sub", "<sup",
                                       "</sup", "<su",    "</su",  "<s",     "</s",  "</"};
    for (const auto& tag : Tags)
        text.remove(QLatin1String(tag), Qt::CaseSensitive);
    return text;
}

QString Utility::ByteArrayToDebug(const QByteArray& bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto value = static_cast<uchar>(byte);
        if (value >= 32 && value <= 126)
            text += QLatin1Char(byte);
        else
            text += QStringLiteral("<%1>").arg(value, 2, 16, QLatin1Char('0'));
    }
    return text;
}

} // namespace Brimvale
