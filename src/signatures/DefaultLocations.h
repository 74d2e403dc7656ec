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

    /// The snapshot of one user's default folders, in their order, without the known-good files.
    /// Counts folders and entries in the coverage and records the folders that could not be listed;
    /// missing ones are no gap.
    [[nodiscard]] static DefaultLocations listed(FileSystem& disk, std::string_view user,
                                                 ScanCoverage& coverage);

    /// Appends the entries of one folder.
    void addFolder(std::string_view folder, std::span<const std::string> names);

    /// Full paths, folder by folder.
    [[nodiscard]] const std::vector<std::string>& paths() const { return m_paths; }
    [[nodiscard]] const std::vector<Folder>& folders() const { return m_folders; }

private:
    std::vector<std::string> m_paths;
    std::vector<Folder> m_folders;
};

} // namespace pryvane
