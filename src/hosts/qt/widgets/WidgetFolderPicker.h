#pragma once

#include "platform/FolderPicker.h"

#include <string>

namespace pryvane {

/// An open panel for folders of the volume whose root is a folder of this host. Folders that may
/// not be chosen are shown greyed and are not accepted, typed or clicked. Names that are no valid
/// text cannot be chosen.
class WidgetFolderPicker final : public FolderPicker {
public:
    /// The volume's host folder, absolute and without links on the way.
    explicit WidgetFolderPicker(std::string volumeFolder);

    [[nodiscard]] std::optional<FileURL> pickFolder(const FolderQuestion& question) override;

private:
    std::string m_volumeFolder; ///< empty for "/"
};

} // namespace pryvane
