#pragma once

#include "platform/DesktopPrograms.h"
#include "platform/Messages.h"
#include "volume/VolumeFileSystem.h"

#include <QDBusConnection>
#include <QObject>
#include <QUrl>

#include <functional>
#include <optional>

namespace pryvane {

/// The file viewer by org.freedesktop.FileManager1, which selects the item; where no program offers
/// that, by opening the folder that holds it. What is shown lies inside the volume, whatever links
/// the path goes through.
class BusFileViewer final : public QObject, public FileViewer {
    Q_OBJECT

public:
    /// Opens a folder with the desktop's program for folders; false where there is none.
    using OpenFolder = std::function<bool(const QUrl& folder)>;

    BusFileViewer(QDBusConnection bus, VolumeFileSystem& volume, Log& log, OpenFolder openFolder);

    Result<Done> reveal(const FileURL& item) override;

private:
    struct HostPlace {
        std::string folder; ///< without any link on the way
        std::string name;   ///< "." for the volume's root
    };
    [[nodiscard]] std::optional<HostPlace> hostPlaceOf(const FileURL& item);
    void showInstead(const QUrl& folder);

    QDBusConnection m_bus;
    VolumeFileSystem& m_volume;
    Log& m_log;
    OpenFolder m_openFolder;
};

} // namespace pryvane
