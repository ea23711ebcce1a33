// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_GUARDEDAPPLICATION_H
#define BRIMVALE_GUARDEDAPPLICATION_H

#include <QGuiApplication>

namespace Brimvale
{
namespace Terminal
{

/// The application object. An exception that a slot or event handler throws (that of a plug-in, as a rule) goes no
/// further than the event that brought it about, nor into the QML engine. What the event loop executes is told to
/// RunningCode.
class GuardedApplication : public QGuiApplication
{
    Q_OBJECT
    Q_DISABLE_COPY(GuardedApplication)

public:
    GuardedApplication(int& argc, char** argv);
    ~GuardedApplication() override;

    bool notify(QObject* receiver, QEvent* event) override;
    bool event(QEvent* event) override;

signals:
    /// The person's session ends, and all programs with it.
    void sessionEnds();
    /// @p receiver names the object whose event it was, @p exception is the exception in words; @p object is null
    /// when it is gone or lives in another thread.
    void exceptionCaught(const QString& receiver, const QString& exception, QObject* object);

private:
    void report(QObject* object, const QString& exception);
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_GUARDEDAPPLICATION_H
