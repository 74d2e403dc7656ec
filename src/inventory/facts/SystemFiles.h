#pragma once

#include "core/Result.h"
#include "inventory/facts/Facts.h"

#include <string>
#include <string_view>

namespace pryvane {

// Readers of the system's other small files. Bounded whatever the bytes say. Pure; any thread.

/// The lines of a crontab. A user's own names no account, the system's does.
enum class Crontab : std::uint8_t { OfUser, OfSystem };
[[nodiscard]] Result<ReadFacts<StartUpItem>> readCrontab(std::string_view text, Crontab form);

/// How many keys may log in. Lines that are no key count too, as nothing tells that they are not.
[[nodiscard]] Result<ReadFacts<RemoteFact>> readAuthorisedKeys(std::string_view text);

/// The lines of a hosts file that a Mac does not come with.
[[nodiscard]] Result<ReadFacts<RemoteFact>> readHosts(std::string_view text);

/// Name servers and proxies that were set for the network services.
[[nodiscard]] Result<ReadFacts<RemoteFact>> readNetworkSettings(std::string bytes);

/// The switches of remote management.
[[nodiscard]] Result<ReadFacts<RemoteFact>> readRemoteManagement(std::string bytes);

/// The identifier and the name of an application.
struct ApplicationNames {
    std::string identifier;
    std::string name;
};
[[nodiscard]] Result<ApplicationNames> readApplicationNames(std::string bytes);

} // namespace pryvane
