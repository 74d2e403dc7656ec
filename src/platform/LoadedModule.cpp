#include "platform/LoadedModule.h"

#include "core/Escape.h"

#include <dlfcn.h>

namespace pryvane {

namespace {

Error loadError(const std::string& module)
{
    const char* reason = dlerror(); // kept for each thread
    return Error{"the program's part " + module + " cannot be loaded (" +
                 (reason ? forScreen(reason) : "no reason given") + "); install Pryvane again"};
}

} // namespace

Result<void*> functionOfModule(const std::string& module, const char* function)
{
#ifdef __APPLE__
    const std::string name = "@rpath/" + module;
#else
    const std::string& name = module;
#endif
    void* loaded = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!loaded)
        return loadError(module);
    void* address = dlsym(loaded, function);
    if (!address)
        return loadError(module);
    return address;
}

} // namespace pryvane
