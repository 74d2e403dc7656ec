#pragma once

#include "ui/Surfaces.h"

class QProgressBar;
class QPushButton;

namespace pryvane {

struct RemovalProgress;

/// The running removal: how far it is, and the way to stop it between two entries.
class RemovalProgressView final : public ui::Card {
    Q_OBJECT

public:
    explicit RemovalProgressView(QWidget* parent = nullptr);

    void show(const RemovalProgress& progress);

Q_SIGNALS:
    void stopWanted();

private:
    QLabel* m_count;
    QProgressBar* m_bar;
    QPushButton* m_stop;
};

} // namespace pryvane
