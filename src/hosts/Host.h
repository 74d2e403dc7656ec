#pragma once

#include "core/Result.h"

#include <memory>
#include <string>
#include <vector>

namespace pryvane {

class FileSystem;
class MachineInfo;
class Workspace;

/// What this system gives every program of ours, with a window or without. Each system has one of
/// its own; nobody but the programs asks for it. Callable from any thread.
class Host {
public:
    virtual ~Host() = default;

    /// What is known of applications on that disk, in /Applications and in the homes of `users`, as
    /// Users.h names them. Those that run have to do with the host's own disk only. The disk must
    /// outlive it.
    [[nodiscard]] virtual std::unique_ptr<Workspace>
    workspace(FileSystem& disk, std::vector<std::string> users, bool isOwnDisk) = 0;

    [[nodiscard]] virtual std::unique_ptr<MachineInfo> machineInfo() = 0;

    /// Where this user's store and journal live, as a host path: PRYVANE_DATA_DIR, or else the
    /// place that the system's customs give. Not created by asking.
    [[nodiscard]] virtual std::string dataFolder() = 0;

    /// Where files are kept that can be made again; made when the first of them is.
    [[nodiscard]] virtual std::string cachesFolder() = 0;

    /// A folder that nobody but this user can enter, for sockets and locks. The error says what to
    /// do.
    [[nodiscard]] virtual Result<std::string> runtimeFolder(const std::string& dataFolder) = 0;

    /// What the system keeps from this process on its own disk, and what to do about it; empty
    /// where there is nothing to say.
    [[nodiscard]] virtual std::string accessAdvice() = 0;

    /// The desktop's permission to take the keyboard, as it came with the start of this program;
    /// may be empty.
    [[nodiscard]] virtual std::string activationToken() = 0;
    /// Has the window that is shown next use that one. Main thread only.
    virtual void useActivationToken(const std::string& token) = 0;
};

/// This system's own. CMake chooses the room that makes it.
[[nodiscard]] std::unique_ptr<Host> makeHost();

} // namespace pryvane
