#include "hosts/qt/bus/BusFileViewer.h"

#include "core/Escape.h"
#include "core/HostKernel.h"
#include "volume/PathParts.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>

namespace pryvane {

namespace {

constexpr int kPatience = 5000; // ms; a viewer may have to be started

const Error kNoViewer{"no file viewer could be started; look for the item with a program of your "
                      "own (its path can be copied)"};

/// Percent-encoded, so that bytes which are not UTF-8 arrive as they are.
QUrl urlOf(const std::string& hostPath)
{
    return QUrl::fromEncoded(QByteArray::fromStdString("file://" + percentEncoded(hostPath)));
}

} // namespace

BusFileViewer::BusFileViewer(QDBusConnection bus, VolumeFileSystem& volume, Log& log,
                             OpenFolder openFolder)
    : m_bus(std::move(bus)), m_volume(volume), m_log(log), m_openFolder(std::move(openFolder))
{
}

/// The folder's path is asked of the kernel, by the handle that the volume gives: joining names
/// would follow the volume's own links out into the host.
std::optional<BusFileViewer::HostPlace> BusFileViewer::hostPlaceOf(const FileURL& item)
{
    const auto spelled = m_volume.spelledPath(item);
    if (!spelled || m_volume.kind(item) == FileKind::Missing)
        return std::nullopt;
    const ParentAndName parts = parentAndName(*spelled);
    const UniqueFd folder(m_volume.openFolder(FileURL::fileURLWithPath(parts.parent)));
    std::string path = folder ? pathOfHandle(folder.get()) : std::string();
    if (path.empty())
        return std::nullopt;
    return HostPlace{std::move(path), parts.name};
}

Result<Done> BusFileViewer::reveal(const FileURL& item)
{
    const auto place = hostPlaceOf(item);
    if (!place)
        return Error{"\"" + forScreen(item.absolutePath()) + "\" is not there any more"};
    const QUrl folder = urlOf(place->folder);
    if (!m_bus.isConnected())
        return m_openFolder(folder) ? Result<Done>(Done{}) : Result<Done>(kNoViewer);

    const bool isRoot = place->name == ".";
    const std::string host =
        isRoot ? place->folder : (place->folder == "/" ? "" : place->folder) + "/" + place->name;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"),
        isRoot ? QStringLiteral("ShowFolders") : QStringLiteral("ShowItems"));
    call << QStringList(QString::fromLatin1(urlOf(host).toEncoded())) << QString();
    auto* reply = new QDBusPendingCallWatcher(m_bus.asyncCall(call, kPatience), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply, folder] {
        reply->deleteLater();
        // One that is only slow would else show the folder twice.
        if (reply->isError() && reply->error().type() != QDBusError::NoReply)
            showInstead(folder);
    });
    return Done{};
}

void BusFileViewer::showInstead(const QUrl& folder)
{
    if (!m_openFolder(folder))
        m_log.line(kNoViewer.message);
}

} // namespace pryvane
