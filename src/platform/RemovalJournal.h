#pragma once

#include "core/Result.h"
#include "platform/Removal.h"

#include <cstdint>
#include <span>
#include <string>

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
};

/// For executables and tests that keep no account.
class NoRemovalJournal final : public RemovalJournal {
public:
    [[nodiscard]] Result<Done> begin(std::span<const RemovalItem>) override { return Done{}; }
    void ended(std::size_t, const RemovalResult&) override {}
    Result<Done> flush() override { return Done{}; }
};

} // namespace pryvane
