#pragma once

#include "platform/UserDefaults.h"

#include <map>
#include <mutex>

namespace pryvane {

/// Preferences that live as long as the object: for scans that must leave no trace, and for tests.
class MemoryUserDefaults final : public UserDefaults {
public:
    [[nodiscard]] std::optional<PreferenceValue> objectForKey(std::string_view key) override;
    Result<Done> setObject(std::string_view key, const PreferenceValue& value) override;
    Result<Done> removeObject(std::string_view key) override;
    Result<Done> updateBytes(std::string_view key, const Change& change) override;
    Result<Done> setAside(std::string_view key) override;

private:
    std::recursive_mutex m_mutex; ///< recursive: a change may set the old value aside
    std::map<std::string, PreferenceValue, std::less<>> m_values; // guarded by m_mutex
};

} // namespace pryvane
