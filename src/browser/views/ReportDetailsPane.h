#pragma once

#include "browser/ReportDocuments.h"

#include <QTimer>
#include <QWidget>

#include <string>

class QGridLayout;
class QLabel;
class QPushButton;

namespace pryvane {

namespace ui {
class ColouredView;
class Notice;
class ElidedLabel;
} // namespace ui

class CoverageView;
class FindingsPane;
class RemovalProgressView;
class ReportViewController;

/// One report: its facts, what can be done with it, and its findings with what is still there.
class ReportDetailsPane final : public QWidget {
    Q_OBJECT

public:
    /// `user`: short name for which the rules are filled in; `foldedName` as in ExplainQuestion.
    ReportDetailsPane(ReportViewController& controller, std::string user,
                      std::function<std::string(std::string_view)> foldedName,
                      QWidget* parent = nullptr);

    void showState();
    void focusFilter();
    /// Puts the keyboard where one begins to read.
    void focusFirst();

Q_SIGNALS:
    void printWanted();
    void exportWanted(const pryvane::ExportKind& kind);
    void removeWanted();
    void failuresWanted();
    void remoteDesktopHelpWanted();

private:
    void makeFindings(std::string user, std::function<std::string(std::string_view)> foldedName);
    [[nodiscard]] QWidget* makeHead();
    [[nodiscard]] QWidget* makeFacts();
    void makeRemovalRow();
    QLabel* addFact(QGridLayout& grid, int column, QLabel* title);
    void showFacts();
    void showRemoval();
    void showBanner();
    void showFindings();

    ReportViewController& m_controller;
    QTimer m_progressUpdate; ///< while a removal runs
    QPushButton* m_print;
    QLabel* m_type;
    ui::ElidedLabel* m_path;
    QLabel* m_count;
    QLabel* m_start;
    QLabel* m_durationLabel;
    QLabel* m_duration;
    ui::Notice* m_notice;
    ui::ColouredView* m_banner;
    RemovalProgressView* m_progress;
    CoverageView* m_coverage;
    QWidget* m_removalRow;
    QPushButton* m_failures;
    QPushButton* m_remove;
    FindingsPane* m_findings;
    const void* m_shown = nullptr; ///< the report whose facts are shown
};

} // namespace pryvane
