#pragma once

#include "platform/Remover.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>

namespace pryvane::test {

/// Removes below a temporary folder with the standard library, for tests of those who call a
/// remover. A path in `stubborn` fails.
class PlainRemover final : public Remover {
public:
    explicit PlainRemover(const TemporaryFolder& volume) : m_volume(volume) {}

    std::string stubborn;

    void plan(std::span<const RemovalItem> items, const StopFlag& stop,
              const RemovalForecasts& told) override
    {
        for (std::size_t i = 0; i < items.size() && !stop.requested(); ++i) {
            RemovalForecast forecast;
            forecast.kind = FileKind::Folder;
            for (const auto& place : places(items[i]))
                add(place, forecast);
            told(i, forecast);
        }
    }

    void remove(std::span<const RemovalItem> items, const StopFlag& stop,
                const RemovalResults& told) override
    {
        for (std::size_t i = 0; i < items.size(); ++i) {
            RemovalResult result;
            if (stop.requested() || items[i].url.absolutePath() == stubborn) {
                result.obstacle =
                    stop.requested() ? RemovalObstacle::Stopped : RemovalObstacle::NotPermitted;
            } else {
                result.outcome = RemovalOutcome::Removed;
                for (const auto& place : places(items[i]))
                    result.entriesRemoved += std::filesystem::remove_all(place);
            }
            told(i, result);
        }
    }

private:
    [[nodiscard]] std::vector<std::filesystem::path> places(const RemovalItem& item) const
    {
        const std::filesystem::path path = m_volume.hostPath(item.url.absolutePath());
        if (item.scope == RemovalScope::Item)
            return {path};
        std::vector<std::filesystem::path> entries;
        if (!std::filesystem::is_symlink(path) && std::filesystem::is_directory(path)) {
            for (const auto& entry : std::filesystem::directory_iterator(path))
                entries.push_back(entry.path());
        }
        return entries;
    }

    static void add(const std::filesystem::path& path, RemovalForecast& forecast);

    const TemporaryFolder& m_volume;
};

} // namespace pryvane::test
