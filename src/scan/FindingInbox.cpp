#include "scan/FindingInbox.h"

#include "core/Escape.h"
#include "core/NotificationCenter.h"
#include "core/Texts.h"
#include "findings/Homes.h"
#include "findings/ScanState.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kSlice{8};
constexpr std::size_t kTakenAtOnce = 256;

// Between slices: a flood must not wake the main thread for each finding.
constexpr std::chrono::milliseconds kPause{16};
constexpr std::chrono::milliseconds kAtOnce{0};

// A flood of findings must not become a flood of pop-ups: after so many, one tells their number.
constexpr std::size_t kNotifiedFindings = 3;
constexpr std::chrono::seconds kBetweenCounts{1};

} // namespace

FindingInbox::FindingInbox(const PlatformServices& services, ScanState& state,
                           std::function<void()> listChanged)
    : m_services(services), m_state(state), m_listChanged(std::move(listChanged)),
      m_applications(services.workspace), m_later(services.mainQueue)
{
}

void FindingInbox::addIfAvail(const FileURL& url, std::string_view name, std::string_view type,
                              std::string_view risk, std::int64_t size)
{
    switch (m_services.disk.presence(url)) {
    case Presence::Present:
        break;
    case Presence::Absent:
        return;
    case Presence::Unknown:
        refuse(url);
        return;
    }
    auto record = Spyware::SpyWareSeen(name, type, size, url, risk);
    lookAt(*record);
    test(std::move(record));
}

void FindingInbox::addSeen(const FileURL& url, std::string_view name, std::string_view type,
                           std::string_view risk, std::int64_t size, const SeenEntry& seen)
{
    auto record = Spyware::SpyWareSeen(name, type, size, url, risk);
    record->setSighting(seen.sighting);
    record->setSpelling(spelledBelow(url));
    record->times = seen.times ? *seen.times : m_services.disk.times(url);
    noteHash(*record);
    test(std::move(record));
}

/// Where it is and how the disk spells that.
void FindingInbox::lookAt(Spyware& record)
{
    record.setSighting(m_services.disk.sighting(record.url));
    if (const auto spelled = m_services.disk.spelledPath(record.url))
        record.setSpelling(*spelled);
    record.times = m_services.disk.times(record.url);
    noteHash(record);
}

/// On the scan's threads.
void FindingInbox::noteHash(Spyware& record)
{
    if (!m_hashes || record.kind != FileKind::RegularFile)
        return;
    if (const auto hash = m_services.disk.contentHash(record.url, m_state.isScanStop))
        record.sha256 = *hash;
}

/// Of what a walk has seen: its name is the disk's own, and so are those of all the folders below
/// the one at which the walk began. Findings of one folder come one after the other.
std::string FindingInbox::spelledBelow(const FileURL& url)
{
    std::string path = url.absolutePath();
    const auto slash = path.rfind('/');
    const std::string folder = path.substr(0, slash);
    if (folder.empty())
        return path;
    {
        const MutexLock lock(m_mutex);
        if (m_walked.folder == folder)
            return m_walked.spelled.empty() ? std::string() : m_walked.spelled + path.substr(slash);
    }
    const auto spelled = m_services.disk.spelledPath(FileURL::fileURLWithPath(folder));
    const MutexLock lock(m_mutex);
    m_walked = {folder, spelled.value_or("")};
    return spelled ? *spelled + path.substr(slash) : std::string();
}

void FindingInbox::append(const FileURL& url, std::string_view name, std::string_view type,
                          std::string_view risk, std::int64_t size)
{
    auto record = Spyware::SpyWareWithName(name, true, type, size, url, risk, m_services.disk);
    lookAt(*record);
    push({std::move(record), {}, Admission::AsItIs});
}

void FindingInbox::whenEmpty(std::function<void()> done)
{
    push({nullptr, std::move(done), Admission::Tested});
}

std::vector<Refusal> FindingInbox::refused()
{
    const MutexLock lock(m_mutex);
    return m_refused;
}

void FindingInbox::clear()
{
    const MutexLock lock(m_mutex);
    m_pending.clear();
    m_refused.clear();
    m_refusedLocations.clear();
    m_heldBack.clear();
    m_heldBackLocations.clear();
    m_walked = {};
    m_nextCount = {};
    m_applications.forget();
}

void FindingInbox::setUsers(std::vector<std::string> users)
{
    const MutexLock lock(m_mutex);
    m_users = std::move(users);
}

void FindingInbox::refuse(const FileURL& url)
{
    const MutexLock lock(m_mutex);
    if (m_refusedLocations.emplace(url.identity()).second)
        m_refused.push_back({url.relativePath(), "it was found, and then could not be looked at"});
}

/// On the scan's threads: the rule for applications may read files.
void FindingInbox::test(std::shared_ptr<Spyware> record)
{
    {
        const MutexLock lock(m_mutex);
        record->user = userOf(record->url.absolutePath(), m_users);
    }
    const auto times =
        m_applications.timesListed(record->url, m_state.arrDefaultTorvellApp, m_state.isScanStop);
    if (times)
        push({std::move(record), {}, Admission::Tested, *times});
}

void FindingInbox::push(Pending pending)
{
    {
        const MutexLock lock(m_mutex);
        const bool isAwaited = pending.done != nullptr;
        m_pending.push_back(std::move(pending));
        if (std::exchange(m_scheduled, true) && !isAwaited)
            return;
    }
    schedule(kAtOnce);
}

void FindingInbox::schedule(std::chrono::milliseconds delay)
{
    try {
        m_later.postAfter(delay, [this] { drainSlice(); });
    } catch (...) {
        const MutexLock lock(m_mutex);
        m_scheduled = false; // for whoever hands in the next one
        throw;
    }
}

bool FindingInbox::take(std::deque<Pending>& slice)
{
    const MutexLock lock(m_mutex);
    while (!m_pending.empty() && slice.size() < kTakenAtOnce) {
        slice.push_back(std::move(m_pending.front()));
        m_pending.pop_front();
    }
    return !slice.empty();
}

void FindingInbox::drainSlice()
{
    const auto end = m_services.clock.steadyNow() + kSlice;
    const auto before = m_state.arrSpywareList.records().size();
    std::deque<Pending> slice;
    bool more = true;
    bool any = false;
    while (more && m_services.clock.steadyNow() < end) {
        slice.clear();
        more = take(slice);
        any = any || more;
        for (const Pending& pending : slice) {
            if (pending.record)
                admit(pending);
            else
                m_later.post(pending.done); // behind what the scan's threads had posted before
        }
    }
    if (m_state.arrSpywareList.records().size() != before) {
        tellCount();
        m_listChanged();
    }
    if (!any) {
        const MutexLock lock(m_mutex);
        m_scheduled = !m_pending.empty();
        if (!m_scheduled)
            return;
        more = true;
    }
    schedule(more ? kAtOnce : kPause);
}

void FindingInbox::admit(const Pending& pending)
{
    const std::shared_ptr<Spyware>& record = pending.record;
    if (pending.admission == Admission::AsItIs) {
        m_state.arrSpywareList.append(record);
        return;
    }
    if (m_state.arrSpywareList.contains(*record))
        return;
    for (std::size_t i = 0; i < pending.times; ++i)
        list(record);
    if (pending.times == 0)
        holdBack(record->url);
    m_services.notifications.post(NotificationName::UpdateThreat);
}

void FindingInbox::holdBack(const FileURL& url)
{
    if (m_heldBackLocations.emplace(url.identity()).second)
        m_heldBack.push_back(url.relativePath());
}

void FindingInbox::list(const std::shared_ptr<Spyware>& record)
{
    m_state.arrSpywareList.append(record);
    if (m_state.arrSpywareList.records().size() <= kNotifiedFindings) {
        m_services.userNotifier.deliver("Pryvane",
                                        "Spyware Found: " + forNotification(record->name()));
    }
}

void FindingInbox::tellCount()
{
    const std::size_t count = m_state.arrSpywareList.records().size();
    const auto now = m_services.clock.steadyNow();
    if (count <= kNotifiedFindings || now < m_nextCount)
        return;
    m_nextCount = now + kBetweenCounts;
    m_services.userNotifier.update("Pryvane",
                                   countedText(count, "finding", "findings") + " so far");
}

} // namespace pryvane
