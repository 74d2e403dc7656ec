#include "privacy/ToolsViewController.h"

#include <utility>

namespace pryvane {

ToolsViewController::ToolsViewController(const Services& services, std::string user,
                                         VolumeKind volume, QObject* parent)
    : QObject(parent), m_services(services), m_user(std::move(user)), m_volume(volume),
      m_progress(std::make_unique<PrivacyProgress>()), m_alive(std::make_shared<char>())
{
}

ToolsViewController::~ToolsViewController()
{
    m_stop.request();
}

void ToolsViewController::setState(State state)
{
    m_state = state;
    Q_EMIT stateChanged();
}

/// Puts work on the background thread, once the work before has ended.
void ToolsViewController::start(State state, std::function<void()> work)
{
    m_stop.request();
    m_thread.join();
    m_stop.clear();
    m_thread.start(std::move(work),
                   [this](const char*) { onMain([this] { setState(State::Idle); }); });
    setState(state);
}

/// Called on the background thread: has the work done on the main thread, if this still lives then.
void ToolsViewController::onMain(std::function<void()> work)
{
    m_services.mainQueue.post([alive = std::weak_ptr(m_alive), work = std::move(work)] {
        if (alive.lock())
            work();
    });
}

void ToolsViewController::viewWillAppear()
{
    if (!std::exchange(m_hasAppeared, true))
        resetAndAddavailbleApplications();
}

void ToolsViewController::resetAndAddavailbleApplications()
{
    if (m_state != State::Idle && m_state != State::Scanning)
        return;
    m_stop.request();
    m_thread.join();
    m_availbleApp.clear();
    m_isMeasured = false;
    m_progress = std::make_unique<PrivacyProgress>();
    ++m_round;
    start(State::Scanning, [this] { scanInBG(); });
}

void ToolsViewController::scanInBG()
{
    const std::uint64_t round = m_round;
    const auto isNews = [this, round] { return round == m_round && m_state == State::Scanning; };
    scanPrivacy(m_services.disk, m_user, m_stop, *m_progress, [&](ToolGroup group) {
        onMain([this, isNews, group = std::move(group)]() mutable {
            if (!isNews())
                return;
            m_availbleApp.push_back(std::move(group));
            Q_EMIT stateChanged();
        });
    });
    onMain([this, isNews] {
        if (isNews())
            BGscanDone();
    });
}

void ToolsViewController::BGscanDone()
{
    m_isMeasured = !m_stop.requested();
    setState(State::Idle);
}

void ToolsViewController::setChecked(std::size_t group, std::size_t item, bool checked)
{
    if (!canTick() || group >= m_availbleApp.size() || item >= m_availbleApp[group].List.size())
        return;
    ToolGroup& owner = m_availbleApp[group];
    owner.List[item].isChecked = checked && owner.List[item].isEnabled;
    owner.isChecked = owner.isEnabled;
    for (const ToolItem& each : owner.List)
        owner.isChecked = owner.isChecked && (each.isChecked || !each.isEnabled);
    Q_EMIT stateChanged();
}

void ToolsViewController::setGroupChecked(std::size_t group, bool checked)
{
    if (!canTick() || group >= m_availbleApp.size())
        return;
    ToolGroup& owner = m_availbleApp[group];
    owner.isChecked = checked && owner.isEnabled;
    for (ToolItem& item : owner.List)
        item.isChecked = checked && item.isEnabled;
    Q_EMIT stateChanged();
}

std::map<std::string, std::vector<std::string>> ToolsViewController::toolsSelectedDic() const
{
    std::map<std::string, std::vector<std::string>> selected;
    for (const ToolGroup& group : m_availbleApp) {
        for (const ToolItem& item : group.List) {
            if (item.isChecked)
                selected[group.Name].push_back(item.NameText);
        }
    }
    return selected;
}

void ToolsViewController::previewSelected()
{
    if (m_state != State::Idle)
        return;
    if (auto rows = selectedRows(m_availbleApp); !rows.empty())
        look(std::move(rows));
}

void ToolsViewController::retryCleaningAction()
{
    if (m_state == State::Previewing)
        look(std::exchange(m_preview, {}).rows);
}

void ToolsViewController::look(std::vector<CleaningRow> rows)
{
    start(State::Looking, [this, rows = std::move(rows)]() mutable {
        const auto running = m_volume == VolumeKind::HostRoot
                                 ? m_services.workspace.runningApplications()
                                 : std::vector<std::string>();
        auto preview = previewCleaning(std::move(rows), running, m_services.remover, m_stop);
        onMain([this, preview = std::move(preview)]() mutable {
            m_preview = m_stop.requested() ? CleaningPreview() : std::move(preview);
            setState(m_preview.rows.empty() ? State::Idle : State::Previewing);
        });
    });
}

void ToolsViewController::setPreviewTicked(std::size_t row, bool ticked)
{
    if (m_state != State::Previewing || row >= m_preview.rows.size())
        return;
    m_preview.rows[row].ticked = ticked;
    Q_EMIT stateChanged();
}

void ToolsViewController::cancelPreview()
{
    if (m_state != State::Previewing)
        return;
    m_preview = {};
    setState(State::Idle);
}

void ToolsViewController::cleanAndReloadData()
{
    if (m_state != State::Previewing)
        return;
    start(State::Cleaning, [this, preview = std::move(m_preview)] {
        auto outcome = cleanSelected(preview, m_services.remover, m_stop);
        onMain([this, outcome = std::move(outcome)]() mutable {
            m_outcome = std::move(outcome);
            cleaned();
        });
    });
    m_preview = {};
}

void ToolsViewController::cleaned()
{
    setState(State::Idle);
    // The message has a loop of its own, in which the volume may be changed and this go.
    const std::weak_ptr<char> alive = m_alive;
    m_services.alerts.runModal({kCleanedTitle, kCleanedText, {"OK"}});
    if (!alive.expired())
        resetAndAddavailbleApplications();
}

} // namespace pryvane
