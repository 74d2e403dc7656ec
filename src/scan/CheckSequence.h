#pragma once

#include "core/StopFlag.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string_view>

namespace pryvane {

class CheckRunner;
class Clock;
struct SequenceRow;

/// Runs the fixed sequence of checks on the calling thread, with a label, a progress step and a
/// pause after each, and a look at the stop flag between any two.
class CheckSequence {
public:
    /// Called on the calling thread with a step's label and number: 1, 3, 5, ...
    using StepShown = std::function<void(std::string_view label, int step)>;
    enum class Outcome : std::uint8_t { Finished, Stopped };

    /// `shown` may be empty: then nothing is shown and nothing is waited for, as in a deep scan.
    CheckSequence(CheckRunner& checks, Clock& clock, const StopFlag& stop, StepShown shown);

    [[nodiscard]] Outcome scan4SpywareStart();

private:
    void waitFor(std::string_view label, std::chrono::milliseconds pause);
    [[nodiscard]] bool runRow(const SequenceRow& row);

    CheckRunner& m_checks;
    Clock& m_clock;
    const StopFlag& m_stop;
    StepShown m_shown;
    int m_stepCounter = 0;
};

} // namespace pryvane
