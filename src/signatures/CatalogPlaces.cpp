#include "signatures/CatalogPlaces.h"

#include "core/Texts.h"
#include "signatures/CatalogRows.h"
#include "signatures/Catalogue.h"

#include <algorithm>
#include <set>
#include <utility>

namespace pryvane {

namespace {

constexpr std::string_view kAnyUser = "%@";

/// The spelled-out locations of a row, as a scan forms them.
std::vector<std::string> locationsOf(const CatalogRow& row)
{
    std::vector<std::string> locations;
    switch (row.rule) {
    case RuleKind::ExactPath:
    case RuleKind::Backdoor:
    case RuleKind::RemoteDesktop:
        locations.emplace_back(row.signature);
        break;
    case RuleKind::UserApplications:
        locations.push_back(catalogue::inUsersApplications(row.signature, kAnyUser));
        break;
    case RuleKind::LibraryScope:
        for (const std::string_view root : catalogue::libraryRoots())
            locations.push_back(catalogue::underLibraryRoot(root, kAnyUser, row.signature));
        break;
    case RuleKind::NameFragment:
    case RuleKind::BareWord:
    case RuleKind::FullSystemSubstring:
        break;
    }
    return locations;
}

/// The absolute form, as the scan tests a relative one too: without empty components.
CatalogPlace place(std::string_view family, std::string_view location)
{
    CatalogPlace result{family, {}, location.ends_with('/')};
    while (!location.empty()) {
        const auto slash = std::min(location.find('/'), location.size());
        if (slash > 0)
            result.path.append("/").append(location.substr(0, slash));
        location.remove_prefix(std::min(slash + 1, location.size()));
    }
    return result;
}

} // namespace

std::vector<CatalogPlace> catalogPlaces()
{
    std::vector<CatalogPlace> places;
    std::set<std::pair<std::string_view, std::string>> seen;
    for (const CatalogRow& row : catalogRows()) {
        for (const std::string& location : locationsOf(row)) {
            if (seen.emplace(row.family, location).second)
                places.push_back(place(row.family, location));
        }
    }
    return places;
}

std::vector<CatalogFragment> catalogFragments()
{
    std::vector<CatalogFragment> fragments;
    std::set<std::pair<std::string_view, std::string>> seen;
    const auto add = [&](std::string_view family, std::string text) {
        if (seen.emplace(family, text).second)
            fragments.push_back({family, std::move(text)});
    };
    for (const CatalogRow& row : catalogRows()) {
        const std::string text = lowerAscii(row.signature);
        if (row.rule == RuleKind::BareWord)
            add(row.family, text);
        if (row.rule == RuleKind::NameFragment) {
            add(row.family, text + ".");
            add(row.family, "." + text);
        }
    }
    return fragments;
}

} // namespace pryvane
