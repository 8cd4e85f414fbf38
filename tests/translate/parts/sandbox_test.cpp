// What the protected process can still do and what not, each tried in a process of its own.
#include "translate/child/sandbox.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "helpers/support.h"

namespace {

constexpr int ALLOWED_DESCRIPTOR = 60;
constexpr int OTHER_DESCRIPTOR = 61;

std::string scratch;  // a folder for what must not be done

std::string in(const char* name) { return scratch + name; }

// The system calls themselves: library functions may take another road.
long raw(long number, long a = 0, long b = 0, long c = 0, long d = 0, long e = 0, long f = 0) {
    return syscall(number, a, b, c, d, e, f);
}
long address(const std::string& text) { return reinterpret_cast<long>(text.c_str()); }

struct Attempt {
    const char* name;
    long (*act)();
};

const Attempt REFUSED[] = {
    {"OpenForWriting", [] { return long{open(in("file").c_str(), O_WRONLY)}; }},
    {"OpenForReadingAndWriting", [] { return long{open(in("file").c_str(), O_RDWR)}; }},
    {"OpenTruncating", [] { return long{open(in("file").c_str(), O_RDONLY | O_TRUNC)}; }},
    {"OpenMaking", [] { return long{open(in("new").c_str(), O_RDONLY | O_CREAT, 0644)}; }},
    {"OpenAppending", [] { return long{open(in("file").c_str(), O_RDONLY | O_APPEND)}; }},
    {"OpenUnnamed", [] { return long{open(scratch.c_str(), O_TMPFILE | O_WRONLY, 0644)}; }},
    {"OldOpenForWriting", [] { return raw(SYS_open, address(in("file")), O_WRONLY); }},
    {"Creat", [] { return raw(SYS_creat, address(in("new")), 0644); }},
    {"Openat2", [] { return raw(SYS_openat2, AT_FDCWD, address(in("file")), 0, 24); }},
    {"Truncate", [] { return long{truncate(in("file").c_str(), 0)}; }},
    {"Ftruncate", [] { return long{ftruncate(OTHER_DESCRIPTOR, 0)}; }},
    {"Unlink", [] { return long{unlink(in("file").c_str())}; }},
    {"Rename", [] { return long{rename(in("file").c_str(), in("other").c_str())}; }},
    {"Mkdir", [] { return long{mkdir(in("folder").c_str(), 0755)}; }},
    {"Symlink", [] { return long{symlink("x", in("link").c_str())}; }},
    {"Link", [] { return long{link(in("file").c_str(), in("link").c_str())}; }},
    {"Chmod", [] { return long{chmod(in("file").c_str(), 0777)}; }},
    {"Chown", [] { return long{chown(in("file").c_str(), 0, 0)}; }},
    {"Mknod", [] { return long{mkfifo(in("pipe").c_str(), 0644)}; }},
    {"WriteElsewhere", [] { return long{write(OTHER_DESCRIPTOR, "x", 1)}; }},
    {"PwriteElsewhere", [] { return long{pwrite(OTHER_DESCRIPTOR, "x", 1, 0)}; }},
    {"Socket", [] { return long{socket(AF_INET, SOCK_STREAM, 0)}; }},
    {"LocalSocket", [] { return long{socket(AF_UNIX, SOCK_STREAM, 0)}; }},
    {"SocketPair",
     [] {
         int ends[2];
         return long{socketpair(AF_UNIX, SOCK_STREAM, 0, ends)};
     }},
    {"Connect", [] { return raw(SYS_connect, OTHER_DESCRIPTOR, 0, 0); }},
    {"Execve",
     [] {
         char program[] = "/bin/true";
         char* const arguments[] = {program, nullptr};
         return long{execv(program, arguments)};
     }},
    {"Execveat", [] { return raw(SYS_execveat, AT_FDCWD, address("/bin/true"), 0, 0, 0); }},
    {"Fork", [] { return raw(SYS_fork); }},
    {"Vfork", [] { return raw(SYS_vfork); }},
    {"Clone", [] { return raw(SYS_clone, SIGCHLD); }},
    {"Clone3", [] { return raw(SYS_clone3); }},
    {"KillParent", [] { return long{kill(getppid(), 0)}; }},
    {"SignalParent", [] { return raw(SYS_tgkill, getppid(), getppid(), 0); }},
    {"Ptrace", [] { return ptrace(PTRACE_TRACEME, 0, nullptr, nullptr); }},
    {"ReadOtherMemory", [] { return raw(SYS_process_vm_readv, getppid()); }},
    {"ExecutableMemory",
     [] { return raw(SYS_mmap, 0, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0); }},
    {"MakeExecutable",
     [] {
         void* page = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
         return long{mprotect(page, 4096, PROT_READ | PROT_EXEC)};
     }},
    {"Unshare", [] { return long{unshare(CLONE_NEWUSER)}; }},
    {"Mount", [] { return raw(SYS_mount, address("none"), address("/mnt"), address("tmpfs")); }},
    {"Bpf", [] { return raw(SYS_bpf); }},
    {"IoUring", [] { return raw(SYS_io_uring_setup, 8); }},
    {"RaiseLimit", [] { return raw(SYS_prlimit64, 0, 7, 0, 0); }},
};

const Attempt GRANTED[] = {
    {"OpenForReading", [] { return long{open(in("file").c_str(), O_RDONLY)}; }},
    {"ReadAFile",
     [] {
         char text[4] = {};
         const int file = open(in("file").c_str(), O_RDONLY | O_CLOEXEC);
         return read(file, text, 4) == 4 && std::memcmp(text, "text", 4) == 0 ? 0L : -1L;
     }},
    {"Stat",
     [] {
         struct stat facts {};
         return long{stat(in("file").c_str(), &facts)};
     }},
    {"RealPath",
     [] {
         char* path = realpath(in("file").c_str(), nullptr);
         return path == nullptr ? -1L : 0L;
     }},
    {"WriteToItsOutput", [] { return long{write(ALLOWED_DESCRIPTOR, "x", 1)} - 1; }},
    {"Memory",
     [] {
         void* block = std::malloc(std::size_t{64} << 20);
         std::memset(block, 1, std::size_t{64} << 20);
         std::free(block);
         return 0L;
     }},
};

// Acts in a protected process; 0 when it went well, the number of the error otherwise, -1 when the process died.
int outcome(long (*act)()) {
    const pid_t process = fork();
    if (process == 0) {
        if (!Translation::enterSandbox({ALLOWED_DESCRIPTOR})) _exit(250);
        errno = 0;
        _exit(act() == 0 || errno == 0 ? 0 : errno);
    }
    int status = 0;
    if (waitpid(process, &status, 0) != process || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

class Sandbox : public testing::TestWithParam<Attempt> {
  protected:
    Sandbox() {
        scratch = folder_.path("");
        TestSupport::writeFile(in("file"), "text");
        const int file = open(in("file").c_str(), O_RDWR);
        dup2(file, OTHER_DESCRIPTOR);
        close(file);
        dup2(open("/dev/null", O_WRONLY), ALLOWED_DESCRIPTOR);
    }
    ~Sandbox() override {
        close(ALLOWED_DESCRIPTOR);
        close(OTHER_DESCRIPTOR);
    }

    TestSupport::TemporaryFolder folder_;
};

class Refuses : public Sandbox {};
TEST_P(Refuses, WithNotPermitted) {
    EXPECT_EQ(outcome(GetParam().act), EPERM);
    EXPECT_EQ(TestSupport::readFile(in("file")), "text");
}
INSTANTIATE_TEST_SUITE_P(Sandbox, Refuses, testing::ValuesIn(REFUSED),
                         [](const auto& info) { return info.param.name; });

class Grants : public Sandbox {};
TEST_P(Grants, WhatReadingNeeds) { EXPECT_EQ(outcome(GetParam().act), 0); }
INSTANTIATE_TEST_SUITE_P(Sandbox, Grants, testing::ValuesIn(GRANTED), [](const auto& info) { return info.param.name; });

// Without the protection the same attempts come through, so that the tests above show something.
TEST_F(Sandbox, IsWhatRefuses) {
    const auto unprotected = [](long (*act)()) {
        const pid_t process = fork();
        if (process == 0) _exit(act() >= 0 ? 0 : 1);
        int status = 0;
        waitpid(process, &status, 0);
        return WEXITSTATUS(status);
    };
    for (const Attempt& attempt : REFUSED) {
        const std::string name = attempt.name;
        if (name == "OpenForWriting" || name == "Socket" || name == "Mkdir" || name == "Execve" || name == "Clone" ||
            name == "WriteElsewhere" || name == "ExecutableMemory") {
            EXPECT_EQ(unprotected(attempt.act), 0) << name;
        }
    }
}

}  // namespace
