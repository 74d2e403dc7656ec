// The floor of a walk: opens, reads and closes every folder on one thread, and does nothing else.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace {

struct Raw {
    std::uint64_t inode;
    std::int64_t offset;
    std::uint16_t length;
    std::uint8_t type;
    char name[1];
};

long walk(int folder, char* buffer)
{
    long entries = 0;
    std::vector<std::string> below;
    long got = 0;
    while ((got = syscall(SYS_getdents64, folder, buffer, 32768)) > 0) {
        for (long at = 0; at < got;) {
            const auto* raw = reinterpret_cast<const Raw*>(buffer + at);
            at += raw->length;
            if (std::strcmp(raw->name, ".") == 0 || std::strcmp(raw->name, "..") == 0)
                continue;
            ++entries;
            if (raw->type == DT_DIR)
                below.emplace_back(raw->name);
        }
    }
    for (const std::string& name : below) {
        const int fd =
            openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (fd >= 0) {
            entries += walk(fd, buffer);
            close(fd);
        }
    }
    return entries;
}

} // namespace

int main(int, char** argv)
{
    const auto buffer = std::make_unique<char[]>(32768);
    std::printf("%ld\n", walk(open(argv[1], O_RDONLY | O_DIRECTORY | O_CLOEXEC), buffer.get()));
    return 0;
}
