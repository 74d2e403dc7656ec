#include "ui/ItemAccess.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTableView>

#include <memory>
#include <utility>

namespace pryvane::ui {

namespace {

constexpr QStringView kRowTable = u"pryvane::ui::RowTable", kComboList = u"QComboBoxListView";

QString className(const QObject* object)
{
    return QLatin1String(object->metaObject()->className());
}

QRect onScreen(const QWidget& part, const QRect& place)
{
    return place.isNull() ? place : place.translated(part.mapToGlobal(QPoint()));
}

/// What rows and titles have in common: they hold nothing, and belong to a view. What is asked of
/// them is done once the asking has returned, since it may open a dialog.
class PartAccess : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    explicit PartAccess(QAbstractItemView* view) : m_view(view) {}

    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_view);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface*>(this);
        return nullptr;
    }

protected:
    template <typename Act>
    void soon(Act act) const
    {
        QMetaObject::invokeMethod(m_view.data(), std::move(act), Qt::QueuedConnection);
    }

    QPointer<QAbstractItemView> m_view;
};

class ItemAccess final : public PartAccess, public QAccessibleTableCellInterface {
public:
    ItemAccess(QAbstractItemView* view, const QModelIndex& index) : PartAccess(view), m_index(index)
    {
    }

    [[nodiscard]] const QPersistentModelIndex& index() const { return m_index; }

    [[nodiscard]] bool isValid() const override { return m_view && m_index.isValid(); }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (!isValid() || (kind != QAccessible::Name && kind != QAccessible::Description))
            return {};
        if (kind == QAccessible::Description)
            return m_index.data(Qt::AccessibleDescriptionRole).toString();
        const QString words = m_index.data(Qt::AccessibleTextRole).toString();
        return words.isEmpty() ? m_index.data().toString() : words;
    }
    [[nodiscard]] QRect rect() const override
    {
        return isValid() ? onScreen(*m_view->viewport(), m_view->visualRect(m_index)) : QRect();
    }
    [[nodiscard]] QAccessible::Role role() const override
    {
        return isInTable() ? QAccessible::Cell : QAccessible::ListItem;
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const QRect view(m_view->mapToGlobal(QPoint()), m_view->size());
        state.invisible = !view.intersects(rect());
        state.selected = m_view->selectionModel()->isSelected(m_index);
        state.focused = m_view->selectionModel()->currentIndex() == m_index;
        state.selectable = state.focusable = m_index.flags().testFlag(Qt::ItemIsSelectable);
        state.disabled = !m_index.flags().testFlag(Qt::ItemIsEnabled);
        const QVariant ticked = m_index.data(Qt::CheckStateRole);
        state.checkable = isCheckable();
        state.checked = ticked.toInt() == Qt::Checked;
        state.checkStateMixed = ticked.toInt() == Qt::PartiallyChecked;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableCellInterface && isInTable())
            return static_cast<QAccessibleTableCellInterface*>(this);
        return PartAccess::interface_cast(type);
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        QStringList names{pressAction(), setFocusAction()};
        if (isValid() && isCheckable())
            names.prepend(toggleAction());
        return names;
    }
    void doAction(const QString& action) override
    {
        if (!isValid() || !m_view->isEnabled())
            return;
        soon([view = m_view, index = m_index, action] {
            if (!index.isValid())
                return;
            if (action == toggleAction()) {
                const bool on = index.data(Qt::CheckStateRole).toInt() != Qt::Checked;
                view->model()->setData(index, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
                return;
            }
            view->setCurrentIndex(index);
            if (action == setFocusAction())
                view->setFocus(Qt::OtherFocusReason);
            else if (className(view) == kRowTable || className(view) == kComboList)
                QApplication::postEvent(
                    view, new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
        });
    }

    [[nodiscard]] bool isSelected() const override { return state().selected; }
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override
    {
        QAccessibleInterface* title = parent() ? parent()->child(m_index.column() + 1) : nullptr;
        return title ? QList{title} : QList<QAccessibleInterface*>();
    }
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override { return m_index.column(); }
    [[nodiscard]] int rowIndex() const override { return m_index.row(); }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

private:
    [[nodiscard]] bool isInTable() const { return qobject_cast<QTableView*>(m_view.data()); }
    [[nodiscard]] bool isCheckable() const
    {
        return m_index.flags().testFlag(Qt::ItemIsUserCheckable) &&
               m_index.data(Qt::CheckStateRole).isValid();
    }

    QPersistentModelIndex m_index;
};

/// The title of a column, which sorts.
class TitleAccess final : public PartAccess {
public:
    TitleAccess(QTableView* view, int column) : PartAccess(view), m_column(column) {}

    [[nodiscard]] int column() const { return m_column; }
    [[nodiscard]] bool isValid() const override
    {
        return m_view && m_view->model() && m_column < m_view->model()->columnCount();
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return isValid() && kind == QAccessible::Name
                   ? m_view->model()
                         ->headerData(m_column, Qt::Horizontal, Qt::AccessibleTextRole)
                         .toString()
                   : QString();
    }
    [[nodiscard]] QRect rect() const override
    {
        if (!isValid())
            return {};
        const QHeaderView& titles = header();
        return onScreen(*titles.viewport(),
                        {titles.sectionViewportPosition(m_column), 0, titles.sectionSize(m_column),
                         titles.viewport()->height()});
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    [[nodiscard]] QAccessible::State state() const override { return {}; }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString&) override
    {
        if (isValid())
            soon([titles = &header(), column = m_column] {
                const bool turns = titles->sortIndicatorSection() == column &&
                                   titles->sortIndicatorOrder() == Qt::AscendingOrder;
                titles->setSortIndicator(column, turns ? Qt::DescendingOrder : Qt::AscendingOrder);
            });
    }

private:
    [[nodiscard]] QHeaderView& header() const
    {
        return *static_cast<QTableView*>(m_view.data())->horizontalHeader();
    }
    int m_column;
};

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
