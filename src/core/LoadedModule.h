#pragma once

#include "core/Result.h"

#include <string>

namespace pryvane {

/// The path of `name`, which may begin with "../", counted from the program's folder. Callable from
/// any thread.
[[nodiscard]] Result<std::string> besideProgram(const std::string& name);

/// The functions that the program's own module `file` exports as `pryvaneModule`.
[[nodiscard]] Result<const void*> moduleFunctions(const std::string& file);

/// A part of the program that lies in a file of its own, beside the program, and is loaded when it
/// is first asked for. `Api` is a struct of function pointers that names the file as `kFile`; the
/// module exports one with PRYVANE_EXPORT_MODULE. Modules stay loaded: what they make may outlive
/// any owner. The error says why it cannot be had. Callable from any thread.
template <typename Api>
[[nodiscard]] Result<const Api*> loadedModule()
{
    const auto functions = moduleFunctions(Api::kFile);
    if (!functions)
        return functions.error();
    return static_cast<const Api*>(*functions);
}

} // namespace pryvane

/// In the module, outside any namespace: PRYVANE_EXPORT_MODULE(Api, function, ...).
#define PRYVANE_EXPORT_MODULE(Api, ...)                                                            \
    extern "C" __attribute__((visibility("default"))) const Api pryvaneModule;                     \
    const Api pryvaneModule{__VA_ARGS__};
