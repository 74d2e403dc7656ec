#include "ui/RowModel.h"

#include "ui/Icons.h"

#include <QApplication>
#include <QHash>

#include <algorithm>
#include <numeric>

namespace pryvane::ui {

namespace {

/// As rich text without any of its own: names are of a foreign disk.
QString tooltipOf(const Cell& cell)
{
    const QString& words = !cell.tooltip.isEmpty() ? cell.tooltip
                           : cell.whole.isEmpty()  ? cell.text
                                                   : cell.whole;
    return words.toHtmlEscaped();
}

} // namespace

RowModel::RowModel(RowSource& source, std::vector<Column> columns, QObject* parent)
    : QAbstractTableModel(parent), m_source(source), m_columns(std::move(columns))
{
    rebuild();
}

int RowModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int RowModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Shown& shown = m_shown[static_cast<std::size_t>(index.row())];
    return shown.row < 0 ? headingData(shown, index.column(), role)
                         : cellData(shown.row, index.column(), role);
}

QVariant RowModel::headingData(const Shown& shown, int column, int role) const
{
    if (column == 0) {
        const std::vector<int> rows =
            role == Qt::CheckStateRole ? rowsOfGroup(shown.group) : std::vector<int>();
        return rows.empty() ? QVariant() : QVariant(tickState(rows));
    }
    if (column != 1)
        return {};
    const QString& name = m_groups[static_cast<std::size_t>(shown.group)];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return name;
    case Qt::FontRole: {
        QFont font = QApplication::font();
        font.setWeight(QFont::DemiBold);
        return font;
    }
    case Qt::ToolTipRole:
        return QStringLiteral("<qt>") + name.toHtmlEscaped() + QStringLiteral("</qt>");
    default:
        return {};
    }
}

QVariant RowModel::cellData(int row, int column, int role) const
{
    if (column == 0) {
        const auto ticked = m_source.ticked(row);
        if (role == Qt::CheckStateRole && ticked)
            return *ticked ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::AccessibleTextRole)
            return m_source.cell(row, 1).text;
        return {};
    }
    const Column& about = m_columns[static_cast<std::size_t>(column)];
    switch (role) {
    case Qt::DisplayRole:
        return m_source.cell(row, column).text;
    case Qt::AccessibleTextRole: {
        const Cell cell = m_source.cell(row, column);
        return cell.whole.isEmpty() ? cell.text : cell.whole;
    }
    case Qt::ToolTipRole: {
        // The second line lies below the name, and has no place of its own to point at.
        const auto below = std::ranges::find(m_columns, true, &Column::isBelow);
        QStringList lines{tooltipOf(m_source.cell(row, column))};
        if (column == 1 && below != m_columns.end())
            lines += tooltipOf(m_source.cell(row, static_cast<int>(below - m_columns.begin())));
        return QStringLiteral("<qt>") + lines.join(QStringLiteral("<br>")) +
               QStringLiteral("</qt>");
    }
    case Qt::DecorationRole: {
        const Cell cell = m_source.cell(row, column);
        return cell.iconName.isEmpty() ? QVariant() : QVariant(icon(cell.iconName, cell.meaning));
    }
    case Qt::FontRole:
        return about.isPath ? QVariant(fontOf(TextRole::Path)) : QVariant();
    case Qt::ForegroundRole:
        return m_source.faded(row) ? QVariant(secondaryText(QApplication::palette())) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (about.isNumber ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    // The first line's title stands for the second one while that is what is sorted by.
    const bool isBelow = section == 1 && m_sortColumn > 0 &&
                         m_columns[static_cast<std::size_t>(m_sortColumn)].isBelow;
    const Column& column = m_columns[static_cast<std::size_t>(isBelow ? m_sortColumn : section)];
    if (role == Qt::DisplayRole)
        return section == 0 ? QString() : column.title;
    if (role == Qt::AccessibleTextRole)
        return column.title;
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter | (column.isNumber ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() == 0 && index.data(Qt::CheckStateRole).isValid())
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool RowModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != 0)
        return false;
    const bool on = value.toInt() == Qt::Checked;
    const Shown& shown = m_shown[static_cast<std::size_t>(index.row())];
    m_source.tick(shown.row < 0 ? rowsOfGroup(shown.group) : std::vector<int>{shown.row}, on);
    refresh();
    return true;
}

void RowModel::sort(int column, Qt::SortOrder order)
{
    m_sortColumn = column;
    m_sortOrder = order;
    rebuild();
}

void RowModel::setFilter(const QString& text)
{
    m_filter = text.trimmed();
    rebuild();
}

void RowModel::setGrouping(int grouping)
{
    m_grouping = grouping;
    rebuild();
}

void RowModel::reset()
{
    rebuild();
}

void RowModel::takeAppended()
{
    const int count = m_source.count();
    if (count < m_taken || m_grouping != 0 || m_sortColumn > 0)
        return count == m_taken ? refresh() : rebuild();
    std::vector<Shown> added;
    for (int row = m_taken; row < count; ++row)
        if (passes(row))
            added.push_back({row, -1});
    m_taken = count;
    refresh();
    if (added.empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(added.size()) - 1);
    m_shown.insert(m_shown.end(), added.begin(), added.end());
    endInsertRows();
}

void RowModel::refresh()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void RowModel::tickAll(bool on)
{
    std::vector<int> rows;
    for (const Shown& shown : m_shown)
        if (shown.row >= 0 && m_source.ticked(shown.row) &&
            (!on || m_source.ticksWithOthers(shown.row)))
            rows.push_back(shown.row);
    m_source.tick(rows, on);
    refresh();
}

Qt::CheckState RowModel::allTicked() const
{
    std::vector<int> rows;
    for (const Shown& shown : m_shown)
        if (shown.row >= 0 && m_source.ticksWithOthers(shown.row))
            rows.push_back(shown.row);
    return tickState(rows);
}

int RowModel::tickedCount() const
{
    int count = 0;
    for (int row = 0; row < m_source.count(); ++row)
        count += m_source.ticked(row).value_or(false) ? 1 : 0;
    return count;
}

int RowModel::sourceRow(const QModelIndex& index) const
{
    return index.isValid() ? m_shown[static_cast<std::size_t>(index.row())].row : -1;
}

Cell RowModel::remark(const QModelIndex& index) const
{
    const int row = sourceRow(index);
    return row < 0 ? Cell() : m_source.remark(row);
}

bool RowModel::isHeading(const QModelIndex& index) const
{
    return index.isValid() && sourceRow(index) < 0;
}

void RowModel::rebuild()
{
    beginResetModel();
    m_taken = m_source.count();
    std::vector<int> rows;
    rows.reserve(static_cast<std::size_t>(m_taken));
    for (int row = 0; row < m_taken; ++row)
        if (passes(row))
            rows.push_back(row);
    if (m_sortColumn > 0)
        sortRows(rows);
    arrange(rows);
    endResetModel();
}

bool RowModel::passes(int row) const
{
    return !m_source.hidden(row) &&
           (m_filter.isEmpty() || m_source.searchText(row).contains(m_filter, Qt::CaseInsensitive));
}

void RowModel::sortRows(std::vector<int>& rows) const
{
    struct Key {
        qint64 number;
        QString text;
        int row;
    };
    std::vector<Key> keys;
    keys.reserve(rows.size());
    for (const int row : rows) {
        const Cell cell = m_source.cell(row, m_sortColumn);
        keys.push_back(
            {cell.number.value_or(0), cell.number ? QString() : cell.text.toLower(), row});
    }
    const auto before = [](const Key& a, const Key& b) {
        return a.number != b.number ? a.number < b.number : a.text < b.text;
    };
    if (m_sortOrder == Qt::AscendingOrder)
        std::ranges::stable_sort(keys, before);
    else
        std::ranges::stable_sort(keys, [&](const Key& a, const Key& b) { return before(b, a); });
    std::ranges::transform(keys, rows.begin(), &Key::row);
}

/// Puts each group's heading before its rows; groups come in the order of their first row.
void RowModel::arrange(const std::vector<int>& rows)
{
    m_shown.clear();
    m_groups.clear();
    if (m_grouping == 0) {
        for (const int row : rows)
            m_shown.push_back({row, -1});
        return;
    }
    QHash<QString, int> numbers;
    std::vector<std::vector<int>> members;
    for (const int row : rows) {
        const QString name = m_source.group(row, m_grouping);
        const auto known = numbers.constFind(name);
        int number = known == numbers.cend() ? static_cast<int>(members.size()) : *known;
        if (known == numbers.cend()) {
            numbers.insert(name, number);
            m_groups.push_back(name);
            members.emplace_back();
        }
        members[static_cast<std::size_t>(number)].push_back(row);
    }
    for (std::size_t group = 0; group < members.size(); ++group) {
        m_shown.push_back({-1, static_cast<int>(group)});
        for (const int row : members[group])
            m_shown.push_back({row, static_cast<int>(group)});
    }
}

std::vector<int> RowModel::rowsOfGroup(int group) const
{
    std::vector<int> rows;
    for (const Shown& shown : m_shown)
        if (shown.group == group && shown.row >= 0 && m_source.ticked(shown.row) &&
            m_source.ticksWithOthers(shown.row))
            rows.push_back(shown.row);
    return rows;
}

Qt::CheckState RowModel::tickState(const std::vector<int>& rows) const
{
    bool some = false, all = true;
    for (const int row : rows) {
        if (const auto ticked = m_source.ticked(row)) {
            some = some || *ticked;
            all = all && *ticked;
        }
    }
    return !some ? Qt::Unchecked : all ? Qt::Checked : Qt::PartiallyChecked;
}

} // namespace pryvane::ui
