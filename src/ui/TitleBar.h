#pragma once

#include <QAbstractButton>
#include <QWidget>

class QLabel;

namespace pryvane::ui {

/// One button of a window's own frame. `tag` 0 stands for the main window's, as its controller
/// tells them apart.
class WindowButton final : public QAbstractButton {
    Q_OBJECT

public:
    WindowButton(const QString& iconName, const QString& name, QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override { return {34, 30}; }
    void setIconName(const QString& iconName);

    int tag = 0;

protected:
    void paintEvent(QPaintEvent*) override;
    void enterEvent(QEnterEvent*) override { update(); }
    void leaveEvent(QEvent*) override { update(); }

private:
    QString m_iconName;
};

/// The bar that replaces the desktop's: moves its window, maximises it on a double click, and
/// carries the window buttons.
class TitleBar final : public QWidget {
    Q_OBJECT

public:
    explicit TitleBar(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] WindowButton* closeButton() const { return m_close; }

protected:
    void mousePressEvent(QMouseEvent*) override;
    void mouseDoubleClickEvent(QMouseEvent*) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent*) override;

private:
    void toggleMaximised();
    void showWindowState();

    WindowButton* m_close;
    WindowButton* m_minimise;
    WindowButton* m_maximise;
    QLabel* m_title;
};

/// Lets the edges of a frameless window resize it.
class ResizableEdges final : public QObject {
    Q_OBJECT

public:
    explicit ResizableEdges(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] Qt::Edges edgesAt(const QPoint& place) const;

    QWidget* m_window;
};

} // namespace pryvane::ui
