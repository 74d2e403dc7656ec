#pragma once

#include "platform/FileSystem.h"
#include "reports/SpywareScanReport.h"

#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>

namespace pryvane::test {

/// A volume that holds the paths it was told, and counts how often each was asked for.
class CountingDisk final : public FileSystem {
public:
    std::string name = "volume-1";
    std::set<std::string, std::less<>> paths; ///< absolute
    std::map<std::string, int> asked;         ///< by path as given

    Presence presence(const FileURL& url) override;
    FileKind kind(const FileURL& url) override;
    std::optional<Sighting> sighting(const FileURL&) override { return {}; }
    FolderListing list(const FileURL&) override { return {}; }
    std::int64_t allocatedSize(const FileURL&) override { return 0; }
    int openFolder(const FileURL&) override { return -1; }
    bool writable(const FileURL&) override { return false; }
    Result<std::string> readSmallFile(const FileURL&, std::size_t) override
    {
        return Error{"nothing to read"};
    }
    std::string identity() const override { return name; }
    void forgetListings() override {}
};

inline constexpr Date kReportDate{std::chrono::milliseconds(1'700'000'000'123)};

/// A record as a scan makes it, of a location that is there.
[[nodiscard]] std::shared_ptr<Spyware> recordAt(std::string_view path);

/// A quick scan's report of those findings on "volume-1".
[[nodiscard]] std::shared_ptr<SpywareScanReport> reportOf(const std::vector<std::string>& paths);

/// 1 to 255 bytes, any but NUL and "/".
[[nodiscard]] std::string randomName(std::mt19937& random);

/// Names that once broke somebody's list, page or terminal.
[[nodiscard]] const std::vector<std::string>& hostileNames();

/// Puts the texts, at least three, wherever a report has words that are not the program's own.
void fillTexts(SpywareScanReport& report, const std::vector<std::string>& texts);

/// Whether no byte or character is left that a terminal would obey, or that turns text around.
[[nodiscard]] bool isHarmless(std::string_view text, std::string_view allowedControls = "");

/// Everything that the store keeps of a report, as one comparable text.
[[nodiscard]] std::string storedFields(const SpywareScanReport& report);

} // namespace pryvane::test
