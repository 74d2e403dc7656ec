#pragma once

#include "app/program/Arguments.h"
#include "app/program/Desktop.h"
#include "app/program/Session.h"
#include "hosts/Host.h"
#include "ui/Theme.h"

#include <QApplication>

#include <cstdlib>
#include <memory>
#include <string>

namespace pryvane::bench {

/// The real program's window, on that volume for "alice"; ends the process where it cannot be.
class BenchedWindow {
public:
    BenchedWindow(QApplication& application, const std::string& volume, const std::string& data)
        : m_host(makeHost())
    {
        QApplication::setQuitOnLastWindowClosed(false);
        ui::applyTheme(application);
        if (auto desktop = Desktop::open(*m_host, data))
            m_desktop = std::move(desktop).value();
        else
            std::exit(2);
        if (auto session = Session::open(*m_desktop, {{volume, "alice", false, {}}, {}}))
            m_session = std::move(session).value();
        else
            std::exit(2);
        m_session->start();
    }

    void end() { m_session->end(); }

private:
    std::unique_ptr<Host> m_host;
    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<Session> m_session;
};

/// The widget of that name in any window; null without one.
template <typename Widget>
Widget* find(const char* name)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = window->findChild<Widget*>(QLatin1String(name)))
            return found;
    return nullptr;
}

} // namespace pryvane::bench
