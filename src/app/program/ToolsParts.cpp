#include "app/program/ToolsParts.h"

#include "privacy/views/ToolsView.h"
#include "volume/VolumeFileSystem.h"

namespace pryvane {

ToolsParts::ToolsParts(const PlatformServices& services, VolumeFileSystem& disk, Remover& remover,
                       const std::string& user, std::function<void(const FileURL&)> reveal)
    : m_reveal(std::move(reveal)), m_sizes(disk), m_inventorySizes(disk),
      m_tools({{disk, m_sizes}, remover, services.mainQueue, services.alerts, services.workspace},
              user),
      m_inventory({{disk, m_inventorySizes}, services.mainQueue}, user)
{
}

MadeScreen ToolsParts::makeScreen()
{
    auto* view = new ToolsView(m_tools, m_inventory);
    QObject::connect(view, &ToolsView::revealWanted, view, m_reveal);
    return {view, [view] { view->viewWillAppear(); }, [view] { view->focusFilter(); }};
}

} // namespace pryvane
