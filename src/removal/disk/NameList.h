#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pryvane {

/// Names of entries packed one behind the other, for folders that hold very many; the last put in
/// is the first taken out.
class NameList {
public:
    void add(std::string_view name) { m_block.append(name).push_back('\0'); }

    /// Takes the last name out; there must be one.
    [[nodiscard]] std::string take()
    {
        const std::size_t end = m_block.size() - 1;
        const std::size_t before = end == 0 ? m_block.npos : m_block.rfind('\0', end - 1);
        const std::size_t start = before == m_block.npos ? 0 : before + 1;
        std::string name = m_block.substr(start, end - start);
        m_block.resize(start);
        return name;
    }

    [[nodiscard]] bool empty() const { return m_block.empty(); }
    [[nodiscard]] std::size_t bytes() const { return m_block.size(); }

    /// Forgets the names, and gives the memory back.
    void clear() { m_block = std::string(); }

private:
    std::string m_block; ///< each name with a NUL behind it, which none contains
};

} // namespace pryvane
