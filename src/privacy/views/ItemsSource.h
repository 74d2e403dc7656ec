#pragma once

#include "privacy/ToolsViewController.h"
#include "ui/RowModel.h"

#include <optional>

namespace pryvane {

/// The items of one group as rows of a table. Headings among them become the table's groups.
class ItemsSource final : public ui::RowSource {
public:
    enum Column : int { Tick, Name, Size };
    enum Grouping : int { None, ByHeading };

    explicit ItemsSource(ToolsViewController& controller) : m_controller(controller) {}

    [[nodiscard]] static std::vector<ui::Column> columns();

    /// The group to show; none shows nothing.
    void setGroup(std::optional<std::size_t> group) { m_group = group; }
    [[nodiscard]] bool hasHeadings() const;
    [[nodiscard]] QString explanation(int row) const;

    [[nodiscard]] int count() const override;
    [[nodiscard]] ui::Cell cell(int row, int column) const override;
    [[nodiscard]] std::optional<bool> ticked(int row) const override;
    void tick(const std::vector<int>& rows, bool on) override;
    [[nodiscard]] bool ticksWithOthers(int row) const override;
    [[nodiscard]] QString group(int row, int grouping) const override;
    [[nodiscard]] bool hidden(int row) const override;
    [[nodiscard]] QString searchText(int row) const override;
    [[nodiscard]] bool faded(int row) const override;

private:
    /// Null where the catalogue is being built anew.
    [[nodiscard]] const ToolGroup* shown() const;
    [[nodiscard]] const ToolItem& item(int row) const
    {
        return shown()->List[static_cast<std::size_t>(row)];
    }

    ToolsViewController& m_controller;
    std::optional<std::size_t> m_group;
};

} // namespace pryvane
