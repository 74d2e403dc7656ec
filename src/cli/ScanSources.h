#pragma once

#include "core/Result.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane::cli {

/// One disk among several: what it is called, where it is on this host, and what that is.
struct ScanSource {
    enum class Kind : std::uint8_t { Folder, Image, Listing };

    std::string label;
    std::string path; ///< raw bytes
    Kind kind = Kind::Folder;
};

/// "folder", "image" or "listing".
[[nodiscard]] const char* kindWord(ScanSource::Kind kind);

/// What stands at the path: a folder, a list of names where a file begins like text, else an image.
/// What is not there counts as a folder, whose scan says so.
[[nodiscard]] ScanSource::Kind recognisedKind(const std::string& path);

/// The disks that a file names: a line for each, with label, tab and path, and behind another tab
/// the kind where it is not to be recognised. Empty lines and those that begin with "#" are passed
/// over. `file` "-" is `input`. The error names the line.
[[nodiscard]] Result<std::vector<ScanSource>> readScanSources(const std::string& file,
                                                              std::istream& input);

} // namespace pryvane::cli
