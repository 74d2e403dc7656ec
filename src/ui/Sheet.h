#pragma once

#include <QPointer>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace pryvane::ui {

class Card;

/// A question or a list laid over its window: dims what is behind, keeps the keyboard to itself,
/// and Esc closes it. Deletes itself once closed. One at a time to a window.
class Sheet : public QWidget {
    Q_OBJECT

public:
    /// `over` is any widget of the window to cover.
    Sheet(QWidget* over, const QString& title);

    [[nodiscard]] QVBoxLayout* body() const { return m_body; }

    /// The row of buttons at the foot, from the right.
    [[nodiscard]] QHBoxLayout* buttons() const { return m_buttons; }
    void setWidth(int width);

    /// Shows it with the keyboard on `first`.
    void present(QWidget* first);
    void dismiss();

Q_SIGNALS:
    /// Told once, however it was closed.
    void closed();

protected:
    void paintEvent(QPaintEvent*) override;
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
    int m_width = 560;
    bool m_closed = false;
};

} // namespace pryvane::ui
