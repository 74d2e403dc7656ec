#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pryvane {

/// The SHA-256 of bytes that come piece by piece. Tells long texts apart; no secret is kept with
/// it.
class Sha256 {
public:
    void add(std::string_view bytes);

    /// 64 lower-case hexadecimal digits; nothing can be added afterwards.
    [[nodiscard]] std::string hex();

private:
    static constexpr std::size_t kBlock = 64;

    void mix(const char* block);

    std::array<std::uint32_t, 8> m_words = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                            0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<char, kBlock> m_pending{};
    std::size_t m_held = 0; ///< of m_pending
    std::uint64_t m_length = 0;
};

/// The same of bytes that are all there.
[[nodiscard]] std::string sha256Hex(std::string_view bytes);

} // namespace pryvane
