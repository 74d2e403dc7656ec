#pragma once

#include "core/StopFlag.h"
#include "platform/FileSystem.h"
#include "platform/Remover.h"
#include "privacy/ToolGroup.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pryvane {

/// One location that is about to be cleaned, with what is known beforehand.
struct CleaningRow {
    std::string user; ///< whose data it is, by the home's name
    ToolGroupKind kind = ToolGroupKind::System;
    std::string group;
    std::string item;
    Cost cost = Cost::Little;
    bool isExtension = false;
    ToolLocation location;
    RemovalForecast forecast;
    std::string blockedBy; ///< the running application that keeps it open; it then stays
    bool ticked = true;
    bool isPart = false; ///< one of what a folder holds that is taken by its contents

    struct Part {
        std::string name;
        std::int64_t bytes = 0; ///< allocated
    };
    /// Of a folder taken by its contents that holds too much to be in parts: what takes most.
    std::vector<Part> largest = {};

    [[nodiscard]] bool willGo() const { return ticked && blockedBy.empty(); }
    [[nodiscard]] RemovalItem removalItem() const;
};

/// What cleaning would do, to be shown and unticked before anything goes.
struct CleaningPreview {
    std::vector<CleaningRow> rows;

    struct Totals {
        std::uint64_t entries = 0; ///< files, links and folders
        std::int64_t bytes = 0;    ///< allocated
    };
    /// Of the rows that will go. What lies below another of them counts once.
    [[nodiscard]] Totals totals() const;

    /// The applications to be closed first, each once, in order.
    [[nodiscard]] std::vector<std::string> openBrowsers() const;

    /// The rows that make one item.
    struct Item {
        std::size_t first = 0; ///< of its rows, which stand together
        std::size_t count = 0;
        std::string_view meaning; ///< what clearing it means
        Totals totals;            ///< of its rows, ticked or not
        bool ticked = false;      ///< any of them
    };
    [[nodiscard]] std::vector<Item> items() const;

    /// Unticks what cannot be had back.
    void leaveDearOut();
};

/// The locations of the ticked items of all groups; each location once. What is dear in an item
/// that was not ticked by itself is unticked.
[[nodiscard]] std::vector<CleaningRow> selectedRows(std::span<const ToolGroup> groups);

/// What all locations of the groups take, as measured. What lies below another counts once.
[[nodiscard]] std::int64_t allBytes(std::span<const ToolGroup> groups);

/// The same of the ticked items.
[[nodiscard]] std::int64_t selectedBytes(std::span<const ToolGroup> groups);

/// "largest: a 1.2 GB, b 30 MB" of a row that names some; empty for others. Raw bytes.
[[nodiscard]] std::string largestText(const CleaningRow& row);

/// Looks at what the rows would take away; their ticks stay. A folder that is taken by its contents
/// becomes a row for each thing it holds, the largest first, so that each can be left out; one that
/// holds very many stays one row, which names the largest of them. `running` are the display names
/// of the applications that run on the volume. Blocks. After a stop the rows not reached have an
/// empty forecast.
[[nodiscard]] CleaningPreview previewCleaning(std::vector<CleaningRow> rows,
                                              std::span<const std::string> running,
                                              FileSystem& disk, Remover& remover,
                                              const StopFlag& stop);

/// Marks the rows that overlap what a running application keeps open, and no others.
void blockOpen(CleaningPreview& preview, std::span<const std::string> running);

} // namespace pryvane
