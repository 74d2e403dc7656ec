#pragma once

#include <string>
#include <string_view>

namespace pryvane::test {

/// A folder of its own on the real disk, removed with everything in it at the end. Used as a volume
/// or as a data folder. Paths are relative to it and may begin with a slash; names are raw bytes.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The folder's own path on the host, without a trailing slash.
    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] std::string hostPath(std::string_view path) const;

    /// Makes a folder, and those above it, where they are missing.
    void folder(std::string_view path) const;
    /// Makes a regular file with that content, and the folders above it.
    void file(std::string_view path, std::string_view content = "x") const;
    /// Makes a symbolic link, and the folders above it.
    void link(std::string_view path, std::string_view target) const;
    /// Makes a file, or a folder where the path ends in a slash.
    void plant(std::string_view path) const;
    void remove(std::string_view path) const;
    [[nodiscard]] bool contains(std::string_view path) const;

private:
    std::string m_path;
};

/// The bytes of a file of the host.
[[nodiscard]] std::string contentOf(const std::string& hostPath);

/// Root reads through permissions; tests about refusals then say that they were skipped.
[[nodiscard]] bool runningAsRoot();

} // namespace pryvane::test
