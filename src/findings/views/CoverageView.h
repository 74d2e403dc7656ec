#pragma once

#include "findings/Verdict.h"
#include "ui/RowModel.h"

#include <QWidget>

class QLabel;

namespace pryvane::ui {
class Disclosure;
class Sheet;
} // namespace pryvane::ui

namespace pryvane {

/// Word, icon and colour of a verdict in a list.
[[nodiscard]] ui::Cell verdictCell(Verdict verdict);

/// A sheet with all that a scan looked at, and what it could not. Not yet presented.
[[nodiscard]] ui::Sheet* makeCoverageSheet(QWidget* over, const ScanCoverage& coverage,
                                           const Subject& subject);

/// The verdict of a scan in one line, with what was looked at behind a disclosure.
class CoverageView final : public QWidget {
    Q_OBJECT

public:
    explicit CoverageView(QWidget* parent = nullptr);

    void show(std::size_t findings, const ScanCoverage& coverage, const Subject& subject);
    [[nodiscard]] QString verdict() const;

private:
    QLabel* m_icon;
    QLabel* m_verdict;
    QLabel* m_details;
    ui::Disclosure* m_disclosure;
};

} // namespace pryvane
