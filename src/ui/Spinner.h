#pragma once

#include <QBasicTimer>
#include <QPushButton>
#include <QWidget>

namespace pryvane::ui {

/// A turning ring while something works. Stands still where the desktop asks for no motion, and
/// costs nothing while hidden.
class Spinner final : public QWidget {
    Q_OBJECT

public:
    explicit Spinner(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {20, 20}; }

protected:
    void paintEvent(QPaintEvent*) override;
    void showEvent(QShowEvent*) override;
    void hideEvent(QHideEvent*) override;
    void timerEvent(QTimerEvent*) override;

private:
    QBasicTimer m_timer;
    int m_step = 0;
};

/// A button that shows a spinner in place of its title while its work runs.
class ButtonWithSpinner final : public QPushButton {
    Q_OBJECT

public:
    explicit ButtonWithSpinner(QWidget* parent = nullptr);

    void showSpinner();
    void hideSpinner();

protected:
    void resizeEvent(QResizeEvent*) override;

private:
    Spinner* m_spinner;
};

/// A spinner with words that say what works, in one row without margins.
[[nodiscard]] QWidget* makeBusyRow(const QString& words);

/// The same in the middle of a page.
[[nodiscard]] QWidget* makeBusyPage(const QString& words);

} // namespace pryvane::ui
