#include "signatures/FlaggedBy.h"

#include "findings/Spyware.h"
#include "signatures/Catalogue.h"
#include "signatures/PatternAutomaton.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace pryvane {

namespace {

std::string_view parentOf(std::string_view path)
{
    return path.substr(0, std::min(path.rfind('/'), path.size()));
}

/// The match of the strongest evidence; of several the first. None: no rule fits.
const ExplainMatch* strongest(const Explanation& explanation)
{
    const auto best = std::ranges::min_element(explanation.matches, {}, &ExplainMatch::evidence);
    return best == explanation.matches.end() ? nullptr : &*best;
}

FlaggedBy flaggedBy(const ExplainMatch& match)
{
    return {ruleText(match.row.rule), match.location, match.evidence};
}

} // namespace

/// What is asked for each finding of a deep scan, made once.
class FindingRules::OfUser {
public:
    explicit OfUser(const std::string& user)
        : m_texts(catalogue::fullSyatemScanPath(user)),
          m_search(m_texts, PatternAutomaton::Letters::Exact)
    {
        for (const std::string_view folder : catalogue::defaultFolders())
            add(m_defaultFolders, catalogue::filled(folder, {user}));
        for (const CatalogRow& row : catalogRows()) {
            if (row.rule == RuleKind::LibraryScope) {
                for (const std::string_view root : catalogue::libraryRoots())
                    add(m_locations, catalogue::underLibraryRoot(root, user, row.signature));
            } else {
                std::string location = catalogue::filled(row.signature, {user});
                if (row.rule == RuleKind::UserApplications)
                    location = catalogue::inUsersApplications(location, user);
                add(m_locations, location);
            }
        }
    }

    /// Whether a rule other than a deep scan's may fit.
    [[nodiscard]] bool mayFitMore(const FileURL& url) const
    {
        const std::string_view place = url.identity();
        return m_locations.contains(place) || m_defaultFolders.contains(parentOf(place));
    }

    /// The longest of a deep scan's texts in the path says most; empty: none is in it.
    [[nodiscard]] std::string_view textIn(std::string_view path) const
    {
        std::string_view longest;
        m_search.advance(m_search.start(), path, [&](std::size_t number) {
            if (m_texts[number].size() > longest.size())
                longest = m_texts[number];
        });
        return longest;
    }

private:
    /// Without the slash at its beginning, as FileURL::identity() gives it.
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    using Places = std::unordered_set<std::string, Hash, std::equal_to<>>;

    static void add(Places& places, const std::string& path)
    {
        places.emplace(FileURL::fileURLWithPath(path).identity());
    }

    const std::vector<std::string> m_texts;
    const PatternAutomaton m_search;
    Places m_locations, m_defaultFolders;
};

FindingRules::FindingRules() = default;
FindingRules::~FindingRules() = default;

FindingRules::OfUser& FindingRules::rulesOf(const std::string& user)
{
    auto& rules = m_users[user];
    if (!rules)
        rules = std::make_unique<OfUser>(user);
    return *rules;
}

FlaggedBy FindingRules::flaggedBy(const Spyware& record)
{
    const std::string& path = record.url.relativePath();
    // A home elsewhere is known by the scan alone.
    ExplainQuestion question{path,
                             record.user.empty() ? userOfPath(path) : std::string(record.user),
                             {},
                             record.infections};
    if (record.infections == catalogue::kFullSystem) {
        // Where a check and the walk meet the same file it goes by whichever was first; what
        // speaks against it is the same.
        const OfUser& rules = rulesOf(question.user);
        question.family = {};
        if (rules.mayFitMore(record.url)) {
            const Explanation explanation = explain(question);
            const ExplainMatch* best = strongest(explanation);
            if (best && best->evidence != Evidence::BareSubstring)
                return pryvane::flaggedBy(*best);
        }
        if (const auto text = rules.textIn(path); !text.empty())
            return {ruleText(RuleKind::FullSystemSubstring), std::string(text),
                    Evidence::BareSubstring};
    } else {
        const Explanation explanation = explain(question);
        if (const ExplainMatch* best = strongest(explanation))
            return pryvane::flaggedBy(*best);
    }
    return {"no rule of this catalogue", {}, Evidence::BareSubstring};
}

std::string evidenceText(const FlaggedBy& flaggedBy)
{
    std::string text(evidenceText(flaggedBy.evidence));
    if (flaggedBy.evidence != Evidence::ExactPath && !flaggedBy.text.empty())
        text += " \"" + flaggedBy.text + "\"";
    return text;
}

std::string userOfPath(std::string_view path)
{
    constexpr std::string_view kUsers = "/Users/";
    if (!path.starts_with(kUsers))
        return {};
    path.remove_prefix(kUsers.size());
    const auto slash = path.find('/');
    return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash));
}

} // namespace pryvane
