// The scans of the schedule while the program is closed: what stands of them, and what the form
// makes of it.
#include "app/SchedulerVC.h"
#include "core/Escape.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"

namespace pryvane {

namespace {

using Kind = ClosedScans::Standing::Kind;

/// Of the schedule that the system is told; each start of the program tells it those that follow.
constexpr std::size_t kMostMoments = 1000;

} // namespace

void SchedulerVC::lookAtClosedScans(Looking when)
{
    const ClosedScans::Stands told = [this, when](const ClosedScans::Standing& standing) {
        closedScansStand(standing, when);
    };
    if (m_desktop.closedScans.isOffered())
        m_desktop.closedScans.look(m_later.bound(told));
}

/// At a start the program may lie elsewhere than before, and the schedule may be over.
void SchedulerVC::closedScansStand(const ClosedScans::Standing& standing, Looking when)
{
    m_standing = standing;
    if (!m_closedIsSet)
        m_form.alsoWhenClosed = standing.kind == Kind::On;
    Q_EMIT stateChanged();
    if (when == Looking::Later || standing.kind != Kind::On)
        return;
    const ClosedScans::Outcome mended = [this](const Result<Done>& outcome) {
        logFailure(m_services.log, outcome);
    };
    if (const auto moments = momentsAhead(); !moments.empty())
        m_desktop.closedScans.arrange(moments, m_later.bound(mended));
    else
        m_desktop.closedScans.cancel(m_later.bound(mended));
}

std::vector<Date> SchedulerVC::momentsAhead()
{
    const auto plan = storedSchedule(m_services.defaults);
    return plan ? plan->ahead(m_services.clock.now(), kMostMoments) : std::vector<Date>();
}

void SchedulerVC::setAlsoWhenClosed(bool on)
{
    m_form.alsoWhenClosed = on;
    m_closedIsSet = true;
    Q_EMIT stateChanged();
}

/// Once the form has been saved. What cannot be asked for now is left as it is, unless nothing is
/// scheduled any more.
void SchedulerVC::arrangeClosedScans()
{
    const bool isKnown = m_standing && m_standing->kind != Kind::Unavailable;
    const bool isWanted = m_form.isScheduleOn && m_form.alsoWhenClosed;
    if (!m_desktop.closedScans.isOffered() || (m_form.isScheduleOn && !isKnown))
        return;
    const ClosedScans::Outcome told = [this](const Result<Done>& outcome) {
        closedScansArranged(outcome);
    };
    if (!isWanted)
        return m_desktop.closedScans.cancel(m_later.bound(told));
    if (m_disk) { // else that of before, at the new times
        const auto kept =
            m_services.defaults.setObject(preferences::kScheduleDisk, Bytes{encoded(*m_disk)});
        if (!kept)
            return closedScansArranged(kept);
    }
    m_desktop.closedScans.arrange(momentsAhead(), m_later.bound(told));
}

void SchedulerVC::closedScansArranged(const Result<Done>& outcome)
{
    if (!outcome) {
        m_services.log.line(outcome.error().message);
        tell("Scans while Pryvane is closed could not be changed: " + outcome.error().message);
    }
    m_closedIsSet = false;
    lookAtClosedScans(Looking::Later);
}

ClosedScansRow SchedulerVC::closedScansRow() const
{
    ClosedScansRow row;
    row.isShown = m_desktop.closedScans.isOffered();
    const bool isAvailable = m_standing && m_standing->kind != Kind::Unavailable;
    row.isEnabled = m_disk && isAvailable && m_form.isScheduleOn;
    if (!m_disk)
        row.line = "An image or a list of names is only read while Pryvane is running.";
    else if (m_standing && !isAvailable)
        row.line = "Not possible here: " + m_standing->why;
    else if (!m_form.isScheduleOn)
        row.line = "Once a scan is scheduled, it can also start while Pryvane is closed.";
    else if (m_disk->folder == "/")
        row.line = "While you are logged in, a quick scan of this computer starts at these times "
                   "without a window. Its report is kept with the others.";
    else
        row.line = "While you are logged in, a quick scan of " + forScreen(m_disk->folder) +
                   " starts at these times without a window. Its report is kept with the others.";
    return row;
}

} // namespace pryvane
