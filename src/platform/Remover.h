#pragma once

#include "core/Result.h"
#include "core/StopFlag.h"
#include "platform/Removal.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace pryvane {

/// The account of every removal, in an append-only file beside the store: what was about to be
/// removed is on the device before the first entry goes, so that after a crash the next start can
/// tell what became of it. Callable from one thread at a time.
class RemovalJournal {
public:
    virtual ~RemovalJournal() = default;

    /// Puts the intentions on the device. Where that fails nothing may be removed.
    [[nodiscard]] virtual Result<Done> begin(std::span<const RemovalItem> items) = 0;

    /// One line for the outcome of the item of that index in the last begin().
    virtual void ended(std::size_t item, const RemovalResult& result) = 0;

    /// Puts the outcomes on the device; called after the last of a begin()'s items.
    virtual Result<Done> flush() = 0;

    /// One line for what a removal of findings came to as a whole.
    virtual Result<Done> conclude(const RemovalTally&) { return Done{}; }

    /// Whether it tells of a removal of findings from this volume. Never of a volume that cannot be
    /// told from others.
    [[nodiscard]] virtual bool tellsOfEarlier() { return false; }
};

/// For executables and tests that keep no account.
class NoRemovalJournal final : public RemovalJournal {
public:
    [[nodiscard]] Result<Done> begin(std::span<const RemovalItem>) override { return Done{}; }
    void ended(std::size_t, const RemovalResult&) override {}
    Result<Done> flush() override { return Done{}; }
};

/// Called once for each item, in order, on the thread that called.
using RemovalForecasts = std::function<void(std::size_t item, const RemovalForecast& forecast)>;
using RemovalResults = std::function<void(std::size_t item, const RemovalResult& result)>;

/// Removes for good, below one volume: the only place in the program that deletes what a user
/// selected. Nothing outside the volume, behind a link or on another mounted file system is
/// touched. Both calls block and belong on a background thread; one runs at a time.
class Remover {
public:
    virtual ~Remover() = default;

    /// Why nothing at all can be removed on this disk, in a sentence; empty where it can. To be
    /// asked before a user is asked for anything.
    [[nodiscard]] virtual std::string refusal() const { return {}; }

    /// Tells what remove() would do, and changes nothing. A stop ends it between two entries; items
    /// not reached are not told.
    virtual void plan(std::span<const RemovalItem> items, const StopFlag& stop,
                      const RemovalForecasts& told) = 0;

    /// Removes the items in order; each is journalled before and after. A stop ends it between two
    /// entries: the item at hand then fails as Stopped (true counts included), those not begun are
    /// told as Stopped with nothing removed.
    virtual void remove(std::span<const RemovalItem> items, const StopFlag& stop,
                        const RemovalResults& told) = 0;

    /// Puts on record what a removal of findings came to, and whether there was one from this
    /// volume before. For the same thread.
    virtual void conclude(const RemovalTally&) {}
    [[nodiscard]] virtual bool hasRemovedBefore() { return false; }
};

/// For executables and tests that remove nothing, and for disks of which only the names were read:
/// every item fails.
class NoRemover final : public Remover {
public:
    explicit NoRemover(std::string refusal = {}) : m_refusal(std::move(refusal)) {}

    [[nodiscard]] std::string refusal() const override { return m_refusal; }

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

private:
    const std::string m_refusal;
};

} // namespace pryvane
