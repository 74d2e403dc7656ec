#pragma once

#include "core/Result.h"
#include "core/UniqueFd.h"

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace pryvane {

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
