#include "platform/posix/removal/JournalLines.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cerrno>

namespace pryvane {

namespace {

constexpr std::size_t kLongestLine = std::size_t{256} * 1024;

std::string textOf(const nlohmann::json& object, const char* key)
{
    const auto found = object.find(key);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

template <typename Number>
Number numberOf(const nlohmann::json& object, const char* key)
{
    const auto found = object.find(key);
    return found != object.end() && found->is_number_integer() ? found->get<Number>() : Number{0};
}

} // namespace

void forEachLine(int file, const std::function<void(std::string_view line)>& told)
{
    std::array<char, 16384> buffer;
    std::string line;
    bool tooLong = false;
    off_t at = 0;
    while (true) {
        const ssize_t got = pread(file, buffer.data(), buffer.size(), at);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return;
        at += got;
        std::string_view rest(buffer.data(), static_cast<std::size_t>(got));
        while (!rest.empty()) {
            const auto end = rest.find('\n');
            const std::string_view part = rest.substr(0, end);
            tooLong = tooLong || line.size() + part.size() > kLongestLine;
            if (!tooLong)
                line.append(part);
            if (end == std::string_view::npos)
                break;
            if (!tooLong)
                told(line);
            line.clear();
            tooLong = false;
            rest.remove_prefix(end + 1);
        }
    }
}

std::optional<JournalLine> parsedJournalLine(std::string_view line)
{
    const auto object = nlohmann::json::parse(line, nullptr, false);
    if (!object.is_object())
        return std::nullopt;
    const std::string event = textOf(object, "event");
    JournalLine parsed;
    parsed.isOutcome = event == "outcome";
    if (!parsed.isOutcome && event != "intent")
        return std::nullopt;
    parsed.id = textOf(object, "id");
    parsed.volume = textOf(object, "volume");
    parsed.url = textOf(object, "url");
    parsed.time = textOf(object, "time");
    parsed.outcome = textOf(object, "outcome");
    parsed.reason = textOf(object, "reason");
    parsed.bytes = numberOf<std::int64_t>(object, "bytes");
    parsed.entries = numberOf<std::uint64_t>(object, "entries");
    if (parsed.id.empty() || parsed.url.empty())
        return std::nullopt;
    return parsed;
}

} // namespace pryvane
