#pragma once

#include "core/Result.h"
#include "ui/Sheet.h"

#include <string>

class QLabel;
class QPushButton;
class QStackedWidget;

namespace pryvane {

class PagesView;

/// The report's document as it will be printed, and the way on to the printer.
class PreviewSheet final : public ui::Sheet {
    Q_OBJECT

public:
    explicit PreviewSheet(QWidget* over);

    /// Shows that the document is being made.
    void present();
    void showDocument(const Result<std::string>& pdf);

Q_SIGNALS:
    void printWanted();

private:
    void fail(const std::string& reason);

    PagesView* m_pages;
    QStackedWidget* m_stack;
    QLabel* m_failure;
    QLabel* m_page;
    QPushButton* m_print;
    QPushButton* m_close;
};

} // namespace pryvane
