#include "app/program/Desktop.h"

#include "app/views/Looks.h"
#include "hosts/Host.h"
#include "store/SqliteUserDefaults.h"

namespace pryvane {

Desktop::Desktop(Host& own, const std::string& dataFolder)
    : host(own), machine(own.machineInfo()), system(makeDesktopHost(own, dataFolder, log)),
      m_dataFolder(dataFolder)
{
}

Desktop::~Desktop() = default;

Result<std::unique_ptr<Desktop>> Desktop::open(Host& host, const std::string& dataFolder)
{
    std::unique_ptr<Desktop> desktop(new Desktop(host, dataFolder));
    auto opened = SqliteUserDefaults::open(dataFolder, desktop->log);
    if (!opened)
        return opened.error();
    desktop->m_notice = opened->notice.value_or("");
    desktop->m_defaults = std::move(opened->defaults);
    desktop->m_looks = std::make_unique<Looks>(*desktop->m_defaults);
    desktop->system->followLook(
        [looks = desktop->m_looks.get()](std::optional<bool> dark, bool contrast) {
            looks->desktopHas(dark, contrast);
        });
    return desktop;
}

} // namespace pryvane
