#include "formats/PropertyTree.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <unordered_map>

namespace pryvane {

namespace {

constexpr std::string_view kMagic = "bplist0";
constexpr std::size_t kHead = 8;
constexpr std::size_t kTrailer = 32;

/// Objects refer to each other by number, so that a few bytes can describe a tree of any depth and
/// size: the tree's own limits end that, and no text is copied twice.
class BinaryReader {
public:
    explicit BinaryReader(PropertyTree& tree) : m_tree(tree), m_data(tree.bytes()) {}

    [[nodiscard]] Result<Done> read()
    {
        if (!m_data.starts_with(kMagic))
            return Error{"the property list is not understood: its binary form is not version 0"};
        if (!readTrailer() || !visit(m_top))
            return failure();
        while (!m_levels.empty()) {
            if (m_levels.back().next == m_levels.back().count) {
                m_tree.close();
                m_levels.pop_back();
            } else if (!visitNext()) {
                return failure();
            }
        }
        return Done{};
    }

private:
    enum Type : unsigned {
        kSimple = 0,
        kInteger = 1,
        kReal = 2,
        kDate = 3,
        kData = 4,
        kAsciiText = 5,
        kUtf16Text = 6,
        kUid = 8,
        kArray = 10,
        kSet = 12,
        kDictionary = 13,
    };
    struct Object {
        unsigned type = 0;
        unsigned low = 0;        ///< the marker's low half
        std::uint64_t count = 0; ///< bytes, characters, elements or pairs
        std::uint64_t start = 0; ///< of its content
    };
    struct Level {
        std::uint64_t start = 0;
        std::uint64_t count = 0;
        std::uint64_t next = 0;
        bool dictionary = false;
    };

    bool fail(const char* problem)
    {
        m_problem = problem;
        return problem == nullptr;
    }
    [[nodiscard]] Error failure() const
    {
        return Error{"the property list cannot be read: at byte " + std::to_string(m_at) + ", " +
                     m_problem};
    }

    [[nodiscard]] bool readTrailer()
    {
        if (m_data.size() < kHead + kTrailer)
            return fail("it ends too early");
        m_at = m_data.size() - kTrailer;
        m_offsetSize = static_cast<unsigned char>(m_data[m_at + 6]);
        m_referenceSize = static_cast<unsigned char>(m_data[m_at + 7]);
        m_objects = number(m_at + 8, 8);
        m_top = number(m_at + 16, 8);
        m_offsets = number(m_at + 24, 8);
        const bool sizes =
            m_offsetSize >= 1 && m_offsetSize <= 8 && m_referenceSize >= 1 && m_referenceSize <= 8;
        if (!sizes || m_offsets < kHead || m_offsets > m_at || m_objects > m_at ||
            m_objects * m_offsetSize > m_at - m_offsets)
            return fail("its table of objects does not fit");
        return true;
    }

    /// Whether that many bytes stand there, among the objects.
    [[nodiscard]] bool holds(std::uint64_t at, std::uint64_t bytes) const
    {
        return at >= kHead && at <= m_offsets && bytes <= m_offsets - at;
    }

    /// A big-endian number of up to eight bytes, which must be there.
    [[nodiscard]] std::uint64_t number(std::uint64_t at, std::uint64_t bytes) const
    {
        std::uint64_t value = 0;
        for (const char c : m_data.substr(at, bytes))
            value = value << 8 | static_cast<unsigned char>(c);
        return value;
    }

    [[nodiscard]] bool readObject(std::uint64_t index, Object& object)
    {
        if (index >= m_objects)
            return fail("an object has a number that there is not");
        m_at = number(m_offsets + index * m_offsetSize, m_offsetSize);
        if (!holds(m_at, 1))
            return fail("an object stands outside");
        const unsigned marker = static_cast<unsigned char>(m_data[m_at]);
        object = {marker >> 4, marker & 0xf, marker & 0xf, m_at + 1};
        switch (object.type) {
        case kSimple:
            object.count = 0;
            break;
        case kInteger:
        case kReal:
        case kDate:
            object.count = object.low > 4 ? m_data.size() : std::uint64_t{1} << object.low;
            break;
        case kUid:
            object.count = object.low + 1;
            break;
        default:
            if (object.low == 0xf && !readCount(object))
                return false;
        }
        const std::uint64_t unit = object.type == kDictionary  ? 2 * m_referenceSize
                                   : object.type == kArray     ? m_referenceSize
                                   : object.type == kSet       ? m_referenceSize
                                   : object.type == kUtf16Text ? 2
                                                               : 1;
        // The first test keeps the product small.
        if (object.count > m_data.size() || !holds(object.start, object.count * unit))
            return fail("an object does not end");
        return true;
    }

    /// The count did not fit and follows as an integer object.
    [[nodiscard]] bool readCount(Object& object)
    {
        if (!holds(object.start, 1))
            return fail("an object does not end");
        const unsigned marker = static_cast<unsigned char>(m_data[object.start]);
        const std::uint64_t bytes = std::uint64_t{1} << (marker & 0xf);
        if (marker >> 4 != kInteger || bytes > 8 || !holds(object.start + 1, bytes))
            return fail("an object's size is not understood");
        object.count = number(object.start + 1, bytes);
        object.start += 1 + bytes;
        return true;
    }

    /// The next element, or key and value, of the innermost level.
    [[nodiscard]] bool visitNext()
    {
        Level& level = m_levels.back();
        const auto reference = [this, &level](std::uint64_t i) {
            return number(level.start + i * m_referenceSize, m_referenceSize);
        };
        const std::uint64_t i = level.next++;
        m_tree.count();
        if (!level.dictionary)
            return visit(reference(i));
        const std::uint64_t value = reference(level.count + i);
        Object key;
        if (!readObject(reference(i), key))
            return false;
        if (key.type != kAsciiText && key.type != kUtf16Text)
            return fail("a dictionary's key is no text");
        return addText(key) && visit(value);
    }

    [[nodiscard]] bool visit(std::uint64_t index)
    {
        Object object;
        if (!readObject(index, object))
            return false;
        switch (object.type) {
        case kSimple:
            if (object.low != 8 && object.low != 9)
                return fail("an object is not understood");
            return fail(m_tree.add(PropertyKind::Boolean, object.low == 9));
        case kInteger:
            return addInteger(object);
        case kReal:
        case kDate:
            return addReal(object);
        case kData:
            return fail(m_tree.addBytes(PropertyKind::Data, object.start, object.count, false));
        case kAsciiText:
        case kUtf16Text:
            return addText(object);
        case kUid:
            if (object.count > 8)
                return fail("an object is not understood");
            return fail(m_tree.add(PropertyKind::Uid, number(object.start, object.count)));
        case kArray:
        case kSet:
        case kDictionary:
            return enter(object);
        default:
            return fail("an object is not understood");
        }
    }

    /// What holds itself ends here too, at the deepest level.
    [[nodiscard]] bool enter(const Object& object)
    {
        const bool dictionary = object.type == kDictionary;
        m_levels.push_back({object.start, object.count, 0, dictionary});
        return fail(m_tree.open(dictionary ? PropertyKind::Dictionary : PropertyKind::Array));
    }

    [[nodiscard]] bool addInteger(const Object& object)
    {
        if (object.count > 8) {
            const auto high = static_cast<std::int64_t>(number(object.start, 8));
            const std::uint64_t low = number(object.start + 8, 8);
            const bool fits = high == static_cast<std::int64_t>(low) >> 63;
            if (!fits)
                return fail(
                    m_tree.addReal(PropertyKind::Real, std::ldexp(static_cast<double>(high), 64) +
                                                           static_cast<double>(low)));
            return fail(m_tree.add(PropertyKind::Integer, low));
        }
        return fail(m_tree.add(PropertyKind::Integer, number(object.start, object.count)));
    }

    [[nodiscard]] bool addReal(const Object& object)
    {
        const std::uint64_t bits = number(object.start, object.count);
        if (object.type == kReal && object.count == 4)
            return fail(m_tree.addReal(PropertyKind::Real,
                                       std::bit_cast<float>(static_cast<std::uint32_t>(bits))));
        if (object.count != 8)
            return fail("an object is not understood");
        const auto value = std::bit_cast<double>(bits);
        if (object.type == kReal)
            return fail(m_tree.addReal(PropertyKind::Real, value));
        constexpr double kFarthest = 1e14; // seconds; some three million years
        constexpr double kFirstOf2001 = 978307200;
        if (!(std::fabs(value) <= kFarthest))
            return fail("a date is not understood");
        const auto milliseconds = static_cast<std::int64_t>((value + kFirstOf2001) * 1000);
        return fail(m_tree.add(PropertyKind::Time, static_cast<std::uint64_t>(milliseconds)));
    }

    [[nodiscard]] bool addText(const Object& object)
    {
        if (object.type == kAsciiText)
            return fail(m_tree.addBytes(PropertyKind::Text, object.start, object.count, false));
        std::string& buffer = m_tree.decoded();
        const auto [known, isNew] = m_decoded.try_emplace(object.start, Decoded{buffer.size(), 0});
        if (isNew) {
            // Texts that stand apart cannot make more than this.
            if (buffer.size() > 2 * m_data.size())
                return fail("its texts overlap");
            appendUtf16(object, buffer);
            known->second.length = buffer.size() - known->second.start;
        }
        return fail(
            m_tree.addBytes(PropertyKind::Text, known->second.start, known->second.length, true));
    }

    void appendUtf16(const Object& object, std::string& buffer) const
    {
        const auto unitAt = [this, &object](std::uint64_t i) {
            return static_cast<std::uint32_t>(number(object.start + 2 * i, 2));
        };
        for (std::uint64_t i = 0; i < object.count; ++i) {
            std::uint32_t unit = unitAt(i);
            if (unit >= 0xd800 && unit < 0xdc00 && i + 1 < object.count) {
                const std::uint32_t low = unitAt(i + 1);
                if (low >= 0xdc00 && low < 0xe000) {
                    unit = 0x10000 + ((unit - 0xd800) << 10) + (low - 0xdc00);
                    ++i;
                }
            }
            appendUtf8(buffer, unit);
        }
    }

    struct Decoded {
        std::size_t start = 0;
        std::size_t length = 0;
    };

    PropertyTree& m_tree;
    std::string_view m_data;
    unsigned m_offsetSize = 0;
    unsigned m_referenceSize = 0;
    std::uint64_t m_objects = 0;
    std::uint64_t m_top = 0;
    std::uint64_t m_offsets = 0; ///< where the table of the objects' places begins
    std::vector<Level> m_levels;
    std::unordered_map<std::uint64_t, Decoded> m_decoded; ///< UTF-16 texts, by where they stand
    std::uint64_t m_at = 0;
    const char* m_problem = "";
};

} // namespace

Result<Done> readBinaryPropertyList(PropertyTree& tree)
{
    return BinaryReader(tree).read();
}

} // namespace pryvane
