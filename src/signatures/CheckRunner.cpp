#include "signatures/CheckRunner.h"

#include "findings/MacDisk.h"
#include "findings/ScanCoverage.h"
#include "findings/Spyware.h"
#include "platform/FileSystem.h"
#include "platform/UserDefaults.h"
#include "signatures/Catalogue.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace pryvane {

namespace {

void append(std::vector<std::string>& paths, std::vector<std::string> more)
{
    paths.insert(paths.end(), std::move_iterator(more.begin()), std::move_iterator(more.end()));
}

} // namespace

CheckRunner::CheckRunner(FileSystem& disk, UserDefaults& defaults, std::vector<std::string> users,
                         FindingSink& sink, ScanCoverage& coverage)
    : m_disk(disk), m_defaults(defaults), m_users(std::move(users)), m_sink(sink),
      m_coverage(coverage)
{
}

/// Every user's location, or the one that all share.
template <typename Use>
void CheckRunner::eachLocation(std::string_view pattern, const Use& use) const
{
    if (!catalogue::isOfUser(pattern))
        return use(std::string(pattern));
    for (const std::string& user : m_users)
        use(catalogue::filled(pattern, {user}));
}

void CheckRunner::prepareForScan()
{
    m_disk.forgetListings();
    m_lacksSystemVolume = m_disk.lacksSystemVolume();
    m_untestable.clear();
    m_sizes.clear();
    m_search = NameSearch(DefaultLocations::listed(m_disk, m_users, m_coverage));
}

void CheckRunner::run(std::string_view method, const WaitFor& waitFor)
{
    if (const ThreatCheck* check = catalogue::threatCheck(method))
        run(*check);
    else if (method == catalogue::kOtherSpywareMethod)
        OtherSpyWareSearch();
    else if (method == catalogue::kBackdoorMethod)
        checkForBackDoor();
    else if (method == catalogue::kDefaultOnlyMethod)
        otherCheckDefaultOnly(waitFor);
    else if (method == catalogue::kRemoteDesktopMethod)
        checkForARD();
}

void CheckRunner::run(const ThreatCheck& check)
{
    Paths found;
    for (const std::string_view name : check.names)
        append(found, checkForSpywareNameFileInDefaultLocation(name));
    if (!check.bareWord.empty()) {
        ++m_coverage.signaturesTested;
        append(found, m_search.containing(check.bareWord));
    }
    if (!check.directPath.empty())
        appendIfPresent(std::string(check.directPath), found);
    appendPresent(check.paths, found);
    for (const std::string_view relative : check.scoped)
        append(found, checkUrlInALLScope(relative));
    report(found, check.displayName);
}

void CheckRunner::OtherSpyWareSearch()
{
    Paths found;
    for (const std::string_view relative : catalogue::otherSpywareScoped())
        append(found, checkUrlInALLScope(relative));
    for (const std::string_view pattern : catalogue::otherSpywareLocations()) {
        eachLocation(pattern, [&](std::string candidate) {
            if (catalogue::hasTwinInUsersApplications(candidate)) {
                for (const std::string& user : m_users)
                    appendIfPresent(catalogue::inUsersApplications(candidate, user), found);
            }
            appendIfPresent(std::move(candidate), found);
        });
    }
    report(found, catalogue::kOtherSpyware);
}

void CheckRunner::otherCheckDefaultOnly(const WaitFor& waitFor)
{
    using namespace std::chrono_literals;
    for (int step = 0; step < 2; ++step) {
        if (!waitFor("Word macro", 100ms))
            return;
    }
    std::unordered_set<std::string_view> done;
    for (const DefaultOnlyEntry& entry : catalogue::defaultOnlyEntries()) {
        if (!done.insert(entry.displayName).second)
            continue;
        Paths found;
        for (const std::string_view name : entry.names)
            append(found, checkForSpywareNameFileInDefaultLocation(name));
        report(found, entry.displayName);
    }
}

void CheckRunner::checkForBackDoor()
{
    for (const std::string_view pattern : catalogue::backdoorPaths()) {
        eachLocation(pattern, [&](const std::string& path) {
            const auto url = FileURL::fileURLWithPath(path);
            ++m_coverage.signaturesTested;
            // The sink decides; asking here only tells the coverage what could not be tested, and
            // that once for a whole folder.
            if (presenceOf(url) != Presence::Unknown)
                m_sink.addIfAvail(url, url.lastPathComponent(), catalogue::kBackdoor, kHighRisk, 0);
        });
    }
}

void CheckRunner::checkForARD()
{
    if (m_defaults.contains(preferences::kARD)) {
        if (!m_defaults.get(preferences::kARD))
            return;
    } else {
        // A failed write changes nothing: absent means the same.
        static_cast<void>(m_defaults.set(preferences::kARD, true));
    }
    Paths found;
    appendPresent(catalogue::remoteDesktopPaths(), found);
    if (found.empty())
        return;
    const auto url = FileURL::fileURLWithPath(found.front());
    m_sink.append(url, catalogue::kRemoteDesktopName, catalogue::kRemoteDesktop, kHighRisk, 0);
}

std::vector<std::string>
CheckRunner::checkForSpywareNameFileInDefaultLocation(std::string_view name)
{
    ++m_coverage.signaturesTested;
    return m_search.touchingDot(name);
}

std::vector<std::string> CheckRunner::checkUrlInALLScope(std::string_view relative)
{
    Paths found;
    for (const std::string_view root : catalogue::libraryRoots()) {
        if (!catalogue::isRootOfUser(root))
            appendIfPresent(catalogue::underLibraryRoot(root, {}, relative), found);
        else
            for (const std::string& user : m_users)
                appendIfPresent(catalogue::underLibraryRoot(root, user, relative), found);
    }
    return found;
}

std::int64_t CheckRunner::fileSizeOf(const FileURL& url)
{
    const auto [place, isNew] = m_sizes.try_emplace(url.relativePath(), 0);
    if (isNew)
        place->second = m_disk.allocatedSize(url);
    return place->second;
}

const std::vector<std::string>& CheckRunner::defaultCheckingArray() const
{
    return m_search.locations().paths();
}

void CheckRunner::appendIfPresent(std::string path, Paths& found)
{
    const Presence presence = presenceOf(FileURL::fileURLWithPath(path));
    if (presence != Presence::Present && m_lacksSystemVolume && isOnSystemVolume(path))
        ++m_coverage.systemVolumeLeftOut;
    else
        ++m_coverage.signaturesTested;
    if (presence == Presence::Present)
        found.push_back(std::move(path));
}

void CheckRunner::appendPresent(std::span<const std::string_view> patterns, Paths& found)
{
    for (const std::string_view pattern : patterns)
        eachLocation(pattern, [&](std::string path) { appendIfPresent(std::move(path), found); });
}

Presence CheckRunner::presenceOf(const FileURL& url)
{
    const Presence presence = m_disk.presence(url);
    if (presence == Presence::Unknown)
        noteUntestable(url);
    return presence;
}

/// Names the folder that stands in the way, since one such folder hides many locations.
void CheckRunner::noteUntestable(const FileURL& url)
{
    std::string folder = url.absolutePath();
    do {
        folder.resize(std::max<std::size_t>(folder.rfind('/'), 1));
    } while (folder != "/" && !m_disk.exists(FileURL::fileURLWithPath(folder)));
    if (m_untestable.insert(folder).second)
        m_coverage.refused.push_back({folder, "locations below it could not be tested"});
}

void CheckRunner::report(const Paths& found, std::string_view type)
{
    for (const std::string& path : found) {
        const auto url = FileURL::fileURLWithPath(path);
        m_sink.addIfAvail(url, url.lastPathComponent(), type, kHighRisk, fileSizeOf(url));
    }
}

} // namespace pryvane
