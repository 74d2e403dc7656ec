#include "support/StoreFixtures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
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

} // namespace pryvane::test
