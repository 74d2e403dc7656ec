#include "app/program/FileOpening.h"

#include "app/program/Desktop.h"
#include "core/Escape.h"
#include "ui/Labels.h"
#include "words/Shown.h"

#include <QApplication>

#include <chrono>
#include <utility>

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kNoWindowFor{150};
constexpr std::chrono::milliseconds kProgressEach{100};

} // namespace

FileOpening::FileOpening(Desktop& desktop, VolumeChoice choice)
    : m_choice(std::move(choice)), m_window(ui::text(forScreen(m_choice.folder))),
      m_opening(desktop.mainQueue)
{
    QObject::connect(&m_window, &OpeningWindow::cancelled, [] { QApplication::exit(); });
    QObject::connect(&m_window, &OpeningWindow::passwordGiven, [this](const QString& password) {
        m_choice.password = password.toStdString();
        begin();
    });
    QObject::connect(&m_progress, &QTimer::timeout, [this] {
        if (!m_window.isVisible())
            show();
        m_progress.setInterval(kProgressEach);
        m_window.showProgress(ui::shown(m_opening.progressText()));
    });
}

Result<std::optional<NextDisk>> FileOpening::run()
{
    m_progress.setInterval(kNoWindowFor);
    begin();
    const int code = QApplication::exec();
    m_progress.stop();
    m_opening.stop();
    if (code != 0)
        return Error{forScreen(m_choice.folder) +
                     " could not be read to its end; close other programs and open it again"};
    return std::move(m_opened);
}

void FileOpening::begin()
{
    m_window.showProgress(ui::shown(m_opening.progressText()));
    m_opening.begin(m_choice,
                    [this](auto disk, bool isLocked) { ended(std::move(disk), isLocked); });
    m_progress.start();
}

void FileOpening::ended(Result<std::shared_ptr<OpenedDisk>> disk, bool isLocked)
{
    m_progress.stop();
    if (!disk && isLocked) {
        show();
        m_window.askForPassword(!m_choice.password.empty());
        return;
    }
    if (disk)
        m_opened = std::optional(NextDisk{m_choice, std::move(disk).value()});
    else
        m_opened = disk.error();
    QApplication::exit();
}

void FileOpening::show()
{
    m_window.show();
    bringToFront();
}

void FileOpening::bringToFront()
{
    m_window.raise();
    m_window.activateWindow();
}

} // namespace pryvane
