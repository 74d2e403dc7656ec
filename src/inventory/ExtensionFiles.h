#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the files say in which browsers keep their profiles and extensions. Pure functions over
/// bytes of unknown origin: whatever is broken in them gives fewer entries.
namespace pryvane {

/// Where in a JSON document a text stands: the keys and indexes that lead to it from the top.
class JsonPlace {
public:
    static constexpr std::size_t kMostSteps = 5; ///< texts nested deeper are not told
    static constexpr std::string_view kAnyKey{};

    /// Whether exactly these object keys lead here; kAnyKey stands for any, of an array's element
    /// too.
    [[nodiscard]] bool is(std::initializer_list<std::string_view> keys) const;

    /// The key or, for an array's element, the index of a step, counted from 0.
    [[nodiscard]] const std::string& key(std::size_t step) const { return m_steps[step].key; }
    [[nodiscard]] std::size_t index(std::size_t step) const { return m_steps[step].index; }
    [[nodiscard]] bool inArray(std::size_t step) const { return m_steps[step].array; }

private:
    friend class JsonTextReader;
    struct Step {
        bool array = false;
        std::size_t index = 0;
        std::string key;
    };
    std::array<Step, kMostSteps> m_steps;
    std::size_t m_depth = 0;
};

using JsonTextSink = std::function<void(const JsonPlace& place, const std::string& text)>;
/// Takes integers, and true and false as 1 and 0.
using JsonNumberSink = std::function<void(const JsonPlace& place, std::int64_t number)>;

/// Tells the texts of a strict JSON document (UTF-8; a byte-order mark is skipped) in its order.
/// False where it is not one or is nested more than 512 deep; what was told by then is void. Memory
/// stays in proportion to the longest text, whatever the bytes say.
[[nodiscard]] bool readJsonTexts(std::string_view json, const JsonTextSink& sink,
                                 const JsonNumberSink& numbers = {});

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
