#include "volume/PathParts.h"

#include <climits>

#include <unistd.h>

namespace pryvane {

std::optional<std::string_view> nextName(std::string_view path, std::size_t& at)
{
    while (at < path.size() && path[at] == '/')
        ++at;
    if (at == path.size())
        return std::nullopt;
    const std::size_t start = at;
    at = path.find('/', start);
    if (at == std::string_view::npos)
        at = path.size();
    return path.substr(start, at - start);
}

bool isLastName(std::string_view path, std::size_t at)
{
    return path.find_first_not_of('/', at) == std::string_view::npos;
}

ParentAndName parentAndName(std::string_view path)
{
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    const auto slash = path.rfind('/');
    const std::string_view name = slash == path.npos ? path : path.substr(slash + 1);
    if (name.empty() || name == "." || name == "..")
        return {std::string(path), "."};
    return {std::string(slash == path.npos ? "." : path.substr(0, slash + 1)), std::string(name)};
}

std::optional<std::string> linkTarget(int folder, const std::string& name)
{
    char target[PATH_MAX];
    const ssize_t length = readlinkat(folder, name.c_str(), target, sizeof target);
    if (length < 0)
        return std::nullopt;
    return std::string(target, static_cast<std::size_t>(length));
}

} // namespace pryvane
