#include "core/LoadedModule.h"

#include "core/Escape.h"
#include "core/HostKernel.h"

#include <dlfcn.h>

namespace pryvane {

Result<std::string> besideProgram(const std::string& name)
{
    auto program = programFile();
    if (!program)
        return program;
    return program->substr(0, program->rfind('/') + 1) + name;
}

namespace {

Error loadError(const std::string& file)
{
    const char* reason = dlerror(); // kept for each thread
    return Error{"the program's part " + file + " cannot be loaded (" +
                 (reason ? forScreen(reason) : "no reason given") + "); install Pryvane again"};
}

} // namespace

Result<const void*> moduleFunctions(const std::string& file)
{
    // The whole path: for a bare name the loader would look through other folders.
    const auto path = besideProgram(std::string(PRYVANE_MODULES "/") + file);
    if (!path)
        return path.error();
    void* loaded = dlopen(path->c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    const void* functions = loaded ? dlsym(loaded, "pryvaneModule") : nullptr;
    if (!functions)
        return loadError(file);
    return functions;
}

} // namespace pryvane
