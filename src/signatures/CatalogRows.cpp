#include "signatures/CatalogRows.h"

#include "core/Sha256.h"
#include "signatures/Catalogue.h"

#include <array>
#include <utility>

namespace pryvane {

namespace {

bool isLocation(RuleKind rule)
{
    return rule == RuleKind::ExactPath || rule == RuleKind::UserApplications;
}

std::string_view noteOn(RuleKind rule, std::string_view signature)
{
    if (isLocation(rule) && signature.starts_with("MARKER/"))
        return "a label of the list, tested as the relative path it is";
    if (isLocation(rule) && !signature.starts_with('/'))
        return "relative on purpose: tested from the volume's root";
    if (rule == RuleKind::LibraryScope && signature.starts_with("Library/"))
        return "the locations tried hold the folder Library twice, on purpose";
    if (signature.starts_with("LaunchAgents/LaunchAgents/"))
        return "the folder LaunchAgents stands twice on purpose";
    if (signature.starts_with("/Application/"))
        return "the folder is spelled in the singular on purpose";
    if (signature.find("/startupitems/") != std::string_view::npos)
        return "the folder is spelled in lower case on purpose";
    if (rule == RuleKind::RemoteDesktop)
        return "one finding for all of these locations, shown at the first that is there";
    return {};
}

class Rows {
public:
    template <typename Texts>
    void add(std::string_view method, std::string_view family, RuleKind rule, const Texts& texts)
    {
        for (const std::string_view text : texts)
            add(method, family, rule, text);
    }

    void add(std::string_view method, std::string_view family, RuleKind rule,
             std::string_view signature)
    {
        if (!signature.empty())
            m_rows.push_back({method, family, rule, signature, noteOn(rule, signature)});
    }

    [[nodiscard]] std::vector<CatalogRow> taken() { return std::move(m_rows); }

private:
    std::vector<CatalogRow> m_rows;
};

void addThreat(const ThreatCheck& check, Rows& rows)
{
    rows.add(check.method, check.displayName, RuleKind::NameFragment, check.names);
    rows.add(check.method, check.displayName, RuleKind::BareWord, check.bareWord);
    rows.add(check.method, check.displayName, RuleKind::ExactPath, check.directPath);
    rows.add(check.method, check.displayName, RuleKind::ExactPath, check.paths);
    rows.add(check.method, check.displayName, RuleKind::LibraryScope, check.scoped);
}

void addOtherSpyware(Rows& rows)
{
    using namespace catalogue;
    rows.add(kOtherSpywareMethod, kOtherSpyware, RuleKind::LibraryScope, otherSpywareScoped());
    for (const std::string_view location : otherSpywareLocations()) {
        if (hasTwinInUsersApplications(location))
            rows.add(kOtherSpywareMethod, kOtherSpyware, RuleKind::UserApplications, location);
        rows.add(kOtherSpywareMethod, kOtherSpyware, RuleKind::ExactPath, location);
    }
}

void addMethod(std::string_view method, Rows& rows)
{
    using namespace catalogue;
    if (const ThreatCheck* check = threatCheck(method))
        addThreat(*check, rows);
    else if (method == kOtherSpywareMethod)
        addOtherSpyware(rows);
    else if (method == kBackdoorMethod)
        rows.add(method, kBackdoor, RuleKind::Backdoor, backdoorPaths());
    else if (method == kRemoteDesktopMethod)
        rows.add(method, kRemoteDesktop, RuleKind::RemoteDesktop, remoteDesktopPaths());
    else if (method == kDefaultOnlyMethod) {
        for (const DefaultOnlyEntry& entry : defaultOnlyEntries())
            rows.add(method, entry.displayName, RuleKind::NameFragment, entry.names);
    }
}

} // namespace

std::string_view ruleText(RuleKind rule)
{
    switch (rule) {
    case RuleKind::ExactPath:
        return "exact path";
    case RuleKind::UserApplications:
        return "path under the user's own Applications";
    case RuleKind::LibraryScope:
        return "path below a library root";
    case RuleKind::NameFragment:
        return "name touching a dot in a default location";
    case RuleKind::BareWord:
        return "bare word in a default location";
    case RuleKind::Backdoor:
        return "backdoor path";
    case RuleKind::RemoteDesktop:
        return "remote-desktop path";
    case RuleKind::FullSystemSubstring:
        return "text in the path of a file (deep scan only)";
    }
    return {};
}

std::string_view ruleWords(std::string_view rule)
{
    constexpr std::array<std::pair<RuleKind, std::string_view>, 8> kWords = {{
        {RuleKind::ExactPath, "this exact place is on the list"},
        {RuleKind::UserApplications,
         "an application of this name in the user's own Applications folder"},
        {RuleKind::LibraryScope, "this place inside a Library folder is on the list"},
        {RuleKind::NameFragment, "part of a name in a folder where such programs settle"},
        {RuleKind::BareWord, "a word anywhere in a name in a folder where such programs settle"},
        {RuleKind::Backdoor, "a place that known backdoors use"},
        {RuleKind::RemoteDesktop, "where Apple Remote Desktop keeps its settings"},
        {RuleKind::FullSystemSubstring,
         "a text anywhere in a path, which a deep scan alone looks for"},
    }};
    for (const auto& [kind, words] : kWords)
        if (ruleText(kind) == rule)
            return words;
    return "no rule of this version";
}

std::vector<CatalogRow> catalogRows()
{
    Rows rows;
    for (const SequenceRow& step : catalogue::sequence()) {
        for (const std::string_view method : step.methods)
            addMethod(method, rows);
    }
    rows.add("deep scan", catalogue::kFullSystem, RuleKind::FullSystemSubstring,
             catalogue::fullSystemEntries());
    return rows.taken();
}

std::string catalogueVersion()
{
    constexpr std::size_t kDigits = 12;
    Sha256 hash;
    const auto add = [&](std::string_view text) {
        hash.add(text);
        hash.add(std::string_view("\0", 1));
    };
    for (const CatalogRow& row : catalogRows()) {
        for (const std::string_view text :
             {row.method, row.family, ruleText(row.rule), row.signature, row.note})
            add(text);
    }
    for (const std::string_view folder : catalogue::defaultFolders())
        add(folder);
    for (const std::string_view file : catalogue::knownGoodFiles())
        add(file);
    return hash.hex().substr(0, kDigits);
}

} // namespace pryvane
