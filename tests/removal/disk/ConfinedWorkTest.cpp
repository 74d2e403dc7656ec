#include "removal/disk/ConfinedWork.h"

#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>

namespace pryvane::test {

namespace {

/// Something done to a folder by a thread that may not, or may do so only below its own. True where
/// it worked.
struct Deed {
    const char* name;
    bool (*done)(int folder);
    bool allowedInside = false;
};

bool opened(int folder, const char* name, int flags)
{
    return bool(UniqueFd(openat(folder, name, flags | O_CLOEXEC, 0600)));
}

constexpr Deed kDeeds[] = {
    {"remove a file", [](int at) { return unlinkat(at, "file", 0) == 0; }, true},
    {"remove a folder", [](int at) { return unlinkat(at, "folder", AT_REMOVEDIR) == 0; }, true},
    {"remove from below", [](int at) { return unlinkat(at, "full/inner", 0) == 0; }, true},
    {"remove a link", [](int at) { return unlinkat(at, "link", 0) == 0; }, true},
    {"move a folder up", [](int at) { return renameat(at, "full/deep", at, "up") == 0; }, true},
    {"rename", [](int at) { return renameat(at, "other", at, "renamed") == 0; }},
    {"rename to another folder",
     [](int at) { return renameat(at, "third", at, "full/third") == 0; }},
    {"empty a file", [](int at) { return opened(at, "content", O_WRONLY | O_TRUNC); }},
    {"write to a file", [](int at) { return opened(at, "content", O_WRONLY); }},
    {"make a file", [](int at) { return opened(at, "fresh", O_CREAT | O_EXCL | O_WRONLY); }},
    // which a removal never does, but the kernel asks for that right where one is moved to
    {"make a folder", [](int at) { return mkdirat(at, "made", 0700) == 0; }, true},
    {"make a link", [](int at) { return symlinkat("x", at, "made-link") == 0; }},
    {"make a FIFO", [](int at) { return mkfifoat(at, "fifo", 0600) == 0; }},
};

/// A folder in which anybody may do each of the deeds.
struct Stage {
    Stage()
    {
        for (const char* path :
             {"file", "other", "third", "content", "full/inner", "full/deep/", "folder/"})
            folder.plant(path);
        folder.link("link", "file");
        for (const char* path : {"", "full", "full/deep", "folder", "content"})
            chmod(folder.hostPath(path).c_str(), 0777);
        handle = openedFolder(folder);
    }
    TemporaryFolder folder;
    UniqueFd handle;
};

/// Tries everything inside, outside and across; an empty text when the kernel stopped what it
/// should and nothing else.
std::string faults(const Stage& inside, const Stage& outside, const Stage& twin)
{
    std::string wrong;
    const auto check = [&](bool worked, bool should, const std::string& what) {
        if (worked != should)
            wrong +=
                what + (worked ? " worked\n" : std::string(" failed: ") + strerror(errno) + "\n");
    };
    const int folders[] = {inside.handle.get()};
    const auto confined = runConfined(folders, [&] {
        for (const Deed& deed : kDeeds) {
            check(deed.done(inside.handle.get()), deed.allowedInside,
                  std::string(deed.name) + " inside");
            check(deed.done(outside.handle.get()), false, std::string(deed.name) + " outside");
        }
        check(renameat(inside.handle.get(), "content", outside.handle.get(), "in") == 0, false,
              "rename out");
        check(renameat(outside.handle.get(), "content", inside.handle.get(), "in") == 0, false,
              "rename in");
        check(truncate(outside.folder.hostPath("content").c_str(), 0) == 0, false, "truncate");
        check(opened(outside.handle.get(), "content", O_RDONLY), true, "read outside");
    });
    if (confined.kind != KernelConfinement::Enforced || isThisThreadConfined())
        wrong += "not confined, or more than that thread\n";
    // The rest of the program gave nothing up; and without confinement each deed works.
    for (const Deed& deed : kDeeds)
        check(deed.done(twin.handle.get()), true, std::string(deed.name) + " unconfined");
    struct stat content {};
    stat(outside.folder.hostPath("content").c_str(), &content);
    check(content.st_size == 1, true, "keeping the content outside");
    return wrong;
}

TEST(ConfinedWork, TheKernelStopsWhatReachesOutside)
{
    if (kernelConfinementOfRemoval() != KernelConfinement::Enforced ||
        kernelConfinementText().ends_with("version 1")) // which lets nobody move folders
        GTEST_SKIP() << kernelConfinementText();
    const Stage inside, outside, twin;
    EXPECT_EQ(asNobody([&] { return faults(inside, outside, twin); }), "");
}

TEST(ConfinedWork, PassesOnWhatTheWorkThrows)
{
    const Stage inside;
    const int writable[] = {inside.handle.get()};
    EXPECT_THROW(runConfined(writable, [] { throw std::runtime_error("no memory"); }),
                 std::runtime_error);
}

} // namespace

} // namespace pryvane::test
