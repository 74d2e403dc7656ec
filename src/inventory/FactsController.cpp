#include "inventory/FactsController.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "inventory/facts/FactJson.h"

#include <algorithm>
#include <set>
#include <utility>

namespace pryvane {

FactsController::FactsController(FileSystem& disk, MainQueue& mainQueue)
    : m_disk(disk), m_later(mainQueue)
{
}

FactsController::~FactsController()
{
    m_stop.request();
}

void FactsController::viewWillAppear()
{
    if (!std::exchange(m_hasAppeared, true))
        gather();
}

void FactsController::gather()
{
    if (m_isGathering)
        return;
    m_thread.join();
    m_stop.clear();
    m_lists = {};
    m_users.clear();
    m_isGathering = true;
    m_thread.start([this] { read(); }, [this](const char*) { m_later.post([this] { ended(); }); });
    stateChanged();
}

/// On the background thread. What is asked first is read first.
void FactsController::read()
{
    const auto homes = factHomes(m_disk);
    const auto hand = [this](const Facts& facts, FactKind kind) {
        if (!m_stop.requested())
            m_later.post([this, kind, list = listOf(facts, kind)]() mutable {
                take(kind, std::move(list));
            });
    };
    hand(gatherFacts(m_disk, homes, {.permissions = true}, m_stop), FactKind::Permissions);
    const Facts rest = gatherFacts(m_disk, homes, {.startUp = true, .remoteAccess = true}, m_stop);
    hand(rest, FactKind::StartUp);
    hand(rest, FactKind::RemoteAccess);
    m_later.post([this] { ended(); });
}

FactsController::List FactsController::listOf(const Facts& facts, FactKind kind)
{
    List list{true, factTable(facts, kind), {}, {}};
    for (const SourceNote& note : facts.sources)
        if (note.kind == kind && note.state != SourceNote::State::Read)
            list.troubles.push_back(forScreen(note.path) + ": " + stateText(note.state) + ", " +
                                    forScreen(note.reason));
    if (!facts.whole)
        list.troubles.emplace_back("This disk holds more than any Mac's: not all of it is listed.");
    list.json = nlohmann::ordered_json{{words(kind).key, factsJson(facts, kind)},
                                       {"factSources", sourcesJson(facts)}}
                    .dump(2) +
                "\n";
    return list;
}

void FactsController::take(FactKind kind, List list)
{
    std::set<std::string> users(m_users.begin(), m_users.end());
    for (const FactRow& row : list.table.rows)
        if (!row.user.empty())
            users.insert(row.user);
    m_users.assign(users.begin(), users.end());
    m_lists[static_cast<std::size_t>(kind)] = std::move(list);
    stateChanged();
}

void FactsController::ended()
{
    m_isGathering = false;
    stateChanged();
}

void FactsController::exportTo(const std::string& path, FactKind kind, FactsFormat format,
                               std::function<void(const Result<Done>&)> told)
{
    const List& list = at(kind);
    std::string bytes = format == FactsFormat::Json  ? list.json
                        : format == FactsFormat::Csv ? factsCsv(list.table)
                                                     : factsText(list.table);
    const auto tell = [this, told = std::move(told)](Result<Done> written) {
        m_later.post([told, written = std::move(written)] { told(written); });
    };
    m_writing.start([path, bytes = std::move(bytes), tell] { tell(writeWholeFile(path, bytes)); },
                    [tell](const char* why) { tell(Error{why}); });
}

} // namespace pryvane
