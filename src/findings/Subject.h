#pragma once

#include "platform/FileSystem.h"

#include <span>
#include <string>
#include <vector>

namespace pryvane {

/// Whose disk a scan looked at. What is empty is not known: an older report says nothing, and many
/// a disk does not tell.
struct Subject {
    DiskSource source;              ///< what the disk came as, and its name there
    std::string computerName;       ///< the Mac's own name, as its disk says
    std::string systemVersion;      ///< "13.4 (22F66)", as its disk says
    std::vector<std::string> users; ///< short names of the homes that were looked at, raw bytes

    /// Whether anything is known of it.
    [[nodiscard]] bool isKnown() const
    {
        return source.kind != DiskSource::Kind::Unknown || !users.empty();
    }
    friend bool operator==(const Subject&, const Subject&) = default;
};

/// Reads what the disk itself says of its Mac: two small property lists, within bounds. Any thread.
[[nodiscard]] Subject readSubject(FileSystem& disk, std::vector<std::string> users);

inline constexpr const char* kNotKnown = "not known";

/// What lists call the Mac, raw bytes: its own name, else that of its volume; and the users' short
/// names. "not known" where they are not.
[[nodiscard]] std::string macName(const Subject& subject);
[[nodiscard]] std::string userNames(const Subject& subject); ///< "alice, bob"

/// The parts of a subject in words, escaped for display; "not known" where nothing is.
[[nodiscard]] std::string sourceText(const Subject& subject); ///< "Folder mac-disk"
[[nodiscard]] std::string systemText(const Subject& subject); ///< "macOS 13.4 (22F66)"

/// One line: "Alice's MacBook, macOS 13.4 (22F66), on mac-disk; user alice".
[[nodiscard]] std::string subjectText(const Subject& subject);

/// The source's word for programs: "this-mac", "folder", "image", "listing" or "unknown".
[[nodiscard]] const char* sourceWord(DiskSource::Kind kind);
[[nodiscard]] DiskSource::Kind sourceOfWord(std::string_view word);

/// Whether a report about `of` and its volume tells of the things of each of these users on the
/// volume `here`. A volume without an identity is like no other.
[[nodiscard]] bool isAbout(std::string_view volume, const Subject& of, std::string_view here,
                           std::span<const std::string> users);

} // namespace pryvane
