#pragma once

#include "inventory/views/FactsPage.h"

#include <QTimer>
#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace pryvane {

/// Who may watch, what starts by itself and who may come in, in three tabs. Facts: nothing is
/// judged or changed.
class FactsView final : public QWidget {
    Q_OBJECT

public:
    /// The controller outlives this.
    explicit FactsView(FactsController& controller, QWidget* parent = nullptr);

    void focusFilter();

Q_SIGNALS:
    void revealWanted(const FileURL& location);

private:
    [[nodiscard]] QWidget* makeTabs();
    [[nodiscard]] QWidget* makeTools();
    void showState();
    void showUsers();
    void choose();
    void exportList();

    FactsController& m_controller;
    std::array<FactsPage*, 3> m_lists{};
    QStackedWidget* m_pages;
    QLineEdit* m_filter;
    QComboBox* m_whose;
    QCheckBox* m_onlyThere;
    QCheckBox* m_denied;
    QPushButton* m_again;
    QPushButton* m_export;
    QLabel* m_said;
    QTimer m_update;
};

} // namespace pryvane
