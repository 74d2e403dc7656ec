#include "reports/CborReader.h"

#include <cbor.h>

#include <array>
#include <limits>

namespace pryvane {

namespace {

constexpr std::size_t kDeepest = 64;
constexpr char kBreak = '\xff';

} // namespace

/// What the decoder calls for each kind of item; `context` is the reader's item.
struct CborReader::Callbacks {
    static Item& item(void* context) { return *static_cast<Item*>(context); }

    template <Type type, typename Number>
    static void number(void* context, Number value)
    {
        item(context).type = type;
        item(context).number = value;
    }
    template <Type type>
    static void string(void* context, cbor_data data, std::size_t size)
    {
        item(context).type = type;
        item(context).string = {reinterpret_cast<const char*>(data), size};
    }
    template <Type type>
    static void plain(void* context)
    {
        item(context).type = type;
    }
    template <typename Number>
    static void real(void* context, Number value)
    {
        item(context).type = Type::Real;
        item(context).real = static_cast<double>(value);
    }
    static void boolean(void* context, bool value)
    {
        item(context).type = Type::Boolean;
        item(context).flag = value;
    }

    static constexpr cbor_callbacks table()
    {
        cbor_callbacks calls{};
        calls.uint8 = number<Type::Unsigned, std::uint8_t>;
        calls.uint16 = number<Type::Unsigned, std::uint16_t>;
        calls.uint32 = number<Type::Unsigned, std::uint32_t>;
        calls.uint64 = number<Type::Unsigned, std::uint64_t>;
        calls.negint8 = number<Type::Negative, std::uint8_t>;
        calls.negint16 = number<Type::Negative, std::uint16_t>;
        calls.negint32 = number<Type::Negative, std::uint32_t>;
        calls.negint64 = number<Type::Negative, std::uint64_t>;
        calls.byte_string = string<Type::Bytes>;
        calls.string = string<Type::Text>;
        calls.byte_string_start = plain<Type::StringPieces>;
        calls.string_start = plain<Type::StringPieces>;
        calls.array_start = number<Type::Array, std::size_t>;
        calls.map_start = number<Type::Map, std::size_t>;
        calls.indef_array_start = plain<Type::ArrayUntilBreak>;
        calls.indef_map_start = plain<Type::MapUntilBreak>;
        calls.tag = number<Type::Tag, std::uint64_t>;
        calls.float2 = real<float>;
        calls.float4 = real<float>;
        calls.float8 = real<double>;
        calls.boolean = boolean;
        calls.null = plain<Type::Null>;
        calls.undefined = plain<Type::Null>;
        calls.indef_break = plain<Type::Break>;
        return calls;
    }
};

bool CborReader::next()
{
    static constexpr cbor_callbacks kCallbacks = Callbacks::table();
    if (m_failed)
        return false;
    if (nextShortText())
        return true;
    const auto* start = reinterpret_cast<cbor_data>(m_data.data()) + m_offset;
    const cbor_decoder_result result =
        cbor_stream_decode(start, m_data.size() - m_offset, &kCallbacks, &m_item);
    if (result.status != CBOR_DECODER_FINISHED) {
        fail();
        return false;
    }
    m_offset += result.read;
    return true;
}

/// The same for a string of at most 255 bytes, which most items are: the decoder takes longer to
/// call back than to decode one.
bool CborReader::nextShortText()
{
    constexpr unsigned kTextOrBytes = 0x40, kText = 0x60, kShort = 24;
    const std::string_view rest = m_data.substr(m_offset);
    if (rest.size() < 2)
        return false;
    const auto head = static_cast<unsigned char>(rest[0]);
    const unsigned length = head & 0x1f;
    if ((head & 0xc0) != kTextOrBytes || length > kShort)
        return false;
    const std::size_t start = length < kShort ? 1 : 2;
    const std::size_t size = length < kShort ? length : static_cast<unsigned char>(rest[1]);
    if (rest.size() - start < size)
        return false;
    m_item.type = (head & 0xe0) == kText ? Type::Text : Type::Bytes;
    m_item.string = rest.substr(start, size);
    m_offset += start + size;
    return true;
}

CborReader::Elements CborReader::elements(Type counted, Type untilBreak)
{
    if (!next())
        return {};
    if (m_item.type == untilBreak)
        return {0, true};
    // Each element takes a byte at least, so a larger count is a lie.
    if (m_item.type != counted || !fits(m_item.number)) {
        fail();
        return {};
    }
    return {m_item.number, false};
}

CborReader::Elements CborReader::array()
{
    return elements(Type::Array, Type::ArrayUntilBreak);
}

CborReader::Elements CborReader::map()
{
    return elements(Type::Map, Type::MapUntilBreak);
}

bool CborReader::atBreak() const
{
    return m_offset < m_data.size() && m_data[m_offset] == kBreak;
}

bool CborReader::more(Elements& elements)
{
    if (m_failed)
        return false;
    if (elements.untilBreak) {
        if (!atBreak())
            return true;
        ++m_offset;
        elements.untilBreak = false;
        return false;
    }
    if (elements.left == 0)
        return false;
    --elements.left;
    return true;
}

std::string_view CborReader::key()
{
    const std::size_t start = m_offset;
    if (!next())
        return {};
    if (m_item.type == Type::Text)
        return m_item.string;
    m_offset = start;
    skip();
    return {};
}

std::string_view CborReader::string()
{
    if (!next())
        return {};
    if (m_item.type == Type::Text || m_item.type == Type::Bytes)
        return m_item.string;
    fail();
    return {};
}

std::int64_t CborReader::integer()
{
    constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (!next())
        return 0;
    const bool isInteger = m_item.type == Type::Unsigned || m_item.type == Type::Negative;
    if (!isInteger || m_item.number > kLargest) {
        fail();
        return 0;
    }
    const auto number = static_cast<std::int64_t>(m_item.number);
    return m_item.type == Type::Negative ? -1 - number : number;
}

double CborReader::real()
{
    const std::size_t start = m_offset;
    if (!next())
        return 0;
    if (m_item.type == Type::Real)
        return m_item.real;
    m_offset = start;
    return static_cast<double>(integer());
}

bool CborReader::boolean()
{
    if (!next())
        return false;
    if (m_item.type != Type::Boolean) {
        fail();
        return false;
    }
    return m_item.flag;
}

bool CborReader::takeTag(std::uint64_t number)
{
    const std::size_t start = m_offset;
    if (!next())
        return false;
    if (m_item.type == Type::Tag && m_item.number == number)
        return true;
    m_offset = start;
    return false;
}

CborReader::Elements CborReader::enter()
{
    do {
        if (!next())
            return {};
    } while (m_item.type == Type::Tag); // what it marks follows
    switch (m_item.type) {
    case Type::Array:
    case Type::Map:
        if (!fits(m_item.number))
            break;
        return {m_item.type == Type::Map ? 2 * m_item.number : m_item.number, false};
    case Type::StringPieces:
    case Type::ArrayUntilBreak:
    case Type::MapUntilBreak:
        return {0, true};
    case Type::Break:
        break;
    default:
        return {};
    }
    fail();
    return {};
}

void CborReader::skip()
{
    std::array<Elements, kDeepest + 1> open; // a plain value counts as a container without elements
    std::size_t depth = 0;
    open[depth++] = enter();
    while (depth > 0) {
        if (!more(open[depth - 1]))
            --depth;
        else if (depth < open.size())
            open[depth++] = enter();
        else
            fail();
    }
}

} // namespace pryvane
