#pragma once

#include "signatures/CatalogRows.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// How strongly a match speaks, strongest first.
enum class Evidence : std::uint8_t { ExactPath, NameInLaunchFolder, NameFragment, BareSubstring };

[[nodiscard]] std::string_view evidenceText(Evidence evidence);

/// What the rule that keeps applications off the result list makes of a path.
enum class ApplicationRule : std::uint8_t {
    NotAnApplication, ///< the rule does not look at it
    HeldBack,         ///< an application that is never listed
    DependsOnDisk,    ///< listed when the maker's product of its name is not the maker's own
};

struct ExplainQuestion {
    std::string path; ///< raw bytes; relative ones count from the volume's root
    std::string user; ///< short name that fills "%@"
    /// How a disk that ignores letter case and normal form folds one name; none where it ignores
    /// neither. Name fragments and deep-scan texts are compared as they are either way.
    std::function<std::string(std::string_view)> foldedName;
    std::string_view family = {}; ///< of this threat's rules alone; empty: of all
};

struct ExplainMatch {
    CatalogRow row;
    Evidence evidence = Evidence::ExactPath;
    std::string location;      ///< the location or text that fits, filled in for the user
    bool onlyAsFolder = false; ///< no match if a file stands there
    bool onlyOnWholeDisk =
        false; ///< deep scan: outside the user's home, where it starts by default
};

struct Explanation {
    std::string path;                  ///< the path asked for in its absolute form
    std::vector<ExplainMatch> matches; ///< in the order of the sequence, deep scan last
    bool isKnownGood = false; ///< left out of the default locations, so no name search sees it
    ApplicationRule applicationRule = ApplicationRule::NotAnApplication;
};

/// Which rules would flag that path if it existed. Looks at the text alone, never at a disk, so a
/// link on the way to the path is not seen through.
[[nodiscard]] Explanation explain(const ExplainQuestion& question);

} // namespace pryvane
