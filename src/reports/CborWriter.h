#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pryvane {

/// Appends CBOR (RFC 8949) items to a string. Containers state their length before their content.
class CborWriter {
public:
    explicit CborWriter(std::string& out) : m_out(out) {}

    void tag(std::uint64_t number);
    void array(std::size_t count);
    void map(std::size_t pairs);
    void integer(std::int64_t number);
    void real(double number);
    void boolean(bool value);
    void bytes(std::string_view value);

    /// A text that is known to be UTF-8.
    void text(std::string_view value);

    /// A text where the bytes are UTF-8, a byte string where not.
    void textOrBytes(std::string_view value);

private:
    template <typename Encode>
    void append(Encode encode);

    std::string& m_out;
};

} // namespace pryvane
