#pragma once

#include "platform/Alerts.h"
#include "platform/FolderPicker.h"

namespace pryvane::cli {

/// A command line has been told everything by its arguments: a question that still comes up is
/// answered by its last button, which declines.
class DecliningAlerts final : public Alerts {
public:
    int runModal(const Alert& alert) override
    {
        const auto count = static_cast<int>(alert.buttons.size());
        return kAlertFirstButton + (count > 0 ? count - 1 : 0);
    }
};

class DecliningFolderPicker final : public FolderPicker {
public:
    [[nodiscard]] std::optional<FileURL> pickFolder(const FolderQuestion&) override
    {
        return std::nullopt;
    }
};

} // namespace pryvane::cli
