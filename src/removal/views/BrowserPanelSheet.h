#pragma once

#include "ui/Sheet.h"

class QPushButton;
class QVBoxLayout;

namespace pryvane {

class FourceQuitBrowserView;

/// The panel that asks to quit browsers: those that still run, a retry, and a way out.
class BrowserPanelSheet final : public ui::Sheet {
    Q_OBJECT

public:
    /// Shows and takes away the sheet over that widget's window as the controller says, for as long
    /// as both live.
    static void follow(QWidget* over, FourceQuitBrowserView& panel);

private:
    BrowserPanelSheet(QWidget* over, FourceQuitBrowserView& panel);
    void present();
    void showBrowsers();

    FourceQuitBrowserView& m_panel;
    QVBoxLayout* m_list;
    QPushButton* m_retry;
};

} // namespace pryvane
