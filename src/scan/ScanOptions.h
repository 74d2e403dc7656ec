#pragma once

#include "findings/CaseLabels.h"
#include "platform/FileURL.h"
#include "platform/Users.h"

#include <optional>
#include <string>

namespace pryvane {

/// Whose scan it is, and what was settled before it starts.
struct ScanOptions {
    UserChoice whose; ///< settled anew by each scan
    std::optional<FileURL>
        grantedRoot; ///< a root that needs no question: the call itself grants it

    std::optional<std::string> checkSubDir = {}; ///< "y" or "n" in place of the preference

    CaseLabels labels = {};    ///< for the report
    bool hashFindings = false; ///< reads the contents of findings that are files

    /// The one user named; empty where there are several.
    [[nodiscard]] std::string onlyUser() const
    {
        return whose.users().size() == 1 ? whose.users().front() : std::string();
    }
    /// Of several homes it is the folder that holds them.
    [[nodiscard]] std::string homePath() const
    {
        return onlyUser().empty() ? "/Users" : pryvane::homePath(onlyUser());
    }
    [[nodiscard]] FileURL homeRoot() const { return FileURL::fileURLWithPath(homePath() + "/"); }
};

} // namespace pryvane
