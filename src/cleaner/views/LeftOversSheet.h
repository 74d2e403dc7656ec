#pragma once

#include "cleaner/PrivacyCleaning.h"
#include "ui/RowModel.h"
#include "ui/Sheet.h"

class QLabel;

namespace pryvane {

namespace ui {
class RowTable;
}

/// What a cleaning was to take and could not, each with the reason.
class LeftOversSheet final : public ui::Sheet {
    Q_OBJECT

public:
    LeftOversSheet(QWidget* over, std::vector<LeftOver> stayed);
    void present();

private:
    class Source final : public ui::RowSource {
    public:
        explicit Source(std::vector<LeftOver> stayed) : m_stayed(std::move(stayed)) {}

        [[nodiscard]] int count() const override { return static_cast<int>(m_stayed.size()); }
        [[nodiscard]] ui::Cell cell(int row, int column) const override;
        [[nodiscard]] std::optional<bool> ticked(int) const override { return std::nullopt; }
        void tick(const std::vector<int>&, bool) override {}
        [[nodiscard]] QString group(int, int) const override { return {}; }
        [[nodiscard]] QString searchText(int) const override { return {}; }
        [[nodiscard]] bool faded(int) const override { return false; }

    private:
        std::vector<LeftOver> m_stayed;
    };

    Source m_source;
    ui::RowModel m_model;
    ui::RowTable* m_table;
    QLabel* m_reason; ///< of the current row, whole
};

} // namespace pryvane
