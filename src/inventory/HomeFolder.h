#pragma once

#include "platform/FileURL.h"

#include <string>
#include <string_view>

namespace pryvane {

/// Where a user's home is on the volume, and what browsers keep in it. The home is always taken
/// from the login name, never from the environment.
class HomeFolder {
public:
    static constexpr std::string_view kChrome = "Library/Application Support/Google/Chrome";
    static constexpr std::string_view kFirefoxProfiles =
        "Library/Application Support/Firefox/Profiles";
    static constexpr std::string_view kSafari = "Library/Safari";

    explicit HomeFolder(std::string user) : m_path("/Users/" + std::move(user)) {}

    [[nodiscard]] const std::string& path() const { return m_path; }

    /// A path below the home, without a slash at its beginning.
    [[nodiscard]] FileURL at(std::string_view path) const
    {
        return FileURL::fileURLWithPath(joinedPath(m_path, path));
    }

private:
    std::string m_path;
};

} // namespace pryvane
