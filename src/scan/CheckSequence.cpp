#include "scan/CheckSequence.h"

#include "platform/Clock.h"
#include "signatures/Catalogue.h"
#include "signatures/CheckRunner.h"

namespace pryvane {

CheckSequence::CheckSequence(CheckRunner& checks, Clock& clock, const StopFlag& stop,
                             StepShown shown)
    : m_checks(checks), m_clock(clock), m_stop(stop), m_shown(std::move(shown))
{
}

CheckSequence::Outcome CheckSequence::scan4SpywareStart()
{
    m_stepCounter = 0;
    m_checks.prepareForScan();
    for (const SequenceRow& row : catalogue::sequence()) {
        if (!runRow(row))
            return Outcome::Stopped;
        waitFor(row.label, row.pause);
        if (m_stop.requested())
            return Outcome::Stopped;
    }
    return Outcome::Finished;
}

/// False when a stop came before or between the row's checks, or in a step of one of them.
bool CheckSequence::runRow(const SequenceRow& row)
{
    const auto stepOfCheck = [this](std::string_view label, std::chrono::milliseconds pause) {
        waitFor(label, pause);
        return !m_stop.requested();
    };
    for (const std::string_view method : row.methods) {
        if (m_stop.requested())
            return false;
        m_checks.run(method, stepOfCheck);
    }
    return !m_stop.requested();
}

void CheckSequence::waitFor(std::string_view label, std::chrono::milliseconds pause)
{
    if (!m_shown)
        return;
    m_shown(label, m_stepCounter + 1);
    m_stepCounter += 2;
    m_clock.pause(pause, m_stop);
}

} // namespace pryvane
