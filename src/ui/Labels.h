#pragma once

#include "ui/Theme.h"

#include <QLabel>

#include <string_view>

namespace pryvane::ui {

/// Text of the engine as a QString. Invalid UTF-8 must have been escaped before.
[[nodiscard]] QString text(std::string_view utf8);

/// The same for buttons and menus, where "&" would mark a shortcut.
[[nodiscard]] QString buttonText(std::string_view utf8);

/// Puts a path on the clipboard. That carries text, so a path that is not valid UTF-8 is copied in
/// its escaped form.
void copyPath(std::string_view path);

/// A plain-text label of that role, wrapping where asked. Rich text is never guessed from content.
[[nodiscard]] QLabel* makeLabel(TextRole role, const QString& content = {},
                                QWidget* parent = nullptr);

/// A label in the colour of text that explains.
[[nodiscard]] QLabel* makeNote(const QString& content = {}, QWidget* parent = nullptr);

/// One line that loses its middle when it does not fit, whole in the tooltip and for a screen
/// reader, and copied whole.
class ElidedLabel final : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void setText(const QString& text);
    [[nodiscard]] QString text() const { return m_text; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QString m_text;
};

} // namespace pryvane::ui
