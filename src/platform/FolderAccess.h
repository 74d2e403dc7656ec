#pragma once

#include "core/Result.h"
#include "platform/FileURL.h"
#include "platform/UserDefaults.h"

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
    std::string advice = {}; ///< what can be chosen, said where something else was
};

/// Lets the user choose one folder. Main thread only.
class FolderPicker {
public:
    virtual ~FolderPicker() = default;

    /// The chosen folder, or none when the user cancelled.
    [[nodiscard]] virtual std::optional<FileURL> pickFolder(const FolderQuestion& question) = 0;
};

/// Folder grants that outlive the process. Where the host restricts nothing, a sandbox stands in
/// its place: no folder counts as writable until a grant was made or reopened in this process, and
/// from then on the host's own answer counts. Main thread only.
class GrantTokens {
public:
    virtual ~GrantTokens() = default;

    /// A token for a folder that the user has just picked; this process has the access already.
    /// The error says which folder and why.
    [[nodiscard]] virtual Result<Bytes> make(const FileURL& folder) = 0;

    /// Starts the access that the token stands for, until the process ends. False when the token
    /// is damaged, or its folder is gone, replaced, or on another volume.
    [[nodiscard]] virtual bool reopen(const Bytes& token) = 0;

    /// Whether this process may write there, under the restriction.
    [[nodiscard]] virtual bool writable(const FileURL& folder) = 0;
};

} // namespace pryvane
