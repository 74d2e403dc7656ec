#pragma once

#include "core/Result.h"
#include "inventory/facts/Facts.h"

#include <string>
#include <utility>
#include <vector>

namespace pryvane {

// Readers of property lists around what starts by itself. Each takes the whole file; an error says
// what is broken or not understood. Bounded whatever the bytes say. Pure; any thread.

/// One job of launchd. Its kind and `application` are the caller's to fill.
[[nodiscard]] Result<StartUpItem> readLaunchJob(std::string bytes);

/// Labels of jobs with whether each is switched off.
[[nodiscard]] Result<std::vector<std::pair<std::string, bool>>> readDisabledJobs(std::string bytes);

/// The login items that a user's preferences hold (up to 10.12).
[[nodiscard]] Result<ReadFacts<StartUpItem>> readLoginItems(std::string bytes);

/// What the login window runs: hooks, and applications that it opens for everybody.
[[nodiscard]] Result<ReadFacts<StartUpItem>> readLoginHooks(std::string bytes);

/// The rules of the event monitor, each with the command that it runs.
[[nodiscard]] Result<ReadFacts<StartUpItem>> readEventRules(std::string bytes);

/// The system extensions that were installed.
[[nodiscard]] Result<ReadFacts<StartUpItem>> readSystemExtensions(std::string bytes);

} // namespace pryvane
