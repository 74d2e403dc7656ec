#include "volume/FoldedName.h"

#include "core/Texts.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>

namespace pryvane {

namespace {

constexpr std::array<char, 128> kLowerCase = [] {
    std::array<char, 128> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = lowerAscii(static_cast<char>(i));
    return table;
}();

constexpr std::uint64_t kHighBits = 0x8080808080808080U;

/// Eight bytes at a time; the rest of the name is padded with zeros.
std::uint64_t wordAt(std::string_view text, std::size_t at)
{
    std::uint64_t word = 0;
    if (text.size() - at >= sizeof word)
        std::memcpy(&word, text.data() + at, sizeof word);
    else
        std::memcpy(&word, text.data() + at, text.size() - at);
    return word;
}

bool isAscii(std::string_view text)
{
    std::uint64_t seen = 0;
    for (std::size_t at = 0; at < text.size(); at += sizeof seen)
        seen |= wordAt(text, at);
    return (seen & kHighBits) == 0;
}

char lowerCase(char c)
{
    return kLowerCase[static_cast<unsigned char>(c) & 0x7f];
}

/// kLowerCase on each of eight ASCII bytes: 0x20 is added where bit 7 says "from A, not past Z".
std::uint64_t lowerCase(std::uint64_t word)
{
    constexpr std::uint64_t kOnes = 0x0101010101010101U;
    const std::uint64_t fromA = word + kOnes * (0x80 - 'A');
    const std::uint64_t pastZ = word + kOnes * (0x80 - 'Z' - 1);
    return word + ((fromA & ~pastZ & kHighBits) >> 2);
}

std::uint64_t mixed(std::uint64_t a, std::uint64_t b)
{
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

std::uint64_t hashed(std::string_view text, std::uint64_t key, bool folded)
{
    constexpr std::uint64_t kOdd = 0x9e3779b97f4a7c15U;
    std::uint64_t hash = mixed(key ^ text.size(), kOdd);
    for (std::size_t at = 0; at < text.size(); at += sizeof hash) {
        const std::uint64_t word = wordAt(text, at);
        hash = mixed(hash ^ (folded ? word : lowerCase(word)), key ^ kOdd);
    }
    return hash;
}

std::optional<std::string> mapped(std::string_view text, int options)
{
    utf8proc_uint8_t* bytes = nullptr;
    const auto* from = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    const utf8proc_ssize_t length =
        utf8proc_map(from, static_cast<utf8proc_ssize_t>(text.size()), &bytes,
                     static_cast<utf8proc_option_t>(options | UTF8PROC_STABLE));
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(bytes, &std::free);
    if (length < 0)
        return std::nullopt;
    return std::string(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
}

} // namespace

std::string foldedName(std::string_view name)
{
    if (isAscii(name)) {
        std::string folded(name);
        std::transform(folded.begin(), folded.end(), folded.begin(),
                       [](char c) { return lowerCase(c); });
        return folded;
    }
    // Marks must stand in their canonical order before the case is folded: one of them folds into a
    // letter, over which the others could no longer be moved.
    const auto decomposed = mapped(name, UTF8PROC_DECOMPOSE);
    const auto folded =
        decomposed ? mapped(*decomposed, UTF8PROC_DECOMPOSE | UTF8PROC_CASEFOLD) : std::nullopt;
    return folded.value_or(std::string(name));
}

bool sameFoldedName(std::string_view a, std::string_view b)
{
    if (!isAscii(a) || !isAscii(b))
        return foldedName(a) == foldedName(b);
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowerCase(x) == lowerCase(y); });
}

std::uint64_t foldedHash(std::string_view name, std::uint64_t key)
{
    return isAscii(name) ? hashed(name, key, false) : hashed(foldedName(name), key, true);
}

std::uint64_t exactHash(std::string_view name, std::uint64_t key)
{
    return hashed(name, key, true);
}

} // namespace pryvane
