#include "app/program/Desktop.h"

#include "app/views/Looks.h"
#include "hosts/Host.h"
#include "platform/UserDefaults.h"
#include "store/SqliteUserDefaults.h"
#include "ui/RowTable.h"

namespace pryvane {

namespace {

const std::string kWidthsOf = "ColumnWidths ";

} // namespace

Desktop::Desktop(Host& own, const std::string& dataFolder)
    : host(own), machine(own.machineInfo()), system(makeDesktopHost(own, dataFolder, log)),
      m_dataFolder(dataFolder)
{
}

Desktop::~Desktop()
{
    ui::setWidthKeeper({});
}

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
    // What cannot be kept holds until the program ends.
    ui::setWidthKeeper({[defaults = desktop->m_defaults.get()](const std::string& table) {
                            const auto kept = defaults->getBytes(kWidthsOf + table);
                            return kept ? kept->data : std::string();
                        },
                        [defaults = desktop->m_defaults.get()](const std::string& table,
                                                               const std::string& widths) {
                            static_cast<void>(
                                defaults->setObject(kWidthsOf + table, Bytes{widths}));
                        }});
    return desktop;
}

} // namespace pryvane
