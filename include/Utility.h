// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_UTILITY_H
#define BRIMVALE_UTILITY_H

#include "SharedLibsGlobal.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Brimvale
{

/// Small functions that plug-ins share: waiting, rounding, comparing, running commands, marking up texts.
///
/// All operations are static. None of them throws or writes to the log.
///
/// **Commands.** The bool variants tell whether a command could be started and did not die of a signal; its
/// exit code does not count, so a command that ends with code 1 is a success. The variants that return the
/// output do not tell an empty output from a failure. A time-out is in milliseconds and counts from the start
/// of the command; 0 does not wait for its end, a negative one waits without limit. The calling thread is
/// blocked meanwhile: no events are processed, the screen stands still. The standard input of a command is
/// held open and nothing is written to it: a command that reads it waits until its time-out.
class BRIMVALE_EXPORT Utility
{
public:
    Utility() = default;
    Utility(const Utility&) = default;
    Utility& operator=(const Utility&) = default;

    /// Writes a line of trace level with the address of the object.
    virtual ~Utility();

    /// \name Waiting
    /// Events of the calling thread are processed during the wait, so its slots and timers run: callers must
    /// be ready to be entered again.
    /// @{

    /// Waits \a milliseconds by processing events over and over, without sleeping in between: exact, but it
    /// keeps a processor core busy. For short waits. Events are processed at least once, also
    /// when \a milliseconds is 0 or negative.
    static void delay_ms(int milliseconds);

    /// Waits \a milliseconds in an event loop of its own, where the thread sleeps while there is nothing to
    /// do. A negative number counts as 0. Ends early when the application quits.
    static void delay_ms_eventloop(int milliseconds);
    /// @}

    /// Returns the version of the application (`QCoreApplication::applicationVersion()`, which the host
    /// sets), or the empty text when \a text is empty. What \a text says does not matter: it only switches
    /// the answer on.
    static QString ReadApplicationVersionString(const QString& text);

    /// \name Numbers
    /// @{

    /// Rounds \a value to \a decimals decimal places, half away from zero; a negative count rounds to tens,
    /// hundreds and so on.
    ///
    /// Half is judged with a tolerance of 10^(|decimals| - 14) steps, so that a value that is a half but for
    /// its binary representation is rounded up: 1.005 with 2 decimals gives 1.01. The result is for display:
    /// it carries an added 1e-14 (1.01000000000001), and less than 1e-13 is 0. A negative value that rounds
    /// to 0 gives negative zero.
    ///
    /// It is meant for up to 13 decimals (or -13), and for values of less than 9.2e18 steps of 10^-decimals.
    /// With more decimals the tolerance grows to whole steps, which are added. Beyond 9.2e18 the number of
    /// steps stays at 2^63 - 1, as it does for an infinite \a value. A NaN gives 0.
    static double Round(double value, int decimals);

    /// Rounds \a value to a whole number, half away from zero, with a tolerance of 1e-14. The magnitude of
    /// the result is limited to 2147483647, also for an infinite \a value. A negative value that rounds to 0
    /// gives negative zero, a NaN gives 0.
    static double Round(double value);

    /// Whether \a b differs from \a a by no more than a millionth of \a a.
    ///
    /// The tolerance is relative to the first argument only, which is intended: nothing but 0 equals an \a a
    /// of 0, and `isEqual(a, b)` may differ from `isEqual(b, a)`. A NaN equals nothing; an infinite \a a
    /// equals every finite \a b and the opposite infinity, but not itself.
    static bool isEqual(double a, double b);
    /// @}

    /// \name Running commands
    /// @{

    /// Runs \a command, a program with its arguments, and waits up to \a timeout ms for its end. Arguments
    /// are separated by blanks and may be quoted as `QProcess::splitCommand()` describes; there is no shell.
    /// The output of the command is discarded.
    ///
    /// True when the command has ended by itself or is still running after \a timeout: such a command is not
    /// killed, also not by the end of the host; the event loop of the calling thread notices its end. False
    /// when it is empty or blank, when it cannot be started and when it has crashed.
    static bool doProcess(QString command, int timeout);

    /// Runs \a command as doProcess() does and returns its standard output, decoded as UTF-8 up to the first
    /// zero byte. The empty text when it is empty or blank, when it cannot be started, and when it has not
    /// ended after \a timeout ms: then it is killed (processes that it has started itself are not).
    static QString doProcessGetResponse(QString command, int timeout);

    /// Runs "/bin/sh" with \a arguments, typically "-c" and a shell command, as doProcess() runs a command.
    /// False for an empty list.
    static bool doProcessBash(QStringList arguments, int timeout);

    /// Runs "/bin/sh" with \a arguments as doProcessGetResponse() runs a command.
    /// For an empty list it returns the one letter "f", which callers test for.
    static QString doProcessBashGetResponse(QStringList arguments, int timeout);

    /// Runs the system's file system check, "fsck" with \a device, and waits up to 30 seconds; the result is
    /// that of doProcess(), which says that it could be run and not what it found. False for an empty \a
    /// device. \a device becomes part of a command line: a name with blanks must be quoted.
    static bool doCheckDisk(QString device);
    /// @}

    /// \name Texts of rich-text labels
    /// @{

    /// Returns \a text as a subscript: "<sub>text</sub>".
    static QString SubscriptText(const QString& text);

    /// Returns \a text as a superscript: "<sup>text</sup>".
    static QString SuperscriptText(const QString& text);

    /// Returns \a text as the caption of a button: "[text]".
    static QString ButtonText(const QString& text);

    /// Returns \a text without subscript and superscript tags, tags that were cut off by truncation included.
    /// Any other "<s" and "</" goes as well, and the ">" of such a tag stays.
    static QString removeSubOrSuperscriptText(QString text);

    /// Returns \a bytes in readable form: the characters 32 to 126 as they are, any other byte as two
    /// lower-case hexadecimal digits in angle brackets, a line feed as `<0a>`.
    static QString ByteArrayToDebug(const QByteArray& bytes);
    /// @}
};

} // namespace Brimvale

#endif // BRIMVALE_UTILITY_H
