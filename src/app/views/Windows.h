#pragma once

#include "platform/DesktopWindows.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <array>
#include <functional>

namespace pryvane {

/// The windows of the program, made when they are first asked for. Main thread only.
class Windows final : public QObject, public WindowHost {
    Q_OBJECT

public:
    using Maker = std::function<QWidget*()>;

    ~Windows() override;

    /// How that window is made; the result belongs to this.
    void setMaker(ShellWindow window, Maker maker);
    [[nodiscard]] QWidget* widget(ShellWindow window) const;

    /// Drops them all, at once.
    void closeAll();

    void open(ShellWindow window) override;
    void close(ShellWindow window) override;
    void bringForward(ShellWindow window) override;
    void orderOut(ShellWindow window) override;
    void setMinimised(ShellWindow window, bool minimised) override;
    [[nodiscard]] bool isMinimised(ShellWindow window) const override;
    void toggleZoomed(ShellWindow window) override;
    [[nodiscard]] bool isVisible(ShellWindow window) const override;
    [[nodiscard]] bool isActive(ShellWindow window) const override;
    void activate() override;
    void terminate() override;

private:
    struct Known {
        Maker maker;
        QPointer<QWidget> widget;
    };
    [[nodiscard]] Known& known(ShellWindow window);

    std::array<Known, 3> m_windows;
};

} // namespace pryvane
