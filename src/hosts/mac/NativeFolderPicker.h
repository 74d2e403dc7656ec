#pragma once

#include "platform/FolderAccess.h"

#include <string>

namespace pryvane {

/// The system's open panel, which is also what gives a program the right to a folder. Folders that
/// may not be chosen are greyed.
class NativeFolderPicker final : public FolderPicker {
public:
    /// The volume's host folder, absolute and without links on the way.
    explicit NativeFolderPicker(std::string volumeFolder);

    [[nodiscard]] std::optional<FileURL> pickFolder(const FolderQuestion& question) override;

private:
    std::string m_volumeFolder; ///< empty for "/"
};

} // namespace pryvane
