#include "scan/walker/NameWalk.h"

#include "findings/ScanState.h"
#include "platform/NameTree.h"
#include "scan/walker/WalkReport.h"
#include "scan/walker/WalkTally.h"
#include "signatures/PatternAutomaton.h"

#include <vector>

namespace pryvane {

namespace {

/// What one pass counts and compares.
struct NameRules {
    bool allEntries = false;
    bool emptyFoldersCount = false;
    const PatternAutomaton* texts = nullptr; ///< without, the pass only counts
};

class NamePass final : public NameVisitor {
public:
    NamePass(const FileURL& root, const NameRules& rules, WalkReport& report, WalkTally& tally)
        : m_rules(rules), m_report(report), m_place(report.first()), m_tally(tally),
          m_path(root.relativePath())
    {
        if (!m_path.ends_with('/'))
            m_path += '/';
        Level level{m_path.size()};
        if (m_rules.texts != nullptr)
            level.state = m_rules.texts->advance(m_rules.texts->start(), m_path, level.matched);
        m_levels.push_back(level);
    }

    void enterFolder(std::string_view name) override
    {
        count(1);
        Level level = m_levels.back();
        m_path.append(name).push_back('/');
        const std::size_t above = level.pathLength;
        level.pathLength = m_path.size();
        level.hasAny = false;
        if (m_rules.texts != nullptr && !level.matched)
            level.state = m_rules.texts->advance(
                level.state, std::string_view(m_path).substr(above), level.matched);
        m_levels.push_back(level);
    }

    void leaveFolder() override
    {
        endFolder();
        m_levels.pop_back();
        m_path.resize(m_levels.back().pathLength);
    }

    void entry(std::string_view name, FileKind kind) override
    {
        const bool isFile = kind == FileKind::RegularFile || kind == FileKind::Unknown;
        if (!m_rules.allEntries && (!isFile || name.front() == '.'))
            return;
        count(1);
        if (!isFile || m_rules.texts == nullptr)
            return;
        bool matches = m_levels.back().matched;
        if (!matches)
            static_cast<void>(m_rules.texts->advance(m_levels.back().state, name, matches));
        if (matches)
            m_report.add(m_place,
                         {m_path + std::string(name), m_path.size(), {}, {{0, 0, kind}, {}}});
    }

    void unnamed(std::int64_t entries) override { count(entries); }

    void refused(std::string_view reason) override
    {
        if (m_rules.texts == nullptr)
            return; // both passes meet the same folders
        const std::size_t length = m_path.size() > 1 ? m_path.size() - 1 : m_path.size();
        m_report.add(m_place, {m_path.substr(0, length), 0, std::string(reason)});
    }

    void finish()
    {
        endFolder();
        m_report.complete(m_place);
        m_report.flush();
    }

private:
    struct Level {
        std::size_t pathLength = 0;
        PatternAutomaton::State state = 0;
        bool matched = false;
        bool hasAny = false;
    };

    void count(std::int64_t entries)
    {
        m_levels.back().hasAny = true;
        m_uncounted += entries;
        constexpr std::int64_t kAtOnce = 1000;
        if (m_uncounted >= kAtOnce)
            flushCount();
    }

    void flushCount()
    {
        if (m_uncounted > 0)
            m_tally.add(std::exchange(m_uncounted, 0));
    }

    void endFolder()
    {
        if (!m_levels.back().hasAny && m_rules.emptyFoldersCount)
            ++m_uncounted;
        flushCount();
        m_tally.folderRead(m_path);
    }

    const NameRules m_rules;
    WalkReport& m_report;
    WalkReport::Place m_place;
    WalkTally& m_tally;
    std::string m_path; ///< of the current folder, with its slash
    std::vector<Level> m_levels;
    std::int64_t m_uncounted = 0;
};

WalkOutcome passed(WalkTally::Pass which, const FileURL& root, const NameRules& rules, bool samples,
                   ScanState& state, const NameTree& names, WalkObserver& observer)
{
    WalkReport report(observer, state.isScanStop);
    WalkTally tally(which, state, report, samples);
    NamePass pass(root, rules, report, tally);
    const bool isThere = names.visit(root, state.isScanStop, pass);
    if (!isThere && rules.texts != nullptr)
        pass.refused("it is not among the names that were read");
    pass.finish();
    return {tally.folders(), tally.entries(), report.refusals(), state.isScanStop.requested()};
}

} // namespace

WalkOutcome NameWalk::count(const FileURL& root, Counting counting)
{
    const bool flat = counting == Counting::Flat;
    return passed(WalkTally::Pass::Counting, root, {.allEntries = flat},
                  !flat && m_observer.wantsLocations(), m_state, m_names, m_observer);
}

WalkOutcome NameWalk::scan(const FileURL& root, const PatternAutomaton& texts)
{
    NameRules rules;
    rules.texts = &texts;
    rules.allEntries = isEnumerated(root);
    rules.emptyFoldersCount = !rules.allEntries;
    return passed(WalkTally::Pass::Scanning, root, rules, m_observer.wantsLocations(), m_state,
                  m_names, m_observer);
}

} // namespace pryvane
