#pragma once

#include "core/Result.h"
#include "core/StopFlag.h"
#include "volume/index/IndexFileSystem.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace pryvane {

struct ListingOptions {
    std::string prefix; ///< taken off the front of each path; what does not begin so is skipped
    NameMatching matching = NameMatching::AsOnMac;
    std::shared_ptr<const EntryChoice> choice = std::make_shared<EveryEntry>();
    bool withHash = false; ///< of the list's bytes, as SHA-256
};

/// Reads a list of a disk's names in one pass, from an open file or pipe to its end, and makes a
/// disk of it. `name` is what the list is called in messages and facts. Memory is that of the
/// entries chosen. `bytesRead` is for a display. The error says what to do; a stop is an error too.
[[nodiscard]] Result<std::unique_ptr<IndexFileSystem>>
readListing(int fd, const std::string& name, const ListingOptions& options, const StopFlag& stop,
            std::atomic<std::uint64_t>& bytesRead);

/// The same for a file of the host, or the standard input for "-".
[[nodiscard]] Result<std::unique_ptr<IndexFileSystem>>
openListing(const std::string& path, const ListingOptions& options, const StopFlag& stop,
            std::atomic<std::uint64_t>& bytesRead);

} // namespace pryvane
