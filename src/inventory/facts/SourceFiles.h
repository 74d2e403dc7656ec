#pragma once

#include "core/StopFlag.h"
#include "inventory/facts/FactScan.h"

#include <functional>
#include <map>
#include <string>

namespace pryvane {

/// Finds the files of sources on a disk and reads them, each folder listed once, and notes what
/// could not be read.
class SourceFiles {
public:
    SourceFiles(FileSystem& disk, const StopFlag& stop, Facts& facts)
        : m_disk(disk), m_stop(stop), m_facts(facts)
    {
    }

    /// One file or folder that a source's place fits.
    struct Found {
        std::string path;
        std::string user; ///< in whose home; empty for the whole Mac
    };

    /// Calls it for each, in the order of their names.
    void forEach(const FactSource& source, const std::vector<FactHome>& homes,
                 const std::function<void(const Found&)>& found);

    /// The file's bytes; none where they could not be had, which is noted.
    [[nodiscard]] std::optional<std::string> read(const FactSource& source,
                                                  const std::string& path);

    /// Notes how reading a source's file ended; an empty problem says that all of it was read.
    void note(const FactSource& source, const std::string& path, SourceNote::State state,
              std::string reason = {});

private:
    void expand(const FactSource& source, const FactHome& home, std::string_view place,
                const std::function<void(const Found&)>& found);
    [[nodiscard]] const std::vector<std::string>& namesIn(const FactSource& source,
                                                          const std::string& folder);

    FileSystem& m_disk;
    const StopFlag& m_stop;
    Facts& m_facts;
    std::map<std::string, std::vector<std::string>, std::less<>> m_folders;
    std::size_t m_bytesLeft = std::size_t{512} * 1024 * 1024;
};

} // namespace pryvane
