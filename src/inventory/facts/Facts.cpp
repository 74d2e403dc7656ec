#include "inventory/facts/Facts.h"

namespace pryvane {

std::string boundedText(std::string_view text)
{
    if (text.size() <= kLongestFactText)
        return std::string(text);
    std::size_t end = kLongestFactText;
    // Not within a character.
    while (end > kLongestFactText - 4 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
        --end;
    return std::string(text.substr(0, end)) + "…";
}

std::size_t textBytes(const Permission& permission)
{
    return permission.service.size() + permission.client.size() + permission.target.size();
}

std::size_t textBytes(const StartUpItem& item)
{
    std::size_t bytes = item.label.size() + item.programText.size() + item.runsAs.size() +
                        item.application.size() + item.developer.size();
    for (const auto* parts : {&item.arguments, &item.when})
        for (const std::string& part : *parts)
            bytes += part.size() + sizeof(std::string);
    return bytes;
}

std::size_t textBytes(const RemoteFact& fact)
{
    return fact.what.size() + fact.detail.size();
}

} // namespace pryvane
