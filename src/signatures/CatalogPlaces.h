#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// One location that the quick scan tests, written out: library roots and the twins in a user's own
/// Applications folder are places of their own.
struct CatalogPlace {
    std::string_view family;
    std::string path;        ///< absolute; "%@" stands for a user's short name; no slash at its end
    bool folderOnly = false; ///< only a folder counts
    friend bool operator==(const CatalogPlace&, const CatalogPlace&) = default;
};

/// Every location once per family, in the order of the sequence. The texts of the deep scan are not
/// locations and not among them.
[[nodiscard]] std::vector<CatalogPlace> catalogPlaces();

/// A text that is looked for in the paths of the default folders' entries.
struct CatalogFragment {
    std::string_view family;
    std::string text; ///< in lower case; the dot that must touch it is part of it
    friend bool operator==(const CatalogFragment&, const CatalogFragment&) = default;
};

/// Every such text once per family, in the order of the sequence.
[[nodiscard]] std::vector<CatalogFragment> catalogFragments();

} // namespace pryvane
