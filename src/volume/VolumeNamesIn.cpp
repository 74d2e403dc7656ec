// Whether many names of one folder are there.
#include "volume/HostVolume.h"
#include "volume/PathParts.h"
#include "volume/VolumeFileSystem.h"
#include "volume/folders/FolderHandle.h"

#include <cerrno>
#include <sys/stat.h>
#include <unordered_map>

namespace pryvane {

namespace {

using ListedKinds = std::unordered_map<std::string, FileKind>;

/// From so many names on, listing their folder takes less time than asking for each.
constexpr std::size_t kManyNames = 32;

/// What the folder lists; none where it lists more than that, or cannot be read whole.
std::optional<ListedKinds> kindsIn(int folder, std::size_t most)
{
    FolderHandle handle = FolderHandle::openIn(folder, ".");
    FolderBatch batch;
    ListedKinds kinds;
    do {
        if (!handle || !batch.fill(handle))
            return std::nullopt;
        for (FolderBatch::Entry entry; batch.next(entry);) {
            kinds.emplace(entry.name, entry.kind);
            if (kinds.size() > most)
                return std::nullopt;
        }
    } while (!batch.atEnd());
    return kinds;
}

} // namespace

/// The way to the folder is gone once; of what stands in it only links are followed one by one.
std::vector<Presence> VolumeFileSystem::presencesIn(const FileURL& folder,
                                                    std::span<const std::string_view> names)
{
    const auto opened = m_root->openFolder(folder.relativePath(), FolderUse::Search);
    std::vector<Presence> there(names.size(), presenceOf(opened.error));
    std::optional<ListedKinds> listed;
    std::string name;
    for (std::size_t i = 0; opened.fd && i < names.size(); ++i) {
        name = names[i];
        int error = 0;
        FileKind kind = FileKind::Missing;
        if (listed) {
            const auto entry = listed->find(name);
            kind = entry == listed->end() ? FileKind::Missing : entry->second;
            error = kind == FileKind::Missing ? ENOENT : 0;
        } else {
            struct stat data {};
            if (fstatat(opened.fd.get(), name.c_str(), &data, AT_SYMLINK_NOFOLLOW) == 0)
                kind = kindOfMode(data.st_mode);
            else
                error = errno;
            // The first one tells whether the folder may be searched at all.
            if (i == 0 && names.size() >= kManyNames && presenceOf(error) != Presence::Unknown)
                listed = kindsIn(opened.fd.get(), 2 * names.size());
        }
        there[i] = presenceOf(error);
        // An implied link has no entry of its own.
        if (error == 0 ? kind == FileKind::SymbolicLink : m_implied.targetOf(name).has_value())
            there[i] = presenceOf(m_root->probe(joinedPath(folder.relativePath(), name)));
    }
    return there;
}

} // namespace pryvane
