#pragma once

#include "inventory/facts/Facts.h"

#include <span>

namespace pryvane {

/// How the files of a source are read.
enum class FactReader : std::uint8_t {
    PermissionDatabase,
    ApplicationNames, ///< which application an identifier belongs to
    Accounts,         ///< which account a number or an identifier belongs to
    LaunchJob,
    DisabledJobs,
    BackgroundItems,
    LoginItems,
    LoginHooks,
    EventRules,
    SystemExtensions,
    UserCrontab,
    SystemCrontab,
    Names,  ///< that it is there is the fact; it is not opened
    Switch, ///< likewise, and it switches something on
    AuthorisedKeys,
    Hosts,
    NetworkSettings,
    RemoteManagement,
};

/// One place where a Mac keeps facts. What the program reads, what its help and its guide list, and
/// what its tests go through are made from these rows.
struct FactSource {
    FactKind kind;
    /// From the volume's root, or below each home ("~/"). "*" stands for any part of one name.
    const char* place;
    FactReader reader;
    const char* what;    ///< in words
    const char* systems; ///< versions of macOS that have it
    StartUpKind item = StartUpKind::LaunchAgent;
    RemoteKind remote = RemoteKind::Access;
    /// Each file is that of one account, and neither its place nor what it holds says whose.
    bool isOfSomeAccount = false;
};

[[nodiscard]] std::span<const FactSource> factSources();

/// Whether a name fits a pattern with at most one "*".
[[nodiscard]] bool fitsPattern(std::string_view name, std::string_view pattern);

/// Well-known programs that share the screen with somebody elsewhere, by what their labels and
/// paths hold, in lower case.
struct RemoteTool {
    const char* mark;
    const char* name;
};
[[nodiscard]] std::span<const RemoteTool> remoteTools();

/// Jobs of the system that let somebody in when they are switched on.
struct RemoteService {
    const char* label;
    const char* what;
};
[[nodiscard]] std::span<const RemoteService> remoteServices();

} // namespace pryvane
