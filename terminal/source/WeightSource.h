// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WEIGHTSOURCE_H
#define BRIMVALE_WEIGHTSOURCE_H

#include "source/Reading.h"

#include <QObject>
#include <QString>

namespace Brimvale
{
namespace Terminal
{

/// Where weights come from. A source is silent until start() and after stop().
class WeightSource : public QObject
{
    Q_OBJECT

public:
    explicit WeightSource(QObject* parent = nullptr);
    ~WeightSource() override;
    Q_DISABLE_COPY(WeightSource)

    /// Begins to deliver readings; from the beginning when it was stopped before. Nothing when it runs
    /// already.
    virtual void start() = 0;

    /// Ends the delivery at once; no signal comes after it. May be called from a slot of the source's
    /// signals.
    virtual void stop() = 0;

    /// For the status line: what the source is, in a few words.
    virtual QString description() const = 0;

    /// The display increment in grams, 1, 2 or 5 times a power of ten; 0 while it is not known, which happens
    /// with a real scale before its first weight. It may become finer as more is known, never coarser: see
    /// readabilityChanged().
    virtual double readability() const = 0;

    /// The largest load in grams that the source weighs; 0 when it is not known.
    virtual double capacity() const { return 0.0; }

    /// True for a real scale: it runs on real time whatever the clock does, needs the event loop, and never
    /// finishes. Use a WallClock of speed 1 with it.
    virtual bool isLive() const = 0;

signals:
    void reading(const Brimvale::Terminal::Reading& reading);

    /// A recording has ended; its last reading stays valid. Comes after the last reading().
    void finished();

    /// The connection to the scale came or went. @p detail is for people. Sent on changes only.
    void connectionChanged(bool connected, const QString& detail);

    /// readability() has become known or finer. Comes before the reading() that brought it about.
    void readabilityChanged(double grams);
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WEIGHTSOURCE_H
