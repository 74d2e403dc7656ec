#pragma once

#include "inventory/FactsController.h"
#include "ui/RowModel.h"

#include <optional>
#include <string>

namespace pryvane {

/// One list of facts as rows of a table, in groups. Nothing in it can be ticked.
class FactsTableSource final : public ui::RowSource {
public:
    static constexpr int kByGroup = 1; ///< the grouping

    FactsTableSource(const FactsController& controller, FactKind kind)
        : m_controller(controller), m_kind(kind)
    {
    }

    [[nodiscard]] static std::vector<ui::Column> columns(FactKind kind);
    /// Whether its facts are about programs, which are on the disk or not.
    [[nodiscard]] static bool hasPrograms(FactKind kind);

    /// Which rows are left out.
    struct Choice {
        bool onlyThere = false;          ///< whose program is not on the disk
        bool denied = false;             ///< shows what was denied, too
        std::optional<std::string> user; ///< all but that user's; empty: the whole Mac
    };
    void choose(Choice choice) { m_choice = std::move(choice); }

    [[nodiscard]] const FactRow& row(int row) const
    {
        return m_controller.table(m_kind).rows[static_cast<std::size_t>(row)];
    }
    /// A cell of a fact in the language of the window.
    [[nodiscard]] QString shown(const FactRow& row, std::size_t cell) const;
    /// How many denied ones are folded away.
    [[nodiscard]] int deniedCount() const;

    [[nodiscard]] int count() const override;
    [[nodiscard]] ui::Cell cell(int row, int column) const override;
    [[nodiscard]] QString group(int row, int grouping) const override;
    [[nodiscard]] bool hidden(int row) const override;
    [[nodiscard]] QString searchText(int row) const override;
    [[nodiscard]] bool faded(int row) const override;

private:
    const FactsController& m_controller;
    const FactKind m_kind;
    Choice m_choice;
};

} // namespace pryvane
