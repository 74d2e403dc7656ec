#include "store/MemoryUserDefaults.h"

namespace pryvane {

std::optional<PreferenceValue> MemoryUserDefaults::objectForKey(std::string_view key)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

Result<Done> MemoryUserDefaults::setObject(std::string_view key, const PreferenceValue& value)
{
    const std::lock_guard lock(m_mutex);
    m_values.insert_or_assign(std::string(key), value);
    return Done{};
}

Result<Done> MemoryUserDefaults::removeObject(std::string_view key)
{
    const std::lock_guard lock(m_mutex);
    if (const auto found = m_values.find(key); found != m_values.end())
        m_values.erase(found);
    return Done{};
}

Result<Done> MemoryUserDefaults::updateBytes(std::string_view key, const Change& change)
{
    const std::lock_guard lock(m_mutex);
    std::optional<Bytes> stored;
    if (const auto found = m_values.find(key); found != m_values.end()) {
        if (const auto* bytes = std::get_if<Bytes>(&found->second))
            stored = *bytes;
    }
    if (auto changed = change(std::move(stored)))
        m_values.insert_or_assign(std::string(key), std::move(*changed));
    return Done{};
}

Result<Done> MemoryUserDefaults::setAside(std::string_view key)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_values.find(key);
    if (found == m_values.end())
        return Done{};
    auto node = m_values.extract(found);
    node.key() += ".damaged";
    m_values.insert(std::move(node));
    return Done{};
}

} // namespace pryvane
