#include "volume/ImpliedLinks.h"

#include "volume/FoldedName.h"
#include "volume/folders/FolderHandle.h"

namespace pryvane {

namespace {

std::string behind(std::string_view name)
{
    return "private/" + std::string(name);
}

} // namespace

ImpliedLinks ImpliedLinks::ofRoot(int rootFd)
{
    return where([rootFd](const std::string& name) { return kindAt(rootFd, name.c_str()); });
}

std::optional<std::string> ImpliedLinks::targetOf(std::string_view name) const
{
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        if (m_implied[i] && name == kNames[i])
            return behind(kNames[i]);
    }
    return std::nullopt;
}

std::optional<std::string> ImpliedLinks::targetOfFolded(std::string_view name) const
{
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        if (m_implied[i] && sameFoldedName(name, kNames[i]))
            return behind(kNames[i]);
    }
    return std::nullopt;
}

} // namespace pryvane
