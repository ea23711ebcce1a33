// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SESSIONFIXTURE_H
#define BRIMVALE_SESSIONFIXTURE_H

#include "app/CommandLine.h"
#include "app/LogOutput.h"
#include "app/Session.h"
#include "app/TimeDriver.h"
#include "clock/VirtualClock.h"
#include "source/SimulatedSource.h"
#include "source/SourceSpec.h"

#include <QtTest>

#include <memory>

namespace Brimvale
{
namespace Terminal
{

/// A whole terminal without a window, on a virtual clock and, unless set otherwise, the simulated scale.
struct SessionFixture
{
    SessionFixture()
    {
        options.headless = true;
        options.withoutPlugin = true;
    }

    /// The plug-in file @p name of the fixtures.
    static QString plugin(const char* name)
    {
        return QStringLiteral(BRIMVALE_FIXTURE_DIRECTORY "/") + QLatin1String(name) + QStringLiteral(".so");
    }

    void usePlugin(const char* name)
    {
        options.withoutPlugin = false;
        options.plugins.append(plugin(name));
    }

    /// Makes the session and starts it. The options must be set before.
    void start()
    {
        log = std::make_unique<LogOutput>(options.logLevel);
        QString error;
        std::unique_ptr<WeightSource> source = createSource(options.source, clock, SourceOptions(), &error);
        QVERIFY2(source, qPrintable(error));
        session = std::make_unique<Session>(options, clock, std::move(source), *log);
        QStringList errors;
        QVERIFY2(session->prepare(&errors), qPrintable(errors.join(QLatin1Char('\n'))));
        session->loadPlugins();
        started = session->start();
    }

    /// Lets readings come until the weight is stable.
    void settle() { QCOMPARE(driver.run(5000), TimeDriver::Result::Met); }

    Options options;
    VirtualClock clock;
    VirtualTimeDriver driver{clock};
    std::unique_ptr<LogOutput> log;
    std::unique_ptr<Session> session;
    bool started = false;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SESSIONFIXTURE_H
