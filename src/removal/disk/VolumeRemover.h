#pragma once

#include "platform/Remover.h"

#include <string>
#include <vector>

namespace pryvane {

class OtherSpellings;
class ProtectedPlaces;
class RemovalJournal;
class VolumeFileSystem;

/// Removes below one volume. See Remover for the contract.
class VolumeRemover final : public Remover {
public:
    /// `ownFolders` are host folders of the program's own, such as the one of its store; neither
    /// they nor what lies in them nor anything above them is ever removed. Disk and journal must
    /// outlive this.
    VolumeRemover(const VolumeFileSystem& disk, RemovalJournal& journal,
                  std::vector<std::string> ownFolders);

    void plan(std::span<const RemovalItem> items, const StopFlag& stop,
              const RemovalForecasts& told) override;
    void remove(std::span<const RemovalItem> items, const StopFlag& stop,
                const RemovalResults& told) override;
    void conclude(const RemovalTally& tally) override;
    [[nodiscard]] bool hasRemovedBefore() override { return m_journal.tellsOfEarlier(); }

private:
    /// What is made once for all items of a call.
    struct Run {
        const StopFlag& stop;
        const ProtectedPlaces& places;
        OtherSpellings& spellings;
    };
    void removeSome(std::span<const RemovalItem> items, std::size_t first, const Run& run,
                    const RemovalResults& told);
    [[nodiscard]] RemovalResult removed(const RemovalItem& item, const Run& run) const;
    [[nodiscard]] RemovalForecast forecastOf(const RemovalItem& item, const StopFlag& stop,
                                             const ProtectedPlaces& places) const;

    const VolumeFileSystem& m_disk;
    RemovalJournal& m_journal;
    const std::vector<std::string> m_ownFolders;
};

} // namespace pryvane
