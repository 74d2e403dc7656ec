#pragma once

#include "browser/ReportDocuments.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <string>
#include <string_view>

class QStackedWidget;

namespace pryvane {

class PreviewSheet;
class ReportDetailsPane;
class ReportListPane;
class ReportViewController;

/// The report screen: the list of stored reports, and the details of one of them.
class ReportBrowserView final : public QWidget {
    Q_OBJECT

public:
    struct Services {
        MainQueue& mainQueue;
        PDFGenerate& pdf; ///< used by nobody else
        std::string user; ///< short name for which the rules are filled in
        /// How the volume's disk folds a name; empty: it does not.
        std::function<std::string(std::string_view)> foldedName;
    };

    /// From now on the controller's print action opens the preview.
    ReportBrowserView(ReportViewController& controller, Services services,
                      QWidget* parent = nullptr);

    /// Puts the keyboard into the search box of the list, or the filter of the details.
    void focusFilter();

Q_SIGNALS:
    void remoteDesktopHelpWanted();

private:
    void followController();
    void showState();
    void compare(int row, int otherRow);
    void openPlan();
    void showFailures();
    void openPreview();
    void askWhereToPrint();
    void askWhereToExport(const ExportKind& kind);
    void exportTo(const std::string& path, ExportFormat format);

    ReportViewController& m_controller;
    const Services m_services;
    ReportDocuments m_documents;
    QStackedWidget* m_pages;
    ReportListPane* m_list;
    ReportDetailsPane* m_details;
    QPointer<PreviewSheet> m_preview;
    QPointer<QWidget> m_failures;
    QString m_exportFolder; ///< where the last export went
};

} // namespace pryvane
