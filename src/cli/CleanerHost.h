#pragma once

#include "cli/Host.h"
#include "cli/ProgressBar.h"
#include "findings/ScanCoverage.h"
#include "inventory/AdwareScan.h"
#include "volume/VolumeSizeMeter.h"

#include <string>

namespace pryvane::cli {

/// What the commands around the privacy tools have in common.
class CleanerHost {
public:
    explicit CleanerHost(Host& host) : m_host(host), m_sizes(host.disk()) {}

    [[nodiscard]] const std::string& user() const { return m_host.user(); }
    [[nodiscard]] CleanerServices services() { return {m_host.disk(), m_sizes}; }

    /// Says so where the volume does not hold the user's home.
    void sayMissingHome(const Console& console)
    {
        ScanCoverage coverage;
        noteHomes(m_host.disk(), "/Users/" + user(), coverage);
        if (!coverage.missingHome.empty())
            console.say(missingHomeText(coverage));
    }

private:
    Host& m_host;
    VolumeSizeMeter m_sizes;
};

} // namespace pryvane::cli
