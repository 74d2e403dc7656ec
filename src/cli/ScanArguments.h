#pragma once

#include "cli/Host.h"
#include "core/Texts.h"
#include "findings/CaseLabels.h"

#include <optional>
#include <string>
#include <vector>

namespace pryvane::cli {

/// What a scan was asked for.
struct ScanArguments {
    VolumeArguments volume;
    std::vector<std::string> disks; ///< folders, images and lists in place of the volume
    std::string from;               ///< a file that names such, "-": the standard input
    unsigned jobs = 0;              ///< disks at the same time; 0: as is usual
    bool quick = false;
    bool deep = false;
    bool wholeDisk = false;
    std::optional<std::string> checkSubDir;
    bool paced = false;
    bool noPacing = false;
    bool store = false;
    bool noStore = false;
    std::string format;
    CaseLabels labels;
    std::string pdf;
    bool facts = false;
    bool scheduled = false;
    std::optional<Date> due; ///< the moment of the schedule that it is for
};

} // namespace pryvane::cli
