#include "volume/folders/FailingReads.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <sys/syscall.h>

namespace pryvane::test {

namespace {

int g_number = 0;
int g_count = 0;
int g_error = 0;

} // namespace

void FailingReads::arm(int number, int error)
{
    g_number = number;
    g_count = 0;
    g_error = error;
}

int FailingReads::counted()
{
    return g_count;
}

// In place of the C library's, which hands on six words whatever the call takes.
extern "C" long syscall(long call, ...)
{
    if (call == SYS_getdents64 && ++g_count == g_number) {
        errno = g_error;
        return -1;
    }
    va_list rest;
    va_start(rest, call);
    long words[6];
    for (long& word : words)
        word = va_arg(rest, long);
    va_end(rest);
    static const auto real = reinterpret_cast<long (*)(long, ...)>(dlsym(RTLD_NEXT, "syscall"));
    return real(call, words[0], words[1], words[2], words[3], words[4], words[5]);
}

} // namespace pryvane::test
