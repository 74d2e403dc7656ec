#include "volume/SpellingResolver.h"

#include "core/ErrorText.h"
#include "volume/FolderStream.h"
#include "volume/PathParts.h"

#include <climits>

namespace pryvane {

namespace {

void goUp(std::string& folder)
{
    const auto slash = folder.rfind('/');
    folder.resize(slash == std::string::npos ? 0 : slash);
}

void append(std::string& folder, std::string_view name)
{
    if (!folder.empty())
        folder += '/';
    folder += name;
}

} // namespace

FolderListing readListing(OpenedFolder folder)
{
    FolderListing listing;
    int error = folder.error;
    if (folder.fd) {
        FolderStream stream(std::move(folder.fd));
        FolderStream::Entry entry;
        while (stream.next(entry))
            listing.entries.push_back({entry.name, entry.kind});
        error = stream.error();
    }
    if (error == 0) {
        listing.status = ListStatus::Listed;
    } else if (!meansAbsent(error)) {
        listing.status = ListStatus::Refused;
        listing.reason = errorText(error);
    }
    return listing;
}

SpellingResolver::Outcome SpellingResolver::resolve(std::string_view path, LeafLink leafLink)
{
    // No Mac can name a longer path in one call, so a longer one has its exact spelling only.
    if (path.empty() || path.size() >= PATH_MAX)
        return {};
    std::string expanded; // owns `pending` from the first link on
    std::string_view pending = path;
    std::size_t at = 0;
    int links = 0;
    std::string folder;
    folder.reserve(path.size());
    while (const auto name = nextName(pending, at)) {
        if (*name == ".")
            continue;
        if (*name == "..") {
            goUp(folder);
            continue;
        }
        if (folder.size() >= PATH_MAX)
            return {};
        const auto names = namesIn(folder);
        const auto found = names->find(*name);
        if (found.kind == FileKind::Missing)
            return {names->status() == ListStatus::Refused ? Presence::Unknown : Presence::Absent,
                    {}};
        const bool last = at == pending.size(); // and no slash says that a folder is meant
        if (found.kind == FileKind::SymbolicLink && !(last && leafLink == LeafLink::Keep)) {
            const OpenedFolder opened = m_root.openFolder(folder, FolderUse::Search);
            auto target = linkTarget(opened.fd.get(), std::string(found.spelling));
            if (!target || target->empty() || ++links > kMaxLinks)
                return {};
            if (target->front() == '/')
                folder.clear();
            expanded = target->append(pending.substr(at));
            pending = expanded;
            at = 0;
            continue;
        }
        if (!last && found.kind != FileKind::Folder)
            return {found.kind == FileKind::Unknown ? Presence::Unknown : Presence::Absent, {}};
        append(folder, found.spelling);
    }
    return {Presence::Present, std::move(folder)};
}

FolderCache::Names SpellingResolver::namesIn(const std::string& folder)
{
    if (auto names = m_cache.find(folder))
        return names;
    const std::uint64_t generation = m_cache.generation();
    auto names =
        std::make_shared<FolderNames>(readListing(m_root.openFolder(folder, FolderUse::Read)));
    m_cache.store(folder, names, generation);
    return names;
}

} // namespace pryvane
