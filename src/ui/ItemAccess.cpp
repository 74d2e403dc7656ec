#include "ui/ItemAccess.h"

#include "ui/ItemAccessParts.h"

#include <QAccessibleWidget>
#include <QHash>

#include <memory>
#include <utility>

namespace pryvane::ui {

namespace {

/// A list or a table. Its children are numbered as Qt's own views number them in what they tell:
/// row by row, in a table with a row of titles and a column of row numbers, here never shown.
class ViewAccess final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit ViewAccess(QAbstractItemView* view)
        : QAccessibleWidget(view, qobject_cast<QTableView*>(view) ? QAccessible::Table
                                                                  : QAccessible::List),
          m_table(qobject_cast<QTableView*>(view))
    {
    }
    ~ViewAccess() override { forget(); }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableInterface && m_table)
            return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] int childCount() const override
    {
        return m_table ? (rowCount() + 1) * (columnCount() + 1) : rowCount();
    }
    [[nodiscard]] QAccessibleInterface* child(int number) const override
    {
        if (number < 0 || number >= childCount())
            return nullptr;
        follow();
        if (const auto known = m_known.constFind(number); known != m_known.cend())
            return QAccessible::accessibleInterface(*known);
        const int wide = m_table ? columnCount() + 1 : 1;
        const int row = number / wide - (m_table ? 1 : 0),
                  column = number % wide - (m_table ? 1 : 0);
        if (column < 0)
            return nullptr;
        QAccessibleInterface* made = nullptr;
        if (row < 0)
            made = new TitleAccess(m_table, column);
        else
            made = new ItemAccess(view(), indexAt(row, column));
        m_known.insert(number, QAccessible::registerAccessibleInterface(made));
        return made;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        if (const auto* item = dynamic_cast<const ItemAccess*>(child))
            return item->isValid() ? number(item->index().row(), item->index().column()) : -1;
        if (const auto* title = dynamic_cast<const TitleAccess*>(child))
            return number(-1, title->column());
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        const QModelIndex at = view()->indexAt(view()->viewport()->mapFromGlobal(QPoint(x, y)));
        return at.isValid() ? child(number(at.row(), at.column())) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        const QModelIndex at = view()->currentIndex();
        return at.isValid() ? child(number(at.row(), at.column())) : nullptr;
    }

    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override
    {
        const bool isThere = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
        return isThere ? child(number(row, column)) : nullptr;
    }
    [[nodiscard]] int selectedCellCount() const override
    {
        return selectedRowCount() * columnCount();
    }
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override
    {
        QList<QAccessibleInterface*> cells;
        for (const int row : selectedRows())
            for (int column = 0; column < columnCount(); ++column)
                cells += cellAt(row, column);
        return cells;
    }
    [[nodiscard]] QString columnDescription(int column) const override
    {
        return view()
            ->model()
            ->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole)
            .toString();
    }
    [[nodiscard]] QString rowDescription(int) const override { return {}; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override
    {
        return static_cast<int>(selectedRows().size());
    }
    [[nodiscard]] int columnCount() const override
    {
        return view()->model() ? view()->model()->columnCount(view()->rootIndex()) : 0;
    }
    [[nodiscard]] int rowCount() const override
    {
        return view()->model() ? view()->model()->rowCount(view()->rootIndex()) : 0;
    }
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override
    {
        QList<int> rows;
        for (const QModelIndex& index : view()->selectionModel()->selectedRows())
            rows += index.row();
        return rows;
    }
    [[nodiscard]] bool isColumnSelected(int) const override { return false; }
    [[nodiscard]] bool isRowSelected(int row) const override
    {
        return view()->selectionModel()->isRowSelected(row, view()->rootIndex());
    }
    bool selectRow(int row) override
    {
        if (row < 0 || row >= rowCount() || !view()->isEnabled())
            return false;
        const bool one = view()->selectionMode() == QAbstractItemView::SingleSelection;
        view()->selectionModel()->setCurrentIndex(
            indexAt(row, 0),
            (one ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Select) |
                QItemSelectionModel::Rows);
        return true;
    }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int row) override
    {
        if (row < 0 || row >= rowCount())
            return false;
        view()->selectionModel()->select(indexAt(row, 0),
                                         QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
        return true;
    }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {} // the model itself is heard

private:
    [[nodiscard]] QAbstractItemView* view() const
    {
        return static_cast<QAbstractItemView*>(widget());
    }
    [[nodiscard]] QModelIndex indexAt(int row, int column) const
    {
        // What a combo box unfolds shows one column of its model.
        const auto* list = qobject_cast<const QListView*>(view());
        return view()->model()->index(row, list ? list->modelColumn() : column,
                                      view()->rootIndex());
    }
    [[nodiscard]] int number(int row, int column) const
    {
        return m_table ? (row + 1) * (columnCount() + 1) + column + 1 : row;
    }

    /// Numbers are those of rows, so they hold until rows go or come before others.
    void follow() const
    {
        QAbstractItemModel* const model = view()->model();
        if (model == m_followed)
            return;
        forget();
        m_followed = model;
        m_hearing = std::make_unique<QObject>();
        const auto forgets = [this] { forget(); };
        using Model = QAbstractItemModel;
        QObject::connect(model, &Model::modelReset, m_hearing.get(), forgets);
        QObject::connect(model, &Model::layoutChanged, m_hearing.get(), forgets);
        QObject::connect(model, &Model::rowsRemoved, m_hearing.get(), forgets);
        QObject::connect(model, &Model::rowsInserted, m_hearing.get(),
                         [this](const QModelIndex&, int, int last) {
                             if (last + 1 < rowCount())
                                 forget();
                         });
    }
    void forget() const
    {
        for (const QAccessible::Id id : std::exchange(m_known, {}))
            QAccessible::deleteAccessibleInterface(id);
    }

    QTableView* m_table;
    mutable QHash<int, QAccessible::Id> m_known;
    mutable QPointer<QAbstractItemModel> m_followed;
    mutable std::unique_ptr<QObject> m_hearing;
};

QAccessibleInterface* itemsAccess(const QString& name, QObject* object)
{
    if (name != kRowTable && name != kComboList &&
        name != QLatin1String("pryvane::ui::Navigation") &&
        name != QLatin1String("pryvane::GroupList"))
        return nullptr;
    auto* view = qobject_cast<QAbstractItemView*>(object);
    return view ? new ViewAccess(view) : nullptr;
}

} // namespace

void makeItemsObey()
{
    QAccessible::installFactory(&itemsAccess);
}

} // namespace pryvane::ui
