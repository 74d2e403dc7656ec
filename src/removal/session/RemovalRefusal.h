#pragma once

namespace pryvane {

class Alerts;
class Remover;

/// Whether nothing can be removed on the remover's disk at all; says so in words then, before
/// anything is asked. Main thread only.
[[nodiscard]] bool isRefused(const Remover& remover, Alerts& alerts);

} // namespace pryvane
