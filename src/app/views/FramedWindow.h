#pragma once

#include <QWidget>

class QVBoxLayout;

namespace pryvane::ui {
class TitleBar;
}

namespace pryvane {

/// A top-level window with this program's own title bar, or with the desktop's frame where the
/// build or PRYVANE_FRAME=desktop asks for it. Closing it in any way asks `closeAsked` what to do.
class FramedWindow : public QWidget {
    Q_OBJECT

public:
    /// `tag` tells the close buttons of the windows apart: 0 is the main window's.
    FramedWindow(const QString& title, int tag);

    [[nodiscard]] ui::TitleBar* titleBar() const { return m_titleBar; }

Q_SIGNALS:
    void closeAsked(int tag);
    /// It was shown, hidden or minimised.
    void visibilityChanged();

protected:
    [[nodiscard]] QVBoxLayout* column() const { return m_column; }
    /// The size it opens with, where the screen has room for it.
    void startWith(const QSize& size);
    void closeEvent(QCloseEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void changeEvent(QEvent*) override;
    void showEvent(QShowEvent*) override;
    void hideEvent(QHideEvent*) override;
    bool focusNextPrevChild(bool next) override;

private:
    const int m_tag;
    bool m_ownFrame;
    ui::TitleBar* m_titleBar = nullptr; ///< none within the desktop's frame
    QVBoxLayout* m_column;
};

} // namespace pryvane
