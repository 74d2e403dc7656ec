#include "engine/walker/DeepWalk.h"

#include "engine/records/ScanState.h"
#include "engine/walker/TreeWalker.h"
#include "platform/FileURL.h"
#include "signatures/PatternAutomaton.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <unistd.h>

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kBetweenSamples{33};

std::atomic<std::int64_t> walkedByAll{0};

std::string_view withoutLastSlash(std::string_view path)
{
    return path.size() > 1 && path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
}

/// What both passes count in the same way.
class PassTally : public WalkTally {
public:
    PassTally(WalkReport& report, Locations locations) : m_report(report), m_locations(locations) {}

    [[nodiscard]] std::int64_t folders() const { return m_folders; }
    [[nodiscard]] std::int64_t entries() const { return m_entries; }

    void folderRead(std::string_view path) final
    {
        m_folders.fetch_add(1, std::memory_order_relaxed);
        if (m_locations == Locations::Sampled && sampleIsDue())
            tell(withoutLastSlash(path));
    }

    void at(std::string_view path) final { tell(path); }

protected:
    virtual void tell(std::string_view path) = 0;

    void note(std::int64_t entries) { m_entries.fetch_add(entries, std::memory_order_relaxed); }
    [[nodiscard]] WalkReport& report() { return m_report; }

private:
    [[nodiscard]] bool sampleIsDue()
    {
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        auto next = m_nextSample.load(std::memory_order_relaxed);
        using Ticks = std::chrono::steady_clock::duration;
        return now >= next &&
               m_nextSample.compare_exchange_strong(next, now + Ticks(kBetweenSamples).count());
    }

    WalkReport& m_report;
    const Locations m_locations;
    std::atomic<std::int64_t> m_folders{0};
    std::atomic<std::int64_t> m_entries{0};
    std::atomic<std::chrono::steady_clock::rep> m_nextSample{0};
};

class CountTally final : public PassTally {
public:
    CountTally(ScanState& state, WalkReport& report, Locations locations)
        : PassTally(report, locations), m_state(state)
    {
    }

    void add(std::int64_t entries) override
    {
        note(entries);
        m_state.totalCount.fetch_add(entries, std::memory_order_relaxed);
    }

private:
    void tell(std::string_view) override
    {
        report().alone([this](WalkObserver& observer) { observer.counting(m_state.totalCount); });
    }

    ScanState& m_state;
};

class ScanTally final : public PassTally {
public:
    ScanTally(ScanState& state, WalkReport& report, Locations locations)
        : PassTally(report, locations), m_state(state),
          m_step(std::max<std::int64_t>(state.totalCount / 100, 1))
    {
    }

    void add(std::int64_t entries) override
    {
        note(entries);
        walkedByAll.fetch_add(entries, std::memory_order_relaxed);
        if (m_state.totalScanCount.fetch_add(entries) + entries > m_step)
            postProgress();
    }

private:
    /// One post for each time the count, taken one by one, would have come to exceed the step.
    void postProgress()
    {
        report().alone([this](WalkObserver& observer) {
            while (m_state.totalScanCount > m_step) {
                m_state.totalScanCount -= m_step + 1;
                observer.progress((m_step + 1) / m_step);
            }
        });
    }

    void tell(std::string_view path) override
    {
        report().alone([path](WalkObserver& observer) { observer.location(path); });
    }

    ScanState& m_state;
    const std::int64_t m_step;
};

void walkTree(const WalkRoot& root, const WalkRules& rules, unsigned threads, const StopFlag& stop,
              WalkReport& report, WalkTally& tally)
{
    WalkTask task;
    task.path = root.path;
    if (!task.path.ends_with('/'))
        task.path += '/';
    task.place = report.first();
    task.unread = true;
    if (!rules.onlyCount())
        task.state = rules.texts->advance(rules.texts->start(), task.path, task.matched);
    // A handle of its own, as reading moves on in it.
    task.folder = FolderHandle::openIn(root.folder, ".");
    if (!task.folder) {
        if (!rules.onlyCount())
            report.add(task.place, {root.path, 0, std::generic_category().message(errno)});
        report.flush();
        return;
    }
    task.above.push(task.folder.id());

    WalkCrew crew;
    crew.begin(std::move(task));
    // In order means one after the other.
    const CrewSize size = CrewSize::forThreads(rules.tellEvery ? 1 : threads);
    onThreads(size.threads, [&] {
        TreeWalker({rules, stop, crew, report, tally, size.handles}).run();
    });
    report.flush();
}

template <typename Tally>
WalkOutcome walked(const WalkRoot& root, WalkRules rules, Locations locations,
                   const WalkOptions& options, ScanState& state, WalkObserver& observer)
{
    rules.tellEvery = locations == Locations::Every;
    WalkReport report(observer, state.isScanStop);
    Tally tally(state, report, locations);
    if (!state.isScanStop.requested())
        walkTree(root, rules, options.threads, state.isScanStop, report, tally);
    return {tally.folders(), tally.entries(), report.refusals(), state.isScanStop.requested()};
}

/// Whether the root is one that is enumerated as a whole instead of folder by folder.
bool isEnumerated(const WalkRoot& root)
{
    const FileURL url = FileURL::fileURLWithPath(root.path);
    return url.lastPathComponent().starts_with('.') || url.pathExtension() == "framework";
}

} // namespace

WalkOutcome FileCount::countNodes(const WalkRoot& root)
{
    return walked<CountTally>(root, {}, m_observer.locations(), m_options, m_state, m_observer);
}

WalkOutcome FileCount::countFlat(const WalkRoot& root)
{
    WalkRules rules;
    rules.allEntries = true;
    return walked<CountTally>(root, rules, Locations::None, m_options, m_state, m_observer);
}

WalkOutcome scanDirectory::scan(const WalkRoot& root)
{
    WalkRules rules;
    rules.texts = &m_texts;
    rules.allEntries = isEnumerated(root);
    rules.emptyFoldersCount = !rules.allEntries;
    return walked<ScanTally>(root, rules, m_observer.locations(), m_options, m_state, m_observer);
}

std::int64_t scanDirectory::walkedEntries()
{
    return walkedByAll;
}

} // namespace pryvane
