#pragma once

#include "privacy/PrivacyCatalogue.h"

#include <atomic>
#include <functional>

namespace pryvane {

/// How far building the catalogue is, for a display that looks now and then.
struct PrivacyProgress {
    std::atomic<std::size_t> locations{0}; ///< to be measured; 0 until it is known
    std::atomic<std::size_t> measured{0};
    SizeProgress sizes;
    std::atomic<bool> whole{true};   ///< no bound was met, see PrivacyCatalogue::whole()
    std::atomic<bool> allSeen{true}; ///< every folder could be looked at
};

/// Takes each group once it is measured, in the catalogue's order; called on any thread, but never
/// on two at once.
using ToolGroupSink = std::function<void(ToolGroup group)>;

/// Builds the catalogue with its sizes. Blocks; belongs on a background thread. After a stop the
/// groups that were not finished are not told.
void scanPrivacy(const CleanerServices& services, const std::string& user, const StopFlag& stop,
                 PrivacyProgress& progress, const ToolGroupSink& sink);

} // namespace pryvane
