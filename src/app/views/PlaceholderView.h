#pragma once

#include <QWidget>

namespace pryvane {

/// Stands in for a screen that this version does not have yet, and says so.
class PlaceholderView final : public QWidget {
    Q_OBJECT

public:
    PlaceholderView(const QString& iconName, const QString& sentence, QWidget* parent = nullptr);
};

} // namespace pryvane
