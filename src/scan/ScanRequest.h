#pragma once

#include "platform/FileURL.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// What one scan is to do, settled as it starts: what is chosen meanwhile holds for the next one.
struct ScanRequest {
    enum class Kind : std::uint8_t { Quick, Deep, RealTime };
    /// The two ways of a deep scan to go through folders; only one of them ends in a report.
    enum class Folders : std::uint8_t { Nodes, Flat };

    Kind kind = Kind::Quick;
    Folders folders = Folders::Nodes;
    std::vector<std::string> users; ///< whose homes, sorted, as Users.h names them
    /// What a deep scan walks, "/Users" for the homes of several users; none when making the grant
    /// failed.
    std::optional<FileURL> root;

    /// The folders that a deep scan walks, none inside another.
    [[nodiscard]] std::vector<FileURL> roots() const;

    [[nodiscard]] bool isDeep() const { return kind == Kind::Deep; }
    /// What the report calls it.
    [[nodiscard]] std::string_view reportType() const
    {
        switch (kind) {
        case Kind::Quick:
            break;
        case Kind::Deep:
            return "Deep Scan";
        case Kind::RealTime:
            return "Real Time Scan";
        }
        return "Quick Scan";
    }
};

} // namespace pryvane
