#pragma once

namespace pryvane::test {

/// Makes the host's calls that read a folder fail. The program that links this has them all go
/// through it; one test at a time.
struct FailingReads {
    /// The `number`th call from now on, counted from 1, fails with `error`; those behind it read on
    /// where the host stands. 0: none fails, and all are counted.
    static void arm(int number, int error);

    /// Calls that were counted since the arming.
    [[nodiscard]] static int counted();
};

} // namespace pryvane::test
