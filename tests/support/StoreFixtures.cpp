#include "support/StoreFixtures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace pryvane::test {

std::unique_ptr<TemporaryFolder> fastFolder()
{
    if (access("/dev/shm", W_OK) == 0)
        setenv("TMPDIR", "/dev/shm", 1);
    return std::make_unique<TemporaryFolder>();
}

SqliteUserDefaults::Opened openedStore(const std::string& folder, Log& log)
{
    auto opened = SqliteUserDefaults::open(folder, log);
    if (!opened)
        throw std::runtime_error(opened.error().message);
    return std::move(opened).value();
}

std::string contentOf(const std::string& hostPath)
{
    std::ifstream in(hostPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void setContent(const std::string& hostPath, std::string_view content)
{
    std::ofstream out(hostPath, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    ASSERT_TRUE(out.flush()) << hostPath;
}

std::vector<std::string> namesIn(const std::string& hostFolder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(hostFolder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string inChild(const std::function<std::string()>& work)
{
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        const std::string text = work();
        const bool told =
            write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
        _exit(told ? 0 : 1);
    }
    close(ends[1]);
    std::string text;
    char buffer[4096];
    for (ssize_t got = 0; (got = read(ends[0], buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (text.empty() && status != 0)
        return "the child process ended with status " + std::to_string(status);
    return text;
}

} // namespace pryvane::test
