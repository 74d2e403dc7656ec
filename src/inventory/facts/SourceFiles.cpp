#include "inventory/facts/SourceFiles.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::size_t kLongestFile = std::size_t{16} * 1024 * 1024;
constexpr std::size_t kLongestDatabase = std::size_t{64} * 1024 * 1024;
constexpr std::size_t kMostFilesOfASource = 20'000;

} // namespace

void SourceFiles::forEach(const FactSource& source, const std::vector<FactHome>& homes,
                          const std::function<void(const Found&)>& found)
{
    const std::string_view place = source.place;
    if (!place.starts_with("~/")) {
        expand(source, {}, place.substr(1), found);
        return;
    }
    for (const FactHome& home : homes)
        expand(source, home, place.substr(2), found);
}

/// Goes from name to name; those with a "*" are looked for among a folder's entries.
void SourceFiles::expand(const FactSource& source, const FactHome& home, std::string_view place,
                         const std::function<void(const Found&)>& found)
{
    std::vector<std::string> paths{home.path};
    while (!place.empty()) {
        const std::size_t end = std::min(place.find('/'), place.size());
        const std::string_view name = place.substr(0, end);
        place.remove_prefix(std::min(end + 1, place.size()));
        if (name.find('*') == std::string_view::npos) {
            for (std::string& path : paths)
                path.append("/").append(name);
            continue;
        }
        std::vector<std::string> next;
        for (const std::string& folder : paths) {
            for (const std::string& entry : namesIn(source, folder)) {
                if (!fitsPattern(entry, name))
                    continue;
                if (next.size() == kMostFilesOfASource) {
                    note(source, folder, SourceNote::State::Partly,
                         "it holds more than any Mac's; the rest was left out");
                    m_facts.whole = false;
                    break;
                }
                next.push_back(folder + "/" + entry);
            }
        }
        paths = std::move(next);
    }
    for (const std::string& path : paths) {
        if (m_stop.requested())
            return;
        const FileKind kind = m_disk.kind(FileURL::fileURLWithPath(path));
        if (kind == FileKind::Unknown)
            note(source, path, SourceNote::State::NotRead, "it could not be looked for");
        else if (kind != FileKind::Missing)
            found({path, home.user});
    }
}

const std::vector<std::string>& SourceFiles::namesIn(const FactSource& source,
                                                     const std::string& folder)
{
    const auto [known, isNew] = m_folders.try_emplace(folder);
    std::vector<std::string>& names = known->second;
    if (!isNew || m_stop.requested())
        return names;
    const FolderListing listing = m_disk.list(FileURL::fileURLWithPath(folder));
    if (listing.status == ListStatus::Refused)
        note(source, folder, SourceNote::State::NotRead, listing.reason);
    for (const FolderEntry& entry : listing.entries)
        if (entry.name != ".DS_Store" && entry.name != ".localized")
            names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<std::string> SourceFiles::read(const FactSource& source, const std::string& path)
{
    const std::size_t longest =
        source.reader == FactReader::PermissionDatabase ? kLongestDatabase : kLongestFile;
    if (m_bytesLeft < longest) {
        note(source, path, SourceNote::State::NotRead, "the disk holds more than is read of any");
        m_facts.whole = false;
        return std::nullopt;
    }
    auto bytes = m_disk.readSmallFile(FileURL::fileURLWithPath(path), longest);
    if (!bytes) {
        note(source, path, SourceNote::State::NotRead, bytes.error().message);
        return std::nullopt;
    }
    m_bytesLeft -= bytes->size();
    return std::move(bytes).value();
}

void SourceFiles::note(const FactSource& source, const std::string& path, SourceNote::State state,
                       std::string reason)
{
    m_facts.sources.push_back({path, source.kind, state, std::move(reason)});
}

} // namespace pryvane
