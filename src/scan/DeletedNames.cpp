#include "scan/DeletedNames.h"

#include "findings/Homes.h"
#include "platform/NameTree.h"
#include "signatures/Explain.h"
#include "signatures/FlaggedBy.h"

#include <algorithm>

namespace pryvane {

std::vector<DeletedName> deletedNames(const FileSystem& disk, const std::vector<std::string>& users,
                                      ScanReach reach, const StopFlag& stop)
{
    constexpr std::size_t kMostLookedAt = 100'000; // a few seconds
    constexpr std::size_t kMostTold = 1000;
    std::vector<DeletedName> told;
    const NameTree* const names = disk.names();
    if (names == nullptr)
        return told;
    for (const std::string& path : names->deletedPaths(kMostLookedAt)) {
        if (stop.requested() || told.size() == kMostTold)
            break;
        const std::string_view user = userOf(path, users);
        if (user.empty() && !userOfPath(path).empty() && userOfPath(path) != "Shared")
            continue; // a home that nobody asked for
        for (const ExplainMatch& match : explain({path, std::string(user), {}}).matches) {
            if (match.row.rule == RuleKind::FullSystemSubstring && reach == ScanReach::Quick)
                continue;
            told.push_back({path, std::string(match.row.family)});
            break;
        }
    }
    return told;
}

} // namespace pryvane
