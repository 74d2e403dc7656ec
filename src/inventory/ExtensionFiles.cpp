#include "inventory/ExtensionFiles.h"

#include "core/Texts.h"

#include <nlohmann/json.hpp>

#include <map>

namespace pryvane {

bool JsonPlace::is(std::initializer_list<std::string_view> keys) const
{
    if (keys.size() != m_depth)
        return false;
    std::size_t step = 0;
    for (const std::string_view key : keys) {
        const Step& at = m_steps[step++];
        if (key.data() != kAnyKey.data() && (at.array || at.key != key))
            return false;
    }
    return true;
}

/// Listens to the parser. Keeps the way to the current value, but no value.
class JsonTextReader {
public:
    JsonTextReader(const JsonTextSink& sink, const JsonNumberSink& numbers)
        : m_sink(sink), m_numbers(numbers)
    {
    }

    bool null() { return scalar(); }
    bool boolean(bool value) { return number(value ? 1 : 0); }
    bool number_integer(std::int64_t value) { return number(value); }
    bool number_unsigned(std::uint64_t value)
    {
        const bool fits = value <= std::uint64_t{INT64_MAX};
        return fits ? number(static_cast<std::int64_t>(value)) : scalar();
    }
    bool number_float(double, const std::string&) { return scalar(); }
    bool binary(const nlohmann::json::binary_t&) { return scalar(); }
    bool string(const std::string& text)
    {
        if (scalar() && m_depth > 0 && m_depth <= JsonPlace::kMostSteps)
            m_sink(m_place, text);
        return true;
    }
    bool start_object(std::size_t) { return enter(false); }
    bool start_array(std::size_t) { return enter(true); }
    bool end_object() { return leave(); }
    bool end_array() { return leave(); }
    bool key(std::string& name)
    {
        if (m_depth <= JsonPlace::kMostSteps)
            m_place.m_steps[m_depth - 1].key.swap(name);
        return true;
    }
    static bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&)
    {
        return false;
    }

private:
    static constexpr std::size_t kMostDepth = 512;

    bool number(std::int64_t value)
    {
        if (scalar() && m_numbers && m_depth > 0 && m_depth <= JsonPlace::kMostSteps)
            m_numbers(m_place, value);
        return true;
    }

    /// Notes that a value begins: an array counts its elements.
    bool scalar()
    {
        if (m_depth > 0 && m_depth <= JsonPlace::kMostSteps)
            ++m_place.m_steps[m_depth - 1].index;
        return true;
    }
    bool enter(bool array)
    {
        scalar();
        if (++m_depth > kMostDepth)
            return false;
        if (m_depth <= JsonPlace::kMostSteps) {
            // Before the first element, so that counting one up gives 0.
            m_place.m_steps[m_depth - 1].array = array;
            m_place.m_steps[m_depth - 1].index = static_cast<std::size_t>(-1);
        }
        m_place.m_depth = m_depth;
        return true;
    }
    bool leave()
    {
        m_place.m_depth = --m_depth;
        return true;
    }

    const JsonTextSink& m_sink;
    const JsonNumberSink& m_numbers;
    JsonPlace m_place;
    std::size_t m_depth = 0;
};

bool readJsonTexts(std::string_view json, const JsonTextSink& sink, const JsonNumberSink& numbers)
{
    JsonTextReader reader(sink, numbers);
    return nlohmann::json::sax_parse(json, &reader);
}

namespace {

constexpr std::string_view kMessagePrefix = "__MSG_";
constexpr std::size_t kLongestPath = std::size_t{32} * 1024; // longer ones stand on no disk

bool isOneComponent(std::string_view name)
{
    return !name.empty() && name.size() <= 255 && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == name.npos;
}

/// At most kLongestShown bytes of a text that is UTF-8, cut between two characters.
std::string shortened(const std::string& text)
{
    if (text.size() <= kLongestShown)
        return text;
    std::size_t end = kLongestShown;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
        --end;
    return text.substr(0, end) + "…";
}

std::string without(std::string_view text, std::string_view part)
{
    std::string rest;
    std::size_t from = 0;
    for (auto at = text.find(part); at != text.npos; at = text.find(part, from)) {
        rest += text.substr(from, at - from);
        from = at + part.size();
    }
    return rest.append(text.substr(from));
}

/// An element of the add-on list, as far as it was read.
struct AddOnTexts {
    std::size_t index = 0;
    std::optional<std::string> descriptor, path, version, name;

    [[nodiscard]] std::optional<FirefoxAddOn> whole() const
    {
        const auto& location = descriptor ? descriptor : path;
        if (!location || location->empty() || location->size() > kLongestPath || !version ||
            !name || *name == "Default")
            return std::nullopt;
        return FirefoxAddOn{*location, shortened(*version), shortened(*name)};
    }
};

} // namespace

BoundedList<ChromeProfile> chromeProfiles(std::string_view localState)
{
    BoundedList<ChromeProfile> profiles;
    std::map<std::string, std::size_t, std::less<>> places; // by folder
    const bool read = readJsonTexts(localState, [&](const JsonPlace& at, const std::string& text) {
        if (!at.is({"profile", "info_cache", JsonPlace::kAnyKey, "name"}) || at.inArray(2) ||
            !isOneComponent(at.key(2)))
            return;
        auto& entries = profiles.entries;
        if (const auto known = places.find(at.key(2)); known != places.end()) {
            entries[known->second].name = shortened(text);
        } else if (entries.size() < kMostProfiles) {
            places.emplace(at.key(2), entries.size());
            entries.push_back({at.key(2), shortened(text)});
        } else {
            profiles.whole = false;
        }
    });
    return read ? std::move(profiles) : BoundedList<ChromeProfile>();
}

std::optional<ExtensionManifest> extensionManifest(std::string_view manifest)
{
    std::optional<std::string> name, version;
    const bool read = readJsonTexts(manifest, [&](const JsonPlace& at, const std::string& text) {
        if (at.is({"name"}))
            name = text;
        else if (at.is({"version"}))
            version = text;
    });
    if (!read || !name || !version)
        return std::nullopt;
    return ExtensionManifest{shortened(*name), shortened(*version)};
}

std::optional<std::string> messageKey(std::string_view name)
{
    if (!name.starts_with(kMessagePrefix))
        return std::nullopt;
    std::string key = without(without(name, "__"), "MSG_");
    // Only names of several words are written in mixed case by some and in lower case by others.
    return key.find('_') == key.npos ? key : lowerAscii(key);
}

std::optional<std::string> messageText(std::string_view messages, std::string_view key)
{
    std::optional<std::string> message;
    const bool read = readJsonTexts(messages, [&](const JsonPlace& at, const std::string& text) {
        if (at.is({key, "message"}))
            message = shortened(text);
    });
    return read ? message : std::nullopt;
}

BoundedList<FirefoxAddOn> firefoxAddOns(std::string_view extensions)
{
    BoundedList<FirefoxAddOn> addOns;
    AddOnTexts current;
    const auto finish = [&] {
        auto addOn = current.whole();
        if (addOn && addOns.entries.size() < kMostAddOns)
            addOns.entries.push_back(std::move(*addOn));
        else if (addOn)
            addOns.whole = false;
    };
    const auto take = [&](const JsonPlace& at, const std::string& text) {
        const auto is = [&at](std::string_view key) {
            return at.is({"addons", JsonPlace::kAnyKey, key});
        };
        const bool isName = at.is({"addons", JsonPlace::kAnyKey, "defaultLocale", "name"});
        const bool wanted = isName || is("descriptor") || is("path") || is("version");
        if (!wanted || !at.inArray(1))
            return;
        if (at.index(1) != current.index) {
            finish();
            current = {};
            current.index = at.index(1);
        }
        (isName             ? current.name
         : is("descriptor") ? current.descriptor
         : is("path")       ? current.path
                            : current.version) = text;
    };
    if (!readJsonTexts(extensions, take))
        return {};
    finish();
    return addOns;
}

} // namespace pryvane
