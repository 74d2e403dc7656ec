#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

class FileSystem;
struct ScanCoverage;

/// The direct entries of the default folders as they were when a scan began. Every name search of
/// the scan reads this snapshot, so that what appears meanwhile is not seen by half of them.
class DefaultLocations {
public:
    /// The entries of one folder: a run of paths() that all begin with the folder and a slash.
    struct Folder {
        std::size_t prefixLength = 0; ///< length of the folder's path and its slash
        std::size_t first = 0;
        std::size_t count = 0;
    };

    /// The snapshot of the default folders, in their order: those that all share, then each user's.
    /// Known-good files are left out. Counts folders and entries in the coverage and records the
    /// folders that could not be listed; missing ones are no gap.
    [[nodiscard]] static DefaultLocations
    listed(FileSystem& disk, std::span<const std::string> users, ScanCoverage& coverage);

    /// Appends the entries of one folder.
    void addFolder(std::string_view folder, std::span<const std::string> names);

    /// Full paths, folder by folder.
    [[nodiscard]] const std::vector<std::string>& paths() const { return m_paths; }
    [[nodiscard]] const std::vector<Folder>& folders() const { return m_folders; }

private:
    std::vector<std::string> m_paths;
    std::vector<Folder> m_folders;
};

/// Finds name fragments anywhere in the paths of the default locations, whatever their letter case.
/// All fragments of the catalogue are looked for in one pass when the search is made; asking for
/// their hits afterwards costs only the hits. Other fragments cost a pass of their own. Outside
/// ASCII, letters match in their exact form only, except the two that fold into it (the kelvin sign
/// and the long s). Immutable, so any thread may ask.
class NameSearch {
public:
    NameSearch() = default;
    explicit NameSearch(DefaultLocations locations);

    [[nodiscard]] const DefaultLocations& locations() const { return m_locations; }

    /// Paths that hold the fragment with a "." behind it, in list order, then those that hold it
    /// with a "." before it. A path that holds both stands twice.
    [[nodiscard]] std::vector<std::string> touchingDot(std::string_view fragment) const;

    /// Paths that hold the word, dot or no dot, in list order.
    [[nodiscard]] std::vector<std::string> containing(std::string_view word) const;

private:
    using Entries = std::vector<std::size_t>; ///< places in the list, ascending

    void appendHits(std::string_view text, std::vector<std::string>& paths) const;

    DefaultLocations m_locations;
    std::vector<Entries> m_hits; ///< by number of the text among the catalogue's
};

} // namespace pryvane
