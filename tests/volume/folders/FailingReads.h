#pragma once

#include <cerrno>

namespace pryvane::test {

/// Makes the host's calls that read a folder fail. The program that links this has them all go
/// through it; one test at a time.
struct FailingReads {
    /// The `number`th call from now on, counted from 1, fails with `error`; those behind it read on
    /// where the host stands. 0: none fails, and all are counted.
    static void arm(int number, int error)
    {
        s_number = number;
        s_count = 0;
        s_error = error;
    }

    /// Calls that were counted since the arming.
    [[nodiscard]] static int counted() { return s_count; }

    /// Counts a call, and says whether it fails; errno is set then.
    [[nodiscard]] static bool fails()
    {
        if (++s_count != s_number)
            return false;
        errno = s_error;
        return true;
    }

private:
    static inline int s_number = 0, s_count = 0, s_error = 0;
};

} // namespace pryvane::test
