#include "scan/walker/HomeTexts.h"

#include <algorithm>
#include <stdexcept>

namespace pryvane {

namespace {

constexpr std::string_view kUsersName = "Users";
constexpr std::size_t kMostPlaces = 250;

} // namespace

bool HomeTexts::add(std::string_view text)
{
    constexpr std::string_view kBeginning = "/Users/%@/";
    constexpr std::string_view kFolderOfHomes = "/Users/";
    if (!text.starts_with(kBeginning))
        return false;
    text.remove_prefix(kBeginning.size());
    // A text that leads through another such folder would need more places at a time than two.
    if (text.empty() || text.find("%@") != text.npos ||
        ("/" + std::string(text)).find(kFolderOfHomes) != std::string::npos)
        return false;
    Number place = kHome;
    for (auto slash = text.find('/'); slash != text.npos; slash = text.find('/')) {
        const std::string name(text.substr(0, slash));
        text.remove_prefix(slash + 1);
        if (text.empty()) {
            m_places[place].wholeNames.push_back(name);
            return true;
        }
        Number next = below(place, name);
        if (next == kNowhere) {
            if (m_places.size() >= kMostPlaces)
                throw std::length_error("the texts have too many folders below homes");
            next = static_cast<Number>(m_places.size());
            m_places.emplace_back();
            m_places[place].below.emplace_back(name, next);
        }
        place = next;
    }
    m_places[place].beginnings.emplace_back(text);
    return true;
}

HomeTexts::Number HomeTexts::below(Number place, std::string_view name) const
{
    if (place == kUsers)
        return kHome;
    const auto& rows = m_places[place].below;
    const auto found = std::ranges::find(rows, name, &std::pair<std::string, Number>::first);
    return found == rows.end() ? kNowhere : found->second;
}

HomeTexts::Places HomeTexts::below(const Places& places, std::string_view name, bool& matches) const
{
    Places next{};
    std::size_t count = 0;
    for (const Number place : places) {
        if (place == kNowhere)
            continue;
        const auto& whole = m_places[place].wholeNames;
        matches = matches || endsIn({place}, name) || std::ranges::find(whole, name) != whole.end();
        if (const Number number = below(place, name); number != kNowhere)
            next[count++] = number;
    }
    if (name == kUsersName && count < next.size())
        next[count] = kUsers;
    return next;
}

bool HomeTexts::endsIn(const Places& places, std::string_view name) const
{
    return std::ranges::any_of(places, [&](Number place) {
        return std::ranges::any_of(m_places[place].beginnings, [&](const std::string& beginning) {
            return name.starts_with(beginning);
        });
    });
}

} // namespace pryvane
