#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace pryvane {

class ToolsViewController;

/// What the tools screen has to say: how far it is, what can be cleared, what the last clearing
/// did. With the ways to stop and to measure anew.
class ToolsStatus final : public QWidget {
    Q_OBJECT

public:
    explicit ToolsStatus(ToolsViewController& controller, QWidget* parent = nullptr);

    void showState();

Q_SIGNALS:
    void clearedWanted();
    void leftOversWanted();

private:
    void layOut();
    void showStatement();
    void showProgress();
    void showOutcome();

    ToolsViewController& m_controller;
    QLabel* m_statement;
    QLabel* m_detail;
    QProgressBar* m_bar;
    QPushButton* m_stop;
    QPushButton* m_measure;
    QWidget* m_outcome;
    QLabel* m_outcomeIcon;
    QLabel* m_outcomeText;
    QPushButton* m_cleared;
    QPushButton* m_leftOvers;
    QTimer m_clock; ///< looks at the progress while something is measured
    bool m_wasCleaning = false;
};

} // namespace pryvane
