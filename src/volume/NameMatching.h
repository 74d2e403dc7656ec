#pragma once

#include <cstdint>

namespace pryvane {

/// How names on the volume are compared.
enum class NameMatching : std::uint8_t {
    AsOnMac, ///< letter case and Unicode normal form do not matter; an exact spelling goes first
    Exact,
};

} // namespace pryvane
