#include "volume/folders/FailingReads.h"

#include <cstdarg>
#include <dlfcn.h>
#include <sys/syscall.h>

namespace pryvane::test {

// In place of the C library's, which hands on six words whatever the call takes.
extern "C" long syscall(long call, ...)
{
    if (call == SYS_getdents64 && FailingReads::fails())
        return -1;
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
