#pragma once

#include "findings/views/FindingsSource.h"
#include "ui/Surfaces.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace pryvane::ui {
class ElidedLabel;
class RowTable;
} // namespace pryvane::ui

namespace pryvane {

/// The remote-desktop finding: what it is, the way to switch it off, and a box to ignore it.
class RemoteDesktopCell final : public QWidget {
    Q_OBJECT

public:
    /// `canIgnore`: with the box to ignore it from now on.
    explicit RemoteDesktopCell(bool canIgnore, QWidget* parent = nullptr);

    /// What was found, and where; or, with an empty location, that it is not looked for.
    void tell(const QString& location, bool ignored);

Q_SIGNALS:
    /// The instructions on switching it off are wanted; nothing is removed.
    void removeARD();
    /// Whether it is to be ignored from now on.
    void ignoreARD(bool ignore);

private:
    QLabel* m_name;
    QLabel* m_sentence;
    ui::ElidedLabel* m_location;
    QPushButton* m_instructions;
    QCheckBox* m_ignore;
};

/// The findings with what finds one's way among them: select all, filter, grouping, the count of
/// what is selected, and a menu for each row.
class FindingsPane final : public ui::Card {
    Q_OBJECT

public:
    FindingsPane(std::string user, std::function<std::string(std::string_view)> foldedName,
                 FindingsSource::Ticked ticked, FindingsSource::Of of, QWidget* parent = nullptr);

    /// Shows this list, which may have grown at its end since it was last given.
    void showRecords(const std::shared_ptr<const SpywareList>& records);
    void setSelectable(bool selectable);
    /// Whether remote desktop is ignored, which is told in its place, so that it can be taken back.
    void setRemoteDesktopIgnored(bool ignored) { m_remoteDesktopIgnored = ignored; }
    /// Ticks or outcomes have changed.
    void refresh();
    void setEmptyText(const QString& sentence);
    void focusFilter();
    /// Gives the table the keyboard, unless somebody types in the filter or a sheet lies over it.
    void focusList();

Q_SIGNALS:
    void revealWanted(const FileURL& location);
    void remoteDesktopHelpWanted();
    void ignoreRemoteDesktopWanted(bool ignore);

private:
    [[nodiscard]] QWidget* makeToolbar();
    void showSelection();
    void showMenu(int row, const QPoint& place);
    void explainRow(int row);

    FindingsSource m_source;
    ui::RowModel m_model;
    ui::RowTable* m_table;
    ui::EmptyState* m_empty;
    QStackedWidget* m_list;
    QCheckBox* m_selectAll;
    QLineEdit* m_filter;
    QComboBox* m_grouping;
    QLabel* m_selected;
    RemoteDesktopCell* m_remoteDesktop;
    bool m_remoteDesktopIgnored = false;
};

} // namespace pryvane
