#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace pryvane::test {

TemporaryFolder::TemporaryFolder()
{
    std::string pattern = (fs::temp_directory_path() / "pryvane-test-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("cannot make a temporary folder: " + pattern);
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

std::string TemporaryFolder::hostPath(std::string_view path) const
{
    while (!path.empty() && path.front() == '/')
        path.remove_prefix(1);
    return path.empty() ? m_path : m_path + "/" + std::string(path);
}

void TemporaryFolder::folder(std::string_view path) const
{
    std::string host = hostPath(path);
    while (host.back() == '/')
        host.pop_back();
    fs::create_directories(host);
}

void TemporaryFolder::file(std::string_view path, std::string_view content) const
{
    const fs::path host = hostPath(path);
    fs::create_directories(host.parent_path());
    std::ofstream out(host, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!out.flush())
        throw std::runtime_error("cannot write " + host.string());
}

void TemporaryFolder::link(std::string_view path, std::string_view target) const
{
    const fs::path host = hostPath(path);
    fs::create_directories(host.parent_path());
    fs::create_symlink(fs::path(target), host);
}

void TemporaryFolder::plant(std::string_view path) const
{
    if (path.ends_with('/'))
        folder(path);
    else if (!contains(path))
        file(path);
}

void TemporaryFolder::remove(std::string_view path) const
{
    fs::remove_all(hostPath(path));
}

bool TemporaryFolder::contains(std::string_view path) const
{
    struct stat data {};
    return lstat(hostPath(path).c_str(), &data) == 0;
}

std::string contentOf(const std::string& hostPath)
{
    std::ifstream file(hostPath, std::ios::binary);
    std::ostringstream content; // by blocks, where an iterator goes byte by byte
    content << file.rdbuf();
    return content.str();
}

bool runningAsRoot()
{
    return geteuid() == 0;
}

} // namespace pryvane::test
