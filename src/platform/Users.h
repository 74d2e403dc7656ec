#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pryvane {

/// A user of a Mac's disk goes by the name of the home's folder in /Users, or by the home's whole
/// path where it lies elsewhere. Raw bytes.
[[nodiscard]] inline std::string homePath(std::string_view user)
{
    return user.starts_with('/') ? std::string(user) : "/Users/" + std::string(user);
}

/// Whose homes are to be looked at: those of the users named, or everyone's.
class UserChoice {
public:
    UserChoice(std::string user) : m_users{std::move(user)} {}
    UserChoice(const char* user) : m_users{user} {}
    /// Of nobody named: everyone.
    explicit UserChoice(std::vector<std::string> users) : m_users(std::move(users)) {}
    [[nodiscard]] static UserChoice everyone() { return UserChoice(std::vector<std::string>()); }

    [[nodiscard]] bool isEveryone() const { return m_users.empty(); }
    [[nodiscard]] const std::vector<std::string>& users() const { return m_users; }
    friend bool operator==(const UserChoice&, const UserChoice&) = default;

private:
    std::vector<std::string> m_users;
};

} // namespace pryvane
