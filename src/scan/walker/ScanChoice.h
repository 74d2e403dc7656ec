#pragma once

#include "scan/walker/HomeTexts.h"
#include "signatures/PatternAutomaton.h"
#include "volume/index/EntryChoice.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pryvane {

/// Chooses what a scan, quick or deep, asks a disk about, whoever its users are: the places of the
/// catalogue, the entries of the default folders, and every file whose path holds a text of the
/// full-system list.
class ScanChoice final : public EntryChoice {
public:
    ScanChoice();

    [[nodiscard]] Folder root() const override;
    [[nodiscard]] Folder below(const Folder& folder, std::string_view name) const override;
    [[nodiscard]] bool isPlace(const Folder& folder, std::string_view name) const override;
    [[nodiscard]] bool isKept(const Folder& folder, std::string_view name,
                              FileKind kind) const override;

private:
    using Number = std::uint16_t; ///< of a place; 0 is the root, which is below none

    /// A folder that is asked about, and what is asked about in it.
    struct Place {
        std::unordered_map<std::string, Number> below; ///< by folded name
        Number anyone = 0;                             ///< "%@": a folder of any name
        bool everyEntry = false;
    };

    void addPath(std::string_view path, bool everyEntry);
    void add(std::string_view path, bool everyEntry);
    [[nodiscard]] Number numberBelow(const Place& place, const std::string& folded) const;

    std::vector<Place> m_places{1};
    HomeTexts m_homeTexts;
    PatternAutomaton m_texts; ///< those of no home
};

} // namespace pryvane
