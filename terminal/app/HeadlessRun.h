// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_HEADLESSRUN_H
#define BRIMVALE_HEADLESSRUN_H

#include <QString>

namespace Brimvale
{
namespace Terminal
{

class Script;
class Session;
class TimeDriver;
struct Options;

/// Where the screenshots of a script or demonstration go; empty: the working folder.
QString screenshotFolder(const Options& options);

/// Runs a prepared session without a window, from the loading of its plug-ins to their end, and tells on the standard
/// output what came of it. Returns the exit code of the process.
///
/// With @p script it is played; screenshotFolder() must exist. Without one the time passes: that of the command line, or until the recording ends, or
/// five seconds.
int runHeadless(Session& session, TimeDriver& driver, const Script* script);

/// Loads, initialises, starts and closes every plug-in of the command line, one after the other, and tells how each
/// step went. Returns the exit code of the process.
int runCheck(Session& session);

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_HEADLESSRUN_H
