#pragma once

#include "app/views/FramedWindow.h"

class QButtonGroup;

namespace pryvane {

class NotAccessVC;
struct AccessChoice;
struct VolumeWords;

/// The welcome: what Pryvane looks at, what leaves this machine, and the one button that grants it
/// the home folder.
class AccessWindow final : public FramedWindow {
    Q_OBJECT

public:
    AccessWindow(NotAccessVC& controller, const VolumeWords& volume);

Q_SIGNALS:
    void openVolumeWanted();

private:
    [[nodiscard]] QWidget* makeChoices(const NotAccessVC& controller);
    [[nodiscard]] QWidget* makePromise(const QString& iconName, const QString& title,
                                       const QString& words);

    QButtonGroup* m_choices;
};

/// The illustrated guide; it comes with the program and needs no network.
class HelpWindow final : public FramedWindow {
    Q_OBJECT

public:
    HelpWindow();

protected:
    void keyPressEvent(QKeyEvent*) override;
};

} // namespace pryvane
