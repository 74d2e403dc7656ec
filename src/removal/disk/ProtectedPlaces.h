#pragma once

#include "core/Files.h"
#include "removal/disk/HostRemoval.h"
#include "removal/disk/RemovalErrors.h"
#include "volume/folders/FolderHandle.h"

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace pryvane {

class VolumeFileSystem;

/// The folders that are never removed, whatever a list says: known by what they are, not by what
/// they are called, so that no spelling, link or second mount gets around it.
class ProtectedPlaces {
public:
    /// `ownFolders` are host folders of the program's own; they, what lies in them and all above
    /// them is protected.
    ProtectedPlaces(const VolumeFileSystem& disk, const std::vector<std::string>& ownFolders);

    /// Why it could not be told what is to stay; nothing may be removed then.
    [[nodiscard]] const RemovalFailure& failure() const { return m_failure; }

    /// Whether it is the volume's root, a top-level folder, a home, a folder of our own, or above
    /// one of these.
    [[nodiscard]] bool contains(const FolderId& folder) const;

    /// Whether an entry of that name and kind is to stay in that folder.
    [[nodiscard]] bool keepsIn(const FolderId& folder, const std::string& name,
                               FileKind kind) const;

private:
    void addEntriesOf(const VolumeFileSystem& disk, const std::string& path, UniqueFd folder);
    void addEntry(const VolumeFileSystem& disk, const std::string& path, const UniqueFd& folder,
                  const FolderBatch::Entry& entry);
    void addWithAllAbove(UniqueFd folder);
    FolderId add(int folder);
    void cannotTell(int error);

    FolderId m_root;
    std::vector<FolderId> m_homesIn; ///< folders that hold homes
    std::vector<FolderId> m_own;
    std::vector<FolderId> m_places; ///< sorted
    RemovalFailure m_failure;
};

/// Finds what a Mac would have taken for the entry that was just removed: the same name in another
/// letter case or normal form, which stands beside it where the host tells them apart. Reads each
/// folder once, however many of its entries are asked for. For one thread at a time.
class OtherSpellings {
public:
    /// The name under which another one is in the open folder; empty where there is none, or the
    /// folder cannot be read.
    [[nodiscard]] std::string of(int folder, const std::string& removed);

private:
    using Hashes = std::vector<std::uint64_t>; ///< of the folded names, sorted

    [[nodiscard]] static std::string find(int folder, const std::string& removed);
    [[nodiscard]] Hashes hashesIn(int folder) const;

    const std::uint64_t m_key = std::random_device()();
    std::map<std::pair<std::uint64_t, std::uint64_t>, Hashes> m_known;
    std::size_t m_remembered = 0; ///< hashes in all
};

} // namespace pryvane
