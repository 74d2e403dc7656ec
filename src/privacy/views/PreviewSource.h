#pragma once

#include "privacy/ToolsViewController.h"
#include "ui/RowModel.h"

namespace pryvane {

/// What a cleaning would take away, item by item, what cannot be had back first.
class PreviewItems final : public ui::RowSource {
public:
    enum Column : int { Tick, Name, Meaning, Entries, Size };
    enum Grouping : int { None, ByCost };

    explicit PreviewItems(ToolsViewController& controller) : m_controller(controller) {}

    [[nodiscard]] static std::vector<ui::Column> columns();

    /// Whether anything in it cannot be had back.
    [[nodiscard]] bool hasDear() const { return !m_items.empty() && isDear(0); }

    /// The preview may be another, or ticked otherwise.
    void follow();

    [[nodiscard]] int count() const override { return static_cast<int>(m_items.size()); }
    [[nodiscard]] ui::Cell cell(int row, int column) const override;
    [[nodiscard]] std::optional<bool> ticked(int row) const override;
    void tick(const std::vector<int>& rows, bool on) override;
    [[nodiscard]] bool ticksWithOthers(int row) const override;
    [[nodiscard]] QString group(int row, int grouping) const override;

private:
    [[nodiscard]] const CleaningPreview::Item& at(int row) const
    {
        return m_items[static_cast<std::size_t>(row)];
    }
    [[nodiscard]] const CleaningRow& firstOf(int row) const
    {
        return m_controller.preview().rows[at(row).first];
    }
    [[nodiscard]] bool isDear(int row) const { return firstOf(row).cost == Cost::Dear; }

    ToolsViewController& m_controller;
    std::vector<CleaningPreview::Item> m_items;
};

/// What a cleaning would take away, location by location.
class PreviewSource final : public ui::RowSource {
public:
    enum Column : int { Tick, Location, Entries, Size, Note };
    enum Grouping : int { None, ByItem };

    explicit PreviewSource(ToolsViewController& controller) : m_controller(controller) {}

    [[nodiscard]] static std::vector<ui::Column> columns();

    [[nodiscard]] int count() const override;
    [[nodiscard]] ui::Cell cell(int row, int column) const override;
    [[nodiscard]] std::optional<bool> ticked(int row) const override;
    void tick(const std::vector<int>& rows, bool on) override;
    [[nodiscard]] bool ticksWithOthers(int row) const override;
    [[nodiscard]] QString group(int row, int grouping) const override;
    [[nodiscard]] QString searchText(int row) const override;
    [[nodiscard]] bool faded(int row) const override;

private:
    [[nodiscard]] const CleaningRow& at(int row) const
    {
        return m_controller.preview().rows[static_cast<std::size_t>(row)];
    }

    ToolsViewController& m_controller;
};

} // namespace pryvane
