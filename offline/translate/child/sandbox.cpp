#include "child/sandbox.h"

#include <fcntl.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <type_traits>

namespace Translation {
namespace {

using Filter = std::unique_ptr<std::remove_pointer<scmp_filter_ctx>::type, void (*)(scmp_filter_ctx)>;

// Allowed whatever their arguments are.
constexpr int ALLOWED[] = {
    SCMP_SYS(read),
    SCMP_SYS(pread64),
    SCMP_SYS(readv),
    SCMP_SYS(lseek),
    SCMP_SYS(close),
    SCMP_SYS(stat),
    SCMP_SYS(fstat),
    SCMP_SYS(lstat),
    SCMP_SYS(newfstatat),
    SCMP_SYS(statx),
    SCMP_SYS(access),
    SCMP_SYS(faccessat),
    SCMP_SYS(faccessat2),
    SCMP_SYS(readlink),
    SCMP_SYS(readlinkat),
    SCMP_SYS(getcwd),
    SCMP_SYS(getdents64),
    SCMP_SYS(munmap),
    SCMP_SYS(mremap),
    SCMP_SYS(madvise),
    SCMP_SYS(brk),
    SCMP_SYS(futex),
    SCMP_SYS(sched_yield),
    SCMP_SYS(getrandom),
    SCMP_SYS(clock_gettime),
    SCMP_SYS(clock_nanosleep),
    SCMP_SYS(gettimeofday),
    SCMP_SYS(getpid),
    SCMP_SYS(gettid),
    SCMP_SYS(rt_sigaction),
    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),
    SCMP_SYS(restart_syscall),
    SCMP_SYS(exit),
    SCMP_SYS(exit_group),
};

// Any of these in the flags of open means more than reading; O_RDONLY is none of them.
constexpr unsigned WRITING = O_ACCMODE | O_CREAT | O_TRUNC | O_APPEND | (O_TMPFILE & ~O_DIRECTORY);
static_assert(O_RDONLY == 0);

bool allow(scmp_filter_ctx filter, int call) { return seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0) == 0; }

// Written out, because the library's macros for a condition are compound literals, which C++ does not have.
scmp_arg_cmp argumentIs(unsigned argument, scmp_datum_t value) { return {argument, SCMP_CMP_EQ, value, 0}; }

scmp_arg_cmp argumentLacks(unsigned argument, scmp_datum_t bits) { return {argument, SCMP_CMP_MASKED_EQ, bits, 0}; }

bool allowIf(scmp_filter_ctx filter, int call, scmp_arg_cmp condition) {
    return seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 1, condition) == 0;
}

bool addRules(scmp_filter_ctx filter, const std::vector<int>& writableDescriptors) {
    bool good = true;
    for (const int call : ALLOWED) good = good && allow(filter, call);

    good = good && allowIf(filter, SCMP_SYS(open), argumentLacks(1, WRITING));
    good = good && allowIf(filter, SCMP_SYS(openat), argumentLacks(2, WRITING));
    good = good && allowIf(filter, SCMP_SYS(mmap), argumentLacks(2, PROT_EXEC));
    good = good && allowIf(filter, SCMP_SYS(mprotect), argumentLacks(2, PROT_EXEC));

    // Signals only to itself: that is how abort ends it.
    const auto self = static_cast<scmp_datum_t>(getpid());
    good = good && allowIf(filter, SCMP_SYS(tgkill), argumentIs(0, self));

    for (const int descriptor : writableDescriptors) {
        const auto number = static_cast<scmp_datum_t>(descriptor);
        good = good && allowIf(filter, SCMP_SYS(write), argumentIs(0, number));
        good = good && allowIf(filter, SCMP_SYS(writev), argumentIs(0, number));
    }
    return good;
}

}  // namespace

bool enterSandbox(const std::vector<int>& writableDescriptors) {
    const Filter filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)), seccomp_release);
    if (!filter) {
        errno = ENOMEM;
        return false;
    }
    if (!addRules(filter.get(), writableDescriptors)) {
        errno = EINVAL;
        return false;
    }
    const int result = seccomp_load(filter.get());  // sets "no new privileges" as well
    if (result == 0) return true;
    errno = -result;
    return false;
}

}  // namespace Translation
