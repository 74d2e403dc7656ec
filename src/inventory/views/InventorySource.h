#pragma once

#include "inventory/InventoryController.h"
#include "ui/RowModel.h"

#include <optional>

namespace pryvane {

/// What is installed, as rows of a table. Nothing in it can be ticked.
class InventorySource final : public ui::RowSource {
public:
    enum Column : int { Tick, Name, Detail, Location, Size };
    enum Grouping : int { None, ByKind };

    explicit InventorySource(const InventoryController& controller) : m_controller(controller) {}

    [[nodiscard]] static std::vector<ui::Column> columns();

    /// Shows one list only; none shows all.
    void setKind(std::optional<InventoryKind> kind) { m_kind = kind; }
    [[nodiscard]] const InventoryEntry& entry(int row) const
    {
        return m_controller.entries()[static_cast<std::size_t>(row)];
    }

    [[nodiscard]] int count() const override;
    [[nodiscard]] ui::Cell cell(int row, int column) const override;
    [[nodiscard]] QString group(int row, int grouping) const override;
    [[nodiscard]] bool hidden(int row) const override;
    [[nodiscard]] QString searchText(int row) const override;

private:
    const InventoryController& m_controller;
    std::optional<InventoryKind> m_kind;
};

} // namespace pryvane
