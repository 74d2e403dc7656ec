#include "core/Result.h"

#include "core/HostFiles.h"

#include <cerrno>
#include <system_error>

namespace pryvane {

std::string errorText(int error)
{
    if (const std::string_view own = hostsOwnErrorText(error); !own.empty())
        return std::string(own);
    std::string text = std::generic_category().message(error);
    // "Permission denied", but not "I/O error".
    if (text.size() > 1 && text[0] >= 'A' && text[0] <= 'Z' && text[1] >= 'a' && text[1] <= 'z')
        text[0] = static_cast<char>(text[0] - 'A' + 'a');
    return text;
}

bool meansAbsent(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ELOOP || error == ENAMETOOLONG;
}

} // namespace pryvane
