// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_SYSTEMCALLS_H
#define BRIMVALE_SYSTEMCALLS_H

#include <cstddef>
#include <functional>

/// Watches the calls into the C library by which files are written, and makes them fail. The functions of a test that
/// links SystemCalls.cpp stand in for those of the C library in the whole process, Qt included.
namespace SystemCalls
{

struct Call
{
    const char* name; ///< "open", "unlink" and so on, without the suffixes for large files
    const char* path; ///< null for a call that takes a descriptor only
    int descriptor;   ///< -1 for a call that takes a path
    int flags;        ///< of "open"
};

/// Is asked before each call, except those that it makes itself. It returns 0, or the error with which the call is to
/// fail.
using Watch = std::function<int(const Call&)>;

/// Sets the watch for as long as it lives.
class Watching
{
public:
    explicit Watching(Watch watch);
    ~Watching();
    Watching(const Watching&) = delete;
    Watching& operator=(const Watching&) = delete;

private:
    const Watch m_watch;
};

/// The most bytes that one call of "write" or "copy_file_range" takes; 0 for no limit.
void setLargestStep(std::size_t bytes);

} // namespace SystemCalls

#endif // BRIMVALE_SYSTEMCALLS_H
