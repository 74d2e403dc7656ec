#include "platform/Removal.h"

namespace pryvane {

namespace {

std::string_view sentence(RemovalObstacle obstacle)
{
    switch (obstacle) {
    case RemovalObstacle::None:
        return {};
    case RemovalObstacle::ProtectedPlace:
        return "this folder is never removed; choose what lies inside it";
    case RemovalObstacle::LinkOnTheWay:
        return "a link on the way leads elsewhere than when it was found; look again first";
    case RemovalObstacle::KindChanged:
        return "it is no longer what it was when it was found; look again first";
    case RemovalObstacle::MountPoint:
        return "another disk is mounted there; eject it first";
    case RemovalObstacle::ReadOnlyVolume:
        return "the volume is mounted read-only; mount it for writing first";
    case RemovalObstacle::NotPermitted:
        return "the folder that holds it may not be changed; ask its owner, or run this with the "
               "rights to";
    case RemovalObstacle::Locked:
        return "it is locked against changes; unlock it first";
    case RemovalObstacle::Busy:
        return "it is in use; close what uses it and try again";
    case RemovalObstacle::KeepsRefilling:
        return "something keeps filling the folder; stop that first";
    case RemovalObstacle::KeepsChanging:
        return "its name or one in it is exchanged again and again; stop what does that first";
    case RemovalObstacle::Unreadable:
        return "its folder cannot be read; run this with the rights to";
    case RemovalObstacle::OtherVolume:
        return "the report is of another volume; connect that one";
    case RemovalObstacle::UnknownVolume:
        return "it cannot be told whether the report is of this disk; scan it again first";
    case RemovalObstacle::RemoteDesktop:
        return "remote desktop is not removed; switch it off in the Mac's Sharing settings";
    case RemovalObstacle::Confined:
        return "the system stopped a removal outside the volume";
    case RemovalObstacle::Stopped:
        return "stopped before it was done; remove it again to finish";
    case RemovalObstacle::DeviceError:
        return "the system reports an error; check the disk, then try again";
    case RemovalObstacle::GivenUp:
        return "it was given up";
    }
    return {};
}

} // namespace

std::string obstacleText(RemovalObstacle obstacle, std::string_view detail)
{
    std::string text(sentence(obstacle));
    if (!text.empty() && !detail.empty())
        text.append(" (").append(detail).append(")");
    return text;
}

std::string RemovalResult::note() const
{
    std::string text = outcome == RemovalOutcome::Failed ? reason() : std::string();
    if (!remark.empty())
        text.append(text.empty() ? "" : "; ").append(remark);
    return text;
}

std::string plannedLocation(const FileURL& url, const RemovalForecast& forecast)
{
    std::string text = url.relativePath();
    if (!forecast.place.empty())
        text.append(" -> ").append(forecast.place);
    return text;
}

} // namespace pryvane
