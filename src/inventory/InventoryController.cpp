#include "inventory/InventoryController.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <utility>

namespace pryvane {

namespace {

using Entries = std::vector<InventoryEntry>;

Entries entriesOf(InventoryKind kind, std::vector<FileURL> urls)
{
    Entries entries;
    entries.reserve(urls.size());
    for (FileURL& url : urls) {
        std::string name(url.lastPathComponent());
        entries.push_back({kind, std::move(url), std::move(name), {}, {}});
    }
    return entries;
}

Entries entriesOf(InventoryKind kind, std::vector<ExtensionEntry> extensions)
{
    Entries entries;
    entries.reserve(extensions.size());
    for (ExtensionEntry& each : extensions) {
        std::string detail = each.verExt;
        if (!each.PersonExt.empty())
            detail += (detail.empty() ? "" : ", ") + each.PersonExt;
        entries.push_back({kind, std::move(each.urlExt), std::move(each.nameExt), std::move(detail),
                           each.sizeExt});
    }
    return entries;
}

Entries entriesOf(InventoryKind kind, std::vector<ExtensionFact> facts)
{
    Entries entries;
    for (ExtensionFact& fact : facts) {
        std::string detail =
            fact.browser + ", " + fact.entry.PersonExt + "; " + sourceText(fact.source);
        for (const std::string& permission : fact.permissions)
            detail += "; " + permission;
        entries.push_back({kind, std::move(fact.entry.urlExt), std::move(fact.entry.nameExt),
                           std::move(detail), fact.entry.sizeExt});
    }
    return entries;
}

Entries listOf(InventoryKind kind, const AdwareScan& scan)
{
    switch (kind) {
    case InventoryKind::LaunchAgents:
        return entriesOf(kind, scan.getLaunchAgentsList());
    case InventoryKind::LaunchDaemons:
        return entriesOf(kind, scan.getLaunchDaemonsList());
    case InventoryKind::ChromeExtensions:
        return entriesOf(kind, scan.getChromeExtantionList());
    case InventoryKind::FirefoxAddOns:
        return entriesOf(kind, scan.getFirefoxExtantionList());
    case InventoryKind::SafariExtensions:
        return entriesOf(kind, scan.getSafariExtantionList());
    case InventoryKind::ApplicationSupport:
        return entriesOf(kind, scan.getApplicationSupportList());
    case InventoryKind::Applications:
        return entriesOf(kind, scan.getAppList());
    case InventoryKind::AllExtensions:
        return entriesOf(kind, scan.extensionFacts());
    }
    return {};
}

} // namespace

InventoryController::InventoryController(const Services& services, UserChoice users)
    : m_services(services), m_users(std::move(users)), m_later(services.mainQueue)
{
}

InventoryController::~InventoryController()
{
    m_stop.request();
}

void InventoryController::viewWillAppear()
{
    if (!std::exchange(m_hasAppeared, true))
        gather();
}

void InventoryController::gather()
{
    if (m_isGathering)
        return;
    m_thread.join();
    m_stop.clear();
    m_entries.clear();
    m_isWhole = false;
    m_isGathering = true;
    m_gathering = {};
    m_thread.start(
        [this] {
            using Part = AdwareScan::Part;
            std::deque<AdwareScan> scans; // what all share, then each user's own
            const auto& users = m_users.users();
            if (users.size() != 1)
                scans.emplace_back(m_services.disk, std::string(), m_stop, Part::Shared);
            for (const std::string& user : users)
                scans.emplace_back(m_services.disk, user, m_stop,
                                   users.size() == 1 ? Part::Both : Part::Own);
            for (std::size_t kind = 0; kind < kInventoryHeadings.size(); ++kind) {
                if (m_stop.requested())
                    break;
                m_later.post([this, kind] {
                    m_gathering = static_cast<InventoryKind>(kind);
                    stateChanged();
                });
                for (const AdwareScan& scan : scans) {
                    m_later.post(
                        [this, found = listOf(static_cast<InventoryKind>(kind), scan)]() mutable {
                            std::move(found.begin(), found.end(), std::back_inserter(m_entries));
                            stateChanged();
                        });
                }
            }
            const bool whole = std::ranges::all_of(scans, &AdwareScan::whole);
            m_later.post([this, whole] { ended(whole); });
        },
        [this](const char*) { m_later.post([this] { ended(false); }); });
    stateChanged();
}

void InventoryController::ended(bool whole)
{
    m_isGathering = false;
    m_isWhole = whole && !m_stop.requested();
    stateChanged();
}

} // namespace pryvane
