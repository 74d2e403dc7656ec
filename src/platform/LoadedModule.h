#pragma once

#include "core/Result.h"

#include <string>

namespace pryvane {

/// A function exported by one of the program's own modules, which lies on the program's run path
/// and is loaded on first use. Modules stay loaded: what is made from them may outlive any owner.
/// The error says why it could not be had. Callable from any thread.
[[nodiscard]] Result<void*> functionOfModule(const std::string& module, const char* function);

} // namespace pryvane
