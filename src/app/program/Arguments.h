#pragma once

#include "core/Result.h"

#include <optional>
#include <string>

namespace pryvane {

/// Which Mac the window looks at, and as whom. Raw bytes.
struct VolumeChoice {
    /// Host folder that stands for the Mac's root, or a file: its disk image or a list of its
    /// names. Absolute.
    std::string folder = "/";
    std::string user; ///< whose homes, as Users.h names them; empty: everyone's
    bool caseSensitive = false;
    std::string password = {}; ///< of an image's encrypted volume

    friend bool operator==(const VolumeChoice&, const VolumeChoice&) = default;
};

/// Whose homes on the disk in that folder are looked at where nobody is named.
[[nodiscard]] std::string usualUser(const std::string& folder);

/// What the program was started with.
struct Arguments {
    std::optional<std::string> volume; ///< absolute
    std::optional<std::string> user;
    bool caseSensitive = false;
    bool scan = false; ///< start a scan at once

    [[nodiscard]] VolumeChoice choice() const;
};

/// The arguments, or the exit code of a call that only wanted to be told something.
struct ParsedArguments {
    std::optional<Arguments> arguments;
    int exitCode = 0;
};

/// Writes help and version to standard output, mistakes to standard error.
[[nodiscard]] ParsedArguments parseArguments(int argc, char** argv);

} // namespace pryvane
