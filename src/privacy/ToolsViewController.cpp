#include "privacy/ToolsViewController.h"

#include "removal/session/RemovalRefusal.h"

#include <algorithm>
#include <utility>

namespace pryvane {

namespace {

/// Whether all is ticked that the group's own box ticks.
bool allTicked(const ToolGroup& group)
{
    return std::ranges::any_of(group.List, &ToolItem::isChecked) &&
           std::ranges::all_of(group.List, [](const ToolItem& item) {
               return item.isChecked || !ticksWithOthers(item);
           });
}

} // namespace

ToolsViewController::ToolsViewController(const Services& services, UserChoice users)
    : m_services(services), m_users(std::move(users)),
      m_progress(std::make_unique<PrivacyProgress>()), m_queue(services.mainQueue),
      m_session(services.mainQueue)
{
}

ToolsViewController::~ToolsViewController()
{
    stop();
}

void ToolsViewController::stop()
{
    m_stopScan.request();
    m_session.stop();
}

void ToolsViewController::setState(State state)
{
    m_state = state;
    stateChanged();
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
    m_stopScan.request();
    m_scanThread.join();
    m_stopScan.clear();
    m_availbleApp.clear();
    m_isMeasured = false;
    m_progress = std::make_unique<PrivacyProgress>();
    ++m_round;
    m_scanThread.start([this] { scanInBG(); },
                       [this](const char*) { m_queue.post([this] { setState(State::Idle); }); });
    setState(State::Scanning);
}

void ToolsViewController::scanInBG()
{
    const std::uint64_t round = m_round;
    const auto isNews = [this, round] { return round == m_round && m_state == State::Scanning; };
    const auto show = [&](ToolGroup group) {
        m_queue.post([this, isNews, group = std::move(group)]() mutable {
            if (!isNews())
                return;
            m_availbleApp.push_back(std::move(group));
            stateChanged();
        });
    };
    for (const std::string& user : m_users.users())
        scanPrivacy(m_services.disk, user, m_stopScan, *m_progress, show);
    m_queue.post([this, isNews] {
        if (isNews())
            BGscanDone();
    });
}

void ToolsViewController::BGscanDone()
{
    m_isMeasured = !m_stopScan.requested();
    setState(State::Idle);
}

void ToolsViewController::setChecked(std::size_t group, std::size_t item, bool checked)
{
    if (!canTick() || group >= m_availbleApp.size() || item >= m_availbleApp[group].List.size())
        return;
    ToolGroup& owner = m_availbleApp[group];
    owner.List[item].isChecked = checked && owner.List[item].isEnabled;
    owner.List[item].isMeantWhole = owner.List[item].isChecked;
    owner.isChecked = allTicked(owner);
    stateChanged();
}

void ToolsViewController::setGroupChecked(std::size_t group, bool checked)
{
    if (!canTick() || group >= m_availbleApp.size())
        return;
    ToolGroup& owner = m_availbleApp[group];
    for (ToolItem& item : owner.List) {
        item.isChecked = checked && (item.isChecked || ticksWithOthers(item));
        item.isMeantWhole = item.isMeantWhole && item.isChecked;
    }
    owner.isChecked = allTicked(owner);
    stateChanged();
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
    auto rows = selectedRows(m_availbleApp);
    if (!rows.empty() && !isRefused(m_services.remover, m_services.alerts))
        look(std::move(rows));
}

void ToolsViewController::retryCleaningAction()
{
    if (m_state == State::Previewing)
        look(std::exchange(m_preview, {}).rows);
}

void ToolsViewController::look(std::vector<CleaningRow> rows)
{
    m_session.plan(
        [this, rows = std::move(rows)](const StopFlag& stop) mutable {
            return previewCleaning(std::move(rows), m_services.workspace.runningApplications(),
                                   m_services.disk.disk, m_services.remover, stop);
        },
        [this](CleaningPreview preview) {
            m_preview = std::move(preview);
            setState(m_preview.rows.empty() ? State::Idle : State::Previewing);
        });
    setState(State::Looking);
}

void ToolsViewController::setPreviewTicked(std::size_t row, bool ticked)
{
    if (m_state != State::Previewing || row >= m_preview.rows.size())
        return;
    m_preview.rows[row].ticked = ticked;
    stateChanged();
}

void ToolsViewController::leaveDearOut()
{
    if (m_state != State::Previewing)
        return;
    m_preview.leaveDearOut();
    stateChanged();
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
    // Changed by the session's thread, which has ended when it is read again.
    const auto preview = std::make_shared<CleaningPreview>(std::exchange(m_preview, {}));
    m_session.remove(
        preview->rows.size(),
        [this, preview](const StopFlag& stop, const RemovalResults& told) {
            blockOpen(*preview, m_services.workspace.runningApplications());
            removeGoing(*preview, m_services.remover, stop, told);
        },
        [this, preview](const std::vector<RemovalResult>& results) {
            m_outcome = outcomeOf(*preview, results);
            cleaned();
        });
    setState(State::Cleaning);
}

void ToolsViewController::cleaned()
{
    setState(State::Idle);
    // The message has a loop of its own, in which the volume may be changed and this go.
    const std::weak_ptr<const bool> alive = m_alive;
    m_services.alerts.runModal({kCleanedTitle, cleanedText(m_outcome), {"OK"}});
    if (!alive.expired())
        resetAndAddavailbleApplications();
}

} // namespace pryvane
