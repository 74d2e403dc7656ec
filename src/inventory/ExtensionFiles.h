#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the files say in which browsers keep their profiles and extensions. Pure functions over
/// bytes of unknown origin: whatever is broken in them gives fewer entries.
namespace pryvane {

/// Entries up to a bound; `whole` is false where there were more.
template <typename Entry>
struct BoundedList {
    std::vector<Entry> entries;
    bool whole = true;
};

/// Texts that are shown keep at most this many bytes, and "…".
inline constexpr std::size_t kLongestShown = 1024;

inline constexpr std::size_t kMostProfiles = 1000;
inline constexpr std::size_t kMostAddOns = 10'000; ///< of one profile

struct ChromeProfile {
    std::string folder; ///< one path component below Chrome's folder
    std::string name;   ///< as shown
};

/// The profiles in a "Local State" file, in its order, each once. Those without a name are left
/// out, and so are those whose folder would lead out of Chrome's own.
[[nodiscard]] BoundedList<ChromeProfile> chromeProfiles(std::string_view localState);

struct ExtensionManifest {
    std::string name; ///< as written: may refer to a message
    std::string version;
};

[[nodiscard]] std::optional<ExtensionManifest> extensionManifest(std::string_view manifest);

/// The message that a manifest's name refers to, "__MSG_appName__"; none where it is a plain name.
[[nodiscard]] std::optional<std::string> messageKey(std::string_view name);

/// The text of that message in a "messages.json" file.
[[nodiscard]] std::optional<std::string> messageText(std::string_view messages,
                                                     std::string_view key);

struct FirefoxAddOn {
    std::string location; ///< a path as Firefox wrote it
    std::string version;
    std::string name;
};

/// The add-ons in an "extensions.json" file, but not its themes named "Default".
[[nodiscard]] BoundedList<FirefoxAddOn> firefoxAddOns(std::string_view extensions);

} // namespace pryvane
