#pragma once

#include "platform/PlatformServices.h"
#include "scan/ScanOptions.h"

#include <optional>

namespace pryvane {

class DiskAccess;

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

} // namespace pryvane
