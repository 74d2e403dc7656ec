#pragma once

#include "findings/ScanCoverage.h"
#include "findings/Subject.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pryvane {

/// What a scan came to. The one source of it for every screen, command, file and exit code.
enum class Verdict : std::uint8_t {
    Found,
    Attention,  ///< nothing listed, but an application bears a known name
    Stopped,    ///< nothing found in the part that was looked at
    Incomplete, ///< nothing found, but not everything that was asked for could be looked at
    Clean,
};

/// What colour says; only a clean disk is green.
enum class Tone : std::uint8_t { Red, Amber, Green };

/// The words for a verdict that do not depend on the scan.
struct VerdictWords {
    Verdict verdict;
    const char* machine;   ///< for programs: "found"
    const char* shortWord; ///< for a list's cell
    const char* headline;  ///< for the large statement of a screen
    Tone tone;
    int exitCode;
};

/// Pure: the same facts always give the same verdict.
[[nodiscard]] Verdict verdictOf(std::size_t findings, const ScanCoverage& coverage);

[[nodiscard]] const VerdictWords& wordsFor(Verdict verdict);

/// The verdict of its word for programs. Any other word, as of a report that says nothing, cannot
/// mean that all was looked at.
[[nodiscard]] Verdict verdictOfWord(std::string_view machine);

/// The verdict as plain text that says all that limits it, already escaped for display: held-back
/// applications, an early end, what could not be read and whose things were not looked at.
[[nodiscard]] std::string verdictLine(std::size_t findings, const ScanCoverage& coverage,
                                      const Subject& subject);

} // namespace pryvane
