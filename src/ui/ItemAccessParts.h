#pragma once

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTableView>

namespace pryvane::ui {

inline constexpr QStringView kRowTable = u"pryvane::ui::RowTable",
                             kComboList = u"QComboBoxListView";

inline QString className(const QObject* object)
{
    return QLatin1String(object->metaObject()->className());
}

inline QRect onScreen(const QWidget& part, const QRect& place)
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

} // namespace pryvane::ui
