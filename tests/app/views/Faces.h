#pragma once

#include "ui/RowTable.h"

#include <QLabel>
#include <QPushButton>

#include <string>

namespace pryvane::test {

/// All that can be read on a part of the window: its labels and buttons, and of its tables each
/// cell with what is told beside it.
[[nodiscard]] inline std::string textOf(const QWidget& part)
{
    std::string text;
    const auto add = [&](const QString& words) { text += words.toStdString() + "\n"; };
    for (const auto* label : part.findChildren<QLabel*>())
        if (label->isVisible())
            add(label->text());
    for (const auto* button : part.findChildren<QPushButton*>())
        if (button->isVisible())
            add(button->text());
    for (const auto* table : part.findChildren<ui::RowTable*>()) {
        if (!table->isVisible())
            continue;
        const auto& model = *table->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                const auto index = model.index(row, column);
                add(index.data().toString() + " | " + index.data(Qt::ToolTipRole).toString());
            }
        }
    }
    return text;
}

/// The text without blanks and breaks, which lines on a page have where they will.
[[nodiscard]] inline std::string withoutBlanks(std::string text)
{
    std::erase_if(text, [](char c) { return c == ' ' || c == '\n' || c == '\f'; });
    return text;
}

} // namespace pryvane::test
