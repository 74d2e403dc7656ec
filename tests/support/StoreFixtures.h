#pragma once

#include "store/SqliteUserDefaults.h"
#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

namespace pryvane::test {

inline constexpr std::string_view kStoreFile = "Pryvane.sqlite";

/// A folder on a memory disk where the host has one: for tests that save thousands of times.
[[nodiscard]] inline std::unique_ptr<TemporaryFolder> fastFolder()
{
    const InMemory inMemory;
    return std::make_unique<TemporaryFolder>();
}

/// Opens the store there; a failure fails the test.
[[nodiscard]] inline SqliteUserDefaults::Opened openedStore(const std::string& folder, Log& log)
{
    auto opened = SqliteUserDefaults::open(folder, log);
    if (!opened)
        throw std::runtime_error(opened.error().message);
    return std::move(opened).value();
}

inline void setContent(const std::string& hostPath, std::string_view content)
{
    std::ofstream out(hostPath, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    ASSERT_TRUE(out.flush()) << hostPath;
}

/// Names in the folder, sorted.
[[nodiscard]] inline std::vector<std::string> namesIn(const std::string& hostFolder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(hostFolder))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

} // namespace pryvane::test
