// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SICSFIXTURE_H
#define BRIMVALE_SICSFIXTURE_H

#include "HostFixture.h"
#include "print/Formatter.h"
#include "sics/SicsScale.h"

#include <QtTest>

namespace Brimvale
{
namespace Terminal
{

/// A host with a scale of 6000.0 g that the test feeds by hand, as SICS clients see it.
struct SicsFixture : HostFixture
{
    SicsFixture()
        : sicsScale(*host, scale, formatter, QStringLiteral("B-1042"))
    {
    }

    /// Brings the scale into the state that a row of a test names.
    void bringTo(const QByteArray& state)
    {
        if (state == "stable") {
            settle(100.0);
        } else if (state == "moving") {
            settle(100.0);
            feed(120.0);
        } else if (state == "empty") {
            settle(0.0);
        } else if (state == "negative") {
            settle(-12.3);
        } else if (state == "far above zero") {
            settle(200.0);
        } else if (state == "far below zero") {
            settle(-200.0);
        } else if (state == "coarse range") {
            settle(4000.0);
        } else if (state == "overload") {
            settle(100.0);
            feed(6001.0);
        } else if (state == "underload") {
            settle(100.0);
            fail(Reading::Status::Underload);
        } else if (state == "unreadable") {
            settle(100.0);
            fail(Reading::Status::Unreadable);
        } else if (state == "cable out") {
            settle(100.0);
            fail(Reading::Status::Disconnected);
        } else {
            QCOMPARE(state, QByteArray("no reading yet"));
        }
    }

    Formatter formatter;
    SicsScale sicsScale;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SICSFIXTURE_H
