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

/// How a scan came to its end.
struct ScanEnding {
    enum class How : std::uint8_t {
        Finished,
        Stopped,
        GrantFailed, ///< access to the folder that a deep scan walks could not be kept
    };
    static constexpr int kNotKnown = -1;

    How how = How::Finished;
    int percent = kNotKnown; ///< when stopped: how much had been looked at
    friend bool operator==(const ScanEnding&, const ScanEnding&) = default;
};

/// What one scan looked at, so that "nothing found" can be told from "not looked".
struct ScanCoverage {
    ScanEnding ended;
    std::int64_t signaturesTested = 0; ///< names searched and locations tested
    std::int64_t foldersListed = 0;
    std::int64_t entriesSearched = 0; ///< entries of the default locations
    std::int64_t entriesWalked = 0;   ///< entries of a deep walk
    std::vector<Refusal> refused;
    std::vector<std::string> heldBack;     ///< paths of applications that the list must not show
    std::string missingHome;               ///< the user's home folder, when the volume has none
    std::vector<std::string> homes;        ///< then: the names of the homes there are
    std::vector<std::string> homesLeftOut; ///< names of the homes that nobody asked for
    double seconds = 0;

    /// False for a scan that looked at nothing, and for a report too old to say what it looked at.
    [[nodiscard]] bool lookedAtAnything() const
    {
        return signaturesTested > 0 || foldersListed > 0 || entriesWalked > 0;
    }
};

/// Where the volume has no folder of that home, notes that and the homes there are; otherwise notes
/// the other homes, which nobody asked for.
void noteHomes(FileSystem& disk, const std::string& homePath, ScanCoverage& coverage);

/// What noteHomes() noted of a missing home, in words escaped for display.
[[nodiscard]] std::string missingHomeText(const ScanCoverage& coverage);

} // namespace pryvane
