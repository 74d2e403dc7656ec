#pragma once

#include "store/SqliteUserDefaults.h"
#include "support/TemporaryFolder.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane::test {

inline constexpr std::string_view kStoreFile = "Pryvane.sqlite";

/// A folder on a memory disk where the host has one: for tests that save thousands of times.
[[nodiscard]] std::unique_ptr<TemporaryFolder> fastFolder();

/// Opens the store there; a failure fails the test.
[[nodiscard]] SqliteUserDefaults::Opened openedStore(const std::string& folder, Log& log);

void setContent(const std::string& hostPath, std::string_view content);

/// Names in the folder, sorted.
[[nodiscard]] std::vector<std::string> namesIn(const std::string& hostFolder);

} // namespace pryvane::test
