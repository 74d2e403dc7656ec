#include "support/FaultyCalls.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <sys/types.h>

struct stat;

namespace pryvane::test {

namespace {

constexpr int kDescriptors = 4096;
constexpr int kCreate = 0100; // O_CREAT: only then a mode follows

struct Fault {
    std::atomic<bool> armed{false};
    std::array<char, 4096> folder{};
    std::atomic<int> number{0};
    std::atomic<int> count{0};
    int error = 0;
    bool lasts = false;
    std::array<std::atomic<bool>, kDescriptors> watched{};
};

Fault g_fault; // of constant initialisation: calls arrive before any constructor runs

bool concerns(const char* path)
{
    return g_fault.armed && path && std::strstr(path, g_fault.folder.data()) != nullptr;
}

bool concerns(int descriptor)
{
    return g_fault.armed && descriptor >= 0 && descriptor < kDescriptors &&
           g_fault.watched[static_cast<std::size_t>(descriptor)];
}

/// Counts the call, and says whether it is one that fails; errno is set then.
bool fails()
{
    const int count = ++g_fault.count;
    const int number = g_fault.number;
    if (number == 0 || count < number || (count > number && !g_fault.lasts))
        return false;
    errno = g_fault.error;
    return true;
}

void watch(int descriptor, bool on)
{
    if (descriptor >= 0 && descriptor < kDescriptors)
        g_fault.watched[static_cast<std::size_t>(descriptor)] = on;
}

template <typename Function>
Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

template <typename Subject, typename Call>
auto unlessFaulty(const Subject& subject, Call call) -> decltype(call())
{
    if (concerns(subject) && fails())
        return -1;
    return call();
}

int openIt(const char* name, const char* path, int flags, unsigned mode)
{
    const bool ours = concerns(path);
    if (ours && fails())
        return -1;
    const int descriptor = real<int(const char*, int, ...)>(name)(path, flags, mode);
    watch(descriptor, ours);
    return descriptor;
}

} // namespace

void FaultyCalls::arm(const std::string& folder, int number, int error, Lasting lasting)
{
    disarm();
    folder.copy(g_fault.folder.data(), g_fault.folder.size() - 1);
    g_fault.count = 0;
    g_fault.number = number;
    g_fault.error = error;
    g_fault.lasts = lasting == Lasting::FromThenOn;
    g_fault.armed = true;
}

void FaultyCalls::disarm()
{
    g_fault.armed = false;
    g_fault.folder.fill('\0');
}

int FaultyCalls::counted()
{
    return g_fault.count;
}

// The names by which the C library's callers know these calls.
#define PRYVANE_CALL(name) __asm__(name)

extern "C" {

#define PRYVANE_FAULTY_OPEN(label, id)                                                             \
    int id(const char* path, int flags, ...) PRYVANE_CALL(label);                                  \
    int id(const char* path, int flags, ...)                                                       \
    {                                                                                              \
        va_list rest;                                                                              \
        va_start(rest, flags);                                                                     \
        const unsigned mode = (flags & kCreate) != 0 ? va_arg(rest, unsigned) : 0;                 \
        va_end(rest);                                                                              \
        return openIt(label, path, flags, mode);                                                   \
    }
PRYVANE_FAULTY_OPEN("open", faultyOpen)
PRYVANE_FAULTY_OPEN("open64", faultyOpen64)

int faultyClose(int file) PRYVANE_CALL("close");
int faultyClose(int file)
{
    watch(file, false);
    return real<int(int)>("close")(file);
}

#define PRYVANE_FAULTY(Result, label, id, subject, parameters, arguments)                          \
    Result id parameters PRYVANE_CALL(label);                                                      \
    Result id parameters                                                                           \
    {                                                                                              \
        return unlessFaulty(subject, [&] { return real<Result parameters>(label) arguments; });    \
    }

PRYVANE_FAULTY(ssize_t, "read", faultyRead, file, (int file, void* to, std::size_t size),
               (file, to, size))
PRYVANE_FAULTY(ssize_t, "write", faultyWrite, file, (int file, const void* from, std::size_t size),
               (file, from, size))
PRYVANE_FAULTY(ssize_t, "pread64", faultyPread, file,
               (int file, void* to, std::size_t size, off_t at), (file, to, size, at))
PRYVANE_FAULTY(ssize_t, "pwrite64", faultyPwrite, file,
               (int file, const void* from, std::size_t size, off_t at), (file, from, size, at))
PRYVANE_FAULTY(int, "fsync", faultyFsync, file, (int file), (file))
PRYVANE_FAULTY(int, "fdatasync", faultyFdatasync, file, (int file), (file))
PRYVANE_FAULTY(int, "ftruncate64", faultyFtruncate, file, (int file, off_t size), (file, size))
PRYVANE_FAULTY(int, "fstat64", faultyFstat, file, (int file, struct stat* data), (file, data))
PRYVANE_FAULTY(int, "stat", faultyStat, path, (const char* path, struct stat* data), (path, data))
PRYVANE_FAULTY(int, "stat64", faultyStat64, path, (const char* path, struct stat* data),
               (path, data))
PRYVANE_FAULTY(int, "lstat", faultyLstat, path, (const char* path, struct stat* data), (path, data))
PRYVANE_FAULTY(int, "lstat64", faultyLstat64, path, (const char* path, struct stat* data),
               (path, data))
PRYVANE_FAULTY(int, "unlink", faultyUnlink, path, (const char* path), (path))
PRYVANE_FAULTY(int, "rename", faultyRename, from, (const char* from, const char* to), (from, to))
PRYVANE_FAULTY(int, "mkdir", faultyMkdir, path, (const char* path, mode_t mode), (path, mode))

} // extern "C"

} // namespace pryvane::test
