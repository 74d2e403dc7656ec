#include "inventory/JsonTexts.h"

#include <nlohmann/json.hpp>

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
    explicit JsonTextReader(const JsonTextSink& sink) : m_sink(sink) {}

    bool null() { return scalar(); }
    bool boolean(bool) { return scalar(); }
    bool number_integer(std::int64_t) { return scalar(); }
    bool number_unsigned(std::uint64_t) { return scalar(); }
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
    JsonPlace m_place;
    std::size_t m_depth = 0;
};

bool readJsonTexts(std::string_view json, const JsonTextSink& sink)
{
    JsonTextReader reader(sink);
    return nlohmann::json::sax_parse(json, &reader);
}

} // namespace pryvane
