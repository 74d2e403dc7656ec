#pragma once

#include "engine/records/Spyware.h"
#include "ui/RowModel.h"
#include "ui/Sheet.h"

namespace pryvane {

/// What could not be removed, each with the reason and what to do about it.
class FailuresSheet final : public ui::Sheet {
    Q_OBJECT

public:
    FailuresSheet(QWidget* over, const SpywareList& failed);
    void present();

private:
    class Source final : public ui::RowSource {
    public:
        explicit Source(SpywareList records) : m_records(std::move(records)) {}

        [[nodiscard]] int count() const override { return static_cast<int>(m_records.size()); }
        [[nodiscard]] ui::Cell cell(int row, int column) const override;
        [[nodiscard]] std::optional<bool> ticked(int) const override { return std::nullopt; }
        void tick(const std::vector<int>&, bool) override {}
        [[nodiscard]] QString group(int, int) const override { return {}; }
        [[nodiscard]] QString searchText(int) const override { return {}; }
        [[nodiscard]] bool faded(int) const override { return false; }

    private:
        SpywareList m_records;
    };

    Source m_source;
    ui::RowModel m_model;
    QWidget* m_table;
};

} // namespace pryvane
