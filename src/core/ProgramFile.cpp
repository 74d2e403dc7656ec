#include "core/ProgramFile.h"

namespace pryvane {

Result<std::string> besideProgram(const std::string& name)
{
    auto program = programFile();
    if (!program)
        return program;
    return program->substr(0, program->rfind('/') + 1) + name;
}

} // namespace pryvane
