#include "signatures/DefaultLocations.h"

#include "findings/ScanCoverage.h"
#include "platform/FileSystem.h"
#include "signatures/Catalogue.h"

#include <algorithm>

namespace pryvane {

DefaultLocations DefaultLocations::listed(FileSystem& disk, std::string_view user,
                                          ScanCoverage& coverage)
{
    std::vector<std::string> knownGood;
    for (const std::string_view file : catalogue::knownGoodFiles())
        knownGood.push_back(catalogue::filled(file, {user}));

    DefaultLocations locations;
    for (const std::string_view pattern : catalogue::defaultFolders()) {
        const std::string folder = catalogue::filled(pattern, {user});
        FolderListing listing = disk.list(FileURL::fileURLWithPath(folder));
        if (listing.status == ListStatus::Refused)
            coverage.refused.push_back({folder, std::move(listing.reason)});
        if (listing.status != ListStatus::Listed)
            continue;
        ++coverage.foldersListed;
        std::vector<std::string> names;
        names.reserve(listing.entries.size());
        for (FolderEntry& entry : listing.entries) {
            if (std::ranges::find(knownGood, joinedPath(folder, entry.name)) == knownGood.end())
                names.push_back(std::move(entry.name));
        }
        locations.addFolder(folder, names);
    }
    coverage.entriesSearched += static_cast<std::int64_t>(locations.paths().size());
    return locations;
}

void DefaultLocations::addFolder(std::string_view folder, std::span<const std::string> names)
{
    if (names.empty())
        return;
    m_folders.push_back({joinedPath(folder, {}).size(), m_paths.size(), names.size()});
    for (const std::string& name : names)
        m_paths.push_back(joinedPath(folder, name));
}

} // namespace pryvane
