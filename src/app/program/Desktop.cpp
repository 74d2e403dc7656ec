#include "app/program/Desktop.h"

#include "core/LoadedModule.h"
#include "hosts/linux/XdgLoginItem.h"
#include "hosts/posix/CurrentUser.h"
#include "store/SqliteUserDefaults.h"

namespace pryvane {

namespace {

XdgLoginItem::Places loginPlaces(const std::string& dataFolder)
{
    const auto helper = besideProgram("pryvane-login-helper"), own = programFile();
    const auto runtime = runtimeFolder(dataFolder);
    return {.autostartFolder = defaultAutostartFolder(),
            .helper = helper ? *helper : std::string(),
            .application = own ? *own : std::string(),
            .runtimeFolder = runtime ? *runtime : std::string()};
}

} // namespace

Desktop::Desktop(std::string dataFolder)
    : bus(QDBusConnection::sessionBus()), m_dataFolder(std::move(dataFolder)),
      m_loginItem(std::make_unique<XdgLoginItem>(loginPlaces(m_dataFolder)))
{
}

Desktop::~Desktop() = default;

Result<std::unique_ptr<Desktop>> Desktop::open(const std::string& dataFolder)
{
    std::unique_ptr<Desktop> desktop(new Desktop(dataFolder));
    auto opened = SqliteUserDefaults::open(dataFolder, desktop->log);
    if (!opened)
        return opened.error();
    desktop->m_notice = opened->notice.value_or("");
    desktop->m_defaults = std::move(opened->defaults);
    return desktop;
}

} // namespace pryvane
