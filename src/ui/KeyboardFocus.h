#pragma once

#include <QFocusFrame>
#include <QObject>
#include <QPointer>

class QApplication;

namespace pryvane::ui {

/// Rings whatever has the keyboard, two pixels outside of it, and has Return press a button. What
/// was reached with the mouse has no ring until a key is pressed. One to a program; main thread
/// only.
class KeyboardFocus final : public QObject {
    Q_OBJECT

public:
    /// Owned by the application.
    explicit KeyboardFocus(QApplication& application);
    ~KeyboardFocus() override;

    /// Whether what has the keyboard shows it now; true as long as there is no KeyboardFocus. Lists
    /// ask, which ring their current row by themselves.
    [[nodiscard]] static bool isShown();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();
    void setShown(bool shown);

    QPointer<QFocusFrame> m_frame; ///< it goes with the window that it lies in
    bool m_shown = true;
};

/// How far a ring reaches beyond its control, and how thick it is.
inline constexpr int kRingReach = 4, kRingThickness = 2;

} // namespace pryvane::ui
