#pragma once

#include <QWidget>

class QLabel;

namespace pryvane::ui {
class Disclosure;
}

namespace pryvane {

struct ScanCoverage;

/// The verdict of a scan in one line, with what was looked at behind a disclosure.
class CoverageView final : public QWidget {
    Q_OBJECT

public:
    explicit CoverageView(QWidget* parent = nullptr);

    void show(std::size_t findings, const ScanCoverage& coverage);
    [[nodiscard]] QString verdict() const;

private:
    QLabel* m_icon;
    QLabel* m_verdict;
    QLabel* m_details;
    ui::Disclosure* m_disclosure;
};

} // namespace pryvane
