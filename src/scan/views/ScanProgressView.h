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

/// How fast a deep scan gets on.
struct ScanPace {
    qint64 entriesPerSecond = 0;
    qint64 secondsLeft = -1; ///< -1: nobody can tell yet
};
[[nodiscard]] ScanPace paceOf(const ScanDisplay& display, qint64 milliseconds);

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
