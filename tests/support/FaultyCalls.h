#pragma once

#include <string>

namespace pryvane::test {

/// Makes system calls of this process fail, those that reach below one folder. The program that
/// links this has all calls that a store makes (open, read, write, sync, rename, ...) go through
/// it, SQLite's included.
struct FaultyCalls {
    enum class Lasting : unsigned char { Once, FromThenOn };

    /// The `number`th such call from now on, counted from 1, fails with `error`, and with it those
    /// behind it where it lasts. 0: none fails, and all are counted.
    static void arm(const std::string& folder, int number, int error, Lasting lasting);
    static void disarm();

    /// Calls that were counted since the arming.
    [[nodiscard]] static int counted();
};

} // namespace pryvane::test
