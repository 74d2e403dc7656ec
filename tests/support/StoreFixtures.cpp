#include "support/StoreFixtures.h"

#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace pryvane::test {

std::unique_ptr<TemporaryFolder> fastFolder()
{
    const InMemory inMemory;
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
