#pragma once

#include "ui/Theme.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <optional>
#include <vector>

namespace pryvane::ui {

/// What one cell shows. Text is plain and already escaped.
struct Cell {
    QString text = {};
    QString iconName = {};
    Meaning meaning = Meaning::Neutral;
    std::optional<qint64> number = {}; ///< sorts by this where given
    QString tooltip = {};              ///< the text itself where empty
    QString whole = {}; ///< for a screen reader, where the text is shortened; else empty
};

struct Column {
    QString title = {};
    int width = 120; ///< device-independent pixels; of the stretching column, the least
    bool stretches = false;
    bool isPath = false;
    bool isNumber = false;
    bool isChip = false;    ///< its words lie on a ground of their own and are never cut
    bool isBelow = false;   ///< no column: it is the second line of the row, over its whole width
    bool isSpare = false;   ///< leaves, for the second line if there is one, where room is short
    QStringList words = {}; ///< all that it may say, which its width has room for
};

/// The records behind a table: numbered from 0, only ever appended to between two resets.
class RowSource {
public:
    virtual ~RowSource() = default;

    [[nodiscard]] virtual int count() const = 0;
    [[nodiscard]] virtual Cell cell(int row, int column) const = 0;

    /// None for a row that cannot be ticked.
    [[nodiscard]] virtual std::optional<bool> ticked(int /*row*/) const { return std::nullopt; }
    virtual void tick(const std::vector<int>& /*rows*/, bool /*on*/) {}

    /// Whether ticking a whole group, or all rows, ticks this one, too.
    [[nodiscard]] virtual bool ticksWithOthers(int /*row*/) const { return true; }

    /// The group of the row under that grouping (1, 2, …); grouping 0 has no groups.
    [[nodiscard]] virtual QString group(int /*row*/, int /*grouping*/) const { return {}; }

    /// Whether the row is left out, because it is shown elsewhere.
    [[nodiscard]] virtual bool hidden(int /*row*/) const { return false; }

    /// What the filter looks in.
    [[nodiscard]] virtual QString searchText(int /*row*/) const { return {}; }

    /// What stands at the end of a second line, and is not cut for the line's sake.
    [[nodiscard]] virtual Cell remark(int /*row*/) const { return {}; }

    /// Drawn paler: what is no longer there.
    [[nodiscard]] virtual bool faded(int /*row*/) const { return false; }
};

/// Filters, sorts and groups the rows of a source, whose order it otherwise keeps. 100,000 rows
/// stay usable: cells are asked for only when they are seen. Column 0 is the tick box.
class RowModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    RowModel(RowSource& source, std::vector<Column> columns, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    void sort(int column, Qt::SortOrder order) override;

    [[nodiscard]] const std::vector<Column>& columns() const { return m_columns; }
    /// Of a second line; empty for a heading.
    [[nodiscard]] Cell remark(const QModelIndex& index) const;
    void setFilter(const QString& text);
    void setGrouping(int grouping);

    /// The source starts over.
    void reset();
    /// The source may have grown; what is shown keeps its place.
    void takeAppended();
    /// Ticks or texts have changed, rows have not.
    void refresh();

    void tickAll(bool on);
    [[nodiscard]] Qt::CheckState allTicked() const;
    [[nodiscard]] int tickedCount() const;

    /// The source's row, or -1 for a heading.
    [[nodiscard]] int sourceRow(const QModelIndex& index) const;
    [[nodiscard]] bool isHeading(const QModelIndex& index) const;

private:
    struct Shown {
        int row = -1; ///< of the source; -1 for a heading
        int group = -1;
    };

    void rebuild();
    [[nodiscard]] bool passes(int row) const;
    void sortRows(std::vector<int>& rows) const;
    void arrange(const std::vector<int>& rows);
    [[nodiscard]] std::vector<int> rowsOfGroup(int group) const;
    [[nodiscard]] Qt::CheckState tickState(const std::vector<int>& rows) const;
    [[nodiscard]] QVariant headingData(const Shown& shown, int column, int role) const;
    [[nodiscard]] QVariant cellData(int row, int column, int role) const;

    RowSource& m_source;
    std::vector<Column> m_columns;
    std::vector<Shown> m_shown;
    std::vector<QString> m_groups;
    QString m_filter;
    int m_taken = 0; ///< rows of the source that were looked at
    int m_grouping = 0;
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
};

} // namespace pryvane::ui
