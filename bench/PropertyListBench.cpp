// How reading a property list grows with its size, for the shapes that cost most: nanoseconds for a
// byte at 1, 4 and 16 MiB, and the ratio of the last to the first.
#include "formats/BinaryLists.h"
#include "formats/PropertyList.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

namespace {

using namespace pryvane;
using test::BinaryList;

constexpr std::size_t kMega = std::size_t{1} << 20;

std::string filled(std::string_view start, std::size_t size,
                   const std::function<std::string(std::size_t)>& part, std::string_view end)
{
    std::string text(start);
    for (std::size_t i = 0; text.size() + end.size() < size; ++i)
        text += part(i);
    return text + std::string(end);
}

std::string repeated(std::string_view start, std::size_t size, const char* part,
                     std::string_view end)
{
    return filled(
        start, size, [part](std::size_t) { return std::string(part); }, end);
}

std::string distinctKeys(std::size_t size)
{
    return filled(
        "<dict>", size,
        [](std::size_t i) { return "<key>" + std::to_string(i) + "</key><string>v</string>"; },
        "</dict>");
}

std::string sharedTexts(std::size_t size)
{
    BinaryList list(4);
    list.container(10, std::vector<std::uint64_t>(std::min(size / 8, PropertyList::kMostValues - 2),
                                                  std::uint64_t{1}));
    list.object(BinaryList::head(6, size / 4) + std::string(size / 2, 'x'));
    return list.finished();
}

/// The least time of five readings, in nanoseconds a byte.
double cost(const std::string& bytes, std::size_t& values)
{
    double least = 1e9;
    for (int run = 0; run < 5; ++run) {
        std::string copy = bytes;
        const auto begun = std::chrono::steady_clock::now();
        const auto list = PropertyList::read(std::move(copy));
        const std::chrono::duration<double, std::nano> taken =
            std::chrono::steady_clock::now() - begun;
        values = list ? list->values() : 0;
        least = std::min(least, taken.count() / static_cast<double>(bytes.size()));
    }
    return least;
}

} // namespace

int main()
{
    const std::pair<const char*, std::function<std::string(std::size_t)>> shapes[] = {
        {"entities",
         [](std::size_t size) { return repeated("<string>", size, "&amp;", "</string>"); }},
        {"comments in a text",
         [](std::size_t size) { return repeated("<string>", size, "a<!---->", "</string>"); }},
        {"distinct keys", distinctKeys},
        {"hidden nesting",
         [](std::size_t size) { return repeated("<plist>", size, "<array a=\"</x>\">", ""); }},
        {"flat elements",
         [](std::size_t size) { return repeated("<array>", size, "<string/>", "</array>"); }},
        {"one attribute",
         [](std::size_t size) { return repeated("<array a=\"", size, "</array>", "\"/>"); }},
        {"shared dictionary", [](std::size_t size) { return BinaryList::sharing(size - 64); }},
        {"shared UTF-16 text", sharedTexts},
        {"overlapping texts",
         [](std::size_t size) { return BinaryList::overlappingTexts(size / 70); }},
        {"doubling", [](std::size_t size) { return BinaryList::doubling(size / 22); }},
    };
    std::printf("%-20s %10s %10s %10s %8s %10s\n", "ns a byte", "1 MiB", "4 MiB", "16 MiB", "ratio",
                "values");
    for (const auto& [name, make] : shapes) {
        std::size_t values = 0;
        const double small = cost(make(kMega), values);
        const double middle = cost(make(4 * kMega), values);
        const double large = cost(make(16 * kMega), values);
        std::printf("%-20s %10.2f %10.2f %10.2f %8.2f %10zu\n", name, small, middle, large,
                    large / small, values);
    }
    return 0;
}
