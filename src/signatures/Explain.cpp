#include "signatures/Explain.h"

#include "signatures/Catalogue.h"
#include "signatures/MakersApplications.h"
#include "signatures/NameSearch.h"

#include <algorithm>
#include <optional>

namespace pryvane {

namespace {

/// The absolute form without empty and "." components; a trailing slash stays.
std::string tidied(std::string_view path)
{
    const bool folder = FileURL::fileURLWithPath(path).mustBeFolder();
    std::string tidy;
    while (!path.empty()) {
        const auto slash = path.find('/');
        const std::string_view part = path.substr(0, slash);
        if (!part.empty() && part != ".")
            tidy.append("/").append(part);
        path.remove_prefix(slash == std::string_view::npos ? path.size() : slash + 1);
    }
    return folder || tidy.empty() ? tidy + "/" : tidy;
}

bool isLaunchFolder(std::string_view folder)
{
    return folder.ends_with("/LaunchAgents") || folder.ends_with("/LaunchDaemons");
}

class Explainer {
public:
    explicit Explainer(const ExplainQuestion& question)
        : m_question(question), m_url(FileURL::fileURLWithPath(tidied(question.path))),
          m_place(folded(m_url))
    {
        placeAmongDefaultLocations();
    }

    [[nodiscard]] Explanation explanation()
    {
        Explanation result;
        result.path = m_url.relativePath();
        result.isKnownGood = m_isKnownGood;
        result.applicationRule = applicationRule();
        static const auto rows = catalogRows();
        for (const CatalogRow& row : rows) {
            if (!m_question.family.empty() && row.family != m_question.family)
                continue;
            const bool repeated =
                std::ranges::find(result.matches, row, &ExplainMatch::row) != result.matches.end();
            if (auto match = repeated ? std::nullopt : matched(row))
                result.matches.push_back(std::move(*match));
        }
        return result;
    }

private:
    /// Name by name, as a disk compares: one that cannot be folded keeps no other from it.
    [[nodiscard]] std::string folded(const FileURL& url) const
    {
        std::string_view rest = url.identity();
        if (!m_question.foldedName)
            return std::string(rest);
        std::string result;
        while (!rest.empty()) {
            const auto slash = std::min(rest.find('/'), rest.size());
            result += "/" + m_question.foldedName(rest.substr(0, slash));
            rest.remove_prefix(std::min(slash + 1, rest.size()));
        }
        return result;
    }

    [[nodiscard]] bool isHere(const FileURL& location) const { return folded(location) == m_place; }

    /// Where the path is a direct entry of a default folder, makes the snapshot of that one entry.
    void placeAmongDefaultLocations()
    {
        const std::string absolute = m_url.absolutePath();
        const std::string parent = absolute.substr(0, absolute.rfind('/'));
        const std::string name(m_url.lastPathComponent());
        const std::string place = folded(FileURL::fileURLWithPath(parent));
        for (const std::string_view pattern : catalogue::defaultFolders()) {
            const std::string folder = catalogue::filled(pattern, {m_question.user});
            if (folded(FileURL::fileURLWithPath(folder)) != place)
                continue;
            const std::string entry = joinedPath(folder, name);
            m_isKnownGood =
                std::ranges::any_of(catalogue::knownGoodFiles(), [&](std::string_view file) {
                    return catalogue::filled(file, {m_question.user}) == entry;
                });
            if (m_isKnownGood)
                return;
            m_defaultFolder = folder;
            DefaultLocations locations;
            locations.addFolder(folder, std::span(&name, 1));
            m_search = NameSearch(std::move(locations));
            return;
        }
    }

    [[nodiscard]] ApplicationRule applicationRule() const
    {
        if (!isApplicationBundle(m_url))
            return ApplicationRule::NotAnApplication;
        return getOriginalAppName(m_url.lastPathComponent()) ? ApplicationRule::DependsOnDisk
                                                             : ApplicationRule::HeldBack;
    }

    [[nodiscard]] std::optional<ExplainMatch> matched(const CatalogRow& row) const
    {
        const std::string& user = m_question.user;
        switch (row.rule) {
        case RuleKind::ExactPath:
        case RuleKind::Backdoor:
        case RuleKind::RemoteDesktop:
            return atLocation(row, catalogue::filled(row.signature, {user}));
        case RuleKind::UserApplications:
            return atLocation(row, catalogue::inUsersApplications(
                                       catalogue::filled(row.signature, {user}), user));
        case RuleKind::LibraryScope:
            return belowLibraryRoot(row);
        case RuleKind::NameFragment:
            return byName(row, !m_search.touchingDot(row.signature).empty());
        case RuleKind::BareWord:
            return byName(row, !m_search.containing(row.signature).empty());
        case RuleKind::FullSystemSubstring:
            return inDeepScan(row);
        }
        return std::nullopt;
    }

    [[nodiscard]] std::optional<ExplainMatch> atLocation(const CatalogRow& row,
                                                         std::string location) const
    {
        const auto url = FileURL::fileURLWithPath(location);
        if (!isHere(url))
            return std::nullopt;
        return ExplainMatch{.row = row,
                            .evidence = Evidence::ExactPath,
                            .location = std::move(location),
                            .onlyAsFolder = url.mustBeFolder()};
    }

    [[nodiscard]] std::optional<ExplainMatch> belowLibraryRoot(const CatalogRow& row) const
    {
        for (const std::string_view root : catalogue::libraryRoots()) {
            auto match =
                atLocation(row, catalogue::underLibraryRoot(root, m_question.user, row.signature));
            if (match)
                return match;
        }
        return std::nullopt;
    }

    [[nodiscard]] std::optional<ExplainMatch> byName(const CatalogRow& row, bool hit) const
    {
        if (!hit)
            return std::nullopt;
        const bool bare = row.rule == RuleKind::BareWord;
        const Evidence named =
            isLaunchFolder(m_defaultFolder) ? Evidence::NameInLaunchFolder : Evidence::NameFragment;
        return ExplainMatch{.row = row,
                            .evidence = bare ? Evidence::BareSubstring : named,
                            .location = std::string(row.signature)};
    }

    /// A deep scan looks at files only, and not at those whose name begins with a dot.
    [[nodiscard]] std::optional<ExplainMatch> inDeepScan(const CatalogRow& row) const
    {
        const std::string& path = m_url.relativePath();
        if (m_url.mustBeFolder() || m_url.lastPathComponent().starts_with('.'))
            return std::nullopt;
        std::string text = catalogue::filled(row.signature, {m_question.user});
        if (path.find(text) == std::string::npos)
            return std::nullopt;
        const bool whole = path == text;
        const bool inHome = path.starts_with(catalogue::filled("/Users/%@/", {m_question.user}));
        return ExplainMatch{.row = row,
                            .evidence = whole ? Evidence::ExactPath : Evidence::BareSubstring,
                            .location = std::move(text),
                            .onlyOnWholeDisk = !inHome};
    }

    const ExplainQuestion& m_question;
    const FileURL m_url;
    const std::string m_place;
    std::string m_defaultFolder; ///< the default folder that the path is a direct entry of
    NameSearch m_search;         ///< over that one entry
    bool m_isKnownGood = false;
};

} // namespace

std::string_view evidenceText(Evidence evidence)
{
    switch (evidence) {
    case Evidence::ExactPath:
        return "exact path";
    case Evidence::NameInLaunchFolder:
        return "known name in a launch folder";
    case Evidence::NameFragment:
        return "name fragment";
    case Evidence::BareSubstring:
        return "bare substring";
    }
    return {};
}

Explanation explain(const ExplainQuestion& question)
{
    return Explainer(question).explanation();
}

} // namespace pryvane
