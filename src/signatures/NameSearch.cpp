#include "signatures/NameSearch.h"

#include "findings/ScanCoverage.h"
#include "platform/FileSystem.h"
#include "signatures/Catalogue.h"
#include "signatures/PatternAutomaton.h"

#include <algorithm>
#include <limits>
#include <map>
#include <span>
#include <utility>

namespace pryvane {

namespace {

/// The names of that folder's entries that the system itself put there.
std::vector<std::string> knownGoodIn(const std::string& folder, const std::string& user)
{
    std::vector<std::string> names;
    for (const std::string_view pattern : catalogue::knownGoodFiles()) {
        const std::string file = catalogue::filled(pattern, {user});
        const auto slash = file.rfind('/');
        if (file.compare(0, slash, folder) == 0)
            names.push_back(file.substr(slash + 1));
    }
    return names;
}

} // namespace

DefaultLocations DefaultLocations::listed(FileSystem& disk, std::span<const std::string> users,
                                          ScanCoverage& coverage)
{
    DefaultLocations locations;
    const auto add = [&](std::string_view pattern, const std::string& user) {
        const std::string folder = catalogue::filled(pattern, {user});
        FolderListing listing = disk.list(FileURL::fileURLWithPath(folder));
        if (listing.status == ListStatus::Refused)
            coverage.refused.push_back({folder, std::move(listing.reason)});
        // What was read of a folder before its reading failed is searched all the same.
        if (listing.status == ListStatus::Listed)
            ++coverage.foldersListed;
        const std::vector<std::string> knownGood = knownGoodIn(folder, user);
        std::vector<std::string> names;
        names.reserve(listing.entries.size());
        for (FolderEntry& entry : listing.entries) {
            if (std::ranges::find(knownGood, entry.name) == knownGood.end())
                names.push_back(std::move(entry.name));
        }
        locations.addFolder(folder, names);
    };
    for (const std::string_view pattern : catalogue::defaultFolders()) {
        if (!catalogue::isOfUser(pattern))
            add(pattern, {});
    }
    for (const std::string& user : users) {
        for (const std::string_view pattern : catalogue::defaultFolders()) {
            if (catalogue::isOfUser(pattern))
                add(pattern, user);
        }
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

namespace {

/// Every text that a scan looks for in the default locations, numbered, with their one automaton.
class CatalogueTexts {
public:
    [[nodiscard]] static const CatalogueTexts& shared()
    {
        static const CatalogueTexts texts;
        return texts;
    }

    [[nodiscard]] std::size_t count() const { return m_texts.size(); }
    [[nodiscard]] const PatternAutomaton& automaton() const { return m_automaton; }

    /// The number of a text, or count() for a text that is not among them.
    [[nodiscard]] std::size_t numberOf(std::string_view text) const
    {
        const auto found = m_numbers.find(text);
        return found == m_numbers.end() ? count() : found->second;
    }

private:
    CatalogueTexts() : m_texts(collected()), m_automaton(m_texts, PatternAutomaton::Letters::Folded)
    {
        for (std::size_t number = 0; number < m_texts.size(); ++number)
            m_numbers.emplace(m_texts[number], number);
    }

    static std::vector<std::string> collected()
    {
        std::map<std::string, bool, std::less<>> seen;
        std::vector<std::string> texts;
        const auto add = [&](std::string text) {
            if (seen.emplace(text, true).second)
                texts.push_back(std::move(text));
        };
        const auto addFragment = [&](std::string_view fragment) {
            add(std::string(fragment) + ".");
            add("." + std::string(fragment));
        };
        for (const ThreatCheck& check : catalogue::threatChecks()) {
            for (const std::string_view name : check.names)
                addFragment(name);
            if (!check.bareWord.empty())
                add(std::string(check.bareWord));
        }
        for (const DefaultOnlyEntry& entry : catalogue::defaultOnlyEntries()) {
            for (const std::string_view name : entry.names)
                addFragment(name);
        }
        return texts;
    }

    std::vector<std::string> m_texts;
    std::map<std::string, std::size_t, std::less<>> m_numbers;
    PatternAutomaton m_automaton;
};

/// For each text of the automaton the entries whose path holds it. Text that runs from the folder
/// into the name counts, so the automaton's state at the folder's end is where each name begins.
std::vector<std::vector<std::size_t>> searched(const DefaultLocations& locations,
                                               const PatternAutomaton& automaton,
                                               std::size_t textCount)
{
    constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
    std::vector<std::vector<std::size_t>> hits(textCount);
    std::vector<std::size_t> lastHit(textCount, kNone);
    for (const DefaultLocations::Folder& folder : locations.folders()) {
        const std::string_view first = locations.paths()[folder.first];
        std::vector<std::size_t> inFolder;
        const auto atFolder =
            automaton.advance(automaton.start(), first.substr(0, folder.prefixLength),
                              [&](std::size_t text) { inFolder.push_back(text); });
        for (std::size_t entry = folder.first; entry < folder.first + folder.count; ++entry) {
            const auto hit = [&](std::size_t text) {
                if (std::exchange(lastHit[text], entry) != entry)
                    hits[text].push_back(entry);
            };
            for (const std::size_t text : inFolder)
                hit(text);
            const std::string_view path = locations.paths()[entry];
            static_cast<void>(automaton.advance(atFolder, path.substr(folder.prefixLength), hit));
        }
    }
    return hits;
}

} // namespace

NameSearch::NameSearch(DefaultLocations locations)
    : m_locations(std::move(locations)),
      m_hits(searched(m_locations, CatalogueTexts::shared().automaton(),
                      CatalogueTexts::shared().count()))
{
}

std::vector<std::string> NameSearch::touchingDot(std::string_view fragment) const
{
    std::vector<std::string> paths;
    appendHits(std::string(fragment) + ".", paths);
    appendHits("." + std::string(fragment), paths);
    return paths;
}

std::vector<std::string> NameSearch::containing(std::string_view word) const
{
    std::vector<std::string> paths;
    appendHits(word, paths);
    return paths;
}

void NameSearch::appendHits(std::string_view text, std::vector<std::string>& paths) const
{
    const auto append = [&](const Entries& entries) {
        for (const std::size_t entry : entries)
            paths.push_back(m_locations.paths()[entry]);
    };
    const CatalogueTexts& known = CatalogueTexts::shared();
    const std::size_t number = known.numberOf(text);
    if (number < m_hits.size())
        append(m_hits[number]);
    else if (number == known.count() && !text.empty()) {
        const std::string texts[] = {std::string(text)};
        append(searched(m_locations, PatternAutomaton(texts, PatternAutomaton::Letters::Folded), 1)
                   .front());
    }
}

} // namespace pryvane
