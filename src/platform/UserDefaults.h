#pragma once

#include "core/Result.h"
#include "core/Texts.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace pryvane {

class ReportStore;

/// A preference: its stored name and the value that applies while it is absent.
template <typename Value>
struct PreferenceKey {
    std::string_view name;
    Value fallback;
};

/// Raw bytes, as opposed to text.
struct Bytes {
    std::string data;
    friend bool operator==(const Bytes&, const Bytes&) = default;
};

/// The one table of preferences. Keys without a natural default carry the empty value.
namespace preferences {

inline constexpr PreferenceKey<bool> kScan{"Scan", false};
inline constexpr PreferenceKey<Date> kLastScanDate{"LastScanDate", Date{}};
inline constexpr PreferenceKey<std::string_view> kCheckSubDir{"checkSubDir", "y"};
inline constexpr PreferenceKey<bool> kLibraryAccess{"Library Access", false};
inline constexpr PreferenceKey<bool> kSandboxingDone{"SandboxingDone", false};
inline constexpr std::string_view kSaveDirectory = "SaveDirectory";
inline constexpr std::string_view kSaveDirectoryForHD = "SaveDirectoryForHD";
inline constexpr std::string_view kSaveReport = "SaveReport";
inline constexpr PreferenceKey<std::int64_t> kIndex{"Index", 0};
inline constexpr PreferenceKey<bool> kARD{"ARD", true};
inline constexpr PreferenceKey<bool> kRealTimeScan{"RealTimeScanONOFF", true};
inline constexpr PreferenceKey<bool> kIsRunOnStart{"IsRunOnStart", false};
inline constexpr PreferenceKey<bool> kIsDockIcon{"IsDockIcon", true};
inline constexpr PreferenceKey<std::string_view> kScheduleOn{"ScheduleOn", "No"}; // or "Yes"
inline constexpr PreferenceKey<Date> kScheduleStartDate{"ScheduleStartDate", Date{}};
inline constexpr PreferenceKey<Date> kScheduleEndDate{"ScheduleEndDate", Date{}};
inline constexpr PreferenceKey<double> kScheduleTime{"ScheduleTime", 0.0}; // s after 00:00:01
inline constexpr PreferenceKey<std::int64_t> kScheduleType{"ScheduleType", 0};
inline constexpr PreferenceKey<std::int64_t> kScheduleRepeat{"ScheduleRepeat", 0};
/// The disk that timed scans look at while the window is closed; bytes.
inline constexpr std::string_view kScheduleDisk = "ScheduleDisk";
/// The last moment of the plan that a program has seen to; bytes.
inline constexpr std::string_view kScheduleTaken = "ScheduleTaken";
inline constexpr PreferenceKey<std::string_view> kAppearance{"Appearance", ""};
inline constexpr std::string_view kWindowFrame = "WindowFrame";
/// The disk that was given access to as a whole, by its identity; empty: none.
inline constexpr PreferenceKey<std::string_view> kWholeDisk{"WholeDisk", ""};
inline constexpr PreferenceKey<bool> kLayoutDiagnostics{
    "NSConstraintBasedLayoutVisualizeMutuallyExclusiveConstraints", false};

} // namespace preferences

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
