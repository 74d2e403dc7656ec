#pragma once

#include <QListWidget>

class QToolButton;

namespace pryvane::ui {

/// The column of screens at the left of the main window: one row each, icon and name.
class Navigation final : public QListWidget {
    Q_OBJECT

public:
    explicit Navigation(QWidget* parent = nullptr);
    void addScreen(const QString& iconName, const QString& name);

protected:
    void changeEvent(QEvent*) override;

private:
    void tint();
};

/// A title with an arrow that shows or hides what stands below it.
class Disclosure final : public QWidget {
    Q_OBJECT

public:
    Disclosure(const QString& title, QWidget* content, QWidget* parent = nullptr);
    void setOpen(bool open);

private:
    QToolButton* m_button;
    QWidget* m_content;
};

} // namespace pryvane::ui
