// Makes a tree of files as a home folder may have it, the same one for the same number:
//   tree_maker FOLDER ENTRIES
// Names, depth and the share of folders follow real homes; the mean path below FOLDER has about 120
// bytes. One entry in fifteen lies in a folder "box", which a bench may rename.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <random>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr const char* kWords[] = {"Library",      "Application Support",
                                  "Caches",       "com.example.editor",
                                  "Documents",    "Projects",
                                  "node_modules", "src",
                                  "build",        "include",
                                  "resources",    "Pictures",
                                  "2021",         "Holiday in Norway",
                                  "backup",       "index",
                                  "thumbnails",   "Preferences",
                                  "Containers",   "Data",
                                  "objects",      "refs",
                                  "templates",    "en.lproj",
                                  "Contents",     "MacOS",
                                  "assets",       "fonts",
                                  "vendor",       "tests"};
constexpr const char* kSuffixes[] = {".jpg", ".plist", ".js", ".h",  ".txt",
                                     ".pdf", ".json",  "",    ".db", ".strings"};

struct Folder {
    std::size_t parent;
    int depth;
    std::string name;
    std::vector<std::size_t> below;
    long files = 0;
};

std::mt19937 random_source(20);

std::size_t below(std::size_t limit)
{
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_source);
}

std::string word()
{
    return kWords[below(std::size(kWords))];
}

std::string fileName(long number)
{
    if (number % 4 == 0) {
        char text[40];
        std::snprintf(text, sizeof text, "%08zx-%04zx-%04zx", below(1u << 31), below(65536),
                      below(65536));
        return text;
    }
    return word() + "_" + std::to_string(number) + kSuffixes[below(std::size(kSuffixes))];
}

[[noreturn]] void fail(const char* what)
{
    std::perror(what);
    std::exit(1);
}

void make(const std::vector<Folder>& folders, std::size_t which, int at)
{
    const Folder& folder = folders[which];
    for (long i = 0; i < folder.files; ++i) {
        const int fd = openat(at, fileName(i).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
        if (fd < 0)
            fail("file");
        close(fd);
    }
    for (const std::size_t child : folder.below) {
        if (mkdirat(at, folders[child].name.c_str(), 0755) != 0)
            fail("mkdir");
        const int fd = openat(at, folders[child].name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd < 0)
            fail("open");
        make(folders, child, fd);
        close(fd);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const long entries = std::atol(argv[2]);
    const long inBox = entries / 15;
    const auto folderCount = static_cast<std::size_t>((entries - inBox) * 19 / 100);

    std::vector<Folder> folders = {{0, 0, "", {}, 0}};
    while (folders.size() <= folderCount) {
        // The deeper of two, so that paths get as long as they are.
        const std::size_t a = below(folders.size());
        const std::size_t b = below(folders.size());
        std::size_t parent = folders[a].depth > folders[b].depth ? a : b;
        if (folders[parent].depth > 9)
            parent = std::min(a, b);
        if (folders[parent].depth > 9)
            continue;
        folders[parent].below.push_back(folders.size());
        std::string name = word() + std::to_string(folders[parent].below.size());
        folders.push_back({parent, folders[parent].depth + 1, std::move(name), {}, 0});
    }
    long files = entries - inBox - 1 - static_cast<long>(folderCount);
    while (files > 0) {
        const long some = std::min<long>(files, 1 + static_cast<long>(below(12)));
        folders[below(folders.size())].files += some;
        files -= some;
    }
    Folder box{0, 1, "box", {}, inBox};
    folders[0].below.push_back(folders.size());
    folders.push_back(box);

    if (mkdir(argv[1], 0755) != 0)
        fail(argv[1]);
    const int root = open(argv[1], O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (root < 0)
        fail(argv[1]);
    make(folders, 0, root);
    return 0;
}
