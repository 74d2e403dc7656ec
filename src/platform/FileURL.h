#pragma once

#include <string>
#include <string_view>

namespace pryvane {

/// A location on the scanned volume, as raw bytes: the path as it was given (absolute, or relative
/// to the current folder, which is the volume's root) and its absolute form. Two locations are the
/// same when their absolute forms are; a trailing slash only says that a folder is meant.
class FileURL {
public:
    FileURL() = default;

    /// Keeps the path as it stands; bytes behind a NUL are cut off.
    [[nodiscard]] static FileURL fileURLWithPath(std::string_view path);

    /// The path as given.
    [[nodiscard]] const std::string& relativePath() const { return m_path; }

    /// The path from the root, without trailing slashes; "/" for the root itself.
    [[nodiscard]] std::string absolutePath() const;

    /// Whether the path was given with a trailing slash, so that only a folder will do.
    [[nodiscard]] bool mustBeFolder() const;

    /// The last name in the path, without trailing slashes; "/" for the root.
    [[nodiscard]] std::string_view lastPathComponent() const;

    /// What follows the last dot of the last name; empty without one, or where only it begins it.
    [[nodiscard]] std::string_view pathExtension() const;

    /// "file://" and the percent-encoded bytes of the absolute form, with its trailing slash if
    /// any.
    [[nodiscard]] std::string urlText() const;

    /// The path of a text made by urlText(); anything else is taken as a percent-encoded path.
    [[nodiscard]] static FileURL fromUrlText(std::string_view text);

    friend bool operator==(const FileURL& a, const FileURL& b)
    {
        return a.identity() == b.identity();
    }

    /// The absolute form without leading and trailing slashes, for hashing and comparing without a
    /// copy.
    [[nodiscard]] std::string_view identity() const;

private:
    std::string m_path;
};

/// Joins a folder and a name the way the default locations are spelled.
[[nodiscard]] std::string joinedPath(std::string_view folder, std::string_view name);

} // namespace pryvane
