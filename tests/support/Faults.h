#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace orvale::test {

/// What goes wrong in a run, and when: at the call of this number, counted from 1 over all calls of its kind.
struct Fault {
    enum Kind {
        kNone,         ///< calls are counted, nothing else
        kSystemCall,   ///< a system call that has to do with files fails with `error`
        kInterrupted,  ///< one that a signal may interrupt is interrupted
        kShort,        ///< a read or write takes half of what it was asked for
        kKilled,       ///< the process is killed before the system call
        kStopped,      ///< it is stopped there, and goes on after `meanwhile`
        kAllocation,   ///< an allocation gives nothing
    };
    Kind kind = kNone;
    std::size_t at = 0;
    bool forEver = false;  ///< this call and all after it
    int error = 0;
};

struct FaultRun {
    bool met = false;    ///< the call of that number came
    int exitCode = -1;   ///< what the body gave; -1 where a signal ended it
    int signal = 0;      ///< that ended it
    std::string output;  ///< standard output and standard error, each whole
    std::string errors;
    std::string call;       ///< the number of the system call that was met
    std::size_t calls = 0;  ///< how many of the kind there were; of system calls for kNone
    std::size_t allocations = 0;
    std::size_t openFiles = 0;  ///< descriptors that the body left open
    std::size_t peakKiB = 0;    ///< memory that it added to the process at most
    double seconds = 0;         ///< of processor time
    bool leaked = false;        ///< memory that nothing leads to was left, where a sanitizer looks for it
};

/// Whether this machine and this build can make faults of a kind.
bool CanMake(Fault::Kind kind);

/// Runs a body in a child process with a fault, once for each call. The child is ended where it takes 200 seconds of
/// processor time, or waits for ever. Writing to standard error never fails.
FaultRun RunWith(const Fault& fault, const std::function<int()>& body, const std::function<void()>& meanwhile = {});

}  // namespace orvale::test
