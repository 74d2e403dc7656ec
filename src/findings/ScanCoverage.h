#pragma once

#include "platform/FileSystem.h"
#include "platform/NameTree.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace pryvane {

/// A folder or location that could not be looked at, and why, in words.
struct Refusal {
    std::string path; ///< raw bytes, a path of the volume
    std::string reason;
    friend bool operator==(const Refusal&, const Refusal&) = default;
};

/// What a list of names calls deleted, and a rule would have flagged. It is no finding: nothing is
/// there.
struct DeletedName {
    std::string path; ///< raw bytes, a path of the volume
    std::string infections;
    friend bool operator==(const DeletedName&, const DeletedName&) = default;
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
    /// Locations that lie on the system volume, where only the data volume was looked at; none of
    /// those tested.
    std::int64_t systemVolumeLeftOut = 0;
    std::int64_t foldersListed = 0;
    std::int64_t entriesSearched = 0; ///< entries of the default locations
    std::int64_t entriesWalked = 0;   ///< entries of a deep walk
    std::vector<Refusal> refused;
    std::vector<std::string> heldBack;     ///< paths of applications that the list must not show
    std::string missingHome;               ///< the user's home folder, when the volume has none
    std::vector<std::string> homes;        ///< then: the names of the homes there are
    std::vector<std::string> homesLeftOut; ///< names of the homes that nobody asked for
    std::vector<std::string> otherDisks;   ///< where others are mounted, left out of a deep walk
    SourceFacts source;                    ///< where the names came from; none for mounted folders
    std::vector<DeletedName> deleted;      ///< what the source names as deleted, the first of them
    std::int64_t contentsRead = 0;         ///< findings whose content was read for its SHA-256
    std::int64_t contentsNotRead = 0;      ///< files among them whose content could not be
    double seconds = 0;

    /// False for a scan that looked at nothing, and for a report too old to say what it looked at.
    [[nodiscard]] bool lookedAtAnything() const
    {
        return signaturesTested > 0 || foldersListed > 0 || entriesWalked > 0;
    }
};

/// "the system volume was not looked at: 28 signatures left out"; empty where it was.
[[nodiscard]] std::string systemVolumeText(const ScanCoverage& coverage);

/// "not looked at: the homes of bob, carol", escaped for display; empty where there are none.
[[nodiscard]] std::string homesLeftOutText(const ScanCoverage& coverage);

/// "not looked at: other disks at /Volumes/USB", escaped for display; empty where there are none.
[[nodiscard]] std::string otherDisksText(const ScanCoverage& coverage);

/// "contents of 3 findings were read for their SHA-256"; empty where none were to be.
[[nodiscard]] std::string contentsText(const ScanCoverage& coverage);

/// What a disk that is not mounted was read from: label and words escaped for display, in lines;
/// empty for mounted folders.
[[nodiscard]] std::vector<std::pair<std::string, std::string>>
sourceLines(const SourceFacts& source);

/// What is said of a missing home, in words escaped for display.
[[nodiscard]] std::string missingHomeText(const ScanCoverage& coverage);

} // namespace pryvane
