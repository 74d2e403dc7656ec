#pragma once

#include "app/program/OpenedDisk.h"
#include "app/program/Session.h"
#include "app/views/OpeningWindow.h"

#include <QTimer>

namespace pryvane {

class Desktop;

/// Opens the file that the program was started with, while there is no session yet: a window shows
/// how far the reading of its names is, asks for the password of an encrypted disk, and can be
/// cancelled. What is read in a moment needs no window. Main thread only.
class FileOpening final {
public:
    FileOpening(Desktop& desktop, VolumeChoice choice);

    /// Runs the main loop until the names are read. None where that was cancelled; an error where
    /// the file cannot be looked at.
    [[nodiscard]] Result<std::optional<NextDisk>> run();

    void bringToFront();

private:
    void begin();
    void ended(Result<std::shared_ptr<OpenedDisk>> disk, bool isLocked);
    void show();

    VolumeChoice m_choice;
    Result<std::optional<NextDisk>> m_opened = std::optional<NextDisk>();
    OpeningWindow m_window;
    QTimer m_progress;
    DiskOpening m_opening;
};

} // namespace pryvane
