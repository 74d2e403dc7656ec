#pragma once

#include "core/Result.h"
#include "platform/PreferenceKeys.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace pryvane {

class ReportStore;

/// A preference as stored.
using PreferenceValue = std::variant<bool, std::int64_t, Date, std::string, Bytes, double>;

/// The per-user preferences store. Each write is whole and durable when it returns success: a crash
/// at any moment leaves the old value or the new one. Callable from any thread; the main thread
/// does the writing.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// The stored value, or none while the key is absent or holds something unreadable.
    [[nodiscard]] virtual std::optional<PreferenceValue> objectForKey(std::string_view key) = 0;

    virtual Result<Done> setObject(std::string_view key, const PreferenceValue& value) = 0;
    virtual Result<Done> removeObject(std::string_view key) = 0;

    /// Loads a binary value, hands it to `change`, and stores what comes back, with no other writer
    /// in between. `change` gets none while the key is absent and may return none to leave all as
    /// it was.
    using Change = std::function<std::optional<Bytes>(std::optional<Bytes> stored)>;
    virtual Result<Done> updateBytes(std::string_view key, const Change& change) = 0;

    /// Moves a damaged value to a dated key of its own, where a later look can find it. May be
    /// called from inside a change of that key, and is then stored together with it.
    virtual Result<Done> setAside(std::string_view key) = 0;

    /// The list of reports, which is kept with the preferences.
    [[nodiscard]] virtual ReportStore& reports() = 0;

    [[nodiscard]] bool contains(std::string_view key) { return objectForKey(key).has_value(); }

    /// The value of a typed key, or the key's fallback while it is absent or of another type.
    [[nodiscard]] bool get(const PreferenceKey<bool>& key) { return typed(key.name, key.fallback); }
    [[nodiscard]] std::int64_t get(const PreferenceKey<std::int64_t>& key)
    {
        return typed(key.name, key.fallback);
    }
    [[nodiscard]] double get(const PreferenceKey<double>& key)
    {
        return typed(key.name, key.fallback);
    }
    [[nodiscard]] std::string get(const PreferenceKey<std::string_view>& key)
    {
        return typed(key.name, std::string(key.fallback));
    }
    [[nodiscard]] Date get(const PreferenceKey<Date>& key) { return typed(key.name, key.fallback); }
    [[nodiscard]] std::optional<Bytes> getBytes(std::string_view key)
    {
        const auto stored = objectForKey(key);
        const auto* bytes = stored ? std::get_if<Bytes>(&*stored) : nullptr;
        return bytes ? std::optional(*bytes) : std::nullopt;
    }

    template <typename Key, typename Value>
    Result<Done> set(const PreferenceKey<Key>& key, Value&& value)
    {
        if constexpr (std::is_same_v<Key, std::string_view>)
            return setObject(key.name, PreferenceValue(std::string(value)));
        else
            return setObject(key.name, PreferenceValue(static_cast<Key>(value)));
    }
    template <typename Key>
    [[nodiscard]] bool contains(const PreferenceKey<Key>& key)
    {
        return contains(key.name);
    }

private:
    template <typename Value>
    [[nodiscard]] Value typed(std::string_view key, Value fallback)
    {
        const auto stored = objectForKey(key);
        const auto* value = stored ? std::get_if<Value>(&*stored) : nullptr;
        return value ? *value : fallback;
    }
};

} // namespace pryvane
