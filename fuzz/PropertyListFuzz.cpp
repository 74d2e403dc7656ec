// Property lists, XML and binary, of unknown origin: no bytes may crash the readers, nest or
// multiply without bound. The first byte chooses between the raw bytes and lists that are built
// from them: deep elements with hostile attributes, runs of entities, objects that share, hold
// themselves, overlap, or lie about their sizes.

#include "formats/BinaryLists.h"
#include "formats/PropertyList.h"

#include <cstdlib>

namespace {

using namespace pryvane;
using test::BinaryList;

/// Decisions taken from the input; zeros behind its end.
class Choices {
public:
    explicit Choices(std::string_view bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool ended() const { return m_bytes.empty(); }
    std::uint64_t number(std::uint64_t below) { return below == 0 ? 0 : wide() % below; }
    /// Mostly small, sometimes at a border of 16, 32 or 64 bits.
    std::uint64_t wide()
    {
        const unsigned size = byte();
        if (size < 200)
            return size;
        const unsigned shift = 8 * (size % 8) + 7;
        return (std::uint64_t{1} << (shift % 64)) + byte() - 128;
    }
    unsigned byte()
    {
        if (m_bytes.empty())
            return 0;
        const auto value = static_cast<unsigned char>(m_bytes.front());
        m_bytes.remove_prefix(1);
        return value;
    }
    std::string_view text(std::size_t most)
    {
        const std::string_view taken = m_bytes.substr(0, number(most + 1));
        m_bytes.remove_prefix(taken.size());
        return taken;
    }

private:
    std::string_view m_bytes;
};

constexpr std::size_t kMostMade = std::size_t{1} << 16;

void appendTimes(std::string& text, std::string_view part, std::uint64_t times)
{
    for (; times > 0 && text.size() < kMostMade; --times)
        text += part;
}

/// Elements by a path of choices, closed in order unless a choice says otherwise.
std::string madeXml(Choices choices)
{
    constexpr std::string_view kElements[] = {"array",   "dict", "string", "key",  "data",
                                              "integer", "real", "date",   "true", "plist"};
    constexpr std::string_view kPieces[] = {"&amp;",
                                            "&#65;",
                                            "&#x10FFFF;",
                                            "&e;",
                                            "&",
                                            "<!-- </array> -->",
                                            "<![CDATA[</dict>&]]>",
                                            "<?x \"?>",
                                            "12",
                                            "YWI=",
                                            "2026-11-21T22:10:00Z",
                                            "<!DOCTYPE x [<!ENTITY e \"]>\">]>"};
    constexpr std::string_view kAttributes[] = {" a=\"</x>\"", " a='>'", " a = \"<array>\"",
                                                " a",          " a=\"",  "/"};
    std::string xml;
    std::vector<std::string_view> open;
    while (!choices.ended() && xml.size() < kMostMade) {
        const unsigned choice = choices.byte();
        const std::string_view element = kElements[choices.number(std::size(kElements))];
        switch (choice % 8) {
        case 0:
        case 1:
            xml += "<" + std::string(element);
            if (choice > 128)
                xml += kAttributes[choices.number(std::size(kAttributes))];
            xml += ">";
            open.push_back(element);
            break;
        case 2:
            xml += "<key>" + std::string(choices.text(8)) + "</key>";
            break;
        case 3:
            appendTimes(xml, kPieces[choices.number(std::size(kPieces))], choices.wide());
            break;
        case 4:
            xml += "<string>" + std::string(choices.text(40)) + "</string>";
            break;
        case 5:
            // One nest deeper than anybody's stack.
            for (auto levels = choices.wide() % 4'000; levels > 0 && xml.size() < kMostMade;
                 --levels) {
                xml += "<array a=\"</x>\">";
                open.emplace_back("array");
            }
            break;
        case 6:
            xml += "</" + std::string(element) + ">";
            break;
        default:
            if (!open.empty()) {
                xml += "</" + std::string(open.back()) + ">";
                open.pop_back();
            }
        }
    }
    for (; !open.empty() && xml.size() < 2 * kMostMade; open.pop_back())
        xml += "</" + std::string(open.back()) + ">";
    return xml;
}

/// Objects that refer to each other as the choices say.
std::string madeBinary(Choices choices)
{
    BinaryList list(1 + choices.byte() % 8);
    const std::uint64_t objects = 1 + choices.number(300);
    for (std::uint64_t i = 0; i < objects; ++i) {
        const unsigned choice = choices.byte();
        switch (choice % 8) {
        case 0:
        case 1: {
            // Often many references to few objects, the container itself among them.
            std::vector<std::uint64_t> references(choices.number(300));
            const std::uint64_t span = 1 + choices.number(objects + 1);
            for (auto& reference : references)
                reference = (choice > 128 ? i : 0) + choices.byte() % span;
            list.container(choice % 3 == 0 ? 13 : 10, references);
            break;
        }
        case 2: {
            const std::string text(choices.text(60));
            list.object(BinaryList::head(choice > 128 ? 5 : 4, text.size()) + text);
            break;
        }
        case 3: {
            const std::string text(choices.text(60));
            list.object(BinaryList::head(6, text.size() / 2) + text);
            break;
        }
        case 4:
            list.objectAt(choices.number(list.size() + 16)); // on or between others
            break;
        case 5:
            // Says a size that it may not have.
            list.object(BinaryList::head(choices.byte() % 16, choices.wide()) +
                        std::string(choices.text(20)));
            break;
        case 6:
            list.container(10, {i + 1, i + 1}); // twice the rest
            break;
        default:
            list.object(static_cast<char>(choices.byte()) + std::string(choices.text(16)));
        }
    }
    std::string bytes = list.finished(choices.number(objects));
    if (choices.byte() % 4 == 0) {
        const std::size_t field = bytes.size() - 24 + 8 * (choices.byte() % 3);
        bytes.replace(field, 8, BinaryList::bytesOf(choices.wide(), 8));
    }
    if (choices.byte() % 8 == 0)
        bytes.resize(choices.number(bytes.size()));
    return bytes;
}

void require(bool condition)
{
    if (!condition)
        std::abort();
}

/// Goes through everything; the depth is the reader's own limit.
std::size_t counted(const PropertyValue& value, std::size_t level)
{
    require(level <= PropertyList::kMostLevels);
    std::size_t all = 1;
    std::size_t entries = 0;
    for (const PropertyEntry& entry : value) {
        ++entries;
        all += (value.kind() == PropertyKind::Dictionary ? 1 : 0) + counted(entry.value, level + 1);
        if (entries <= 3)
            static_cast<void>(value[entry.key]);
    }
    require(entries == value.size());
    const auto bytes = value.text() ? value.text() : value.data();
    if (bytes && !bytes->empty())
        require(bytes->front() == bytes->front() && bytes->back() == bytes->back());
    static_cast<void>(value.date());
    static_cast<void>(value.real());
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::string bytes = data[0] % 3 == 0   ? std::string(rest)
                        : data[0] % 3 == 1 ? madeXml(Choices(rest))
                                           : madeBinary(Choices(rest));
    const std::size_t length = bytes.size();
    const auto list = PropertyList::read(std::move(bytes));
    if (!list) {
        require(list.error().message.starts_with("the property list "));
        return 0;
    }
    require(list->values() <= length + 4097);
    require(counted(list->root(), 0) == list->values());
    static_cast<void>(list->root()["CFBundleIdentifier"].text());
    return 0;
}
