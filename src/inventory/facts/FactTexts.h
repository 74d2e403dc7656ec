#pragma once

#include "inventory/facts/Facts.h"

#include <string>
#include <string_view>

namespace pryvane {

// Words for a person. What comes from the disk is in them as raw bytes: escape at the sink.

/// The heading of a list, its name in JSON and on the command line.
struct FactKindWords {
    const char* title;
    const char* key;
    const char* option;
};
[[nodiscard]] const FactKindWords& words(FactKind kind);

/// A heading, and what it means in two plain sentences, the second one saying what to do.
struct GroupWords {
    const char* title;
    const char* meaning;
};
[[nodiscard]] const GroupWords& words(PermissionGroup group);
[[nodiscard]] const GroupWords& words(StartUpKind kind);
[[nodiscard]] const GroupWords& words(RemoteKind kind);

[[nodiscard]] PermissionGroup groupOf(std::string_view service);

/// What a service lets a program do: "the camera"; the system's own name where it is not known.
[[nodiscard]] std::string serviceText(std::string_view service);

[[nodiscard]] const char* decisionText(Decision decision);

/// "you (3)", "the system (4)"; empty where the system noted nobody.
[[nodiscard]] std::string decidedByText(const Permission& permission);

[[nodiscard]] const char* onOffText(OnOff state);

/// "still there, in a hidden folder", "missing", "not known".
[[nodiscard]] std::string whereaboutsText(const ProgramOnDisk& program);

/// "alice", "whole Mac".
[[nodiscard]] std::string whoseText(const std::string& user);

/// "not read", "not understood", "only partly read"; empty where it was read.
[[nodiscard]] const char* stateText(SourceNote::State state);

} // namespace pryvane
