#pragma once

#include "core/StopFlag.h"
#include "platform/Removal.h"

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace pryvane {

/// Called once for each item, in order, on the thread that called.
using RemovalForecasts = std::function<void(std::size_t item, const RemovalForecast& forecast)>;
using RemovalResults = std::function<void(std::size_t item, const RemovalResult& result)>;

/// Removes for good, below one volume: the only place in the program that deletes what a user
/// selected. Nothing outside the volume, behind a link or on another mounted file system is
/// touched. Both calls block and belong on a background thread; one runs at a time.
class Remover {
public:
    virtual ~Remover() = default;

    /// Tells what remove() would do, and changes nothing. A stop ends it between two entries; items
    /// not reached are not told.
    virtual void plan(std::span<const RemovalItem> items, const StopFlag& stop,
                      const RemovalForecasts& told) = 0;

    /// Removes the items in order; each is journalled before and after. A stop ends it between two
    /// entries: the item at hand then fails as Stopped (true counts included), those not begun are
    /// told as Stopped with nothing removed.
    virtual void remove(std::span<const RemovalItem> items, const StopFlag& stop,
                        const RemovalResults& told) = 0;
};

/// For executables and tests that remove nothing: every item fails.
class NoRemover final : public Remover {
public:
    void plan(std::span<const RemovalItem> items, const StopFlag&,
              const RemovalForecasts& told) override
    {
        RemovalForecast forecast;
        forecast.kind = FileKind::Unknown;
        forecast.obstacle = RemovalObstacle::NotPermitted;
        for (std::size_t i = 0; i < items.size(); ++i)
            told(i, forecast);
    }

    void remove(std::span<const RemovalItem> items, const StopFlag&,
                const RemovalResults& told) override
    {
        RemovalResult result;
        result.obstacle = RemovalObstacle::NotPermitted;
        for (std::size_t i = 0; i < items.size(); ++i)
            told(i, result);
    }
};

} // namespace pryvane
