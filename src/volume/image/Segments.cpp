#include "volume/image/Segments.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <sys/stat.h>

namespace pryvane {

namespace {

constexpr std::size_t kMostSegments = 20'000;

bool isThere(const std::string& path)
{
    struct stat data {};
    return stat(path.c_str(), &data) == 0;
}

/// Counts up the digits or letters at the end of the name, "09" to "10", "az" to "ba"; false when
/// there are no more.
bool countUp(std::string& name, std::size_t from)
{
    for (std::size_t at = name.size(); at > from;) {
        char& c = name[--at];
        if (c == '9')
            c = '0';
        else if (c == 'z')
            c = 'a';
        else if (c == 'Z')
            c = 'A';
        else {
            ++c;
            return true;
        }
    }
    return false;
}

} // namespace

std::vector<std::string> imageSegments(const std::string& first)
{
    std::vector<std::string> files{first};
    const auto dot = first.rfind('.');
    const std::string_view ending =
        dot == std::string::npos ? std::string_view() : std::string_view(first).substr(dot + 1);
    if (ending.size() < 2)
        return files;
    const bool isWitness = (ending[0] == 'E' || ending[0] == 'e' || ending[0] == 'S' ||
                            ending[0] == 's' || ending[0] == 'L' || ending[0] == 'l') &&
                           (ending.ends_with("01"));
    const bool isNumbers =
        std::ranges::all_of(ending, [](unsigned char c) { return std::isdigit(c) != 0; });
    const bool isLetters = std::ranges::all_of(ending, [](char c) { return c == 'a' || c == 'A'; });
    if (!isWitness && !isNumbers && !isLetters)
        return files;
    std::string next = first;
    const std::size_t counted = isWitness ? first.size() - 2 : dot + 1;
    while (files.size() < kMostSegments) {
        if (!countUp(next, counted)) {
            // Behind E99 comes EAA.
            if (!isWitness || next[counted] != '0')
                break;
            const bool small = std::islower(static_cast<unsigned char>(ending[0])) != 0;
            next.replace(counted, 2, small ? "aa" : "AA");
        }
        if (!isThere(next))
            break;
        files.push_back(next);
    }
    return files;
}

} // namespace pryvane
