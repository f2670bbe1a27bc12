#include "support/Faults.h"

#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <malloc.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <ucontext.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <new>
#include <stdexcept>
#include <vector>

#include "support/Child.h"

#if defined(__SANITIZE_ADDRESS__)
extern "C" int __lsan_do_recoverable_leak_check();
#elif !defined(__SANITIZE_THREAD__)
extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
}
#endif

namespace orvale::test {
namespace {

// What child and parent share.
struct Shared {
    std::atomic<std::size_t> systemCalls;
    std::atomic<std::size_t> allocations;
    std::atomic<int> metCall;
    std::size_t openFiles;
    std::size_t peakKiB;
    bool ended;
    bool leaked;
};

Shared* shared = nullptr;
Fault plan;
std::atomic<bool> armed{false};

bool IsDue(std::size_t number) {
    return plan.forEver ? number >= plan.at : number == plan.at;
}

// Whether this allocation is to fail.
bool AllocationFails() {
    if (!armed.load(std::memory_order_relaxed)) return false;
    const std::size_t number = ++shared->allocations;
    if (plan.kind != Fault::kAllocation || !IsDue(number)) return false;
    errno = ENOMEM;
    return true;
}

#if defined(__x86_64__)

// The one place from which the filter below lets calls through.
extern "C" long OrvaleSystemCall(long number, long a, long b, long c, long d, long e, long f);
extern "C" const char OrvaleSystemCallEnd[];
asm(R"(
    .text
    .globl OrvaleSystemCall
    .type OrvaleSystemCall, @function
OrvaleSystemCall:
    mov %rdi, %rax
    mov %rsi, %rdi
    mov %rdx, %rsi
    mov %rcx, %rdx
    mov %r8, %r10
    mov %r9, %r8
    mov 8(%rsp), %r9
    syscall
    .globl OrvaleSystemCallEnd
OrvaleSystemCallEnd:
    ret
    .size OrvaleSystemCall, .-OrvaleSystemCall
)");

// All by which files are reached, and randomness. What gives memory is the allocations' business.
constexpr long kSystemCalls[] = {
    SYS_read,       SYS_write,      SYS_open,       SYS_close,      SYS_stat,      SYS_fstat,
    SYS_lstat,      SYS_lseek,      SYS_pread64,    SYS_pwrite64,   SYS_readv,     SYS_writev,
    SYS_access,     SYS_fcntl,      SYS_flock,      SYS_fsync,      SYS_fdatasync, SYS_truncate,
    SYS_ftruncate,  SYS_getdents64, SYS_getcwd,     SYS_chdir,      SYS_rename,    SYS_mkdir,
    SYS_rmdir,      SYS_creat,      SYS_link,       SYS_unlink,     SYS_symlink,   SYS_readlink,
    SYS_chmod,      SYS_fchmod,     SYS_chown,      SYS_fchown,     SYS_statfs,    SYS_fstatfs,
    SYS_openat,     SYS_mkdirat,    SYS_fchownat,   SYS_newfstatat, SYS_unlinkat,  SYS_renameat,
    SYS_linkat,     SYS_symlinkat,  SYS_readlinkat, SYS_fchmodat,   SYS_faccessat, SYS_utimensat,
    SYS_fallocate,  SYS_syncfs,     SYS_renameat2,  SYS_getrandom,  SYS_statx,     SYS_copy_file_range,
    SYS_faccessat2, SYS_ioctl,
};

bool MayBeInterrupted(long call) {
    return call == SYS_read || call == SYS_write || call == SYS_open || call == SYS_openat || call == SYS_flock ||
           call == SYS_ftruncate || call == SYS_fsync || call == SYS_readv || call == SYS_writev;
}

bool MayBeShort(long call, long size) {
    return (call == SYS_read || call == SYS_write || call == SYS_pread64) && size > 1;
}

void OnSystemCall(int, siginfo_t* info, void* context) {
    greg_t* const registers = static_cast<ucontext_t*>(context)->uc_mcontext.gregs;
    const long call = info->si_syscall;
    const long a = registers[REG_RDI];
    long size = registers[REG_RDX];
    const auto go = [&] {
        return OrvaleSystemCall(call, a, registers[REG_RSI], size, registers[REG_R10], registers[REG_R8],
                                registers[REG_R9]);
    };
    const bool told = call == SYS_write && a == STDERR_FILENO;  // a failure must be told somewhere
    const bool fits = plan.kind == Fault::kInterrupted ? MayBeInterrupted(call)
                      : plan.kind == Fault::kShort     ? MayBeShort(call, size)
                                                       : true;
    long result = 0;
    if (!armed || told || !fits || !IsDue(armed && !told && fits ? ++shared->systemCalls : 0)) {
        registers[REG_RAX] = go();
        return;
    }
    shared->metCall = static_cast<int>(call);
    switch (plan.kind) {
        case Fault::kKilled:
        case Fault::kStopped:
            OrvaleSystemCall(SYS_kill, OrvaleSystemCall(SYS_getpid, 0, 0, 0, 0, 0, 0),
                             plan.kind == Fault::kKilled ? SIGKILL : SIGSTOP, 0, 0, 0, 0);
            result = go();
            break;
        case Fault::kSystemCall:
            if (call == SYS_close) go();  // it is closed all the same
            result = -plan.error;
            break;
        case Fault::kInterrupted:
            result = -EINTR;
            // One that is interrupted for ever is tried for ever, as it should be.
            break;
        case Fault::kShort:
            size = size / 2;
            result = go();
            break;
        default:
            result = go();
    }
    registers[REG_RAX] = result;
}

// From here on the listed calls of this process come to OnSystemCall.
void CatchSystemCalls() {
    struct sigaction action {};
    action.sa_sigaction = OnSystemCall;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGSYS, &action, nullptr);

    const auto allowed = reinterpret_cast<std::uint64_t>(OrvaleSystemCallEnd);
    const auto load = [](std::uint32_t offset) { return sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offset); };
    const auto skipUnless = [](std::uint64_t value, std::size_t count) {
        return sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(value), 0,
                                    static_cast<std::uint8_t>(count));
    };
    const auto give = [](std::uint32_t value) { return sock_filter BPF_STMT(BPF_RET | BPF_K, value); };
    std::vector<sock_filter> filter = {
        load(offsetof(seccomp_data, instruction_pointer)),
        skipUnless(allowed & 0xFFFFFFFF, 3),
        load(offsetof(seccomp_data, instruction_pointer) + 4),
        skipUnless(allowed >> 32, 1),
        give(SECCOMP_RET_ALLOW),
        load(offsetof(seccomp_data, nr)),
    };
    for (const long call : kSystemCalls) {
        filter.push_back(skipUnless(static_cast<std::uint64_t>(call), 1));
        filter.push_back(give(SECCOMP_RET_TRAP));
    }
    filter.push_back(give(SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        _exit(126);
}

constexpr bool kCatches = true;

#else

void CatchSystemCalls() {}
constexpr bool kCatches = false;

#endif

std::size_t OpenFiles() {
    std::size_t count = 0;
    for (int descriptor = 0; descriptor < 256; ++descriptor)
        count += fcntl(descriptor, F_GETFD) != -1;
    return count;
}

std::size_t PeakKiB() {
    std::size_t peak = 0;
    FILE* const status = std::fopen("/proc/self/status", "r");
    char line[256];
    while (status != nullptr && std::fgets(line, sizeof line, status) != nullptr)
        if (std::sscanf(line, "VmHWM: %zu", &peak) == 1) break;
    if (status != nullptr) std::fclose(status);
    return peak;
}

double SecondsOf(const rusage& usage) {
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// A file without a name.
class Capture {
 public:
    Capture() : file_(memfd_create("captured", MFD_CLOEXEC)) {}
    ~Capture() { close(file_); }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;
    void Take(int descriptor) const { dup2(file_, descriptor); }
    std::string Text() const {
        std::string text(static_cast<std::size_t>(lseek(file_, 0, SEEK_END)), '\0');
        const ssize_t got = pread(file_, text.data(), text.size(), 0);
        text.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
        return text;
    }

 private:
    int file_;
};

[[noreturn]] void RunChild(const Fault& fault, const std::function<int()>& body) {
    for (const auto& [what, most] : {std::pair(RLIMIT_CPU, rlim_t{200}), std::pair(RLIMIT_CORE, rlim_t{0})}) {
        const rlimit limit{most, most};
        setrlimit(what, &limit);
    }
    alarm(900);
    plan = fault;
    const std::size_t openBefore = OpenFiles();
    const std::size_t peakBefore = PeakKiB();
    const bool catches = fault.kind != Fault::kAllocation && CanMake(Fault::kSystemCall);
    if (catches) CatchSystemCalls();
    int code = 125;
    armed = true;
    try {
        code = body();
    } catch (...) {  // must not get to the parent's code
    }
    armed = false;
    shared->openFiles = OpenFiles() - openBefore;
    shared->peakKiB = PeakKiB() - peakBefore;
#if defined(__SANITIZE_ADDRESS__)
    if (!catches) shared->leaked = __lsan_do_recoverable_leak_check() != 0;
#endif
    shared->ended = true;
    EndChild(code);
}

}  // namespace

bool CanMake(Fault::Kind kind) {
#if defined(__SANITIZE_THREAD__)
    return kind == Fault::kNone;
#elif defined(__SANITIZE_ADDRESS__)  // which makes system calls of its own, and gives up where they fail
    return kind == Fault::kNone || kind == Fault::kAllocation;
#else
    return kind == Fault::kNone || kind == Fault::kAllocation || kCatches;
#endif
}

FaultRun RunWith(const Fault& fault, const std::function<int()>& body, const std::function<void()>& meanwhile) {
    void* const pages = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) throw std::runtime_error("no memory to share");
    shared = new (pages) Shared{};
    const Capture output;
    const Capture errors;
    std::fflush(nullptr);
    if (fault.kind == Fault::kNone) malloc_trim(0);  // what is free here would hide what the child takes
    const pid_t child = fork();
    if (child == 0) {
        output.Take(STDOUT_FILENO);
        errors.Take(STDERR_FILENO);
        RunChild(fault, body);
    }
    int status = 0;
    rusage usage{};
    while (wait4(child, &status, WUNTRACED, &usage) == child && WIFSTOPPED(status)) {
        if (meanwhile) {
            Shared* const mine = shared;
            meanwhile();  // which may run others
            shared = mine;
        }
        kill(child, SIGCONT);
    }
    FaultRun run;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    run.output = output.Text();
    run.errors = errors.Text();
    run.calls = fault.kind == Fault::kAllocation ? shared->allocations : shared->systemCalls;
    run.allocations = shared->allocations;
    run.met = fault.kind != Fault::kNone && run.calls >= fault.at;
    run.call = std::to_string(shared->metCall);
    run.openFiles = shared->openFiles;
    run.peakKiB = shared->peakKiB;
    run.leaked = shared->leaked;
    run.seconds = SecondsOf(usage);
    munmap(pages, sizeof(Shared));
    return run;
}

}  // namespace orvale::test

// In place of the C library's, for this program and every library that it loads.
#define ORVALE_IN_PLACE extern "C" __attribute__((visibility("default")))

// One moment, so that what is written does not depend on when.
ORVALE_IN_PLACE std::time_t time(std::time_t* moment) noexcept {
    constexpr std::time_t kMoment = 1'280'124'015;  // 26 July 2010, 06:00:15
    if (moment != nullptr) *moment = kMoment;
    return kMoment;
}

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer's own functions stand in place of the C library's: only what C++ allocates fails.
__attribute__((visibility("default"))) void* operator new(std::size_t size) {
    void* const block = orvale::test::AllocationFails() ? nullptr : malloc(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}
__attribute__((visibility("default"))) void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return orvale::test::AllocationFails() ? nullptr : malloc(size);
}
__attribute__((visibility("default"))) void operator delete(void* block) noexcept {
    free(block);
}
__attribute__((visibility("default"))) void operator delete(void* block, std::size_t) noexcept {
    free(block);
}
#elif !defined(__SANITIZE_THREAD__)
using orvale::test::AllocationFails;

ORVALE_IN_PLACE void* malloc(std::size_t size) noexcept {
    return AllocationFails() ? nullptr : __libc_malloc(size);
}
ORVALE_IN_PLACE void* calloc(std::size_t count, std::size_t size) noexcept {
    return AllocationFails() ? nullptr : __libc_calloc(count, size);
}
ORVALE_IN_PLACE void* realloc(void* block, std::size_t size) noexcept {
    return AllocationFails() ? nullptr : __libc_realloc(block, size);
}
ORVALE_IN_PLACE void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return AllocationFails() ? nullptr : __libc_memalign(alignment, size);
}
ORVALE_IN_PLACE void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return AllocationFails() ? nullptr : __libc_memalign(alignment, size);
}
#endif
