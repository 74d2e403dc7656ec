#include "platform/FileURL.h"

#include "core/Escape.h"

namespace pryvane {

namespace {

constexpr std::string_view kScheme = "file://";

std::string_view withoutTrailingSlashes(std::string_view path)
{
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    return path;
}

} // namespace

FileURL FileURL::fileURLWithPath(std::string_view path)
{
    FileURL url;
    url.m_path = path.substr(0, path.find('\0'));
    return url;
}

std::string FileURL::absolutePath() const
{
    return "/" + std::string(identity());
}

bool FileURL::mustBeFolder() const
{
    return !m_path.empty() && m_path.back() == '/';
}

std::string_view FileURL::identity() const
{
    std::string_view path = m_path;
    while (!path.empty() && path.back() == '/')
        path.remove_suffix(1);
    while (!path.empty() && path.front() == '/')
        path.remove_prefix(1);
    return path;
}

std::string_view FileURL::lastPathComponent() const
{
    const std::string_view path = withoutTrailingSlashes(m_path);
    if (path == "/")
        return path;
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view FileURL::pathExtension() const
{
    const std::string_view name = lastPathComponent();
    const auto dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot + 1);
}

std::string FileURL::urlText() const
{
    std::string text(kScheme);
    text += percentEncoded(absolutePath());
    if (mustBeFolder() && text.back() != '/')
        text += '/';
    return text;
}

FileURL FileURL::fromUrlText(std::string_view text)
{
    if (text.starts_with(kScheme))
        text.remove_prefix(kScheme.size());
    return fileURLWithPath(percentDecoded(text));
}

std::string joinedPath(std::string_view folder, std::string_view name)
{
    std::string path(folder);
    if (path.empty() || path.back() != '/')
        path += '/';
    path += name;
    return path;
}

} // namespace pryvane
