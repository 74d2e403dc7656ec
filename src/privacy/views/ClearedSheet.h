#pragma once

#include "privacy/PrivacyCleaning.h"
#include "ui/RowModel.h"
#include "ui/Sheet.h"

namespace pryvane::ui {
class RowTable;
}

namespace pryvane {

/// What the last clearing freed, item by item.
class ClearedSheet final : public ui::Sheet {
    Q_OBJECT

public:
    ClearedSheet(QWidget* over, std::vector<CleanedItem> items);
    void present();

private:
    class Source final : public ui::RowSource {
    public:
        explicit Source(std::vector<CleanedItem> items) : m_items(std::move(items)) {}

        [[nodiscard]] static std::vector<ui::Column> columns();
        [[nodiscard]] int count() const override { return static_cast<int>(m_items.size()); }
        [[nodiscard]] ui::Cell cell(int row, int column) const override;

    private:
        std::vector<CleanedItem> m_items;
    };

    Source m_source;
    ui::RowModel m_model;
    ui::RowTable* m_table;
};

} // namespace pryvane
