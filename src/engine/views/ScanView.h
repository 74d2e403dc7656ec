#pragma once

#include "platform/FileURL.h"

#include <QTimer>
#include <QWidget>

#include <string>
#include <vector>

class QPushButton;

namespace pryvane::ui {
class ColouredView;
}

namespace pryvane {

class CoverageView;
class FindingsPane;
class ScanProgressView;
class ScanViewController;
class Spyware;

/// The scan screen: the statement, the running scan, and its findings.
class ScanView final : public QWidget {
    Q_OBJECT

public:
    ScanView(ScanViewController& controller, std::string user, QWidget* parent = nullptr);

    /// Puts the keyboard into the filter box.
    void focusFilter();

Q_SIGNALS:
    void scanWanted();
    void revealWanted(const FileURL& location);

private:
    void layOut();
    void showState();
    void showStatement();
    void showFindings();

    ScanViewController& m_controller;
    QTimer m_liveUpdate; ///< gathers what a scan tells, so that the screen is redrawn in peace
    bool m_wasScanning = false;

    ui::ColouredView* m_statement;
    QPushButton* m_scanNow;
    QPushButton* m_remove;
    ScanProgressView* m_progress;
    CoverageView* m_coverage;
    FindingsPane* m_findings;
};

} // namespace pryvane
