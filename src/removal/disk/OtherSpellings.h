#pragma once

#include "volume/folders/FolderHandle.h"

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace pryvane {

/// Finds what a Mac would have taken for the entry that was just removed: the same name in another
/// letter case or normal form, which stands beside it where the host tells them apart. Reads each
/// folder once, however many of its entries are asked for. For one thread at a time.
class OtherSpellings {
public:
    /// The name under which another one is in the open folder; empty where there is none, or the
    /// folder cannot be read.
    [[nodiscard]] std::string of(int folder, const std::string& removed);

private:
    using Hashes = std::vector<std::uint64_t>; ///< of the folded names, sorted

    [[nodiscard]] static std::string find(int folder, const std::string& removed);
    [[nodiscard]] Hashes hashesIn(int folder) const;

    const std::uint64_t m_key = std::random_device()();
    std::map<std::pair<dev_t, ino_t>, Hashes> m_known;
    std::size_t m_remembered = 0; ///< hashes in all
};

} // namespace pryvane
