// SPDX-License-Identifier: BSD-3-Clause
#include "app/CrashNote.h"

#include "host/RunningCode.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace Brimvale
{
namespace Terminal
{
namespace
{

constexpr int Signals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr char Loading[] = "loading ";
constexpr char Active[] = "active ";

// What the signal handler needs is ready beforehand: it may do little more than write.
char s_noteFile[PATH_MAX];
char s_note[PATH_MAX + sizeof Loading];
struct sigaction s_outer[std::size(Signals)];
char s_stack[1 << 16]; // that of the thread may be what is used up
pid_t s_process = 0;   // 0: no object of the class exists; a child process has crashed itself alone

void writeText(int descriptor, const char* text)
{
    const ssize_t written = ::write(descriptor, text, strlen(text));
    static_cast<void>(written); // nothing is left to be done
}

void leaveNote(const char* event)
{
    const RunningCode::State running = RunningCode::state();
    writeText(STDERR_FILENO, "brimvale-terminal: ");
    writeText(STDERR_FILENO, event);
    writeText(STDERR_FILENO, s_note[0] != '\0' ? s_note : "no plug-in was active");
    if (gettid() != getpid()) { // of which that of the event loop knows nothing
        writeText(STDERR_FILENO, ", in another thread");
    } else if (running.what != nullptr) {
        writeText(STDERR_FILENO, ", in ");
        writeText(STDERR_FILENO, running.what);
    }
    writeText(STDERR_FILENO, "\n");
    const int descriptor =
        s_noteFile[0] == '\0' || s_note[0] == '\0'
            ? -1
            : open(s_noteFile, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor >= 0) {
        writeText(descriptor, s_note);
        close(descriptor);
    }
    s_note[0] = '\0';
}

/// The terminal itself returns from main(). What exit() would go on to destroy is still in use, and a caller would
/// take its status for that of the run.
void onExit()
{
    if (s_process != getpid())
        return;
    leaveNote("the terminal was ended by exit(): ");
    _exit(EXIT_FAILURE);
}

void onCrash(int number, siginfo_t* info, void*)
{
    if (s_note[0] != '\0' && s_process == getpid())
        leaveNote("a plug-in has crashed the terminal: ");
    // What would have happened without this handler: a fault of the processor comes again by itself, everything else
    // is sent again.
    for (std::size_t i = 0; i < std::size(Signals); ++i) {
        if (Signals[i] == number)
            sigaction(number, &s_outer[i], nullptr);
    }
    if (info->si_code <= 0)
        raise(number);
}

void keep(char* place, std::size_t size, const QByteArray& text)
{
    place[0] = '\0';
    if (static_cast<std::size_t>(text.size()) < size)
        std::copy_n(text.constData(), text.size() + 1, place);
}

} // namespace

CrashNote::CrashNote(const QString& file)
    : m_file(file)
{
    keep(s_noteFile, sizeof s_noteFile, QFile::encodeName(file));
    setNone();
    static const bool registered = std::atexit(onExit) == 0 && at_quick_exit(onExit) == 0;
    static_cast<void>(registered);
    s_process = getpid();
    stack_t stack = {};
    stack.ss_sp = s_stack;
    stack.ss_size = sizeof s_stack;
    sigaltstack(&stack, nullptr);
    struct sigaction action = {};
    action.sa_sigaction = onCrash;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < std::size(Signals); ++i)
        sigaction(Signals[i], &action, &s_outer[i]);
}

CrashNote::~CrashNote()
{
    s_process = 0;
    for (std::size_t i = 0; i < std::size(Signals); ++i)
        sigaction(Signals[i], &s_outer[i], nullptr);
    stack_t none = {};
    none.ss_flags = SS_DISABLE;
    sigaltstack(&none, nullptr);
}

std::optional<CrashNote::Crash> CrashNote::take()
{
    QFile note(m_file);
    if (m_file.isEmpty() || !note.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray text = note.read(sizeof s_note);
    const QDateTime written = QFileInfo(note).lastModified();
    note.close();
    note.remove();
    Crash crash;
    crash.whileLoading = text.startsWith(Loading);
    crash.file = QFile::decodeName(text.mid(text.indexOf(' ') + 1));
    const QFileInfo plugin(crash.file);
    if (!plugin.isFile() || plugin.lastModified() > written)
        return std::nullopt;
    return crash;
}

void CrashNote::setLoading(const QString& pluginFile)
{
    keep(s_note, sizeof s_note, Loading + QFile::encodeName(pluginFile));
}

void CrashNote::setActive(const QString& pluginFile)
{
    keep(s_note, sizeof s_note, Active + QFile::encodeName(pluginFile));
}

void CrashNote::setNone()
{
    s_note[0] = '\0';
}

} // namespace Terminal
} // namespace Brimvale
