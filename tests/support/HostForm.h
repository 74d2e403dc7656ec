#pragma once

namespace pryvane::test {

/// Whether this build uses only what every POSIX system has, as one for a Mac does. On Linux some
/// of what a test asks cannot be told that way; it then skips, with the reason.
[[nodiscard]] bool isPosixForm();

} // namespace pryvane::test
