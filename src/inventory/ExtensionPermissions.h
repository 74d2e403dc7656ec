#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What extensions may do and where they came from, out of the files in which browsers keep it.
/// Pure functions over bytes of unknown origin: whatever is broken in them gives fewer entries.
namespace pryvane {

/// How an extension came into a browser, as far as the browser says.
enum class ExtensionSource : std::uint8_t {
    NotKnown,
    Store,
    SideLoaded, ///< put there by another program, or from a file
    Policy,     ///< by whoever administers the Mac
    Unpacked,   ///< a folder that was chosen in the browser, as developers do
    BuiltIn,    ///< came with the browser
};

/// "from the browser's store"; for a person.
[[nodiscard]] const char* sourceText(ExtensionSource source);

/// At most this many permissions of one extension are looked at.
inline constexpr std::size_t kMostPermissions = 1000;

/// The permissions in a "manifest.json", as written, sites among them; none where it is broken.
[[nodiscard]] std::vector<std::string> manifestPermissions(std::string_view manifest);

/// What permissions allow, in plain words, the gravest first and each once. Sites that are named
/// are counted, and so is what has no words here.
[[nodiscard]] std::vector<std::string> plainPermissions(const std::vector<std::string>& raw);

struct ChromeInstall {
    std::string path; ///< as written: below the profile's "Extensions", or an absolute one
    ExtensionSource source = ExtensionSource::NotKnown;
};

/// By identifier, what a profile's "Preferences" or "Secure Preferences" say of its extensions.
[[nodiscard]] std::map<std::string, ChromeInstall> chromeInstalls(std::string_view preferences);

struct FirefoxInstall {
    ExtensionSource source = ExtensionSource::NotKnown;
    std::vector<std::string> permissions; ///< as written
};

/// By location as Firefox wrote it, what an "extensions.json" says of the add-ons.
[[nodiscard]] std::map<std::string, FirefoxInstall> firefoxInstalls(std::string_view extensions);

} // namespace pryvane
