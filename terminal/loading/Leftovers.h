// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LEFTOVERS_H
#define BRIMVALE_LEFTOVERS_H

#include <QStringList>
#include <QtGlobal>

#include <functional>

class QObject;

namespace Brimvale
{
namespace Terminal
{

/// What a plug-in has left behind after it was closed.
struct Remains
{
    QStringList working; ///< What still works: active timers, running threads, open windows.
    QStringList objects; ///< What is only there: the classes of its objects, with their number.

    bool isEmpty() const { return working.isEmpty() && objects.isEmpty(); }
};

/// Finds what plug-ins leave behind. It notes every QObject of the process that is made while a plug-in is at work, and
/// forgets those that are destroyed. What is still there after the close belongs to the plug-in when its class, or that
/// of a parent, is code of the plug-in. A timer that is active, a thread that runs and a window that is shown are found
/// without that, too, when they have no parent: the terminal makes none of these after its start.
///
/// The objects that a plug-in has made before its start, in its constructor and in InitPlugin(), are its own. Those that
/// live in another thread are left out: they may come and go at any time. The thread itself is found.
/// At most one object of this class may exist at a time.
class Leftovers
{
public:
    Leftovers();
    ~Leftovers();
    Q_DISABLE_COPY(Leftovers)

    /// A plug-in is about to be started. Returns the number of this start.
    int begin();
    /// The plug-in has closed: what is made from now on is nobody's.
    void end();

    /// What of the start @p number is left; @p isOwn tells whether an object is one of the plug-in. On the thread of the
    /// event loop.
    static Remains of(int number, const std::function<bool(const QObject*)>& isOwn);

private:
    int m_starts = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_LEFTOVERS_H
