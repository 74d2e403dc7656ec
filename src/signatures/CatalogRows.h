#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// In what way a signature betrays a threat.
enum class RuleKind : std::uint8_t {
    ExactPath,        ///< something stands at the location
    UserApplications, ///< the same location below the user's own folder
    LibraryScope,     ///< something stands at the location below one of the library roots
    NameFragment,     ///< an entry of a default folder has the name in its path, a "." touching it
    BareWord,         ///< the same without the "."
    Backdoor,
    RemoteDesktop,
    FullSystemSubstring, ///< deep scan only: a file has the text anywhere in its path
};

/// The rule in a few words.
[[nodiscard]] std::string_view ruleText(RuleKind rule);

/// A rule, as ruleText() names it, in plain words for a screen. Exports and the command line keep
/// the name.
[[nodiscard]] std::string_view ruleWords(std::string_view rule);

/// One signature of the catalogue. All texts last as long as the program.
struct CatalogRow {
    std::string_view method; ///< the check that uses it; "deep scan" for the full-system list
    std::string_view family; ///< the label of its findings
    RuleKind rule = RuleKind::ExactPath;
    std::string_view signature; ///< as stored, "%@" standing for the user's short name
    std::string_view note;      ///< what is peculiar about it, in words; mostly empty
    friend bool operator==(const CatalogRow&, const CatalogRow&) = default;
};

/// Every signature in the order of the sequence, then the full-system list. What is stored twice
/// stands twice.
[[nodiscard]] std::vector<CatalogRow> catalogRows();

/// Tells one state of the catalogue from another: the beginning of a hash over its signatures, the
/// folders they are looked for in, and the files that are known to be good.
[[nodiscard]] std::string catalogueVersion();

} // namespace pryvane
