#pragma once

#include <QStackedWidget>

namespace pryvane::ui {

/// Pages of which one is seen, in a place that does not grow or shrink with their words: else each
/// change of a text would measure every wrapped line of all pages, several times over.
class Pages : public QStackedWidget {
public:
    using QStackedWidget::QStackedWidget;

    [[nodiscard]] bool hasHeightForWidth() const override { return false; }
    [[nodiscard]] int heightForWidth(int) const override { return -1; }
};

} // namespace pryvane::ui
