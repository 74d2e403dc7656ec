#pragma once

#include "core/Result.h"
#include "platform/PlatformServices.h"
#include "platform/UserDefaults.h"
#include "scan/ScanOptions.h"

#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace pryvane {

class DiskAccess;
struct FolderQuestion;

/// Settles which folder a scan covers, asking the user where no grant tells. Main thread only.
class RootChoice {
public:
    RootChoice(const PlatformServices& services, DiskAccess& access, const ScanOptions& options);

    /// The root to walk, or none when making a grant failed. `homeIsWritable` is what the scan
    /// screen found when it last refreshed its status.
    [[nodiscard]] std::optional<FileURL> choose(bool homeIsWritable);

private:
    [[nodiscard]] FileURL wholeDiskOrHome();
    [[nodiscard]] std::optional<FileURL> askForFolder();

    PlatformServices m_services;
    DiskAccess& m_access;
    const ScanOptions& m_options;
};

enum class GrantOutcome : std::uint8_t { Cancelled, Granted, Failed };

/// What becomes of the keys where no grant can be made for the folder that was picked.
enum class EarlierGrants : std::uint8_t { Cleared, Kept };

/// Where the grant of one disk is kept besides, so that going back to that disk asks nothing. The
/// identity is the disk's; one without any shares the one grant of all.
[[nodiscard]] std::string grantKeyOf(std::string_view key, const std::string& identity);

using TokenMaker = std::function<Result<Bytes>(const FileURL&)>;

/// Keeps a grant for the folder under each of the keys, or says why there can be none. Main thread
/// only.
[[nodiscard]] GrantOutcome keepGrant(const PlatformServices& services, const TokenMaker& makeToken,
                                     const FileURL& folder, std::span<const std::string_view> keys,
                                     EarlierGrants onFailure = EarlierGrants::Cleared);

/// Lets the user pick a folder and keeps a grant for it under each of the keys. A grant that cannot
/// be made is logged and shown in an alert; a cancelled panel changes nothing. Main thread only.
[[nodiscard]] GrantOutcome askForGrant(const PlatformServices& services,
                                       const TokenMaker& makeToken, const FolderQuestion& question,
                                       std::span<const std::string_view> keys,
                                       EarlierGrants onFailure = EarlierGrants::Cleared);

} // namespace pryvane
