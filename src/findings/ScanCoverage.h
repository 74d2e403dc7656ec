#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pryvane {

/// A folder or location that could not be looked at, and why, in words.
struct Refusal {
    std::string path; ///< raw bytes, a path of the volume
    std::string reason;
    friend bool operator==(const Refusal&, const Refusal&) = default;
};

/// What one scan looked at, so that "nothing found" can be told from "not looked".
struct ScanCoverage {
    std::int64_t signaturesTested = 0; ///< names searched and locations tested
    std::int64_t foldersListed = 0;
    std::int64_t entriesSearched = 0; ///< entries of the default locations
    std::int64_t entriesWalked = 0;   ///< entries of a deep walk
    std::vector<Refusal> refused;
    std::vector<std::string> heldBack; ///< paths of applications that the list must not show
    std::string missingHome;           ///< the user's home folder, when the volume has none
    std::vector<std::string> homes;    ///< then: the names of the homes there are
    double seconds = 0;
};

/// Where the volume has no folder of that home, notes that and the homes there are.
void noteHomes(FileSystem& disk, const std::string& homePath, ScanCoverage& coverage);

/// What noteHomes() noted, in words escaped for display.
[[nodiscard]] std::string missingHomeText(const ScanCoverage& coverage);

enum class Verdict : std::uint8_t { Clean, CleanWhereRead, Found };

[[nodiscard]] Verdict verdictOf(std::size_t findings, const ScanCoverage& coverage);

/// The verdict as one line of plain text, already escaped for display.
[[nodiscard]] std::string verdictLine(std::size_t findings, const ScanCoverage& coverage);

} // namespace pryvane
