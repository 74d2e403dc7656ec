#pragma once

#include "platform/FileURL.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class QLabel;
class QPushButton;

namespace pryvane::ui {
class ColouredView;
}

namespace pryvane {

class FindingsPane;
class PlanSheet;
class RemovalProgressView;
class ScanProgressView;
class ScanViewController;
class SpywareScanReport;

/// The scan screen: the statement, the running scan, its findings, and their removal.
class ScanView final : public QWidget {
    Q_OBJECT

public:
    struct Options {
        std::string user; ///< short name for which the rules are filled in
        /// How the volume's disk folds a name; empty: it does not.
        std::function<std::string(std::string_view)> foldedName;
        /// Keeps the report as files and tells in words what came of it.
        std::function<void(const SpywareScanReport& report,
                           std::function<void(const QString& words)> told)>
            keepRecord = {};
    };

    ScanView(ScanViewController& controller, Options options, QWidget* parent = nullptr);

    /// Puts the keyboard into the filter box.
    void focusFilter();

Q_SIGNALS:
    void revealWanted(const FileURL& location);
    void remoteDesktopHelpWanted();
    void reportWanted();

private:
    void layOut();
    void followController();
    void showState();
    void showStatement();
    void showNotice();
    [[nodiscard]] bool showsVerdict() const;
    [[nodiscard]] QString secondLine() const;
    void showFindings();
    void showFailures();
    void openPlan();
    void takeBackRemoved();
    [[nodiscard]] bool isBusy() const;

    ScanViewController& m_controller;
    const Options m_options;
    QTimer m_liveUpdate; ///< gathers what a scan tells, so that the screen is redrawn in peace
    bool m_wasScanning = false;
    QPointer<PlanSheet> m_plan;
    bool m_planPending = false;

    ui::ColouredView* m_statement;
    QPushButton* m_scanNow;
    QPushButton* m_remove;
    QPushButton* m_failures;
    QPushButton* m_report;
    QPushButton* m_lookedAt;
    ScanProgressView* m_progress;
    RemovalProgressView* m_removal;
    QLabel* m_notice;
    FindingsPane* m_findings;
};

} // namespace pryvane
