// Loaded before a program: lets one request for memory fail, or all from one on. Counted is what
// main() and its threads ask for; what the loader and static objects need comes before.
//   PRYVANE_FAIL_AT=N     the N-th request fails
//   PRYVANE_FAIL_ON=1     and all after it
//   PRYVANE_FAIL_COUNT=F  at its end, the file holds how many requests there were
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

using Main = int(int, char**, char**);
using Hook = void();

std::atomic<bool> g_counting{false};
std::atomic<long> g_requests{0};
long g_failAt = 0;
bool g_failOn = false;
Main* g_main = nullptr;

bool fails()
{
    if (!g_counting)
        return false;
    const long request = ++g_requests;
    if (g_failAt == 0 || request < g_failAt || (request > g_failAt && !g_failOn))
        return false;
    errno = ENOMEM;
    return true;
}

int countedMain(int count, char** arguments, char** environment)
{
    const char* at = std::getenv("PRYVANE_FAIL_AT");
    g_failAt = at ? std::atol(at) : 0;
    g_failOn = std::getenv("PRYVANE_FAIL_ON") != nullptr;
    g_counting = true;
    const int code = g_main(count, arguments, environment);
    g_counting = false;
    const char* file = std::getenv("PRYVANE_FAIL_COUNT");
    const int out = file ? open(file, O_CREAT | O_WRONLY | O_TRUNC | O_CLOEXEC, 0600) : -1;
    if (out >= 0) {
        dprintf(out, "%ld\n", g_requests.load());
        close(out);
    }
    return code;
}

} // namespace

extern "C" {

void* malloc(std::size_t size) noexcept
{
    return fails() ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept
{
    return fails() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* old, std::size_t size) noexcept
{
    return fails() ? nullptr : __libc_realloc(old, size);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return fails() ? nullptr : __libc_memalign(alignment, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return memalign(alignment, size);
}

int posix_memalign(void** result, std::size_t alignment, std::size_t size) noexcept
{
    *result = memalign(alignment, size);
    return *result ? 0 : ENOMEM;
}

int __libc_start_main(Main* program, int count, char** arguments, Hook* begin, Hook* end,
                      Hook* endOfLoader, void* stack)
{
    using Start = int(Main*, int, char**, Hook*, Hook*, Hook*, void*);
    auto* start = reinterpret_cast<Start*>(dlsym(RTLD_NEXT, "__libc_start_main"));
    g_main = program;
    return start(countedMain, count, arguments, begin, end, endOfLoader, stack);
}
}
