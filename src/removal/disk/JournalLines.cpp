#include "removal/disk/JournalLines.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace pryvane {

namespace {

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

/// The moment that iso8601() wrote; the beginning of 1970 for anything else.
Date dateOf(const std::string& text)
{
    std::tm parts{};
    int milliseconds = 0;
    if (std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d.%3dZ", &parts.tm_year, &parts.tm_mon,
                    &parts.tm_mday, &parts.tm_hour, &parts.tm_min, &parts.tm_sec,
                    &milliseconds) != 7)
        return {};
    parts.tm_year -= 1900;
    parts.tm_mon -= 1;
    return Date(std::chrono::seconds(timegm(&parts)) + std::chrono::milliseconds(milliseconds));
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
            tooLong = tooLong || line.size() + part.size() > kLongestJournalLine;
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
    // Ours are flat. What is nested deeper is dropped as it is read, or it could take all memory.
    const auto isFlat = [](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
        return depth <= 1;
    };
    const auto object = nlohmann::json::parse(line, isFlat, false);
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
    parsed.time = dateOf(textOf(object, "time"));
    parsed.outcome = textOf(object, "outcome");
    parsed.reason = textOf(object, "reason");
    parsed.remark = textOf(object, "remark");
    parsed.pathHash = textOf(object, "pathSha256");
    parsed.pathLength = numberOf<std::uint64_t>(object, "pathBytes");
    parsed.bytes = numberOf<std::int64_t>(object, "bytes");
    parsed.entries = numberOf<std::uint64_t>(object, "entries");
    parsed.countedWhole = object.value("countedWhole", nlohmann::json()) == true;
    parsed.ofContents = textOf(object, "scope") == "contents";
    if (parsed.id.empty() || parsed.url.empty())
        return std::nullopt;
    return parsed;
}

} // namespace pryvane
