#pragma once

#include "core/Files.h"
#include "core/Result.h"
#include "core/Texts.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace pryvane {

/// No line of the journal is longer, so that a damaged one cannot take all memory.
inline constexpr std::size_t kLongestJournalLine = std::size_t{2} * 1024 * 1024;

/// Up to here a path stands in the journal whole, so that no line of ours comes near the longest:
/// the two forms of a path take up to eight bytes for each of its own.
inline constexpr std::size_t kLongestPathOnRecord = std::size_t{64} * 1024;

/// Of a longer path its beginning, its length and the hash of all its bytes.
inline constexpr std::size_t kShortenedPath = 4096;

/// Reads a file line by line with a bounded buffer. A line that is longer than any of ours is left
/// out, and so is one without an end.
void forEachLine(int file, const std::function<void(std::string_view line)>& told);

/// A line of the journal taken apart; none for anything else.
struct JournalLine {
    bool isOutcome = false;
    std::string id, volume, url, outcome, reason, remark, purpose;
    std::string pathHash;         ///< SHA-256 of the path whose beginning the url is; else empty
    std::uint64_t pathLength = 0; ///< of that path, in bytes
    Date time{};
    std::int64_t bytes = 0;
    std::uint64_t entries = 0; ///< of an intention: those that were there
    bool countedWhole = false; ///< of an intention: there were no more
    bool ofContents = false;   ///< of an intention: the folder itself was to stay
};
[[nodiscard]] std::optional<JournalLine> parsedJournalLine(std::string_view line);

/// The file of the journal of removals in its data folder, as an append-only sequence of lines of
/// which each stands whole or not at all. One program holds it at a time.
class JournalStorage {
public:
    /// Touches nothing yet.
    explicit JournalStorage(std::string dataFolder) : m_dataFolder(std::move(dataFolder)) {}

    /// Opens the file, for the user alone and made where it is missing, and keeps other programs
    /// from writing to it until release(). A line that a crash left torn is ended.
    [[nodiscard]] Result<Done> hold();
    void release();

    /// Writes the lines or, on failure, none of them.
    [[nodiscard]] Result<Done> append(const std::string& lines);

    /// Puts on the device what was appended.
    [[nodiscard]] Result<Done> sync();

    /// Cuts off what was appended since the file had that size.
    void takeBack(off_t size);

    [[nodiscard]] off_t size() const;
    [[nodiscard]] int file() const { return m_file.get(); }

    /// Renames the file after the moment, forgets the oldest of those before it, and begins a fresh
    /// one, which is then held; where it cannot be renamed it goes on.
    [[nodiscard]] Result<Done> startAnew();

private:
    [[nodiscard]] Result<Done> open();
    [[nodiscard]] Result<Done> lock();
    [[nodiscard]] bool isInPlace() const;

    std::string m_dataFolder;
    UniqueFd m_folder;
    UniqueFd m_file;
};

/// The name of the journal in its folder.
inline constexpr const char* kJournalName = "Removals.jsonl";

/// The names of the journals that are kept in the open folder, oldest first, the one in use not
/// among them.
[[nodiscard]] std::vector<std::string> olderJournals(int folder);

} // namespace pryvane
