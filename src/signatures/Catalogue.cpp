#include "signatures/Catalogue.h"

#include "signatures/tables/DefaultOnlyTable.h"
#include "signatures/tables/FullSystemTable.h"
#include "signatures/tables/LocationTables.h"
#include "signatures/tables/OtherSpywareTable.h"
#include "signatures/tables/SequenceTable.h"
#include "signatures/tables/ThreatTable.h"

#include <algorithm>
#include <array>

namespace pryvane::catalogue {

namespace {

using namespace tables;

constexpr std::string_view kPlaceholder = "%@";
constexpr std::string_view kHomes = "/Users/";

constexpr std::string_view kOtherMethods[] = {kOtherSpywareMethod, kBackdoorMethod,
                                              kDefaultOnlyMethod, kRemoteDesktopMethod};

constexpr std::size_t timesInSequence(std::string_view method)
{
    std::ptrdiff_t times = 0;
    for (const SequenceRow& row : kSequenceRows)
        times += std::count(row.methods.begin(), row.methods.end(), method);
    return static_cast<std::size_t>(times);
}

constexpr std::size_t methodsInSequence()
{
    std::size_t methods = 0;
    for (const SequenceRow& row : kSequenceRows)
        methods += row.methods.size();
    return methods;
}

constexpr bool eachCheckRunsOnce()
{
    const bool threats = std::ranges::all_of(
        kThreatChecks, [](const ThreatCheck& check) { return timesInSequence(check.method) == 1; });
    const bool others = std::ranges::all_of(
        kOtherMethods, [](std::string_view method) { return timesInSequence(method) == 1; });
    return threats && others &&
           methodsInSequence() == std::size(kThreatChecks) + std::size(kOtherMethods);
}

constexpr bool allDistinct(std::span<const std::string_view> texts)
{
    std::array<std::string_view, std::size(kFullSystemEntries)> sorted{};
    std::copy(texts.begin(), texts.end(), sorted.begin());
    std::sort(sorted.begin(), sorted.begin() + texts.size());
    return std::adjacent_find(sorted.begin(), sorted.begin() + texts.size()) ==
           sorted.begin() + texts.size();
}

constexpr std::string_view kSyslogagentPaths[] = {PRYVANE_SYSLOGAGENT_PATHS};
constexpr std::string_view kMacGuardResourcePaths[] = {PRYVANE_MACGUARD_RESOURCE_PATHS};

// What the tables are known to hold. A change to a table is a change to its count here.
static_assert(std::size(kThreatChecks) == 46);
static_assert(std::size(kSequenceRows) == 48);
static_assert(eachCheckRunsOnce());
static_assert(std::size(kSyslogagentPaths) == 37);
static_assert(std::size(kMacGuardResourcePaths) == 17);
static_assert(std::size(kOtherSpywareScoped) == 9);
static_assert(std::size(kOtherSpywareLocations) == 69);
static_assert(std::size(kDefaultOnlyEntries) == 58);
static_assert(std::size(kBackdoorPaths) == 14);
static_assert(std::size(kRemoteDesktopPaths) == 5);
static_assert(std::size(kFullSystemEntries) == 267);
static_assert(allDistinct(kFullSystemEntries));
static_assert(std::size(kDefaultFolders) == 12);
static_assert(std::size(kKnownGoodFiles) == 5);
static_assert(std::size(kLibraryRoots) == 3);

} // namespace

std::span<const ThreatCheck> threatChecks()
{
    return kThreatChecks;
}

const ThreatCheck* threatCheck(std::string_view method)
{
    const auto found = std::ranges::find(kThreatChecks, method, &ThreatCheck::method);
    return found == std::end(kThreatChecks) ? nullptr : &*found;
}

std::span<const SequenceRow> sequence()
{
    return kSequenceRows;
}

std::span<const std::string_view> otherSpywareScoped()
{
    return kOtherSpywareScoped;
}

std::span<const std::string_view> otherSpywareLocations()
{
    return kOtherSpywareLocations;
}

std::span<const DefaultOnlyEntry> defaultOnlyEntries()
{
    return kDefaultOnlyEntries;
}

std::span<const std::string_view> backdoorPaths()
{
    return kBackdoorPaths;
}

std::span<const std::string_view> remoteDesktopPaths()
{
    return kRemoteDesktopPaths;
}

std::span<const std::string_view> fullSystemEntries()
{
    return kFullSystemEntries;
}

std::span<const std::string_view> defaultFolders()
{
    return kDefaultFolders;
}

std::span<const std::string_view> knownGoodFiles()
{
    return kKnownGoodFiles;
}

std::span<const std::string_view> libraryRoots()
{
    return kLibraryRoots;
}

std::string filled(std::string_view pattern, std::initializer_list<std::string_view> arguments)
{
    std::string text;
    for (const std::string_view argument : arguments) {
        const auto place = pattern.find(kPlaceholder);
        if (place == std::string_view::npos)
            break;
        text += pattern.substr(0, place);
        // A home elsewhere goes by its path.
        if (argument.starts_with('/') && text.ends_with(kHomes))
            text.resize(text.size() - kHomes.size());
        text += argument;
        pattern.remove_prefix(place + kPlaceholder.size());
    }
    return text += pattern;
}

bool isOfUser(std::string_view pattern)
{
    return pattern.find(kPlaceholder) != std::string_view::npos;
}

std::vector<std::string> fullSyatemScanPath(std::span<const std::string> users)
{
    std::vector<std::string> paths;
    paths.reserve(std::size(kFullSystemEntries));
    for (const std::string_view entry : kFullSystemEntries) {
        if (!isOfUser(entry))
            paths.emplace_back(entry);
        else
            for (const std::string& user : users)
                paths.push_back(filled(entry, {user}));
    }
    return paths;
}

bool isRootOfUser(std::string_view root)
{
    return root.find(kPlaceholder) != root.rfind(kPlaceholder);
}

std::string underLibraryRoot(std::string_view root, std::string_view user,
                             std::string_view relative)
{
    return isRootOfUser(root) ? filled(root, {user, relative}) : filled(root, {relative});
}

bool hasTwinInUsersApplications(std::string_view candidate)
{
    return candidate.find("/Applications") != std::string_view::npos;
}

std::string inUsersApplications(std::string_view candidate, std::string_view user)
{
    return filled("/Users/%@%@", {user, candidate});
}

} // namespace pryvane::catalogue
