#include "reports/CborWriter.h"

#include "core/Escape.h"

#include <cbor.h>

#include <array>
#include <cstring>

namespace pryvane {

namespace {

/// Whether all bytes are ASCII, eight at a time: the usual case, and far quicker to tell.
bool isAscii(std::string_view bytes)
{
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::uint64_t seen = 0;
    std::size_t at = 0;
    for (; at + sizeof seen <= bytes.size(); at += sizeof seen) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof word);
        seen |= word;
    }
    for (; at < bytes.size(); ++at)
        seen |= static_cast<unsigned char>(bytes[at]);
    return (seen & kHighBits) == 0;
}

} // namespace

template <typename Encode>
CborWriter& CborWriter::append(Encode encode)
{
    std::array<unsigned char, 9> head; // no item's head is longer
    const std::size_t length = encode(head.data(), head.size());
    m_out.append(reinterpret_cast<const char*>(head.data()), length);
    return *this;
}

CborWriter& CborWriter::tag(std::uint64_t number)
{
    return append(
        [&](unsigned char* at, std::size_t size) { return cbor_encode_tag(number, at, size); });
}

CborWriter& CborWriter::array(std::size_t count)
{
    return append([&](unsigned char* at, std::size_t size) {
        return cbor_encode_array_start(count, at, size);
    });
}

CborWriter& CborWriter::map(std::size_t pairs)
{
    return append([&](unsigned char* at, std::size_t size) {
        return cbor_encode_map_start(pairs, at, size);
    });
}

CborWriter& CborWriter::integer(std::int64_t number)
{
    return append([&](unsigned char* at, std::size_t size) {
        // A negative number n is stored as -1 - n.
        return number < 0 ? cbor_encode_negint(~static_cast<std::uint64_t>(number), at, size)
                          : cbor_encode_uint(static_cast<std::uint64_t>(number), at, size);
    });
}

CborWriter& CborWriter::real(double number)
{
    return append(
        [&](unsigned char* at, std::size_t size) { return cbor_encode_double(number, at, size); });
}

CborWriter& CborWriter::boolean(bool value)
{
    return append(
        [&](unsigned char* at, std::size_t size) { return cbor_encode_bool(value, at, size); });
}

CborWriter& CborWriter::bytes(std::string_view value)
{
    append([&](unsigned char* at, std::size_t size) {
        return cbor_encode_bytestring_start(value.size(), at, size);
    });
    m_out.append(value);
    return *this;
}

CborWriter& CborWriter::text(std::string_view value)
{
    append([&](unsigned char* at, std::size_t size) {
        return cbor_encode_string_start(value.size(), at, size);
    });
    m_out.append(value);
    return *this;
}

CborWriter& CborWriter::textOrBytes(std::string_view value)
{
    if (isAscii(value) || isUtf8(value))
        return text(value);
    return bytes(value);
}

} // namespace pryvane
