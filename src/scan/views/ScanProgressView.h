#pragma once

#include "ui/Surfaces.h"

#include <QElapsedTimer>

class QProgressBar;
class QPushButton;

namespace pryvane::ui {
class ElidedLabel;
}

namespace pryvane {

struct ScanDisplay;

/// The running scan: percentage, bar, what is being looked at, how long it has taken, what was
/// found so far, and the way to stop it.
class ScanProgressView final : public ui::Card {
    Q_OBJECT

public:
    explicit ScanProgressView(QWidget* parent = nullptr);

    void show(const ScanDisplay& display);
    void begin() { m_elapsed.start(); }

Q_SIGNALS:
    void stopWanted();

private:
    QElapsedTimer m_elapsed;
    QLabel* m_percent;
    QLabel* m_facts;
    QLabel* m_kind;
    QProgressBar* m_bar;
    ui::ElidedLabel* m_location;
    QPushButton* m_stop;
};

} // namespace pryvane
