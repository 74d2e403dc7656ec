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
    forget();
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
    forget();
    m_isGathering = true;
    m_thread.start([this] { read(); }, [this](const char*) { m_later.post([this] { ended(); }); });
    stateChanged();
}

void FactsController::forget()
{
    m_lists.fill(std::make_shared<const List>());
    m_users.clear();
}

/// On the background thread. What is asked first is read first.
void FactsController::read()
{
    const FactHomes homes = factHomes(m_disk, UserChoice::everyone());
    const auto gathered = [&](const FactKinds& kinds) {
        return std::make_shared<const Facts>(gatherFacts(m_disk, homes, kinds, m_stop));
    };
    const auto hand = [this](const std::shared_ptr<const Facts>& facts, FactKind kind) {
        if (!m_stop.requested())
            m_later.post([this, kind, list = listOf(facts, kind)] { take(kind, list); });
    };
    hand(gathered({.permissions = true}), FactKind::Permissions);
    const auto rest = gathered({.startUp = true, .remoteAccess = true});
    hand(rest, FactKind::StartUp);
    hand(rest, FactKind::RemoteAccess);
    m_later.post([this] { ended(); });
}

FactsController::SharedList FactsController::listOf(const std::shared_ptr<const Facts>& facts,
                                                    FactKind kind)
{
    List list{true, factTable(*facts, kind), {}, {}, facts};
    for (const FactRow& row : list.table.rows) {
        std::string& text = list.searchTexts.emplace_back();
        for (const std::string& cell : row.cells)
            text += forScreen(cell) + '\n';
    }
    for (const SourceNote& note : facts->sources)
        if (note.kind == kind && note.state != SourceNote::State::Read)
            list.troubles.push_back(forScreen(note.path) + ": " + stateText(note.state) + ", " +
                                    forScreen(note.reason));
    if (!facts->whole)
        list.troubles.emplace_back("This disk holds more than any Mac's: not all of it is listed.");
    return std::make_shared<const List>(std::move(list));
}

void FactsController::take(FactKind kind, SharedList list)
{
    std::set<std::string> users(m_users.begin(), m_users.end());
    for (const FactRow& row : list->table.rows)
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

/// The list as it is written to a file.
std::string FactsController::textOf(const List& list, FactKind kind, FactsFormat format)
{
    if (format == FactsFormat::Csv)
        return factsCsv(list.table);
    if (format == FactsFormat::Text || !list.facts)
        return factsText(list.table);
    nlohmann::ordered_json document{{words(kind).key, factsJson(*list.facts, kind)},
                                    {"factSources", sourcesJson(*list.facts)}};
    return document.dump(2) + "\n";
}

void FactsController::exportTo(const std::string& path, FactKind kind, FactsFormat format,
                               std::function<void(const Result<Done>&)> told)
{
    const auto tell = [this, told = std::move(told)](Result<Done> written) {
        m_later.post([told, written = std::move(written)] { told(written); });
    };
    const SharedList list = m_lists[static_cast<std::size_t>(kind)];
    m_writing.start([path, list, kind, format,
                     tell] { tell(writeWholeFile(path, textOf(*list, kind, format))); },
                    [tell](const char* why) { tell(Error{why}); });
}

} // namespace pryvane
