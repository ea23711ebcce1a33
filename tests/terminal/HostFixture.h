// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_HOSTFIXTURE_H
#define BRIMVALE_HOSTFIXTURE_H

#include "clock/VirtualClock.h"
#include "host/Host.h"
#include "host/ScreenHost.h"
#include "measuring/Scale.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Brimvale
{
namespace Terminal
{

/// A place for screens that keeps what it is told as texts.
class RecordingScreen : public ScreenHost
{
public:
    void setContextObject(const QString& name, QObject* object) override
    {
        calls.append(QStringLiteral("publish %1 %2")
                         .arg(name, object != nullptr ? QString::fromLatin1(object->metaObject()->className())
                                                      : QStringLiteral("null")));
    }
    void showScreen(const QUrl& screen) override
    {
        calls.append(QStringLiteral("show ") + screen.toString());
    }
    void clearScreen() override { calls.append(QStringLiteral("clear")); }

    QStringList calls;
};

/// A host on a virtual clock and a scale of 6000.0 g in steps of 0.1 g that the test feeds by hand.
struct HostFixture
{
    explicit HostFixture(const HostSettings& settings = {})
        : scale(scaleSettings())
        , host(std::make_unique<Host>(scale, clock, screen, settings))
    {
        QObject::connect(host.get(), &Host::notice, host.get(),
                         [this](NoticeSeverity severity, const QString& text) {
                             static const char* const names[] = {"info: ", "warning: ", "error: "};
                             notices.append(QLatin1String(names[static_cast<int>(severity)]) + text);
                         });
    }

    static ScaleSettings scaleSettings()
    {
        ScaleSettings settings;
        settings.readability = Readability::fromDecimals(1);
        settings.capacity = 6000.0;
        settings.coarseAbove = 3000.0;
        return settings;
    }

    /// One reading, a hundred milliseconds after the one before.
    void feed(double grams)
    {
        clock.advance(100);
        scale.processReading(Reading::valid(clock.nowMs(), grams));
    }

    /// Readings until the weight is stable.
    void settle(double grams)
    {
        for (int i = 0; i < 20; ++i) {
            feed(grams);
        }
    }

    void fail(Reading::Status status, const QString& detail = QString())
    {
        clock.advance(100);
        scale.processReading(Reading::invalid(clock.nowMs(), status, detail));
    }

    /// The notices that contain @p part.
    QStringList noticesWith(const QString& part) const { return notices.filter(part); }

    VirtualClock clock;
    Scale scale;
    RecordingScreen screen;
    std::unique_ptr<Host> host;
    QStringList notices;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_HOSTFIXTURE_H
