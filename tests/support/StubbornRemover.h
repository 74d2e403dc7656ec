#pragma once

#include "platform/Remover.h"
#include "removal/disk/VolumeRemover.h"
#include "volume/VolumeFileSystem.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace pryvane::test {

/// The volume's own remover, but for the locations that fail as not permitted.
class StubbornRemover final : public Remover {
public:
    explicit StubbornRemover(const VolumeFileSystem& disk) : m_remover(disk, m_journal, {}) {}

    std::set<std::string> stubborn;         ///< absolute paths
    std::function<void()> onRemove = [] {}; ///< on the removing thread, before it begins
    std::vector<RemovalTally> concluded;

    void conclude(const RemovalTally& tally) override { concluded.push_back(tally); }
    bool hasRemovedBefore() override { return !concluded.empty(); }

    void plan(std::span<const RemovalItem> items, const StopFlag& stop,
              const RemovalForecasts& told) override
    {
        m_remover.plan(items, stop, told);
    }

    void remove(std::span<const RemovalItem> items, const StopFlag& stop,
                const RemovalResults& told) override
    {
        onRemove();
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (stubborn.contains(items[i].url.absolutePath())) {
                RemovalResult failed;
                failed.obstacle = RemovalObstacle::NotPermitted;
                told(i, failed);
            } else {
                m_remover.remove(
                    items.subspan(i, 1), stop,
                    [&](std::size_t, const RemovalResult& result) { told(i, result); });
            }
        }
    }

private:
    NoRemovalJournal m_journal;
    VolumeRemover m_remover;
};

} // namespace pryvane::test
