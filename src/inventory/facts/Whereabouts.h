#pragma once

#include "inventory/facts/Facts.h"
#include "platform/FileSystem.h"

#include <map>
#include <string>
#include <string_view>

namespace pryvane {

/// Where a path lies, going by its names alone.
struct ProgramPlace {
    PlaceKind kind = PlaceKind::NotKnown;
    std::string home; ///< the home's folder name, for a path inside one
};
[[nodiscard]] ProgramPlace placeOf(std::string_view path);

/// The application bundle that a path lies in, or that it is; empty without one.
[[nodiscard]] std::string_view applicationOf(std::string_view path);

/// Looks for programs on a disk, each path once.
class ProgramFinder {
public:
    explicit ProgramFinder(FileSystem& disk) : m_disk(disk) {}

    /// An absolute path; anything else is not known. What belongs to a system that is not on this
    /// disk is not known either.
    [[nodiscard]] ProgramOnDisk find(const std::string& path);

private:
    [[nodiscard]] Whereabouts look(const std::string& path);
    [[nodiscard]] bool holdsSystem();

    FileSystem& m_disk;
    std::map<std::string, Whereabouts, std::less<>> m_known;
    std::optional<bool> m_holdsSystem;
};

} // namespace pryvane
