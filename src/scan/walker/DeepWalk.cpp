#include "scan/walker/DeepWalk.h"

#include "core/Result.h"
#include "findings/ScanState.h"
#include "platform/FileURL.h"
#include "scan/walker/TreeWalker.h"
#include "signatures/PatternAutomaton.h"

#include <cerrno>
#include <unistd.h>

namespace pryvane {

namespace {

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
            report.add(task.place, {root.path, 0, errorText(errno)});
        report.flush();
        return;
    }
    task.above.push(task.folder.id());
    FoldersSeen seen;
    static_cast<void>(seen.isFirst(task.folder.id()));

    WalkCrew crew;
    crew.begin(std::move(task));
    const CrewSize size = CrewSize::forThreads(threads);
    GrowingCrew walkers(size.threads, [&] {
        crew.share([&] {
            TreeWalker({rules, stop, crew, walkers, report, tally, seen, size.handles}).run();
        });
    });
    walkers.run();
    crew.throwOn();
    report.flush();
}

WalkOutcome walked(WalkTally::Pass pass, const WalkRoot& root, const WalkRules& rules, bool samples,
                   const WalkOptions& options, ScanState& state, WalkObserver& observer)
{
    WalkReport report(observer, state.isScanStop);
    WalkTally tally(pass, state, report, samples);
    if (!state.isScanStop.requested())
        walkTree(root, rules, options.threads, state.isScanStop, report, tally);
    return {tally.folders(), tally.entries(), report.refusals(), state.isScanStop.requested()};
}

} // namespace

bool isEnumerated(const FileURL& root)
{
    return root.lastPathComponent().starts_with('.') || root.pathExtension() == "framework";
}

WalkOutcome FileCount::countNodes(const WalkRoot& root)
{
    WalkRules rules;
    rules.ownDiskOnly = root.isOwnDisk;
    return walked(WalkTally::Pass::Counting, root, rules, m_observer.wantsLocations(), m_options,
                  m_state, m_observer);
}

WalkOutcome FileCount::countFlat(const WalkRoot& root)
{
    WalkRules rules;
    rules.allEntries = true;
    rules.ownDiskOnly = root.isOwnDisk;
    return walked(WalkTally::Pass::Counting, root, rules, false, m_options, m_state, m_observer);
}

WalkOutcome scanDirectory::scan(const WalkRoot& root)
{
    WalkRules rules;
    rules.texts = &m_texts;
    rules.allEntries = isEnumerated(FileURL::fileURLWithPath(root.path));
    rules.emptyFoldersCount = !rules.allEntries;
    rules.ownDiskOnly = root.isOwnDisk;
    return walked(WalkTally::Pass::Scanning, root, rules, m_observer.wantsLocations(), m_options,
                  m_state, m_observer);
}

} // namespace pryvane
