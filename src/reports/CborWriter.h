#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pryvane {

/// Appends CBOR (RFC 8949) items to a string, each call one. Containers state their length before
/// their content.
class CborWriter {
public:
    explicit CborWriter(std::string& out) : m_out(out) {}

    CborWriter& tag(std::uint64_t number);
    CborWriter& array(std::size_t count);
    CborWriter& map(std::size_t pairs);
    CborWriter& integer(std::int64_t number);
    CborWriter& real(double number);
    CborWriter& boolean(bool value);
    CborWriter& bytes(std::string_view value);

    /// A text that is known to be UTF-8.
    CborWriter& text(std::string_view value);

    /// A text where the bytes are UTF-8, a byte string where not.
    CborWriter& textOrBytes(std::string_view value);

private:
    template <typename Encode>
    CborWriter& append(Encode encode);

    std::string& m_out;
};

} // namespace pryvane
