#include "volume/folders/FailingReads.h"

#include <cerrno>
#include <dirent.h>
#include <dlfcn.h>

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

// In place of the C library's.
extern "C" dirent* readdir(DIR* folder)
{
    if (++g_count == g_number) {
        errno = g_error;
        return nullptr;
    }
    static const auto real = reinterpret_cast<dirent* (*)(DIR*)>(dlsym(RTLD_NEXT, "readdir"));
    return real(folder);
}

} // namespace pryvane::test
