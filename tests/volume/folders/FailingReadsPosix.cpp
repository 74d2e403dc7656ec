#include "volume/folders/FailingReads.h"

#include <dirent.h>
#include <dlfcn.h>

namespace pryvane::test {

// In place of the C library's.
extern "C" dirent* readdir(DIR* folder)
{
    if (FailingReads::fails())
        return nullptr;
    static const auto real = reinterpret_cast<dirent* (*)(DIR*)>(dlsym(RTLD_NEXT, "readdir"));
    return real(folder);
}

} // namespace pryvane::test
