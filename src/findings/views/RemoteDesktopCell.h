#pragma once

#include <QWidget>

namespace pryvane {

/// The remote-desktop finding: what it is, the way to switch it off, and a box to ignore it.
class RemoteDesktopCell final : public QWidget {
    Q_OBJECT

public:
    /// `canIgnore`: with the box to ignore it from now on.
    explicit RemoteDesktopCell(bool canIgnore, QWidget* parent = nullptr);

Q_SIGNALS:
    /// The instructions on switching it off are wanted; nothing is removed.
    void removeARD();
    /// Whether it is to be ignored from now on.
    void ignoreARD(bool ignore);
};

} // namespace pryvane
