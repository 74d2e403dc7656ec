#include "removal/disk/OtherSpellings.h"

#include "volume/FoldedName.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::size_t kMostRemembered = 4'000'000;

/// Calls `told` with each name in the folder until that is true.
template <typename Told>
void eachName(int folder, const Told& told)
{
    FolderHandle handle = FolderHandle::openIn(folder, ".");
    FolderBatch batch;
    FolderBatch::Entry entry;
    while (handle && batch.fill(handle)) {
        while (batch.next(entry))
            if (told(entry.name))
                return;
        if (batch.atEnd())
            return;
    }
}

} // namespace

std::string OtherSpellings::of(int folder, const std::string& removed)
{
    const FolderHandle handle = FolderHandle::openIn(folder, ".");
    const FolderId id = handle.id();
    const auto known = m_known.find({id.device, id.inode});
    if (known == m_known.end()) {
        Hashes hashes = hashesIn(folder);
        if (m_remembered + hashes.size() > kMostRemembered) {
            m_known.clear();
            m_remembered = 0;
        }
        m_remembered += hashes.size();
        m_known.emplace(std::pair(id.device, id.inode), std::move(hashes));
        return find(folder, removed);
    }
    // The removed one was read with the others, so that only a second one tells something.
    const auto same = std::ranges::equal_range(known->second, foldedHash(removed, m_key));
    return same.size() > 1 ? find(folder, removed) : std::string();
}

std::string OtherSpellings::find(int folder, const std::string& removed)
{
    std::string found;
    eachName(folder, [&](std::string_view name) {
        if (name == removed || !sameFoldedName(name, removed))
            return false;
        found = name;
        return true;
    });
    return found;
}

OtherSpellings::Hashes OtherSpellings::hashesIn(int folder) const
{
    Hashes hashes;
    eachName(folder, [&](std::string_view name) {
        hashes.push_back(foldedHash(name, m_key));
        return false;
    });
    std::ranges::sort(hashes);
    return hashes;
}

} // namespace pryvane
