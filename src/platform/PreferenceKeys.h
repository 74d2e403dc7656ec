#pragma once

#include "core/Texts.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pryvane {

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
inline constexpr PreferenceKey<bool> kLayoutDiagnostics{
    "NSConstraintBasedLayoutVisualizeMutuallyExclusiveConstraints", false};

} // namespace preferences

} // namespace pryvane
