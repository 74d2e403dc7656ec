#pragma once

#include "app/views/Screens.h"
#include "inventory/InventoryController.h"
#include "platform/PlatformServices.h"
#include "privacy/ToolsViewController.h"
#include "volume/VolumeSizeMeter.h"

#include <functional>
#include <string>

namespace pryvane {

class VolumeFileSystem;

/// What stands behind the tools screen; made when that is first shown.
class ToolsParts {
public:
    ToolsParts(const PlatformServices& services, VolumeFileSystem& disk, Remover& remover,
               const std::string& user, std::function<void(const FileURL&)> reveal);

    [[nodiscard]] MadeScreen makeScreen();
    [[nodiscard]] bool isBusy() const
    {
        return m_tools.state() == ToolsViewController::State::Cleaning;
    }

private:
    std::function<void(const FileURL&)> m_reveal;
    VolumeSizeMeter m_sizes;
    VolumeSizeMeter m_inventorySizes; ///< both may measure at the same time
    ToolsViewController m_tools;
    InventoryController m_inventory;
};

} // namespace pryvane
