#include "scan/walker/ScanChoice.h"

#include "signatures/CatalogRows.h"
#include "signatures/Catalogue.h"
#include "volume/FoldedName.h"
#include "volume/PathParts.h"

#include <array>
#include <limits>
#include <stdexcept>

namespace pryvane {

namespace {

constexpr std::string_view kAnyone = "%@";

/// No place at all.
constexpr std::uint32_t kNowhere = 0xffffffff;

/// The full-system texts. Those that lead below a home go there; what is returned holds wherever it
/// stands, of any other text of a user the part behind the user's name.
std::vector<std::string> partedTexts(HomeTexts& ofHomes)
{
    std::vector<std::string> texts;
    for (std::string_view text : catalogue::fullSystemEntries()) {
        if (ofHomes.add(text))
            continue;
        if (const auto user = text.rfind(kAnyone); user != text.npos)
            text.remove_prefix(user + kAnyone.size());
        texts.emplace_back(text);
    }
    return texts;
}

/// Two places at most, as only one kind of folder, a home, has any name.
std::uint32_t packed(std::uint32_t first, std::uint32_t second)
{
    return first << 16 | second;
}

constexpr std::uint32_t kNone = 0xffff; // half of kNowhere

} // namespace

ScanChoice::ScanChoice() : m_texts(partedTexts(m_homeTexts), PatternAutomaton::Letters::Exact)
{
    for (const std::string_view folder : catalogue::defaultFolders())
        add(folder, true);
    // Whose disk it is, and whose applications.
    for (const std::string_view folder : {"/Users", "/Applications", "/Users/%@/Applications",
                                          "/private/var/db/dslocal/nodes/Default/users"})
        add(folder, true);
    for (const CatalogRow& row : catalogRows()) {
        switch (row.rule) {
        case RuleKind::LibraryScope:
            for (const std::string_view root : catalogue::libraryRoots())
                add(catalogue::underLibraryRoot(root, kAnyone, row.signature), false);
            break;
        case RuleKind::ExactPath:
        case RuleKind::UserApplications:
        case RuleKind::Backdoor:
        case RuleKind::RemoteDesktop:
            add(row.signature, false);
            add(catalogue::inUsersApplications(row.signature, kAnyone), false);
            break;
        case RuleKind::NameFragment:
        case RuleKind::BareWord:
        case RuleKind::FullSystemSubstring:
            break;
        }
    }
}

/// The path, and where it leads through the system's own links.
void ScanChoice::add(std::string_view path, bool everyEntry)
{
    addPath(path, everyEntry);
    while (path.starts_with('/'))
        path.remove_prefix(1);
    for (const std::string_view link : {"tmp/", "var/", "etc/"}) {
        if (path.starts_with(link)) {
            addPath("private/" + std::string(path), everyEntry);
            addPath(link, false); // whether the link is there
        }
    }
}

void ScanChoice::addPath(std::string_view path, bool everyEntry)
{
    std::size_t at = 0;
    std::size_t place = 0;
    while (const auto name = nextName(path, at)) {
        const bool anyone = *name == kAnyone;
        const std::string folded = foldedName(*name);
        Number next = anyone ? m_places[place].anyone : numberBelow(m_places[place], folded);
        if (next == 0) {
            if (m_places.size() >= kNone)
                throw std::length_error("the catalogue has too many places");
            next = static_cast<Number>(m_places.size());
            m_places.emplace_back();
            if (anyone)
                m_places[place].anyone = next;
            else
                m_places[place].below.emplace(folded, next);
        }
        place = next;
    }
    m_places[place].everyEntry = m_places[place].everyEntry || everyEntry;
}

ScanChoice::Number ScanChoice::numberBelow(const Place& place, const std::string& folded) const
{
    const auto found = place.below.find(folded);
    return found == place.below.end() ? Number{0} : found->second;
}

EntryChoice::Folder ScanChoice::root() const
{
    Folder folder;
    folder.places = packed(0, kNone);
    folder.texts = m_texts.advance(m_texts.start(), "/", folder.matched);
    return folder;
}

EntryChoice::Folder ScanChoice::below(const Folder& folder, std::string_view name) const
{
    Folder inside = folder;
    if (!inside.matched) {
        inside.texts = m_texts.advance(inside.texts, name, inside.matched);
        bool slash = false;
        inside.texts = m_texts.advance(inside.texts, "/", slash);
        inside.matched = inside.matched || slash;
        inside.homes = m_homeTexts.below(inside.homes, name, inside.matched);
    }
    if (folder.places == kNowhere)
        return inside;
    std::array<std::uint32_t, 2> next{kNone, kNone};
    std::size_t count = 0;
    const std::string folded = foldedName(name);
    for (const std::uint32_t number : {folder.places >> 16, folder.places & 0xffff}) {
        if (number == kNone)
            continue;
        const Place& place = m_places[number];
        for (const Number candidate : {numberBelow(place, folded), place.anyone}) {
            if (candidate != 0 && count < next.size())
                next[count++] = candidate;
        }
    }
    inside.places = packed(next[0], next[1]);
    return inside;
}

bool ScanChoice::isPlace(const Folder& folder, std::string_view name) const
{
    if (folder.places == kNowhere)
        return false;
    for (const std::uint32_t number : {folder.places >> 16, folder.places & 0xffff}) {
        if (number == kNone)
            continue;
        const Place& place = m_places[number];
        if (place.everyEntry || place.anyone != 0 || numberBelow(place, foldedName(name)) != 0)
            return true;
    }
    return false;
}

bool ScanChoice::isKept(const Folder& folder, std::string_view name, FileKind kind) const
{
    if (isPlace(folder, name))
        return true;
    const bool isFile = kind == FileKind::RegularFile || kind == FileKind::Unknown;
    if (!isFile || name.front() == '.')
        return false;
    bool ends = folder.matched || m_homeTexts.endsIn(folder.homes, name);
    if (!ends)
        static_cast<void>(m_texts.advance(folder.texts, name, ends));
    return ends;
}

} // namespace pryvane
