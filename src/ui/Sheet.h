#pragma once

#include "ui/RowModel.h"

#include <QPointer>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace pryvane::ui {

class Card;
class RowTable;

/// A question or a list laid over its window: dims what is behind, keeps all keys to itself, the
/// window's shortcuts too, Return presses its default and Esc closes it. Deletes itself once
/// closed. One at a time to a window: a second one lies above the first until it is closed.
class Sheet : public QWidget {
    Q_OBJECT

public:
    /// `over` is any widget of the window to cover.
    Sheet(QWidget* over, const QString& title);

    [[nodiscard]] QVBoxLayout* body() const { return m_body; }

    /// The row of buttons at the foot, from the right.
    [[nodiscard]] QHBoxLayout* buttons() const { return m_buttons; }
    void setWidth(int width);

    /// What Return presses. Without it the only button at the foot, where there is just one.
    void setDefault(QPushButton* button);

    /// The sheet that lies over that window now, the uppermost of several; null: none does.
    [[nodiscard]] static Sheet* topOf(const QWidget* window);

    /// Whether one does.
    [[nodiscard]] static bool isOver(const QWidget* window);

    /// Shows it with the keyboard on `first`.
    void present(QWidget* first);
    void dismiss();

Q_SIGNALS:
    /// Told once, however it was closed.
    void closed();

protected:
    void paintEvent(QPaintEvent*) override;
    bool event(QEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    Card* m_card;
    QVBoxLayout* m_body;
    QHBoxLayout* m_buttons;
    QPointer<QWidget> m_focusedBefore;
    QPointer<QPushButton> m_default;
    int m_width = 560;
    bool m_closed = false;
};

/// Places where something could not be done, each with the reason and what to do about it. The
/// reason of the current row is shown whole below the list.
class ReasonsSheet final : public Sheet {
    Q_OBJECT

public:
    struct Row {
        QString item; ///< what it belongs to; no row has one: no such column
        QString location;
        QString reason;
    };

    /// reasonTitle heads the column of reasons.
    ReasonsSheet(QWidget* over, const QString& title, const QString& reasonTitle,
                 std::vector<Row> rows);
    void present();

private:
    class Source final : public RowSource {
    public:
        explicit Source(std::vector<Row> rows);

        [[nodiscard]] int count() const override { return static_cast<int>(m_rows.size()); }
        [[nodiscard]] Cell cell(int row, int column) const override;
        [[nodiscard]] std::vector<Column> columns(const QString& reasonTitle) const;

    private:
        std::vector<Row> m_rows;
        bool m_haveItems;
    };

    Source m_source;
    RowModel m_model;
    RowTable* m_table;
    QLabel* m_reason; ///< of the current row, whole
};

} // namespace pryvane::ui
