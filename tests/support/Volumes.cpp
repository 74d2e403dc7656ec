#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pryvane::test {

int sizeAsked(const char* variable, int otherwise)
{
    const char* const asked = std::getenv(variable);
    return asked ? std::atoi(asked) : otherwise;
}

InMemory::InMemory()
{
    if (const char* folder = std::getenv("TMPDIR"))
        m_before = folder;
    if (access("/dev/shm", W_OK) == 0)
        setenv("TMPDIR", "/dev/shm", 1);
}

InMemory::~InMemory()
{
    if (m_before)
        setenv("TMPDIR", m_before->c_str(), 1);
    else
        unsetenv("TMPDIR");
}

void growTree(const TemporaryFolder& disk, const std::string& folder, std::mt19937& random,
              int entries)
{
    static const std::vector<std::string> names = {
        "Library",     "LaunchAgents", ".hidden",  "Some.framework", "OSX",
        "CoinThief",   "Amac",         "de",       "Contents",       "com.apple.pixel.plist",
        "Preferences", ".Sabpab",      "Sabpab",   "plain",          "Applications",
        "Genieo",      "a b\n\xff",    "BlackHole"};
    const std::vector<std::string> targets = {"..", "/usr/bin", "nowhere", "/kept",
                                              "../../kept/file"};
    disk.folder(folder);
    std::vector<std::string> folders = {folder}, files;
    const auto oneOf = [&](const auto& from) { return from[random() % from.size()]; };
    for (int i = 0; i < entries; ++i) {
        std::string path = oneOf(folders) + "/" + oneOf(names);
        if (random() % 2)
            path += std::to_string(i);
        for (auto bytes = random() % 3 ? 0 : random() % 60; bytes > 0; --bytes)
            if (const char byte = static_cast<char>(random()); byte != '\0' && byte != '/')
                path += byte;
        if (path.size() > 1500 || disk.contains(path))
            continue;
        const std::string host = disk.hostPath(path);
        const auto kind = random() % 20;
        if (kind < 8) {
            disk.folder(path);
            folders.push_back(path);
        } else if (kind < 15 || files.empty()) {
            disk.file(path, std::string(random() % 20'000, 'x'));
            files.push_back(path);
        } else if (kind == 15) { // mostly a hole
            disk.file(path);
            std::filesystem::resize_file(host, 5'000'000);
        } else if (kind == 16) {
            std::filesystem::create_hard_link(disk.hostPath(oneOf(files)), host);
        } else if (kind < 19) {
            disk.link(path, oneOf(targets));
        } else {
            static_cast<void>(mkfifo(host.c_str(), 0644));
        }
    }
}

void makeFile(int folder, const std::string& name)
{
    close(openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
}

void growWide(int folder, const std::string& name, int width)
{
    for (int i = 0; i < width; ++i) {
        if (i % 4)
            makeFile(folder, name + std::to_string(i));
        else
            mkdirat(folder, (name + std::to_string(i)).c_str(), 0755);
    }
}

UniqueFd growChain(int folder, const std::string& name, int depth,
                   const std::function<void(int folder)>& each)
{
    UniqueFd last(dup(folder));
    for (int level = 0; level < depth; ++level) {
        EXPECT_EQ(mkdirat(last.get(), name.c_str(), 0755), 0);
        last = UniqueFd(openat(last.get(), name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        each(last.get());
    }
    return last;
}

UniqueFd openedFolder(const TemporaryFolder& folder, std::string_view path)
{
    return UniqueFd(open(folder.hostPath(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

std::int64_t naiveSize(const std::filesystem::path& path)
{
    struct stat data {};
    if (lstat(path.c_str(), &data) != 0)
        return 0;
    if (!S_ISDIR(data.st_mode))
        return std::int64_t{data.st_blocks} * 512;
    std::int64_t sum = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path))
        sum += naiveSize(entry.path());
    return sum;
}

std::string inChild(const std::function<std::string()>& body)
{
    int ends[2];
    if (pipe(ends) != 0)
        std::abort();
    const pid_t child = fork();
    if (child == 0) {
        const std::string answer = body();
        for (std::size_t done = 0; done < answer.size();) {
            const ssize_t written = write(ends[1], answer.data() + done, answer.size() - done);
            if (written <= 0)
                _exit(1);
            done += static_cast<std::size_t>(written);
        }
        _exit(0);
    }
    close(ends[1]);
    std::string answer;
    char part[4096];
    for (ssize_t got = 0; (got = read(ends[0], part, sizeof part)) > 0;)
        answer.append(part, static_cast<std::size_t>(got));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "child's status " << status;
    return answer;
}

std::string asNobody(const std::function<std::string()>& body)
{
    return inChild([&body] {
        constexpr unsigned kNobody = 65534;
        if (runningAsRoot() &&
            (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0))
            return std::string("could not become nobody");
        return body();
    });
}

} // namespace pryvane::test
