#pragma once

#include "platform/FileURL.h"

#include <functional>
#include <optional>
#include <string>

namespace pryvane {

/// What an open panel for one folder shows and allows.
struct FolderQuestion {
    std::string prompt;
    std::string message;
    FileURL directory;                          ///< where it opens
    std::function<bool(const FileURL&)> allows; ///< which folders may be chosen; empty: all
};

/// Lets the user choose one folder. Main thread only.
class FolderPicker {
public:
    virtual ~FolderPicker() = default;

    /// The chosen folder, or none when the user cancelled.
    [[nodiscard]] virtual std::optional<FileURL> pickFolder(const FolderQuestion& question) = 0;
};

} // namespace pryvane
