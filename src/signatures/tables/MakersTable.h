#pragma once

#include "signatures/CatalogueTypes.h"

namespace pryvane::tables {

/// The maker's own products, in the order in which a name is tried against them.
inline constexpr MakersProduct kMakersProducts[] = {
    {"Norvesta", "Norvesta"},
    {"Tidewell", "Tidewell"},
    {"Quillmark", "Quillmark"},
    {"Pryvane", "Pryvane"},
};

inline constexpr std::string_view kMakersBundlePrefix = "com.torvell.";

} // namespace pryvane::tables
