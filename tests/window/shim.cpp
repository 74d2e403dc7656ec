// Loaded before the program's own libraries. While the file PRYVANE_TEST_HOLD is there, its work
// beside the main thread waits where it opens a folder; and the folder PRYVANE_TEST_ROOT passes for
// the root of this system.
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void waitWhileHeld()
{
    const char* const file = getenv("PRYVANE_TEST_HOLD");
    while (file != nullptr && gettid() != getpid() && access(file, F_OK) == 0)
        usleep(10'000);
}

} // namespace

extern "C" int openat(int folder, const char* name, int flags, ...)
{
    static const auto next =
        reinterpret_cast<int (*)(int, const char*, int, ...)>(dlsym(RTLD_NEXT, "openat"));
    if ((flags & O_CREAT) != 0) {
        va_list more;
        va_start(more, flags);
        const auto mode = va_arg(more, mode_t);
        va_end(more);
        return next(folder, name, flags, mode);
    }
    waitWhileHeld();
    return next(folder, name, flags);
}

extern "C" int stat(const char* path, struct stat* data) noexcept
{
    static const auto next =
        reinterpret_cast<int (*)(const char*, struct stat*)>(dlsym(RTLD_NEXT, "stat"));
    const char* const root = getenv("PRYVANE_TEST_ROOT");
    return next(root != nullptr && strcmp(path, "/") == 0 ? root : path, data);
}
